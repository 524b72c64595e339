// The row kernels: what is done to the pixels once the clipping is over. Each walks a rectangle of rows, so
// that a blit pays for the choice of the instruction set once, by one call through this table.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ink::draw {

// A clipped rectangle of at least one column: where it starts in the target and in the source, how far it is
// from one row to the next in each, and its size. The source's step is negative where rows are read upwards.
// Kernels that have no source leave its members alone.
struct Blit {
    std::uint8_t *to = nullptr;
    std::ptrdiff_t to_step = 0;
    const std::uint8_t *from = nullptr;
    std::ptrdiff_t from_step = 0;
    std::ptrdiff_t columns = 0, rows = 0;
};

// The pixels of a row that are picked to make a row of a scaled picture.
struct Picks {
    static constexpr int kColumns = 640;  // the screen's
    static constexpr int kBlock = 16;

    std::uint32_t places[kColumns];  // in the source row, never falling

    // The same in blocks of pixels made together, for a row of one block at least: the pixels block.at and on
    // are picked from base and on, over reach bytes. The lanes are the low bytes of the distances from base.
    struct Block {
        std::int32_t at;
        std::uint32_t base, reach;
        std::uint8_t lanes[kBlock];
    };
    int blocks_used = 0;
    Block blocks[kColumns / kBlock];
};

// Run-length code (formats/run_length.h) on its way to pixels: what of it is left, and where the next pixels go. At
// `full` or a little later it stops, up to kBeyond bytes behind which may be written.
struct Expansion {
    static constexpr std::ptrdiff_t kAhead = 65;  // so many bytes of code are looked at, and must be there
    static constexpr std::ptrdiff_t kBeyond = 192;

    const std::uint8_t *from, *end;
    std::uint8_t *to;
    const std::uint8_t *full;
};

// One instruction set's kernels. Of the mesh, phase 0 has the first pixel of the first row, phase 1 the
// second; it alternates from pixel to pixel and from row to row.
struct Kernels {
    void (*copy)(const Blit &);
    void (*copy_nonzero)(const Blit &);
    // The source's rows are read from right to left.
    void (*copy_nonzero_mirrored)(const Blit &);
    void (*fill)(const Blit &, std::uint8_t colour);
    void (*fill_mesh)(const Blit &, unsigned phase, std::uint8_t colour);
    // The colour, or the source ANDed with the mask, wherever the source is not 0.
    void (*fill_nonzero)(const Blit &, std::uint8_t colour);
    void (*copy_nonzero_mesh)(const Blit &, unsigned phase, std::uint8_t mask);
    // The source's pixels, or the colour where the source is 0 and a pixel a step across or down from there,
    // either way, is not. The rectangle is a single row; the source must reach that far around it.
    void (*outline)(const Blit &, std::ptrdiff_t across, std::ptrdiff_t down, std::uint8_t colour);
    // The target through a table of 256 entries: everywhere, or wherever the source is not 0.
    void (*remap)(const Blit &, const std::uint8_t *table);
    void (*remap_nonzero)(const Blit &, const std::uint8_t *table);
    // Every target pixel of the one colour becomes the other.
    void (*replace)(const Blit &, std::uint8_t colour, std::uint8_t by);
    // The picked pixels of the source's one row, in every row of the target. No pixel at `end` or beyond is
    // read.
    void (*pick)(const Blit &, const std::uint8_t *end, const Picks &);
    void (*pick_nonzero)(const Blit &, const std::uint8_t *end, const Picks &);
    // Run-length code of pictures with few long runs; null in sets that cannot shuffle so many bytes. The first
    // codes a row's pixels from the first of a run on, moves the code's end on, and returns how many pixels it coded:
    // all, or those up to a long run and with it.
    std::ptrdiff_t (*encode_short_runs)(const std::uint8_t *pixels, std::ptrdiff_t count,
                                        std::uint8_t *&code);
    void (*expand_short_runs)(Expansion &);
};

// The kernels of the best instruction set this processor has, chosen when the library is loaded. The
// environment variable INKSTONE_CPU can ask for less by name: baseline, avx2 or avx512vbmi.
extern const Kernels kernels;

// The sets there are. The baseline's vectors are of 16 bytes, which processors of any kind have or the
// compiler makes do without; the wide sets are for x86 and built where the build system finds that they can
// be.
extern const Kernels kernels_baseline, kernels_avx2, kernels_avx512vbmi;

}  // namespace ink::draw
