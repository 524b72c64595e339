#include "formats/run_length.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace ink::formats {
namespace {

constexpr std::uint8_t kRun = 0xC0;  // from here on a code byte carries a count
constexpr std::size_t kLongestRun = 63;

// What the fast part of the decoder writes at once: whole words that hold any run.
constexpr std::ptrdiff_t kWindow = 64;

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
// The index of the first byte marked; 8 when none is.
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

RunDecoder::RunDecoder(std::span<const std::uint8_t> code)
    : next_(code.data()), end_(code.data() + code.size()), certain_(end_) {
    // A code gives at least one pixel for each of its bytes, or for two, unless it is a run of none, which
    // can be told by its 0xC0. One byte at each end may belong to a code that is not whole.
    for (std::ptrdiff_t balance = -2; balance < 2 * kWindow && certain_ > next_;
         balance += *certain_ == kRun ? -1 : 1)
        --certain_;
}

std::size_t RunDecoder::decode(std::uint8_t *pixels, std::size_t count) {
    std::uint8_t *to = pixels, *const end = pixels + count;
    const std::uint8_t *from = next_;
    const auto fill = [&](std::size_t length) {
        const std::size_t fits = std::min(length, static_cast<std::size_t>(end - to));
        to = std::fill_n(to, fits, value_);
        run_ = length - fits;
    };
    fill(run_);

    // As long as more pixels than that are sure to follow, a code may write more than it gives: no length is
    // branched on.
    while (end - to >= kWindow && certain_ - from >= 8) {
        if (*from >= kRun) {
            const std::uint64_t word = from[1] * kEachLow;
            for (std::ptrdiff_t i = 0; i < kWindow; i += 8) std::memcpy(to + i, &word, 8);
            to += *from & kLongestRun;
            from += 2;
        } else {
            const std::size_t literals = first_mark(mark_runs(load(from)));
            std::memcpy(to, from, 8);
            to += literals;
            from += literals;
        }
    }
    while (to < end && from < end_) {
        if (*from < kRun) {
            const auto most = static_cast<std::size_t>(std::min(end_ - from, end - to));
            const std::size_t literals = count_literal_codes(from, most);
            std::memcpy(to, from, literals);
            to += literals;
            from += literals;
        } else if (end_ - from >= 2) {
            const std::size_t length = *from & kLongestRun;
            value_ = from[1];
            from += 2;
            fill(length);
        } else {
            from = end_;  // a count without its pixel
        }
    }
    next_ = from;
    return static_cast<std::size_t>(to - pixels);
}

}  // namespace ink::formats
