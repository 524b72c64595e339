// Adaptive binary range coding: every bit is written with the chance that the bits before it, in its place,
// give it, so that what was to be expected costs next to nothing. Encoder and Decoder have the same
// operations. Each takes the value to be coded and gives back the value: the encoder the one that it was
// given, the decoder the one that it reads. So the model of a thing is written once, for both directions.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace ink::host {

// How likely the next bit in a place is 0, in 32768ths. It follows the first bits fast and later ones slowly.
class Chance {
  public:
    static constexpr unsigned kBits = 15;

    std::uint32_t zero() const { return zero_; }
    void learn(bool bit) {
        const unsigned shift = 2U + seen_ / 4U;
        if (bit)
            zero_ = static_cast<std::uint16_t>(zero_ - (zero_ >> shift));
        else
            zero_ = static_cast<std::uint16_t>(zero_ + (((1U << kBits) - zero_) >> shift));
        if (seen_ < 12) ++seen_;
    }

  private:
    std::uint16_t zero_ = 1U << (kBits - 1);
    std::uint8_t seen_ = 0;
};

class Encoder {
  public:
    bool bit(Chance &chance, bool bit) {
        const std::uint32_t bound = (range_ >> Chance::kBits) * chance.zero();
        if (bit) {
            low_ += bound;
            range_ -= bound;
        } else {
            range_ = bound;
        }
        chance.learn(bit);
        while (range_ < kSmallest) shift();
        return bit;
    }
    // A bit of which nothing can be foretold.
    bool raw(bool bit) {
        range_ >>= 1;
        if (bit) low_ += range_;
        while (range_ < kSmallest) shift();
        return bit;
    }
    bool ok() const { return true; }
    void fail() {}

    // Ends the block and gives it; the next bit begins another. Throws std::bad_alloc, as the others do.
    std::vector<std::uint8_t> finish() {
        for (int i = 0; i < 5; ++i) shift();
        low_ = 0;
        range_ = 0xFFFFFFFF;
        pending_ = 1;
        cache_ = 0;
        return std::exchange(bytes_, {});
    }

  private:
    static constexpr std::uint32_t kSmallest = 1U << 24;

    // Moves the highest byte out. While it is 255 a carry may still change those before it, which wait.
    void shift() {
        if (low_ < 0xFF000000U || low_ > 0xFFFFFFFFU) {
            const auto carry = static_cast<std::uint8_t>(low_ >> 32);
            for (; pending_ > 0; --pending_) {
                bytes_.push_back(static_cast<std::uint8_t>(cache_ + carry));
                cache_ = 0xFF;
            }
            cache_ = static_cast<std::uint8_t>(low_ >> 24);
        }
        ++pending_;
        low_ = (low_ & 0x00FFFFFFU) << 8;
        range_ <<= 8;
    }

    std::vector<std::uint8_t> bytes_;
    std::uint64_t low_ = 0;
    std::uint32_t range_ = 0xFFFFFFFF;
    std::uint64_t pending_ = 1;  // bytes that a carry can still change: one, and those of 255 behind it
    std::uint8_t cache_ = 0;
};

class Decoder {
  public:
    Decoder() = default;
    explicit Decoder(std::span<const std::uint8_t> bytes) : bytes_(bytes) {
        for (int i = 0; i < 5; ++i) code_ = code_ << 8 | next();
    }

    bool bit(Chance &chance, bool = false) {
        const std::uint32_t bound = (range_ >> Chance::kBits) * chance.zero();
        const bool bit = code_ >= bound;
        if (bit) {
            code_ -= bound;
            range_ -= bound;
        } else {
            range_ = bound;
        }
        chance.learn(bit);
        refill();
        return bit;
    }
    bool raw(bool = false) {
        range_ >>= 1;
        const bool bit = code_ >= range_;
        if (bit) code_ -= range_;
        refill();
        return bit;
    }
    // False once more was read than is there, or something was read that nobody writes.
    bool ok() const { return !failed_; }
    void fail() { failed_ = true; }

  private:
    void refill() {
        for (; range_ < 1U << 24; range_ <<= 8) code_ = code_ << 8 | next();
    }
    std::uint8_t next() {
        if (at_ < bytes_.size()) return bytes_[at_++];
        failed_ = true;
        return 0;
    }

    std::span<const std::uint8_t> bytes_;
    std::size_t at_ = 0;
    std::uint32_t range_ = 0xFFFFFFFF, code_ = 0;
    bool failed_ = false;
};

// A number of so many bits, the highest first, each with a chance of its own after those before it.
template <unsigned bits>
using Tree = std::array<Chance, std::size_t{1} << bits>;

template <unsigned bits, class Coder>
std::uint32_t code_tree(Coder &coder, Tree<bits> &tree, std::uint32_t value) {
    std::uint32_t node = 1;
    for (unsigned i = bits; i-- > 0;)
        node = node << 1 | std::uint32_t{coder.bit(tree[node], (value >> i & 1) != 0)};
    return node - (1U << bits);
}

// Any whole number: how many bits it has, then those behind its highest, of which the first three are learnt.
struct NumberModel {
    Tree<7> length;
    std::array<Tree<3>, 65> top;
};

template <class Coder>
std::uint64_t code_number(Coder &coder, NumberModel &model, std::uint64_t value) {
    const std::uint32_t length =
        code_tree<7>(coder, model.length, static_cast<std::uint32_t>(std::bit_width(value)));
    if (length > 64) coder.fail();
    if (length < 2 || length > 64) return length == 1 ? 1 : 0;
    std::uint64_t coded = 1;
    std::uint32_t node = 1;
    for (unsigned i = length - 1; i-- > 0;) {
        bool bit = (value >> i & 1) != 0;
        bit = node < 8 ? coder.bit(model.top[length][node], bit) : coder.raw(bit);
        if (node < 8) node = node << 1 | std::uint32_t{bit};
        coded = coded << 1 | std::uint64_t{bit};
    }
    return coded;
}

// The same for one that may lie below 0.
template <class Coder>
std::int64_t code_signed(Coder &coder, NumberModel &model, std::int64_t value) {
    const auto folded = static_cast<std::uint64_t>(value) << 1 ^ static_cast<std::uint64_t>(value >> 63);
    const std::uint64_t coded = code_number(coder, model, folded);
    return static_cast<std::int64_t>(coded >> 1 ^ (std::uint64_t{0} - (coded & 1)));
}

}  // namespace ink::host
