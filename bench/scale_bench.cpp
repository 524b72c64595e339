// Scaled copies beside the other libraries', and the zoom beside a loop that divides for each pixel.
#include <benchmark/benchmark.h>

#include <vector>

#include "inkstone/scale.h"
#include "peers.h"

namespace {

constexpr int kWidth = 640, kHeight = 480;
using Pixels = std::vector<std::uint8_t>;

Pixels make_picture(std::int64_t width, std::int64_t height) {
    Pixels pixels(static_cast<std::size_t>(width * height));
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<std::uint8_t>(i % 5 == 0 ? 0 : i * 7);
    return pixels;
}

struct Sizes {
    int sw, sh, dw, dh;
    explicit Sizes(const benchmark::State &state)
        : sw(static_cast<int>(state.range(0))),
          sh(static_cast<int>(state.range(1))),
          dw(static_cast<int>(state.range(2))),
          dh(static_cast<int>(state.range(3))) {}
};

void sizes(benchmark::internal::Benchmark *benchmark) {
    benchmark->Args({16, 16, 24, 24})
        ->Args({32, 32, 64, 64})
        ->Args({64, 64, 100, 100})
        ->Args({64, 64, 32, 32});
    benchmark->Args({320, 240, 640, 480})->Args({200, 150, 640, 480})->Args({640, 480, 250, 190});
}

void put(benchmark::State &state) {
    const Sizes size(state);
    const Pixels picture = make_picture(size.sw, size.sh);
    Pixels screen(kWidth * kHeight);
    for (auto _ : state)
        BUF_scale_put_bitmap(0, 0, size.dw, size.dh, size.sw, size.sh, picture.data(), screen.data());
}
BENCHMARK(put)->Name("Scaling/BUF_scale_put_bitmap/inkstone")->Apply(sizes);

void pest(benchmark::State &state) {
    const Sizes size(state);
    const Pixels picture = make_picture(size.sw, size.sh);
    Pixels screen(kWidth * kHeight);
    for (auto _ : state)
        BUF_scale_pest_bitmap(0, 0, size.dw, size.dh, size.sw, size.sh, picture.data(), screen.data());
}
BENCHMARK(pest)->Name("Scaling/BUF_scale_pest_bitmap/inkstone")->Apply(sizes);

void zoom(benchmark::State &state) {
    const Pixels picture = make_picture(kWidth, kHeight);
    Pixels screen(kWidth * kHeight);
    MEM_zoom_control(100, 75, 300, 200);
    for (auto _ : state) MEM_scale_bitmap(screen.data(), picture.data());
}
BENCHMARK(zoom)->Name("Scaling/MEM_scale_bitmap/inkstone");

void zoom_by_division(benchmark::State &state) {
    const Pixels picture = make_picture(kWidth, kHeight);
    Pixels screen(kWidth * kHeight);
    int width = 200, height = 150;
    for (auto _ : state) {
        benchmark::DoNotOptimize(width);
        benchmark::DoNotOptimize(height);
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x)
                screen[static_cast<std::size_t>(y * kWidth + x)] = picture[static_cast<std::size_t>(
                    (125 + y * height / kHeight) * kWidth + 200 + x * width / kWidth)];
        benchmark::ClobberMemory();
    }
}
BENCHMARK(zoom_by_division)->Name("Scaling/MEM_scale_bitmap/plain division a pixel");

void copy_screen(benchmark::State &state) {
    const Pixels picture = make_picture(kWidth, kHeight);
    Pixels screen(kWidth * kHeight);
    for (auto _ : state) {
        std::memcpy(screen.data(), picture.data(), screen.size());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(copy_screen)->Name("Scaling/MEM_scale_bitmap/limit memcpy");

#if defined(INKSTONE_BENCH_ALLEGRO)
void allegro(benchmark::State &state) {
    const Sizes size(state);
    peers::AllegroBitmap picture(size.sw, size.sh);
    picture.load(make_picture(size.sw, size.sh).data());
    const peers::AllegroBitmap screen(kWidth, kHeight);
    for (auto _ : state) stretch_blit(picture, screen, 0, 0, size.sw, size.sh, 0, 0, size.dw, size.dh);
}
BENCHMARK(allegro)->Name("Scaling/BUF_scale_put_bitmap/Allegro 4")->Apply(sizes);

void allegro_pest(benchmark::State &state) {
    const Sizes size(state);
    peers::AllegroBitmap picture(size.sw, size.sh);
    picture.load(make_picture(size.sw, size.sh).data());
    const peers::AllegroBitmap screen(kWidth, kHeight);
    for (auto _ : state) stretch_sprite(screen, picture, 0, 0, size.dw, size.dh);
}
BENCHMARK(allegro_pest)->Name("Scaling/BUF_scale_pest_bitmap/Allegro 4")->Apply(sizes);
#endif

#if defined(INKSTONE_BENCH_SDL)
void sdl(benchmark::State &state) {
    const Sizes size(state);
    peers::SdlSurface picture(size.sw, size.sh);
    picture.load(make_picture(size.sw, size.sh).data());
    const peers::SdlSurface screen(kWidth, kHeight);
    SDL_Rect to{0, 0, size.dw, size.dh};
    for (auto _ : state) SDL_SoftStretch(picture, nullptr, screen, &to);
}
BENCHMARK(sdl)->Name("Scaling/BUF_scale_put_bitmap/SDL2")->Apply(sizes);
#endif

}  // namespace
