// The window of the LZSS family and the numbers that both of its forms share.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
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

// A string of kLongestMatch bytes, held so that it is compared with others by whole words.
class WindowString {
  public:
    explicit WindowString(const std::uint8_t *bytes)
        : first_(load(bytes)), second_(load(bytes + 8)), last_(bytes[16]) {}

    struct Comparison {
        unsigned equal;  // how many bytes are equal before the first difference
        bool greater;    // that this string's is the greater there
    };
    Comparison compare(const std::uint8_t *other) const {
        std::uint64_t mine = first_, its = load(other);
        unsigned equal = 0;
        if (mine == its) [[unlikely]] {
            mine = second_;
            its = load(other + 8);
            equal = 8;
            if (mine == its) {
                if (last_ == other[16]) return {kLongestMatch, false};
                return {16, last_ > other[16]};
            }
        }
        return {equal + static_cast<unsigned>(std::countl_zero(mine ^ its)) / 8, mine > its};
    }

  private:
    // Eight bytes as the number that is the greater the later the bytes come in order.
    static std::uint64_t load(const std::uint8_t *b) {
        using Word = std::uint64_t;
        return Word{b[0]} << 56 | Word{b[1]} << 48 | Word{b[2]} << 40 | Word{b[3]} << 32 | Word{b[4]} << 24 |
               Word{b[5]} << 16 | Word{b[6]} << 8 | Word{b[7]};
    }

    std::uint64_t first_, second_;
    std::uint8_t last_;
};

}  // namespace ink::data
