// Run-length code, for the sets that can shuffle bytes: pictures without long runs, in which nearly every pixel has a
// byte of code of its own and a loop over runs would take a step for each. Part of kernel_set.cpp, so all is local.
#pragma once

#include <immintrin.h>

#include "draw/kernels.h"

namespace {

constexpr int kRunMark = 0xC0;  // from here on a code byte carries a count

// For each choice among eight bytes, where in them those lie that are kept.
struct Kept {
    alignas(64) std::uint8_t places[256][8];

    constexpr Kept() : places() {
        for (int choice = 0; choice < 256; ++choice)
            for (int from = 0, to = 0; from < 8; ++from)
                if ((choice >> from & 1) != 0) places[choice][to++] = static_cast<std::uint8_t>(from);
    }
};
constexpr Kept kKept;

constexpr int kPixels = 16, kLongest = 5;

// Codes sixteen pixels, of which the first begins a run for certain or the one before tells; those behind are looked
// at. The first pixel of a run becomes its count and the last one itself: each is laid beside a count, and what is not
// written of a pair is left out. Stops at the first run of more than kLongest, or at the limit, and returns where.
[[gnu::always_inline]] inline int encode_sixteen(const std::uint8_t *pixels, bool begins, int limit,
                                                 std::uint8_t *&to) {
    const auto load = [pixels](int ahead) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i *>(pixels + ahead));
    };
    const auto bits = [](__m128i lanes) { return static_cast<std::uint32_t>(_mm_movemask_epi8(lanes)); };
    const __m128i here = load(0), mark = _mm_set1_epi8(static_cast<char>(kRunMark)), all = _mm_set1_epi8(-1);
    // Where the run goes on so far from each pixel.
    const __m128i repeated = _mm_cmpeq_epi8(here, load(1));
    __m128i same = repeated, counts = _mm_sub_epi8(_mm_sub_epi8(mark, all), same);
    for (int ahead = 2; ahead <= kLongest; ++ahead) {
        same = _mm_and_si128(same, _mm_cmpeq_epi8(here, load(ahead)));
        if (ahead < kLongest) counts = _mm_sub_epi8(counts, same);
    }
    const __m128i not_first = _mm_setr_epi8(0, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1);
    const __m128i before = begins ? _mm_and_si128(not_first, _mm_cmpeq_epi8(here, _mm_slli_si128(here, 1)))
                                  : _mm_cmpeq_epi8(here, load(-1));
    const __m128i last = _mm_xor_si128(repeated, all);
    const __m128i marked = _mm_cmpeq_epi8(_mm_max_epu8(here, mark), here);
    const __m128i counted = _mm_andnot_si128(before, _mm_or_si128(repeated, marked));

    const std::uint32_t stops = bits(_mm_andnot_si128(before, same)) | 1U << limit;
    const int used = stops == 1U << kPixels ? kPixels : __builtin_ctz(stops);
    const std::uint64_t pairs = bits(_mm_unpacklo_epi8(counted, last)) |
                                std::uint64_t{bits(_mm_unpackhi_epi8(counted, last))} << kPixels;
    const std::uint64_t kept = pairs & ((std::uint64_t{1} << 2 * used) - 1);
    const auto put = [&to](__m128i eight, std::uint64_t choice) {
        const auto *places = reinterpret_cast<const __m128i *>(kKept.places[choice & 0xFF]);
        _mm_storel_epi64(reinterpret_cast<__m128i *>(to), _mm_shuffle_epi8(eight, _mm_loadl_epi64(places)));
        to += __builtin_popcount(choice & 0xFF);
    };
    const __m128i low = _mm_unpacklo_epi8(counts, here), high = _mm_unpackhi_epi8(counts, here);
    put(low, kept);
    put(_mm_srli_si128(low, 8), kept >> 8);
    put(high, kept >> 16);
    put(_mm_srli_si128(high, 8), kept >> 24);
    return used;
}

std::ptrdiff_t encode_short_runs(const std::uint8_t *pixels, std::ptrdiff_t count, std::uint8_t *&code) {
    constexpr std::ptrdiff_t kReach = kPixels + kLongest, kMostCounted = 63;
    std::ptrdiff_t done = 0;
    std::uint8_t *to = code;
    bool begins = true;  // a run, whatever the pixel before is
    while (done < count) {
        const std::ptrdiff_t left = count - done;
        const std::uint8_t *const here = pixels + done;
        int limit = kPixels, used;
        if (left >= kReach) {
            used = encode_sixteen(here, begins, kPixels, to);
        } else {
            // The last run ends with the row, and no room is left to write into that is not part of the code.
            std::uint8_t rest[1 + kReach], rest_code[2 * kPixels], *end = rest_code;
            __builtin_memset(rest, ~pixels[count - 1], sizeof rest);
            for (std::ptrdiff_t i = begins ? 0 : -1; i < left; ++i) rest[1 + i] = here[i];
            if (left < kPixels) limit = static_cast<int>(left);
            used = encode_sixteen(rest + 1, begins, limit, end);
            __builtin_memcpy(to, rest_code, static_cast<std::size_t>(end - rest_code));
            to += end - rest_code;
        }
        done += used;
        begins = false;
        if (used == limit) continue;
        std::ptrdiff_t length = kLongest + 1;
        while (done + length < count && length < kMostCounted && pixels[done + length] == pixels[done])
            ++length;
        *to++ = static_cast<std::uint8_t>(kRunMark | length);
        *to++ = pixels[done];
        done += length;
        begins = true;
        if (length > kPixels) break;
    }
    code = to;
    return done;
}

#if defined(__AVX512VBMI2__)

// The bytes that carry counts, of those that might by their values: a byte behind a count does not, so it is every
// other one of some in a row. A sum carries through those that begin at an even place.
std::uint64_t find_counts(std::uint64_t marked, std::uint64_t behind_count) {
    constexpr std::uint64_t kEven = 0x5555555555555555;
    // Every block waits for this of the one before, so it is kept in registers of numbers: the way to those of masks
    // and back, which compilers like to take, lasts longer than the whole of it.
    asm("" : "+r"(marked));
    marked &= ~behind_count;
    const std::uint64_t starts = marked & ~(marked << 1) & kEven;
    const std::uint64_t from_even = marked & ~(marked + starts);
    std::uint64_t counts = (from_even & kEven) | (marked & ~from_even & ~kEven);
    asm("" : "+r"(counts));
    return counts;
}

// A count gives its pixels but one, which the byte behind it gives as if it stood alone. So a block may end between the
// two, and the next one begins without a wait for what this one gave. Each byte is laid out as often as it may be
// written at most, and what is not written is left out.
void expand_short_runs(ink::draw::Expansion &expansion) {
    constexpr int kBlock = 64, kMost = 4;
    const std::uint8_t *from = expansion.from;
    std::uint8_t *to = expansion.to;
    const auto all = [](int byte) { return _mm512_set1_epi8(static_cast<char>(byte)); };
    const __m512i order = _mm512_set1_epi32(0x03020100);  // among those of one byte
    const __m512i each_again =
        _mm512_set_epi8(15, 15, 15, 15, 14, 14, 14, 14, 13, 13, 13, 13, 12, 12, 12, 12,  //
                        11, 11, 11, 11, 10, 10, 10, 10, 9, 9, 9, 9, 8, 8, 8, 8,          //
                        7, 7, 7, 7, 6, 6, 6, 6, 5, 5, 5, 5, 4, 4, 4, 4,                  //
                        3, 3, 3, 3, 2, 2, 2, 2, 1, 1, 1, 1, 0, 0, 0, 0);
    const auto pick = [](__m512i places, __m512i bytes) {
        return _mm512_maskz_permutexvar_epi8(~std::uint64_t{0}, places, bytes);
    };
    std::uint64_t behind_count = 0;  // 1 where a block begins there
    const auto more = [&] {
        return to < expansion.full && expansion.end - from >= ink::draw::Expansion::kAhead;
    };
    const auto expand_runs = [&] {
        while (more() && *from >= kRunMark) {
            const __m256i pixels = _mm256_set1_epi8(static_cast<char>(from[1]));
            _mm256_storeu_si256(reinterpret_cast<__m256i *>(to), pixels);
            _mm256_storeu_si256(reinterpret_cast<__m256i *>(to + 32), pixels);
            to += *from & ~kRunMark;
            from += 2;
        }
    };
    expand_runs();
    while (more()) {
        const __m512i code = _mm512_loadu_si512(from), but_one = _mm512_sub_epi8(code, all(kRunMark + 1));
        const std::uint64_t counts = find_counts(_mm512_cmpge_epu8_mask(code, all(kRunMark)), behind_count);
        const std::uint64_t stops = counts & _mm512_cmpge_epu8_mask(but_one, all(kMost));
        const std::uint64_t below = (stops & (0 - stops)) - 1;
        const __m512i times = _mm512_maskz_mov_epi8(below, _mm512_mask_mov_epi8(all(1), counts, but_one));
        const __m512i pixels = _mm512_mask_mov_epi8(code, counts, _mm512_loadu_si512(from + 1));
        const auto write = [&to](std::uint64_t written, __m512i from_these) {
            _mm512_storeu_si512(to, _mm512_maskz_compress_epi8(written, from_these));
            to += __builtin_popcountll(written);
        };
        if ((_mm512_test_epi8_mask(times, all(~1))) == 0) {
            write(_mm512_test_epi8_mask(times, times), pixels);
        } else {
            for (int at = 0; at < kBlock; at += kBlock / kMost) {
                const __m512i sixteen = _mm512_add_epi8(each_again, all(at));
                write(_mm512_cmplt_epu8_mask(order, pick(sixteen, times)), pick(sixteen, pixels));
            }
        }
        if (stops == 0) {
            from += kBlock;
            behind_count = counts >> (kBlock - 1);
        } else {
            from += __builtin_ctzll(stops);
            behind_count = 0;
            expand_runs();
        }
    }
    if (behind_count != 0) *to++ = *from++;
    expansion.from = from;
    expansion.to = to;
}

#endif

}  // namespace
