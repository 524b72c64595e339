// What drawing is measured on: a screen, a second one, and a disc of a given size to draw at changing places, the
// same for this library, its limits and its peers; and how a row of the table of figures is registered.
//
// Every benchmark is named SECTION/ROW/WHO, with arguments or a label behind where there are several of a row. WHO
// is "inkstone", the name of a peer, or begins with "limit". bench/figures makes the table out of these names.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "limits.h"
#include "peers.h"

namespace bench {

inline constexpr int kWidth = 640, kHeight = 480;

struct Stage {
    // A disc in many colours, colour 0 around it and in some of its pixels. 640 is the size of the whole
    // screen.
    explicit Stage(int size)
        : w(size), h(size == kWidth ? kHeight : size), block(static_cast<std::size_t>(w * h + 4)) {
        block[0] = static_cast<std::uint8_t>(w), block[1] = static_cast<std::uint8_t>(w >> 8);
        block[2] = static_cast<std::uint8_t>(h), block[3] = static_cast<std::uint8_t>(h >> 8);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                const int dx = 2 * x - w + 1, dy = 2 * y - h + 1, colour = (x * 7 + y * 31) & 0xFF;
                const bool inside = dx * dx * h * h + dy * dy * w * w <= w * w * h * h;
                pixels[y * w + x] = inside ? static_cast<std::uint8_t>(colour) : std::uint8_t{0};
            }
        // What is drawn into an image block is drawn into one of the screen's size.
        work[0] = kWidth & 0xFF, work[1] = kWidth >> 8;
        work[2] = kHeight & 0xFF, work[3] = kHeight >> 8;
#if defined(INKSTONE_BENCH_SDL)
        sdl_sprite.load(pixels);
        sdl_keyed.load(pixels);
        SDL_SetColorKey(sdl_keyed, SDL_TRUE, 0);
#endif
#if defined(INKSTONE_BENCH_ALLEGRO)
        allegro_sprite.load(pixels);
#endif
    }

    int w, h;
    std::vector<std::uint8_t> block;
    std::uint8_t *image = block.data(), *pixels = image + 4;
    std::vector<std::uint8_t> first = std::vector<std::uint8_t>(kWidth * kHeight, 1), second = first;
    std::uint8_t *screen = first.data(), *keys = second.data();
    std::vector<std::uint8_t> scratch = std::vector<std::uint8_t>(700 * 700);
    std::uint8_t *work = scratch.data();
    std::vector<int> drawn;  // where the row's own call draws, counted from the place it is given
#if defined(INKSTONE_BENCH_SDL)
    peers::SdlSurface sdl_screen{kWidth, kHeight}, sdl_sprite{w, h}, sdl_keyed{w, h};
#endif
#if defined(INKSTONE_BENCH_ALLEGRO)
    peers::AllegroBitmap allegro_screen{kWidth, kHeight}, allegro_sprite{w, h};
#endif
};

using Draw = void (*)(Stage &stage, int x, int y);

// Who a function stands beside: its limit and its peers, which draw nothing where they are not installed.
struct Rival {
    const char *who;
    Draw draw;
};
using Rivals = std::vector<Rival>;

struct Row {
    const char *function;
    Draw call;
    Rivals rivals = {};
    void (*prepare)(Stage &stage) = nullptr;
};

inline std::string size_name(int size) {
    return std::to_string(size) + " x " + std::to_string(size == kWidth ? kHeight : size);
}

// Where a call draws on an empty screen, row by row.
inline std::vector<int> pixels_of(Stage &stage, Draw call) {
    const std::vector<std::uint8_t> kept =
        std::exchange(stage.first, std::vector<std::uint8_t>(kWidth * kHeight));
    stage.screen = stage.first.data();
    call(stage, 0, 0);
    std::vector<int> drawn;
    for (int i = 0; i < kWidth * kHeight; ++i)
        if (stage.screen[i] != 0) drawn.push_back(i);
    stage.first = kept;
    stage.screen = stage.first.data();
    return drawn;
}

// The limit of lines and figures: their pixels stored one after the other, from a list.
inline const Rival kStores{"limit stores", [](Stage &s, int x, int y) {
                               std::uint8_t *const to = s.screen + y * kWidth + x;
                               for (const int at : s.drawn) to[at] = 3;
                           }};

inline void add_one(const std::string &name, int size, const Row &row, Draw draw) {
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State &state) {
        Stage stage(size);
        if (row.prepare != nullptr) row.prepare(stage);
        if (draw == kStores.draw) stage.drawn = pixels_of(stage, row.call);
        unsigned turn = 0;
        for (auto _ : state) {
            const auto x = static_cast<int>(turn * 37 % static_cast<unsigned>(kWidth - stage.w + 1));
            const auto y = static_cast<int>(turn * 23 % static_cast<unsigned>(kHeight - stage.h + 1));
            draw(stage, x, y);
            benchmark::ClobberMemory();
            turn = (turn + 1) % 16;
        }
    });
}

// Registers rows and who stands beside them at a small, a middle and the greatest size.
inline bool add(const std::string &section, const std::vector<Row> &rows) {
    for (const Row &row : rows)
        for (const int size : {16, 64, kWidth}) {
            const std::string name = section + "/" + row.function + " " + size_name(size) + "/";
            add_one(name + "inkstone", size, row, row.call);
            for (const Rival &rival : row.rivals)
                if (rival.draw != nullptr) add_one(name + rival.who, size, row, rival.draw);
        }
    return true;
}

// The same at the greatest size only, for what does not depend on it.
inline bool add_whole(const std::string &section, const std::vector<Row> &rows) {
    for (const Row &row : rows) {
        const std::string name = section + "/" + row.function + "/";
        add_one(name + "inkstone", kWidth, row, row.call);
        for (const Rival &rival : row.rivals)
            if (rival.draw != nullptr) add_one(name + rival.who, kWidth, row, rival.draw);
    }
    return true;
}

// The limit of every copy and fill: the system's own, row by row; and that of what looks at the target, too.
inline const Rival kCopy{"limit memcpy", [](Stage &s, int x, int y) {
                             for (int row = 0; row < s.h; ++row)
                                 std::memcpy(s.screen + (y + row) * kWidth + x, s.pixels + row * s.w,
                                             static_cast<std::size_t>(s.w));
                         }};
inline const Rival kFill{"limit memset", [](Stage &s, int x, int y) {
                             for (int row = 0; row < s.h; ++row)
                                 std::memset(s.screen + (y + row) * kWidth + x, 3,
                                             static_cast<std::size_t>(s.w));
                         }};
inline void loop_rows(const Stage &s, int x, int y, Loop loop) {
    for (int row = 0; row < s.h; ++row) {
        const int at = (y + row) * kWidth + x;
        loop(s.screen + at, s.pixels + row * s.w, s.keys + at, s.w);
    }
}
inline const Rival kUpdate{"limit read, write",
                           [](Stage &s, int x, int y) { loop_rows(s, x, y, loops().update); }};
inline const Rival kMerge{"limit read 2, write",
                          [](Stage &s, int x, int y) { loop_rows(s, x, y, loops().merge); }};
inline const Rival kKeyed{"limit read 3, write 2",
                          [](Stage &s, int x, int y) { loop_rows(s, x, y, loops().keyed); }};

}  // namespace bench
