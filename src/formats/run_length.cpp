#include "formats/run_length.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace ink::formats {
namespace {

constexpr std::uint8_t kRun = 0xC0;  // from here on a code byte carries a count
constexpr std::size_t kLongestRun = 63;

// Both directions look at eight bytes in one word, the first of them lowest, and mark bytes in their highest
// bit.
constexpr std::uint64_t kEachLow = 0x7F7F7F7F7F7F7F7F, kEachHigh = 0x8080808080808080;

std::uint64_t load(const std::uint8_t *from) {
    std::uint64_t word = 0;
    for (unsigned i = 0; i < 8; ++i) word |= std::uint64_t{from[i]} << (8 * i);
    return word;
}
std::uint64_t mark_runs(std::uint64_t word) {
    return word & (word << 1) & kEachHigh;  // both top bits set: 0xC0 and above
}
std::uint64_t mark_not_zero(std::uint64_t word) {
    return (((word & kEachLow) + kEachLow) | word) & kEachHigh;
}
// The marks side by side, that of the first byte lowest.
std::uint64_t gather(std::uint64_t marks) {
    return ((marks >> 7) * 0x0102040810204080) >> 56;
}
// The index of the first byte marked; 8 when none is.
std::size_t first_mark(std::uint64_t marks) {
    return static_cast<std::size_t>(std::countr_zero(marks)) / 8;
}

// Which of up to 64 pixels are the last of their colour: a bit for each that differs from its successor, and
// for the last of the row. left is how many pixels the row still has.
std::uint64_t find_ends(const std::uint8_t *pixels, std::size_t left) {
    std::uint64_t ends = 0;
    if (left > 64) {
        for (unsigned i = 0; i < 64; i += 8)
            ends |= gather(mark_not_zero(load(pixels + i) ^ load(pixels + i + 1))) << i;
        return ends;
    }
    for (std::size_t i = 0; i + 1 < left; ++i) ends |= std::uint64_t{pixels[i] != pixels[i + 1]} << i;
    return ends | std::uint64_t{1} << (left - 1);
}

}  // namespace

std::size_t encode_row(std::span<const std::uint8_t> pixels, std::uint8_t *code) {
    const std::uint8_t *const row = pixels.data();
    std::uint8_t *to = code;
    std::size_t start = 0;  // of the stretch of one colour
    for (std::size_t block = 0; block < pixels.size(); block += 64) {
        for (auto ends = find_ends(row + block, pixels.size() - block); ends != 0; ends &= ends - 1) {
            const std::size_t behind = block + static_cast<std::size_t>(std::countr_zero(ends)) + 1;
            const std::uint8_t pixel = row[start];
            std::size_t length = behind - start;
            start = behind;
            for (; length > kLongestRun; length -= kLongestRun) {
                *to++ = kRun | kLongestRun;
                *to++ = pixel;
            }
            // The count is written in any case and overwritten where the pixel stands for itself: whether it
            // does is as good as random, and a branch would be mispredicted.
            *to = static_cast<std::uint8_t>(kRun | length);
            to += (length > 1) | (pixel >= kRun);
            *to++ = pixel;
        }
    }
    return static_cast<std::size_t>(to - code);
}

std::size_t RunDecoder::decode(std::uint8_t *pixels, std::size_t count) {
    std::uint8_t *to = pixels, *const end = pixels + count;
    const auto fill = [&](std::size_t length) {
        const std::size_t fits = std::min(length, static_cast<std::size_t>(end - to));
        to = std::fill_n(to, fits, value_);
        run_ = length - fits;
    };
    fill(run_);

    // Most is expanded beside the picture, where a code may write more than it gives, so that no length is
    // branched on; then what it gave is copied. A step looks at kAhead bytes of code at once. As many are
    // still to come, whatever length the caller states, as long as the picture lacks more than kLacking
    // pixels: that many come of no fewer.
    constexpr std::ptrdiff_t kAhead = 9, kLacking = kAhead / 2 * std::ptrdiff_t{kLongestRun};
    constexpr std::ptrdiff_t kLiterals = 8, kWindow = 64, kBlock = 2048;
    std::array<std::uint8_t, kBlock + kLiterals + kWindow> block;
    while (end - to > kLacking && end_ - next_ >= kAhead) {
        const std::uint8_t *from = next_;
        std::uint8_t *at = block.data();
        const std::uint8_t *const full = at + std::min(end - to - kLacking, kBlock);
        while (at < full && end_ - from >= kAhead) {
            if (*from < kRun) {
                const std::size_t literals = first_mark(mark_runs(load(from)));
                std::memcpy(at, from, kLiterals);
                at += literals;
                from += literals;
                if (literals == kLiterals) continue;
            }
            std::memset(at, from[1], kWindow);
            at += *from & kLongestRun;
            from += 2;
        }
        to = std::copy(block.data(), at, to);
        next_ = from;
    }
    while (to < end && next_ < end_) {
        std::size_t length = 1;
        if (*next_ >= kRun) length = *next_++ & kLongestRun;
        if (next_ == end_) break;  // a count without its pixel
        value_ = *next_++;
        fill(length);
    }
    return static_cast<std::size_t>(to - pixels);
}

}  // namespace ink::formats
