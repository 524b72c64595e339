// Pages of text, in characters per second: every way of drawing 24-pixel Big5 characters, beside copying
// characters that are expanded to pixels already and beside a plain loop that tests each bit.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "inkstone/ascii.h"
#include "inkstone/chine.h"
#include "inkstone/draw.h"

namespace {

namespace fs = std::filesystem;

constexpr int kColumns = 24, kRows = 18, kSize = 24, kLeft = 20, kTop = 20;
constexpr int kTransparent = 1, kOpaque = 7 * 256;

std::vector<std::uint8_t> screen(640 * 480);

std::vector<std::uint8_t> noise(std::size_t size) {
    std::mt19937 random(1);
    std::vector<std::uint8_t> bytes(size);
    for (auto &byte : bytes) byte = static_cast<std::uint8_t>(random() & random());
    return bytes;
}

// How fast text is drawn does not depend on what the characters look like.
bool load_fonts() {
    const fs::path before = fs::current_path(), place = fs::temp_directory_path() / "inkstone-text-bench";
    fs::create_directories(place);
    fs::current_path(place);
    const std::pair<const char *, std::size_t> files[] = {
        {"ASCII16.FON", 4096}, {"CHINE16.FON", 633024}, {"ASCII24.FON", 12288}, {"CHINE24.FON", 1424304}};
    for (const auto &[name, size] : files) {
        const auto bytes = noise(size);
        std::ofstream(name, std::ios::binary)
            .write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(size));
    }
    const bool loaded = CHINE_init(0) == 0;
    fs::current_path(before);
    fs::remove_all(place);
    for (int slot = 0; slot < 4; ++slot) CHINE_set_color(slot, 10 + slot);
    return loaded;
}

void count(benchmark::State &state, int per_round) {
    state.SetItemsProcessed(state.iterations() * per_round);
}

void page_of(benchmark::State &state, const char *style, int mode) {
    static const bool loaded = load_fonts();
    if (!loaded) return state.SkipWithError("the fonts cannot be loaded");
    std::string text;
    for (int i = 0; i < kColumns; ++i) text += {'\xA4', static_cast<char>(0x40 + i)};
    CHINE_print24(0, 0, style, mode, screen.data());
    for (auto _ : state) {
        for (int row = 0; row < kRows; ++row)
            CHINE_print24(kLeft, kTop + row * kSize, text.c_str(), mode, screen.data());
        benchmark::ClobberMemory();
    }
    count(state, kColumns * kRows);
    CHINE_print24(0, 0, "~C0~Z0~D0~O0~T0", mode, screen.data());
}

void pattern(int slot) {
    CHINE_set_color_pattern(slot, noise(576).data());
}

void text_zoomed(benchmark::State &state, const char *style, int mode) {
    static const bool loaded = load_fonts();
    if (!loaded) return state.SkipWithError("the fonts cannot be loaded");
    CHINE_print24(0, 0, style, mode, screen.data());
    const std::string text =
        "\xA4\x40\xA4\x41\xA4\x42\xA4\x43\xA4\x44\xA4\x45\xA4\x46\xA4\x47\xA4\x48\xA4\x49";
    for (auto _ : state) {
        for (int row = 0; row < 8; ++row)
            CHINE_print24(kLeft, kTop + row * 48, text.c_str(), mode, screen.data());
        benchmark::ClobberMemory();
    }
    count(state, 80);
    CHINE_print24(0, 0, "~Z0~O0~T0", mode, screen.data());
}

void text_patterned(benchmark::State &state, const char *style, int mode) {
    pattern(0);
    pattern(3);
    page_of(state, style, mode);
    CHINE_set_color(0, 10);
    CHINE_set_color(3, 13);
}

void ascii_page(benchmark::State &state, int mode) {
    const std::string text(60, 'g');
    for (auto _ : state) {
        for (int row = 0; row < 28; ++row)
            print_ascii16(16, 16 + row * 16, text.c_str(), mode, screen.data());
        benchmark::ClobberMemory();
    }
    count(state, 60 * 28);
}

// The same page from characters that stand in memory as image blocks.
template <typename Copy>
void expanded_page(benchmark::State &state, Copy copy) {
    std::vector<std::vector<std::uint8_t>> glyphs(kColumns);
    const auto bits = noise(72 * kColumns);
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        glyphs[i] = {kSize, 0, kSize, 0};
        for (std::size_t bit = 0; bit < kSize * kSize; ++bit)
            glyphs[i].push_back((bits[72 * i + bit / 8] >> (7 - bit % 8)) & 1 ? 10 : 0);
    }
    for (auto _ : state) {
        for (int row = 0; row < kRows; ++row)
            for (int column = 0; column < kColumns; ++column)
                copy(kLeft + column * kSize, kTop + row * kSize,
                     glyphs[static_cast<std::size_t>(column)].data());
        benchmark::ClobberMemory();
    }
    count(state, kColumns * kRows);
}

void bit_by_bit(benchmark::State &state, bool opaque) {
    const auto bits = noise(72 * kColumns);
    for (auto _ : state) {
        for (int row = 0; row < kRows; ++row)
            for (int column = 0; column < kColumns; ++column) {
                std::uint8_t *to =
                    &screen[static_cast<std::size_t>((kTop + row * kSize) * 640 + kLeft + column * kSize)];
                const std::uint8_t *from = &bits[static_cast<std::size_t>(72 * column)];
                for (int y = 0; y < kSize; ++y, to += 640)
                    for (int x = 0; x < kSize; ++x) {
                        if (from[y * 3 + x / 8] & (0x80 >> x % 8))
                            to[x] = 10;
                        else if (opaque)
                            to[x] = 7;
                    }
            }
        benchmark::ClobberMemory();
    }
    count(state, kColumns * kRows);
}

const auto copy_rows = [](int x, int y, const std::uint8_t *image) {
    for (int row = 0; row < kSize; ++row)
        std::memcpy(&screen[static_cast<std::size_t>((y + row) * 640 + x)], image + 4 + row * kSize, kSize);
};
const auto put_image = [](int x, int y, std::uint8_t *image) { BUF_put_image(x, y, image, screen.data()); };
const auto pest_image = [](int x, int y, std::uint8_t *image) { BUF_pest_image(x, y, image, screen.data()); };

BENCHMARK_CAPTURE(expanded_page, memcpy_rows, copy_rows)->Name("Text/limit: memcpy of expanded rows");
BENCHMARK_CAPTURE(expanded_page, put, put_image)->Name("Text/BUF_put_image of expanded characters");
BENCHMARK_CAPTURE(expanded_page, pest, pest_image)->Name("Text/BUF_pest_image of expanded characters");
BENCHMARK_CAPTURE(bit_by_bit, opaque, true)->Name("Text/bit by bit, opaque");
BENCHMARK_CAPTURE(bit_by_bit, transparent, false)->Name("Text/bit by bit, transparent");
BENCHMARK_CAPTURE(page_of, plain, "", kOpaque)->Name("Text/CHINE_print24 opaque");
BENCHMARK_CAPTURE(page_of, transparent, "", kTransparent)->Name("Text/CHINE_print24 transparent");
BENCHMARK_CAPTURE(page_of, bold, "~D1", kTransparent)->Name("Text/CHINE_print24 bold");
BENCHMARK_CAPTURE(page_of, shadow, "~T1", kTransparent)->Name("Text/CHINE_print24 shadow");
BENCHMARK_CAPTURE(page_of, outline, "~O1", kTransparent)->Name("Text/CHINE_print24 outline");
BENCHMARK_CAPTURE(page_of, both, "~O1~T1", kTransparent)->Name("Text/CHINE_print24 outline and shadow");
BENCHMARK_CAPTURE(page_of, both_opaque, "~O1~T1", kOpaque)
    ->Name("Text/CHINE_print24 outline and shadow, opaque");
BENCHMARK_CAPTURE(text_patterned, ink, "", kTransparent)->Name("Text/CHINE_print24 patterned");
BENCHMARK_CAPTURE(text_patterned, outline, "~O1", kTransparent)->Name("Text/CHINE_print24 patterned outline");
BENCHMARK_CAPTURE(text_zoomed, plain, "~Z1", kTransparent)->Name("Text/CHINE_print24 double size");
BENCHMARK_CAPTURE(text_zoomed, outline, "~Z1~O1", kTransparent)
    ->Name("Text/CHINE_print24 double size, outline");
BENCHMARK_CAPTURE(ascii_page, opaque, kOpaque)->Name("Text/print_ascii16 opaque");
BENCHMARK_CAPTURE(ascii_page, transparent, kTransparent)->Name("Text/print_ascii16 transparent");

}  // namespace
