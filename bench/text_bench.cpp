// Pages of text: every way of drawing 24-pixel Big5 characters and ASCII, beside copying characters that are
// expanded to pixels already, beside a plain loop that tests each bit and beside the text of Allegro 4.
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
#include "peers.h"

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
    CHINE_print24(0, 0, "~Z0~O0~T0", mode, screen.data());
}

void text_patterned(benchmark::State &state, const char *style, int mode) {
    pattern(0);
    pattern(3);
    page_of(state, style, mode);
    CHINE_set_color(0, 10);
    CHINE_set_color(3, 13);
}

// 80 columns and 30 rows, the whole screen.
constexpr int kAsciiColumns = 80, kAsciiRows = 30, kAsciiWidth = 8, kAsciiHeight = 16;

void ascii_page(benchmark::State &state, int mode) {
    const std::string text(kAsciiColumns - 2, 'g');
    for (auto _ : state) {
        for (int row = 0; row < kAsciiRows; ++row)
            print_ascii16(0, row * kAsciiHeight, text.c_str(), mode, screen.data());
        benchmark::ClobberMemory();
    }
}

void ascii_limit(benchmark::State &state) {
    const auto glyph = noise(kAsciiWidth * kAsciiHeight);
    for (auto _ : state) {
        for (int row = 0; row < kAsciiRows; ++row)
            for (int column = 0; column < kAsciiColumns - 2; ++column)
                for (int y = 0; y < kAsciiHeight; ++y)
                    std::memcpy(&screen[static_cast<std::size_t>((row * kAsciiHeight + y) * 640 +
                                                                 column * kAsciiWidth)],
                                &glyph[static_cast<std::size_t>(y * kAsciiWidth)], kAsciiWidth);
        benchmark::ClobberMemory();
    }
}

#if defined(INKSTONE_BENCH_ALLEGRO)
// Its own font is 8 x 8: characters half as high, so a page has twice as many rows.
void ascii_page_allegro(benchmark::State &state, int background) {
    const peers::AllegroBitmap page(640, 480);
    const std::string text(kAsciiColumns - 2, 'g');
    for (auto _ : state) {
        for (int row = 0; row < 2 * kAsciiRows; ++row)
            textout_ex(page, font, text.c_str(), 0, row * kAsciiHeight / 2, 14, background);
        benchmark::ClobberMemory();
    }
}
#endif

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
}

const auto copy_rows = [](int x, int y, const std::uint8_t *image) {
    for (int row = 0; row < kSize; ++row)
        std::memcpy(&screen[static_cast<std::size_t>((y + row) * 640 + x)], image + 4 + row * kSize, kSize);
};
const auto put_image = [](int x, int y, std::uint8_t *image) { BUF_put_image(x, y, image, screen.data()); };
const auto pest_image = [](int x, int y, std::uint8_t *image) { BUF_pest_image(x, y, image, screen.data()); };

constexpr struct {
    const char *name, *style;
    int mode;
} kStyles[] = {{"opaque", "", kOpaque},
               {"transparent", "", kTransparent},
               {"bold", "~D1", kTransparent},
               {"shadow", "~T1", kTransparent},
               {"outline", "~O1", kTransparent},
               {"outline and shadow", "~O1~T1", kTransparent},
               {"outline and shadow, opaque", "~O1~T1", kOpaque}};

[[maybe_unused]] const bool registered = [] {
    const auto row = [](const std::string &name, const char *who, auto run) {
        benchmark::RegisterBenchmark(("Text/" + name + "/" + who).c_str(), run);
    };
    for (const auto &[name, style, mode] : kStyles) {
        const std::string page = std::string("CHINE_print24, ") + name;
        row(page, "inkstone",
            [style = style, mode = mode](benchmark::State &state) { page_of(state, style, mode); });
        row(page, "limit memcpy of pixels", [](benchmark::State &state) { expanded_page(state, copy_rows); });
    }
    row("CHINE_print24, opaque", "plain copies of pixels",
        [](benchmark::State &state) { expanded_page(state, put_image); });
    row("CHINE_print24, opaque", "plain bit by bit",
        [](benchmark::State &state) { bit_by_bit(state, true); });
    row("CHINE_print24, transparent", "plain transparent copies of pixels",
        [](benchmark::State &state) { expanded_page(state, pest_image); });
    row("CHINE_print24, transparent", "plain bit by bit",
        [](benchmark::State &state) { bit_by_bit(state, false); });
    for (const auto &[name, style] : {std::pair{"patterned", ""}, {"patterned outline", "~O1"}})
        row(std::string("CHINE_print24, ") + name, "inkstone",
            [style = style](benchmark::State &state) { text_patterned(state, style, kTransparent); });
    for (const auto &[name, style] : {std::pair{"double size", "~Z1"}, {"double size, outline", "~Z1~O1"}})
        row(std::string("CHINE_print24, ") + name, "inkstone",
            [style = style](benchmark::State &state) { text_zoomed(state, style, kTransparent); });
    for (const bool opaque : {true, false}) {
        const std::string page = std::string("print_ascii16 page, ") + (opaque ? "opaque" : "transparent");
        row(page, "inkstone",
            [opaque](benchmark::State &state) { ascii_page(state, opaque ? kOpaque : kTransparent); });
        row(page, "limit memcpy of pixels", ascii_limit);
#if defined(INKSTONE_BENCH_ALLEGRO)
        row(page, "Allegro 4",
            [opaque](benchmark::State &state) { ascii_page_allegro(state, opaque ? 7 : -1); });
#endif
    }
    return true;
}();

}  // namespace
