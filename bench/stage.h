// What a blit is measured on: a screen, a second one, and a disc of a given size to draw at changing places,
// the same for this library, its limits and its peers.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

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
#if defined(INKSTONE_BENCH_SDL)
    peers::SdlSurface sdl_screen{kWidth, kHeight}, sdl_sprite{w, h}, sdl_keyed{w, h};
#endif
#if defined(INKSTONE_BENCH_ALLEGRO)
    peers::AllegroBitmap allegro_screen{kWidth, kHeight}, allegro_sprite{w, h};
#endif
};

// Measures draw(stage, x, y) under the name operation/who/size.
template <class Draw>
void add_one(const std::string &operation, const std::string &who, int size, Draw draw,
             void (*prepare)(Stage &) = nullptr) {
    const std::string name = operation + "/" + who + "/" + std::to_string(size);
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State &state) {
        Stage stage(size);
        if (prepare != nullptr) prepare(stage);
        unsigned turn = 0;
        for (auto _ : state) {
            const auto x = static_cast<int>(turn * 37 % static_cast<unsigned>(kWidth - stage.w + 1));
            const auto y = static_cast<int>(turn * 23 % static_cast<unsigned>(kHeight - stage.h + 1));
            draw(stage, x, y);
            benchmark::ClobberMemory();
            turn = (turn + 1) % 16;
        }
        state.SetBytesProcessed(state.iterations() * stage.w * stage.h);
    });
}

// The same for every size.
template <class Draw>
void add(const std::string &operation, const std::string &who, Draw draw,
         void (*prepare)(Stage &) = nullptr) {
    for (const int size : {16, 32, 64, 256, kWidth}) add_one(operation, who, size, draw, prepare);
}

// The limit of every copy and fill: the system's own, row by row.
inline void copy_rows(const Stage &stage, std::uint8_t *to, int x, int y) {
    for (int row = 0; row < stage.h; ++row)
        std::memcpy(to + (y + row) * kWidth + x, stage.pixels + row * stage.w,
                    static_cast<std::size_t>(stage.w));
}
inline void fill_rows(const Stage &stage, std::uint8_t *to, int x, int y) {
    for (int row = 0; row < stage.h; ++row)
        std::memset(to + (y + row) * kWidth + x, 3, static_cast<std::size_t>(stage.w));
}

}  // namespace bench
