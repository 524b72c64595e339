// How cost grows: the same work at sizes from small to large. These are drawn as lines of time against size, so
// their names are GROWTH/what and its unit/who/size.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <random>
#include <string>

#include "inkstone/ascii.h"
#include "inkstone/draw.h"
#include "inkstone/host.h"
#include "inkstone/lzss.h"
#include "inkstone/mac.h"
#include "inkstone/scale.h"
#include "scratch_directory.h"
#include "support/files.h"
#include "support/script.h"

namespace {

using test::Bytes;

Bytes noise(std::size_t size) {
    std::mt19937 random(1);
    Bytes bytes(size);
    for (auto &byte : bytes) byte = static_cast<std::uint8_t>(random());
    return bytes;
}

// Squares of so many pixels.
template <class Copy>
void squares(benchmark::State &state, Copy copy) {
    const int side = static_cast<int>(state.range(0));
    const Bytes pixels = noise(static_cast<std::size_t>(side * side));
    Bytes screen(640 * 480);
    for (auto _ : state) {
        copy(screen.data(), side, pixels.data());
        benchmark::ClobberMemory();
    }
}
void copy_rows(std::uint8_t *screen, int side, const std::uint8_t *pixels) {
    for (int row = 0; row < side; ++row)
        std::memcpy(screen + row * 640, pixels + row * side, static_cast<std::size_t>(side));
}
void put(std::uint8_t *screen, int side, const std::uint8_t *pixels) {
    BUF_put_bitmap(0, 0, side, side, pixels, screen);
}
void pest(std::uint8_t *screen, int side, const std::uint8_t *pixels) {
    BUF_pest_bitmap(0, 0, side, side, pixels, screen);
}
void sides(benchmark::internal::Benchmark *benchmark) {
    for (const int side : {4, 8, 16, 32, 64, 128, 256, 480}) benchmark->Arg(side);
}
BENCHMARK_CAPTURE(squares, put, put)
    ->Name("Growth/copies of a square, side in pixels/BUF_put_bitmap")
    ->Apply(sides);
BENCHMARK_CAPTURE(squares, pest, pest)
    ->Name("Growth/copies of a square, side in pixels/BUF_pest_bitmap")
    ->Apply(sides);
BENCHMARK_CAPTURE(squares, rows, copy_rows)
    ->Name("Growth/copies of a square, side in pixels/memcpy")
    ->Apply(sides);

// A picture of 64 x 64 scaled to a square.
template <class Scale>
void scaled(benchmark::State &state, Scale scale) {
    const int side = static_cast<int>(state.range(0));
    const Bytes pixels = noise(64 * 64);
    Bytes screen(640 * 480);
    for (auto _ : state) scale(0, 0, side, side, 64, 64, pixels.data(), screen.data());
}
BENCHMARK_CAPTURE(scaled, put, BUF_scale_put_bitmap)
    ->Name("Growth/scaling to a square, side in pixels/BUF_scale_put_bitmap")
    ->Apply(sides);
BENCHMARK_CAPTURE(scaled, pest, BUF_scale_pest_bitmap)
    ->Name("Growth/scaling to a square, side in pixels/BUF_scale_pest_bitmap")
    ->Apply(sides);

// A text of so many characters, which goes on from line to line.
void text(benchmark::State &state, int mode) {
    const std::string line(static_cast<std::size_t>(state.range(0)), 'g');
    Bytes screen(640 * 480);
    for (auto _ : state) print_ascii16(0, 0, line.c_str(), mode, screen.data());
}
BENCHMARK_CAPTURE(text, opaque, 7 * 256)
    ->Name("Growth/text, characters/print_ascii16, opaque")
    ->RangeMultiplier(4)
    ->Range(1, 2048);
BENCHMARK_CAPTURE(text, transparent, 1)
    ->Name("Growth/text, characters/print_ascii16, transparent")
    ->RangeMultiplier(4)
    ->Range(1, 2048);

// Words of a small vocabulary.
Bytes words(std::size_t size) {
    std::mt19937 random(1);
    std::vector<std::string> vocabulary(2000);
    for (std::string &word : vocabulary)
        for (auto n = 1 + random() % 9; n > 0; --n) word += static_cast<char>('a' + random() % 26);
    Bytes data;
    while (data.size() < size) {
        const std::string &word = vocabulary[random() % (1 + random() % vocabulary.size())];
        data.insert(data.end(), word.begin(), word.end());
        data.push_back(' ');
    }
    data.resize(size);
    return data;
}

void compress(benchmark::State &state) {
    const Bytes data = words(static_cast<std::size_t>(state.range(0)));
    Bytes code(data.size() + data.size() / 8 + 16);
    const auto length = static_cast<std::uint32_t>(data.size());
    std::uint32_t code_length = 0;
    for (auto _ : state) LZSS_compress_data(data.data(), code.data(), &length, &code_length);
}
BENCHMARK(compress)
    ->Name("Growth/LZSS, bytes/LZSS_compress_data")
    ->RangeMultiplier(4)
    ->Range(1 << 10, 1 << 22);

void expand(benchmark::State &state) {
    Bytes data = words(static_cast<std::size_t>(state.range(0)));
    Bytes code(data.size() + data.size() / 8 + 16);
    auto length = static_cast<std::uint32_t>(data.size());
    std::uint32_t code_length = 0;
    LZSS_compress_data(data.data(), code.data(), &length, &code_length);
    for (auto _ : state) LZSS_expand_data(code.data(), data.data(), &code_length, &length);
}
BENCHMARK(expand)->Name("Growth/LZSS, bytes/LZSS_expand_data")->RangeMultiplier(4)->Range(1 << 10, 1 << 22);

// A procedure of so many assignments.
std::string straight_script(std::int64_t instructions) {
    std::string procedure;
    for (std::int64_t i = 0; i < instructions; ++i)
        procedure += test::op(18, test::constant(static_cast<std::int32_t>(i % 16)) + test::constant(1));
    return test::script_file({procedure + test::op(1)});
}

template <class Work>
void script(benchmark::State &state, Work work) {
    const bench::ScratchDirectory place;
    const std::string here = std::filesystem::current_path().string();
    test::write_text("a.mac", straight_script(state.range(0)));
    MAC_init(here.c_str(), here.c_str(), 16, nullptr);
    MAC_load("a.mac");
    for (auto _ : state) work();
    MAC_free();
}
BENCHMARK_CAPTURE(script, load, [] { MAC_load("a.mac"); })
    ->Name("Growth/scripts, instructions/MAC_load")
    ->RangeMultiplier(10)
    ->Range(10, 100000);
BENCHMARK_CAPTURE(script, run, [] { benchmark::DoNotOptimize(MAC_driver(0)); })
    ->Name("Growth/scripts, instructions/MAC_driver")
    ->RangeMultiplier(10)
    ->Range(10, 100000);
BENCHMARK_CAPTURE(script, load_and_run, [] { MAC_load("a.mac"), MAC_driver(0); })
    ->Name("Growth/scripts, instructions/MAC_load, MAC_driver")
    ->RangeMultiplier(10)
    ->Range(10, 100000);

}  // namespace
