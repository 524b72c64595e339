#include "formats/run_length.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "draw/kernels.h"

namespace ink::formats {
namespace {

constexpr std::uint8_t kRun = 0xC0;  // from here on a code byte carries a count
constexpr std::size_t kLongestRun = 63;

// Eight bytes are looked at in one word, the first of them lowest, and marked in their highest bit.
constexpr std::uint64_t kEachHigh = 0x8080808080808080;

std::uint64_t load(const std::uint8_t *from) {
    std::uint64_t word = 0;
    for (unsigned i = 0; i < 8; ++i) word |= std::uint64_t{from[i]} << (8 * i);
    return word;
}
std::uint64_t mark_runs(std::uint64_t word) {
    return word & (word << 1) & kEachHigh;  // both top bits set: 0xC0 and above
}
// The index of the first byte marked; 8 when none is.
std::size_t first_mark(std::uint64_t marks) {
    return static_cast<std::size_t>(std::countr_zero(marks)) / 8;
}

// Which of 64 pixels differ from their successors, the first in the lowest bit; 65 are read.
std::uint64_t find_changes(const std::uint8_t *pixels) {
    std::uint64_t changes = 0;
#if defined(__SSE2__)
    // No compiler finds the instruction that gathers the marks; without it the search takes three times as
    // long as all the rest for a drawn picture.
    for (unsigned i = 0; i < 64; i += 16) {
        const auto sixteen = [pixels](unsigned at) {
            return _mm_loadu_si128(reinterpret_cast<const __m128i *>(pixels + at));
        };
        const int equal = _mm_movemask_epi8(_mm_cmpeq_epi8(sixteen(i), sixteen(i + 1)));
        changes |= static_cast<std::uint64_t>(equal) << i;
    }
    return ~changes;
#else
    for (unsigned i = 0; i < 64; ++i) changes |= std::uint64_t{pixels[i] != pixels[i + 1]} << i;
    return changes;
#endif
}

// Which of up to 64 pixels are the last of a stretch of one colour. left is how many the row still has.
std::uint64_t find_ends(const std::uint8_t *pixels, std::size_t left) {
    if (left > 64) return find_changes(pixels);
    std::array<std::uint8_t, 65> rest{};
    std::copy_n(pixels, left, rest.begin());
    const std::uint64_t last = std::uint64_t{1} << (left - 1);
    return (find_changes(rest.data()) & (last - 1)) | last;
}

// Writes the code of up to 63 pixels of one colour and returns where it ends. The count is written in any
// case and overwritten where the pixel stands for itself: whether it does is as good as random, and a branch
// would be mispredicted. It does not where the length, 1 to 63, is above 1 or the pixel is kRun or above: either
// carries into bit 8, by which both questions are one.
std::uint8_t *put_stretch(std::uint8_t *to, std::size_t length, std::uint8_t pixel) {
    *to = static_cast<std::uint8_t>(kRun | length);
    to += ((length + 62) * 4 | (pixel + 64U)) >> 8;
    *to = pixel;
    return to + 1;
}

// The code of 64 pixels that all differ from their neighbours, as those of noise mostly do: no count is looked at.
std::uint8_t *put_singles(std::uint8_t *to, const std::uint8_t *pixels) {
    for (unsigned i = 0; i < 64; ++i) {
        const std::uint8_t pixel = pixels[i];
        *to = kRun | 1;
        to += pixel >= kRun;
        *to++ = pixel;
    }
    return to;
}

// Expands literals eight at a time, and the longest run with each count.
constexpr std::ptrdiff_t kWordAhead = 9;
void expand_words(draw::Expansion &expansion) {
    constexpr std::size_t kLiterals = 8, kWindow = 64;
    const std::uint8_t *from = expansion.from;
    std::uint8_t *to = expansion.to;
    while (to < expansion.full && expansion.end - from >= kWordAhead) {
        if (*from < kRun) {
            const std::size_t literals = first_mark(mark_runs(load(from)));
            std::memcpy(to, from, kLiterals);
            to += literals;
            from += literals;
            if (literals == kLiterals) continue;
        }
        std::memset(to, from[1], kWindow);
        to += *from & kLongestRun;
        from += 2;
    }
    expansion.from = from;
    expansion.to = to;
}

}  // namespace

std::size_t encode_row(std::span<const std::uint8_t> pixels, std::uint8_t *code) {
    const std::uint8_t *const row = pixels.data();
    std::uint8_t *to = code;
    std::size_t start = 0;  // of the stretch of one colour
    for (std::size_t block = 0; block < pixels.size();) {
        std::uint64_t ends = find_ends(row + block, pixels.size() - block);
        // Three pixels in a row that each end a stretch are rare in pictures of long ones.
        if ((ends & ends >> 1 & ends >> 2) != 0 && draw::kernels.encode_short_runs != nullptr) {
            std::uint8_t *coded = to;  // one of its own, so that the other need not stand in memory
            start += static_cast<std::size_t>(draw::kernels.encode_short_runs(
                row + start, static_cast<std::ptrdiff_t>(pixels.size() - start), coded));
            to = coded;
            block = start;
            continue;
        }
        const std::size_t first = block;
        block += 64;
        if (ends == 0) continue;
        if (~ends == 0 && start == first) {
            to = put_singles(to, row + start);
            start = block;
            continue;
        }
        // Only a stretch that began in an earlier block is longer than one run.
        std::size_t behind = first + static_cast<std::size_t>(std::countr_zero(ends)) + 1;
        for (; behind - start > kLongestRun; start += kLongestRun)
            to = put_stretch(to, kLongestRun, row[start]);
        to = put_stretch(to, behind - start, row[start]);
        while ((ends &= ends - 1) != 0) {
            start = behind;
            behind = first + static_cast<std::size_t>(std::countr_zero(ends)) + 1;
            to = put_stretch(to, behind - start, row[start]);
        }
        start = behind;
    }
    return static_cast<std::size_t>(to - code);
}

// Most is expanded beside the picture, where a code may write more than it gives, so that no length is branched on;
// then what it gave is copied. A step looks at so many bytes of code at once. As many are still to come, whatever
// length the caller states, as long as the picture lacks more than kLacking pixels: that many come of no fewer.
template <std::ptrdiff_t ahead, class Step>
std::uint8_t *RunDecoder::expand(std::uint8_t *to, const std::uint8_t *end, Step step) {
    constexpr std::ptrdiff_t kLacking = ahead / 2 * std::ptrdiff_t{kLongestRun}, kBlock = 2048;
    std::array<std::uint8_t, kBlock + draw::Expansion::kBeyond> block;
    while (end - to > kLacking && end_ - next_ >= ahead) {
        draw::Expansion expansion{next_, end_, block.data(),
                                  block.data() + std::min(end - to - kLacking, kBlock)};
        step(expansion);
        to = std::copy(block.data(), expansion.to, to);
        next_ = expansion.from;
    }
    return to;
}

std::size_t RunDecoder::decode(std::uint8_t *pixels, std::size_t count) {
    std::uint8_t *to = pixels, *const end = pixels + count;
    const auto fill = [&](std::size_t length) {
        const std::size_t fits = std::min(length, static_cast<std::size_t>(end - to));
        to = std::fill_n(to, fits, value_);
        run_ = length - fits;
    };
    fill(run_);

    if (draw::kernels.expand_short_runs != nullptr)
        to = expand<draw::Expansion::kAhead>(to, end, draw::kernels.expand_short_runs);
    to = expand<kWordAhead>(to, end, expand_words);
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
