// The window of the LZSS family and the numbers that both of its forms share.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <span>

namespace ink::data {

inline constexpr unsigned kWindowSize = 4096;
inline constexpr unsigned kLongestMatch = 17;  // as many bytes are looked ahead
inline constexpr unsigned kShortestMatch = 2;  // fewer bytes are coded as literals
inline constexpr unsigned kFirstPosition = 1;  // where the first byte of the data goes

constexpr unsigned wrap(unsigned position) {
    return position % kWindowSize;
}

// The ring of the most recent bytes. Its first bytes are repeated behind its last, so that the string of
// kLongestMatch bytes at any position lies in one piece. What a call leaves in it stays for the next one:
// where the data ends, the bytes behind it may decide between matches that are equally good.
class Window {
  public:
    const std::uint8_t *at(unsigned position) const { return &bytes_[position]; }

    void put(unsigned position, std::uint8_t byte) {
        bytes_[position] = byte;
        if (position < kRepeated) bytes_[position + kWindowSize] = byte;
    }

    // Puts bytes, at most kWindowSize, at a position and those that follow it.
    void put(unsigned position, std::span<const std::uint8_t> bytes) {
        const std::size_t before_end = std::min<std::size_t>(bytes.size(), kWindowSize - position);
        std::copy_n(bytes.data(), before_end, &bytes_[position]);
        std::copy_n(bytes.data() + before_end, bytes.size() - before_end, bytes_.data());
        std::copy_n(bytes_.data(), kRepeated, &bytes_[kWindowSize]);
    }

  private:
    static constexpr unsigned kRepeated = kLongestMatch - 1;
    std::array<std::uint8_t, kWindowSize + kRepeated> bytes_{};
};

// Eight bytes as a number, the first as the most significant: its order is that of the bytes.
inline std::uint64_t load_word(const std::uint8_t *bytes) {
    std::uint64_t word;
    std::memcpy(&word, bytes, sizeof word);
    if constexpr (std::endian::native == std::endian::big) return word;
    constexpr std::uint64_t kByte = 0xFF;
    return word << 56 | (word & kByte << 8) << 40 | (word & kByte << 16) << 24 | (word & kByte << 24) << 8 |
           (word >> 8 & kByte << 24) | (word >> 24 & kByte << 16) | (word >> 40 & kByte << 8) | word >> 56;
}

// A string of kLongestMatch bytes, held so that it is compared with others by whole words.
class WindowString {
  public:
    explicit WindowString(const std::uint8_t *bytes)
        : first_(load_word(bytes)), second_(load_word(bytes + 8)), last_(bytes[16]) {}

    // How many bytes are equal before the first difference.
    unsigned equal_bytes(const std::uint8_t *other) const {
        if (const std::uint64_t different = first_ ^ load_word(other)) return leading_bytes(different);
        if (const std::uint64_t different = second_ ^ load_word(other + 8))
            return 8 + leading_bytes(different);
        return last_ == other[16] ? 17 : 16;
    }

    // Whether this string comes after the other in order. equal is set when they are the same.
    bool is_after(const std::uint8_t *other, bool &equal) const {
        const std::uint64_t first = load_word(other);
        if (first_ != first) [[likely]]
            return first_ > first;
        const std::uint64_t second = load_word(other + 8);
        if (second_ != second) return second_ > second;
        equal = last_ == other[16];
        return last_ > other[16];
    }

  private:
    static unsigned leading_bytes(std::uint64_t different) {
        return static_cast<unsigned>(std::countl_zero(different)) / 8;
    }

    std::uint64_t first_, second_;
    std::uint8_t last_;
};

}  // namespace ink::data
