#include "formats/run_length.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace ink::formats {
namespace {

constexpr std::uint8_t kRun = 0xC0;  // from here on a code byte carries a count
constexpr std::size_t kLongestRun = 63;

// Both directions look at eight bytes in one word, the first of them lowest. A test marks bytes in their
// highest bit; the lowest mark is exact, those above it need not be.
constexpr std::uint64_t kEachLow = 0x0101010101010101, kEachHigh = 0x8080808080808080;

std::uint64_t load(const std::uint8_t *from) {
    std::uint64_t word = 0;
    for (unsigned i = 0; i < 8; ++i) word |= std::uint64_t{from[i]} << (8 * i);
    return word;
}
std::uint64_t mark_runs(std::uint64_t word) {
    return word & (word << 1) & kEachHigh;  // both top bits set: 0xC0 and above
}
std::uint64_t mark_zeros(std::uint64_t word) {
    return (word - kEachLow) & ~word & kEachHigh;
}
std::size_t first_mark(std::uint64_t marks) {
    return static_cast<std::size_t>(std::countr_zero(marks)) / 8;
}

// How many code bytes from here on are pixels.
std::size_t count_literal_codes(const std::uint8_t *code, std::size_t count) {
    std::size_t i = 0;
    for (; i + 8 <= count; i += 8)
        if (const std::uint64_t marks = mark_runs(load(code + i))) return i + first_mark(marks);
    while (i < count && code[i] < kRun) ++i;
    return i;
}

// How many pixels from here on are coded as themselves: those below 0xC0 that differ from their successor.
std::size_t count_literal_pixels(const std::uint8_t *pixels, std::size_t count) {
    std::size_t i = 0;
    for (; i + 9 <= count; i += 8) {
        const std::uint64_t word = load(pixels + i);
        if (const std::uint64_t marks = mark_runs(word) | mark_zeros(word ^ load(pixels + i + 1)))
            return i + first_mark(marks);
    }
    while (i < count && pixels[i] < kRun && (i + 1 == count || pixels[i] != pixels[i + 1])) ++i;
    return i;
}

// How many pixels from here on equal the first, which there must be; at most as many as one run holds.
std::size_t count_equal_pixels(const std::uint8_t *pixels, std::size_t count) {
    count = std::min(count, kLongestRun);
    std::size_t i = 1;
    for (; i + 8 <= count; i += 8)
        if (const std::uint64_t difference = load(pixels + i) ^ (pixels[0] * kEachLow))
            return i + first_mark(difference);
    while (i < count && pixels[i] == pixels[0]) ++i;
    return i;
}

}  // namespace

std::size_t encode_row(std::span<const std::uint8_t> pixels, std::uint8_t *code) {
    const std::uint8_t *from = pixels.data();
    std::uint8_t *to = code;
    for (std::size_t left = pixels.size(); left > 0;) {
        std::size_t count = count_literal_pixels(from, left);
        if (count > 0) {
            std::memcpy(to, from, count);
            to += count;
        } else {
            count = count_equal_pixels(from, left);
            *to++ = static_cast<std::uint8_t>(kRun | count);
            *to++ = *from;
        }
        from += count;
        left -= count;
    }
    return static_cast<std::size_t>(to - code);
}

std::size_t RunDecoder::decode(std::uint8_t *pixels, std::size_t count) {
    std::size_t written = 0;
    while (written < count) {
        std::size_t length = 0;
        if (run_ > 0) {
            length = std::min(run_, count - written);
            std::memset(pixels + written, value_, length);
            run_ -= length;
        } else if (next_ == end_) {
            break;
        } else if (*next_ < kRun) {
            const auto left = static_cast<std::size_t>(end_ - next_);
            length = count_literal_codes(next_, std::min(left, count - written));
            std::memcpy(pixels + written, next_, length);
            next_ += length;
        } else if (end_ - next_ < 2) {
            next_ = end_;  // a count without its pixel
        } else {
            run_ = *next_ & kLongestRun;
            value_ = next_[1];
            next_ += 2;
        }
        written += length;
    }
    return written;
}

}  // namespace ink::formats
