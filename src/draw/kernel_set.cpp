// The row kernels of one instruction set. This file is compiled once for each, under the name
// INKSTONE_KERNELS, so it must not emit anything the linker could share with code meant for another
// processor: everything but the table itself is local, and no inline function of another header is called.
//
// A kernel is an operation on vectors of pixels, walked over the rows. The compilers' generic vectors are
// used rather than loops left to the vectoriser because of the ends of rows: here the last vector of a row is
// moved back to end with the row, overlapping the one before, where a vectorised loop would finish pixel by
// pixel. On sprites 16 to 64 pixels wide that is most of the time. The source and the target do not overlap,
// so that nothing depends on the length of the vectors.
#include <bit>
#include <utility>

#include "draw/kernels.h"

#if defined(__AVX2__)
#include <immintrin.h>

#include "draw/run_length_kernels.h"
#endif

namespace {

using Byte = std::uint8_t;
using Step = std::ptrdiff_t;
using ink::draw::Blit;
using ink::draw::Picks;

#if defined(__AVX512BW__)
constexpr int kWidest = 64;
#elif defined(__AVX2__)
constexpr int kWidest = 32;
#else
constexpr int kWidest = 16;
#endif

template <int N>
using Pixels [[gnu::vector_size(N)]] = Byte;

template <int N>
[[gnu::always_inline]] inline Pixels<N> load(const Byte *from) {
    Pixels<N> pixels;
    __builtin_memcpy(&pixels, from, N);
    return pixels;
}

template <int N>
[[gnu::always_inline]] inline void store(Byte *to, Pixels<N> pixels) {
    __builtin_memcpy(to, &pixels, N);
}

// How the source lies under the target: each reads the pixels that belong to the target columns x to x + N -
// 1 of a row of so many columns.
struct Forward {
    template <int N>
    [[gnu::always_inline]] static Pixels<N> read(const Byte *from, Step x, Step) {
        return load<N>(from + x);
    }
};
struct Mirrored {
    template <int N>
    [[gnu::always_inline]] static Pixels<N> read(const Byte *from, Step x, Step columns) {
        return reverse<N>(load<N>(from + columns - x - N), std::make_integer_sequence<int, N>());
    }
    template <int N, int... Lane>
    [[gnu::always_inline]] static Pixels<N> reverse(Pixels<N> pixels, std::integer_sequence<int, Lane...>) {
#if defined(__SSE2__) && !defined(__SSSE3__)
        // Bytes cannot be shuffled there. Words can, and then rotated by half their length, and the halves
        // again.
        if constexpr (N == 16) {
            using Words [[gnu::vector_size(16)]] = std::uint32_t;
            using Halves [[gnu::vector_size(16)]] = std::uint16_t;
            const Words words = __builtin_shufflevector((Words)pixels, (Words)pixels, 3, 2, 1, 0);
            const auto halves = (Halves)((words << 16) | (words >> 16));
            return (Pixels<N>)((halves << 8) | (halves >> 8));
        }
#endif
        return __builtin_shufflevector(pixels, pixels, (N - 1 - Lane)...);
    }
};

// Walks the rows in vectors of N pixels; there are at least N columns. The operation is given the source
// pixels, the target pixels and column + row, and returns the new target pixels. The target's last vector is
// read before the others are written, so an operation sees every pixel as it was.
template <int N, class Source, class Operation>
[[gnu::always_inline]] inline void walk_rows(const Blit &blit, Operation operation) {
    Byte *to = blit.to;
    const Byte *from = blit.from;
    const Step last = blit.columns - N;
    for (Step row = 0; row < blit.rows; ++row, to += blit.to_step, from += blit.from_step) {
        const Pixels<N> under_last = load<N>(to + last);
        for (Step x = 0; x < last; x += N)
            store<N>(to + x,
                     operation(Source::template read<N>(from, x, blit.columns), load<N>(to + x), x + row));
        store<N>(to + last,
                 operation(Source::template read<N>(from, last, blit.columns), under_last, last + row));
    }
}

// Walks the rows in the widest vectors that fit a row.
template <class Source = Forward, int N = kWidest, class Operation>
[[gnu::always_inline]] inline void walk(const Blit &blit, Operation operation) {
    if (N == 1 || blit.columns >= N) return walk_rows<N, Source>(blit, operation);
    if constexpr (N > 1) walk<Source, N / 2>(blit, operation);
}

// For operations that look at the target alone: it stands in for the source, which they must not use.
Blit in_place(const Blit &blit) {
    return {blit.to, blit.to_step, blit.to, blit.to_step, blit.columns, blit.rows};
}

// From here on the system's own copy and fill are the fastest: they align what they write.
constexpr Step kLongRow = 256;

// Rows that follow each other without a gap are one long row.
Blit joined(const Blit &blit) {
    Blit whole = blit;
    if (blit.to_step == blit.columns && blit.from_step == blit.columns) {
        whole.columns *= blit.rows;
        whole.rows = 1;
    }
    return whole;
}

// Long rows are not joined: from some thousand bytes on the system leaves a copy to the processor's instruction for
// strings, and where source and target begin at nearly the same place of their pages that takes some processors
// fifteen times as long.
void copy(const Blit &part) {
    if (part.columns < kLongRow) return walk(joined(part), [](auto source, auto, Step) { return source; });
    Blit blit = part;
    for (; blit.rows > 0; --blit.rows, blit.to += blit.to_step, blit.from += blit.from_step)
        __builtin_memcpy(blit.to, blit.from, static_cast<std::size_t>(blit.columns));
}

void copy_nonzero(const Blit &blit) {
    walk(blit, [](auto source, auto under, Step) { return source != 0 ? source : under; });
}

void copy_nonzero_mirrored(const Blit &blit) {
    walk<Mirrored>(blit, [](auto source, auto under, Step) { return source != 0 ? source : under; });
}

void fill(const Blit &part, Byte colour) {
    Blit blit = joined(in_place(part));
    if (blit.columns < kLongRow)
        return walk(blit, [=](auto, auto under, Step) { return decltype(under){} + colour; });
    for (; blit.rows > 0; --blit.rows, blit.to += blit.to_step)
        __builtin_memset(blit.to, colour, static_cast<std::size_t>(blit.columns));
}

void fill_nonzero(const Blit &blit, Byte colour) {
    walk(blit,
         [=](auto source, auto under, Step) { return source != 0 ? decltype(source){} + colour : under; });
}

void replace(const Blit &blit, Byte colour, Byte by) {
    walk(in_place(blit),
         [=](auto, auto under, Step) { return under == colour ? decltype(under){} + by : under; });
}

// The checkerboard: read from an even place it begins with a pixel of the mesh, from an odd one without.
struct Mesh {
    alignas(64) Byte lanes[kWidest + 1];

    constexpr Mesh() : lanes() {
        for (int lane = 0; lane <= kWidest; ++lane) lanes[lane] = lane % 2 == 0 ? 0xFF : 0;
    }
};
constexpr Mesh kMesh;

template <class Vector>
[[gnu::always_inline]] inline Vector mesh(Step place) {
    return load<sizeof(Vector)>(kMesh.lanes + (place & 1));
}

void fill_mesh(const Blit &blit, unsigned phase, Byte colour) {
    walk(in_place(blit), [=](auto, auto under, Step place) {
        const auto on = mesh<decltype(under)>(place + Step(phase));
        return on != 0 ? decltype(under){} + colour : under;
    });
}

void copy_nonzero_mesh(const Blit &blit, unsigned phase, Byte mask) {
    walk(blit, [=](auto source, auto under, Step place) {
        const auto on = mesh<decltype(source)>(place + Step(phase)) & source;
        return on != 0 ? source & mask : under;
    });
}

void outline(const Blit &blit, Step across, Step down, Byte colour) {
    walk(blit, [=, from = blit.from](auto source, auto, Step x) {
        constexpr int kCount = sizeof source;
        const auto around = load<kCount>(from + x - across) | load<kCount>(from + x + across) |
                            load<kCount>(from + x - down) | load<kCount>(from + x + down);
        const auto edge = around != 0 ? decltype(source){} + colour : decltype(source){};
        return source != 0 ? source : edge;
    });
}

#if defined(__AVX512VBMI__)

// The one operation generic vectors cannot express: 64 lookups at once in a table of 256 bytes, which is some
// fifteen times as fast as the loop below.
class Table {
  public:
    explicit Table(const Byte *table)
        : quarters_{load<64>(table), load<64>(table + 64), load<64>(table + 128), load<64>(table + 192)} {}

    template <class Vector>
    [[gnu::always_inline]] Vector operator[](Vector index) const {
        const __m512i wide = widen(index);
        const __m512i low = _mm512_permutex2var_epi8((__m512i)quarters_[0], wide, (__m512i)quarters_[1]);
        const __m512i high = _mm512_permutex2var_epi8((__m512i)quarters_[2], wide, (__m512i)quarters_[3]);
        const __m512i found = _mm512_mask_blend_epi8(_mm512_movepi8_mask(wide), low, high);
        Vector narrow;
        __builtin_memcpy(&narrow, &found, sizeof narrow);
        return narrow;
    }

  private:
    // What the lanes beyond the index hold does not matter.
    static __m512i widen(Pixels<64> index) { return (__m512i)index; }
    static __m512i widen(Pixels<32> index) { return _mm512_castsi256_si512((__m256i)index); }
    static __m512i widen(Pixels<16> index) { return _mm512_castsi128_si512((__m128i)index); }
    template <class Vector>
    static __m512i widen(Vector index) {
        long long bits = 0;
        __builtin_memcpy(&bits, &index, sizeof index);
        return _mm512_castsi128_si512(_mm_set_epi64x(0, bits));
    }
    Pixels<64> quarters_[4];
};

#elif defined(__AVX2__)

// The shuffle looks up 16 bytes, and gives 0 for an index with its top bit set. So a table of 256 bytes is sixteen
// rows of 16, each stored as what changes from the row before, and what the shuffle finds in all rows is put
// together: after each row 16 is taken off the indexes, which turns those negative that end with that row, and what
// comes of the rows up to there is that row itself. Indexes from 128 on begin anew in the other half. That is nearly
// three times as fast as reading the table byte by byte.
class Table {
  public:
    explicit Table(const Byte *table) {
        for (int row = 0; row < 16; ++row) {
            const auto here = load<16>(table + 16 * row);
            changes_[row] = row % 8 == 0 ? here : here ^ load<16>(table + 16 * (row - 1));
        }
    }

    template <class Vector>
    [[gnu::always_inline]] Vector operator[](Vector index) const {
        const __m256i row_length = _mm256_set1_epi8(16);
        __m256i low = widen(index), high = _mm256_xor_si256(low, _mm256_set1_epi8(-128));
        __m256i low_found = _mm256_setzero_si256(), high_found = low_found;
        for (int row = 0; row < 8; ++row) {
            low_found = _mm256_xor_si256(low_found, _mm256_shuffle_epi8(both(row), low));
            high_found = _mm256_xor_si256(high_found, _mm256_shuffle_epi8(both(8 + row), high));
            low = _mm256_subs_epi8(low, row_length), high = _mm256_subs_epi8(high, row_length);
        }
        const __m256i found = _mm256_xor_si256(low_found, high_found);
        Vector narrow;
        __builtin_memcpy(&narrow, &found, sizeof narrow);
        return narrow;
    }

  private:
    // What the lanes beyond the index hold does not matter.
    static __m256i widen(Pixels<32> index) { return (__m256i)index; }
    static __m256i widen(Pixels<16> index) { return _mm256_castsi128_si256((__m128i)index); }
    template <class Vector>
    static __m256i widen(Vector index) {
        long long bits = 0;
        __builtin_memcpy(&bits, &index, sizeof index);
        return _mm256_castsi128_si256(_mm_set_epi64x(0, bits));
    }
    __m256i both(int row) const { return _mm256_broadcastsi128_si256((__m128i)changes_[row]); }
    Pixels<16> changes_[16];
};

#endif

#if defined(__AVX2__)

void remap(const Blit &blit, const Byte *table) {
    walk(in_place(blit), [table = Table(table)](auto, auto under, Step) { return table[under]; });
}

void remap_nonzero(const Blit &blit, const Byte *table) {
    walk(blit, [table = Table(table)](auto source, auto under, Step) {
        return source != 0 ? table[under] : under;
    });
}

#else

// Generic vectors have no table lookups: these two go pixel by pixel. Reading eight at once leaves the processor's
// reads to the table.
constexpr int kEight = 8;
[[gnu::always_inline]] inline void remap_eight(Byte *to, const Byte *table) {
    const auto under = (std::uint64_t)load<kEight>(to);
    for (int i = 0; i < kEight; ++i) {
        const int place = std::endian::native == std::endian::little ? i : kEight - 1 - i;
        to[i] = table[under >> 8 * place & 0xFF];
    }
}

void remap(const Blit &blit, const Byte *table) {
    Byte *to = blit.to;
    for (Step row = 0; row < blit.rows; ++row, to += blit.to_step) {
        Step x = 0;
        for (; x + kEight <= blit.columns; x += kEight) remap_eight(to + x, table);
        for (; x < blit.columns; ++x) to[x] = table[to[x]];
    }
}

// Pictures are mostly runs: eight pixels that are all 0, or none of them, need no look at each.
void remap_nonzero(const Blit &blit, const Byte *table) {
    Byte *to = blit.to;
    const Byte *from = blit.from;
    const auto remap_some = [&](Step x, Step end) {
        for (; x < end; ++x) {
            const Byte under = to[x], through = table[under];
            to[x] = from[x] != 0 ? through : under;
        }
    };
    for (Step row = 0; row < blit.rows; ++row, to += blit.to_step, from += blit.from_step) {
        Step x = 0;
        for (; x + kEight <= blit.columns; x += kEight) {
            const auto zeros = (std::uint64_t)(load<kEight>(from + x) == 0);
            if (zeros == 0)
                remap_eight(to + x, table);
            else if (~zeros != 0)
                remap_some(x, x + kEight);
        }
        remap_some(x, blit.columns);
    }
}

#endif

#if defined(__SSSE3__)

// Picks some pixels one by one, and draws each in all rows.
template <class Operation>
[[gnu::always_inline]] inline void pick_each(const Blit &blit, const Picks &picks, Step first, Step count,
                                             Operation operation) {
    for (Step x = first; x < first + count; ++x) {
        const Byte picked = blit.from[picks.places[x]];
        Byte *to = blit.to + x;
        for (Step row = 0; row < blit.rows; ++row, to += blit.to_step) *to = operation(picked, *to);
    }
}

// The processor's own shuffle picks 16 pixels out of 16: a block of an enlarged row takes one, and a block of
// a shrunken row one for each 16 bytes it reaches over, as long as those are few.
template <class Operation>
[[gnu::always_inline]] inline void pick_rows(const Blit &blit, const Byte *end, const Picks &picks,
                                             Operation operation) {
    using Lanes [[gnu::vector_size(16)]] = char;
    constexpr Step kFar = 4 * Picks::kBlock;
    if (picks.blocks_used == 0) return pick_each(blit, picks, 0, blit.columns, operation);
    for (int i = 0; i < picks.blocks_used; ++i) {
        const Picks::Block &block = picks.blocks[i];
        const Byte *base = blit.from + block.base;
        const auto reach = static_cast<Step>(block.reach);
        if (reach > kFar || end - base < ((reach + 15) & ~Step{15})) {
            pick_each(blit, picks, block.at, Picks::kBlock, operation);
            continue;
        }
        Pixels<16> lanes = load<16>(block.lanes);
        Pixels<16> picked{};
        for (Step part = 0; part < reach; part += 16, lanes -= 16) {
            // A lane of another part gets its top bit set, which makes the shuffle give 0 for it.
            const Pixels<16> here = lanes | Pixels<16>(lanes > 15);
            picked |= Pixels<16>(__builtin_ia32_pshufb128(Lanes(load<16>(base + part)), Lanes(here)));
        }
        Byte *to = blit.to + block.at;
        for (Step row = 0; row < blit.rows; ++row, to += blit.to_step)
            store<16>(to, operation(picked, load<16>(to)));
    }
}

void pick(const Blit &blit, const Byte *end, const Picks &picks) {
    pick_rows(blit, end, picks, [](auto picked, auto) { return picked; });
}

void pick_nonzero(const Blit &blit, const Byte *end, const Picks &picks) {
    pick_rows(blit, end, picks, [](auto picked, auto under) { return picked != 0 ? picked : under; });
}

#else

// Four at a time, so that the loop does not cost more than what it does.
[[gnu::noinline]] void pick_row(Byte *__restrict row, Step columns, const Byte *__restrict from,
                                const std::uint32_t *__restrict places) {
    Step x = 0;
    for (; x + 4 <= columns; x += 4)
        for (Step i = x; i < x + 4; ++i) row[i] = from[places[i]];
    for (; x < columns; ++x) row[x] = from[places[x]];
}

// A row is picked once, and then stands in for the source in all the rows that show it.
void pick(const Blit &blit, const Byte *, const Picks &picks) {
    pick_row(blit.to, blit.columns, blit.from, picks.places);
    if (blit.rows > 1) copy({blit.to + blit.to_step, blit.to_step, blit.to, 0, blit.columns, blit.rows - 1});
}

void pick_nonzero(const Blit &blit, const Byte *, const Picks &picks) {
    Byte row[Picks::kColumns];
    pick_row(row, blit.columns, blit.from, picks.places);
    copy_nonzero({blit.to, blit.to_step, row, 0, blit.columns, blit.rows});
}

#endif

}  // namespace

constinit const ink::draw::Kernels ink::draw::INKSTONE_KERNELS = {
    .copy = copy,
    .copy_nonzero = copy_nonzero,
    .copy_nonzero_mirrored = copy_nonzero_mirrored,
    .fill = fill,
    .fill_mesh = fill_mesh,
    .fill_nonzero = fill_nonzero,
    .copy_nonzero_mesh = copy_nonzero_mesh,
    .outline = outline,
    .remap = remap,
    .remap_nonzero = remap_nonzero,
    .replace = replace,
    .pick = pick,
    .pick_nonzero = pick_nonzero,
#if defined(__AVX2__)
    .encode_short_runs = encode_short_runs,
#else
    .encode_short_runs = nullptr,
#endif
#if defined(__AVX512VBMI2__)
    .expand_short_runs = expand_short_runs,
#else
    .expand_short_runs = nullptr,
#endif
};
