// Chinese text with fonts of noise, so that every glyph differs from every other.
#include "inkstone/chine.h"

#include <gtest/gtest.h>

#include <cstring>

#include "inkstone/lzss.h"
#include "support/files.h"
#include "support/guarded.h"
#include "support/injection.h"
#include "support/literal_text.h"

using test::Bytes;
using test::Guarded;

namespace {

constexpr std::size_t kSizes[] = {4096, 633024, 12288, 1424304};
constexpr const char *kNames[] = {"ASCII16.FON", "CHINE16.FON", "ASCII24.FON", "CHINE24.FON"};

// The four fonts in the order of the pack; the last byte of each is ink.
const std::array<Bytes, 4> &noise() {
    static const auto fonts = [] {
        std::array<Bytes, 4> made;
        std::mt19937 random(5);
        for (std::size_t i = 0; i < 4; ++i) {
            made[i].resize(kSizes[i]);
            for (auto &byte : made[i]) byte = std::uint8_t(random() & random());
            made[i].back() = 0xFF;
        }
        return made;
    }();
    return fonts;
}
void write_fonts() {
    for (std::size_t i = 0; i < 4; ++i) test::write_file(kNames[i], noise()[i]);
}
void put32(Bytes &bytes, std::size_t at, std::uint32_t value) {
    for (int i = 0; i < 4; ++i) bytes[at + std::size_t(i)] = std::uint8_t(value >> 8 * i);
}
Bytes pack_of(std::uint32_t count, const std::array<std::uint32_t, 4> &sizes, const Bytes &data) {
    Bytes pack(352 + data.size(), 0xEE);
    put32(pack, 12, count);
    for (std::size_t i = 0; i < 4; ++i) put32(pack, 16 + 84 * i + 80, sizes[i]);
    std::copy(data.begin(), data.end(), pack.begin() + 352);
    return pack;
}
Bytes whole_pack() {
    Bytes data;
    for (const Bytes &font : noise()) data.insert(data.end(), font.begin(), font.end());
    return pack_of(4, {4096, 633024, 12288, 1424304}, data);
}
void write_pack(const Bytes &pack) {
    test::write_file("raw", pack);
    LZSS_compress_file("raw", "FONT.LZF");
}

// The single-byte cell of byte, or the cell of a Big5 character, as the given size draws it.
Bytes cell(const std::string &text, bool large) {
    Guarded screen(640 * 480);
    CHINE_set_color(0, 1);
    (large ? CHINE_print24 : CHINE_print16)(0, 0, text.c_str(), 1, screen);
    const int width = text.size() == 2 ? (large ? 24 : 16) : large ? 16 : 8, height = large ? 24 : 16;
    Bytes bytes(std::size_t(width * height / 8));
    for (int i = 0; i < width * height; ++i)
        bytes[std::size_t(i / 8)] |= std::uint8_t(screen.data()[i / width * 640 + i % width] << (7 - i % 8));
    return bytes;
}
Bytes stored(int font, std::size_t glyph, std::size_t size) {
    const Bytes &bytes = noise()[std::size_t(font)];
    return {bytes.begin() + std::ptrdiff_t(glyph * size), bytes.begin() + std::ptrdiff_t((glyph + 1) * size)};
}
bool all_fonts_draw() {
    return cell("\xA4\x40", false) == stored(1, 5495, 32) && cell("\xA4\x40", true) == stored(3, 5495, 72) &&
           cell("A", false) == stored(0, 'A', 16) && cell("A", true) == stored(2, 'A', 48);
}

}  // namespace

TEST(Chine, FindsTheGlyphOfEachCode) {
    write_fonts();
    ASSERT_EQ(CHINE_init(0), 0);
    EXPECT_TRUE(all_fonts_draw());
    const std::pair<const char *, std::size_t> codes[] = {
        {"\x81\x40", 0},    {"\xA4\xA1", 5558}, {"\xF9\xFE", 18996}, {"\xFE\xFE", 19781},
        {"\xA4\x7F", 5558}, {"\xA4\x90", 5575}, {"\xA5\x20", 5620},  {"\xA4~", 5557}};
    for (const auto &[text, glyph] : codes) {
        const std::uint8_t trail = std::uint8_t(text[1]);
        // A trail byte below 0x40 counts backwards from 256.
        const std::size_t index = trail == 0x20 ? 157 * 36 + 0xE0 : glyph;
        EXPECT_EQ(cell(text, false), stored(1, index, 32)) << glyph;
        EXPECT_EQ(cell(text, true), stored(3, index, 72)) << glyph;
    }
    // Outside the font: blank, and the text goes on behind it.
    for (const char *text : {"\x80\x40", "\xFF\x40", "\xFE\x3F", "\xFE\xFF", "\x80\xFE"}) {
        EXPECT_EQ(cell(text, false), Bytes(32)) << text;
        EXPECT_EQ(cell(text, true), Bytes(72)) << text;
        Guarded screen(640 * 480), shifted(640 * 480);
        CHINE_print24(0, 0, (std::string(text) + "A").c_str(), 1, screen);
        CHINE_print24(24, 0, "A", 1, shifted);
        EXPECT_EQ(screen.contents(), shifted.contents());
    }
    EXPECT_EQ(cell("\xA4", false), stored(0, 0xA4, 16));  // no pair at the end of a text
    EXPECT_EQ(test::take_log(), "");
}

TEST(Chine, EveryWriteLandsAsInThePlainModel) {
    write_pack(whole_pack());
    ASSERT_EQ(CHINE_init(1), 0);
    std::array<test::LiteralText, 2> models;
    for (int large = 0; large < 2; ++large) {
        test::LiteralText &model = models[std::size_t(large)];
        if (large) model.line = model.line_end = 24, model.advance = 12;
        model.single = [large](unsigned code) {
            return large ? test::literal_glyph(&noise()[2][code * 48], 16, 24)
                         : test::literal_glyph(&noise()[0][code * 16], 8, 16);
        };
        model.wide = [large](unsigned lead, unsigned trail) {
            const std::size_t column = (trail < 0xA1 ? trail - 0x40 : trail - 0x62) & 0xFF;
            const std::size_t glyph = 157 * ((lead - 0x81) & 0xFF) + column;
            const int size = large ? 24 : 16;
            if (glyph >= 19782)
                return test::LiteralGlyph{size, size, std::vector<bool>(std::size_t(size * size))};
            return test::literal_glyph(&noise()[large ? 3 : 1][glyph * (large ? 72 : 32)], size, size);
        };
    }
    test::TextDice dice(2);
    Guarded screen(640 * 480);
    for (int round = 0; round < 6000; ++round) {
        const int slot = dice.below(6) - 1, colour = dice.below(1000);
        if (dice.below(4) == 0) {
            Bytes pattern(576);
            for (auto &entry : pattern) entry = std::uint8_t(dice.below(256));
            CHINE_set_color_pattern(slot, pattern.data());
            for (std::size_t i = 0; i < 576 && slot >= 0 && slot < 4; ++i) {
                models[1].colours[std::size_t(slot)][i] = pattern[i];
                if (i < 256) models[0].colours[std::size_t(slot)][i] = pattern[68 + 24 * (i / 16) + i % 16];
            }
        } else if (slot >= 0 && slot < 4) {
            CHINE_set_color(slot, colour);
            for (auto &model : models) model.colours[std::size_t(slot)].fill(std::uint8_t(colour));
        }
        static constexpr int kWindows[][4] = {{0, 0, 640, 480},     {-60, -70, 700, 560}, {100, 90, 170, 150},
                                              {600, 440, 640, 480}, {0, 0, 30, 30},       {-100, 0, 10, 600}};
        const auto &window = kWindows[dice.below(6)];
        CHINE_set_text_window(window[0], window[1], window[2], window[3]);
        test::LiteralText &model = models[std::size_t(round % 2)],
                          &other = models[std::size_t(1 - round % 2)];
        model.left = window[0], model.top = window[1], model.right = window[2], model.bottom = window[3];
        const int x = dice.place(window[0] - 1, window[2] - 14),
                  y = dice.place(window[1] - 1, window[3] - 14);
        const int mode = dice.mode();
        const std::string text = dice.text(true);
        (round % 2 ? CHINE_print24 : CHINE_print16)(x, y, text.c_str(), mode, screen);
        model.print(x, y, text, mode);
        ASSERT_EQ(0, std::memcmp(screen.data(), model.screen.data(), model.screen.size()))
            << "round " << round << " at " << x << ", " << y << " mode " << mode << ": " << text;
        ASSERT_EQ(test::take_log(), std::exchange(model.log, "")) << text;
        other.screen = model.screen;
        other.slot = model.slot, other.zoom = model.zoom, other.bold = model.bold;
        other.outline = model.outline, other.shadow = model.shadow;
    }
    EXPECT_TRUE(screen.intact());
}

TEST(Chine, BearsAnyWindowAndPlace) {
    write_fonts();
    ASSERT_EQ(CHINE_init(0), 0);
    Guarded screen(640 * 480);
    constexpr std::int32_t kExtremes[] = {INT32_MIN, INT32_MIN + 5, -1, 0, 639, INT32_MAX - 30, INT32_MAX};
    for (const std::int32_t low : kExtremes)
        for (const std::int32_t high : kExtremes)
            for (const std::int32_t at : kExtremes) {
                CHINE_set_text_window(low, low, high, high);
                CHINE_print24(at, at,
                              "~O1~T1~Z1\xA4\x40"
                              "AAAA\xA4\x40",
                              1, screen);
                CHINE_print16(at, at,
                              "~O1~T1~Z1\xA4\x40"
                              "AAAA\xA4\x40",
                              0, screen);
            }
    CHINE_print16(0, 0, nullptr, 0, screen);
    CHINE_print24(0, 0, "A", 0, nullptr);
    CHINE_set_color_pattern(0, nullptr);
    EXPECT_TRUE(screen.intact());
}

TEST(Chine, StartsAfreshWithEachLoadButForOutlineAndWindow) {
    write_fonts();
    Guarded screen(640 * 480, 9), blank(640 * 480, 9);
    EXPECT_EQ(CHINE_init(0), 0);
    CHINE_set_color_pattern(0, noise()[0].data());
    CHINE_set_color(3, 60);
    CHINE_set_text_window(0, 0, 100, 100);
    CHINE_print16(0, 0, "~C1~Z1~D1~T1~O1", 1, screen);
    CHINE_free();
    CHINE_free();
    EXPECT_EQ(CHINE_init(0), 0);
    CHINE_print16(85, 0, "A", 1, screen);  // outside the window
    EXPECT_EQ(screen.contents(), blank.contents());
    test::LiteralText model;
    model.screen = blank.contents();
    model.outline = true;
    const auto small = test::literal_glyph(&noise()[1][5495 * 32], 16, 16),
               large = test::literal_glyph(&noise()[3][5495 * 72], 24, 24);
    for (const int colour : {0, 1}) {  // all colours are 0 until they are set
        if (colour != 0) CHINE_set_color(0, colour), CHINE_set_color(3, 2);
        model.colours[0].fill(std::uint8_t(colour));
        model.colours[3].fill(std::uint8_t(2 * colour));
        CHINE_print16(20, 20 + 50 * colour, "\xA4\x40", 1, screen);
        CHINE_print24(50, 20 + 50 * colour, "\xA4\x40", 1, screen);
        model.character(small, 20, 20 + 50 * colour, 1);
        model.character(large, 50, 20 + 50 * colour, 1);
        EXPECT_EQ(screen.contents(), model.screen);
    }
}

TEST(Chine, GradientRunsFromTopToBottomInBothSizes) {
    write_fonts();
    ASSERT_EQ(CHINE_init(0), 0);
    Bytes pattern(576);
    for (std::size_t i = 0; i < 576; ++i) pattern[i] = std::uint8_t(i / 24);
    CHINE_set_color_pattern(0, pattern.data());
    Guarded screen(640 * 480, 99);
    // The last glyph of the font, all of whose last eight pixels have ink.
    CHINE_print16(0, 0, "\xFE\xFE", 1, screen);
    for (int column = 8; column < 16; ++column) EXPECT_EQ(screen.data()[15 * 640 + column], 15 + 3);
    const Bytes rows = stored(1, 19781, 32);
    for (int row = 0; row < 16; ++row)
        EXPECT_EQ(screen.data()[row * 640], rows[std::size_t(2 * row)] & 0x80 ? row + 2 : 99);
    CHINE_print24(0, 100, "\xFE\xFE", 1, screen);
    const Bytes large = stored(3, 19781, 72);
    for (int row = 0; row < 24; ++row)
        EXPECT_EQ(screen.data()[(100 + row) * 640], large[std::size_t(3 * row)] & 0x80 ? row : 99);
}

TEST(Chine, SaysWhatIsMissing) {
    Guarded screen(640 * 480, 7), blank(640 * 480, 7);
    const auto nothing_works = [&] {
        CHINE_print16(0, 0, "A", 0, screen);
        CHINE_print24(700, 0, "A", 0, screen);
        CHINE_set_color(9, 1);
        CHINE_set_color_pattern(0, blank);
        const std::string log = test::take_log();
        return log == "CHINE not init\nChine not enable\nChine not enable\nChine not enable\n" &&
               screen.contents() == blank.contents();
    };
    EXPECT_TRUE(nothing_works());
    CHINE_free();
    // In the order in which they are read.
    for (const char *missing : {"ASCII24.FON", "ASCII16.FON", "CHINE24.FON", "CHINE16.FON"}) {
        EXPECT_EQ(CHINE_init(0), -2);
        EXPECT_EQ(test::take_log(), "File " + std::string(missing) + " open error\n");
        EXPECT_TRUE(nothing_works());
        for (std::size_t i = 0; i < 4; ++i)
            if (kNames[i] == std::string(missing)) test::write_file(missing, noise()[i]);
    }
    EXPECT_EQ(CHINE_init(0), 0);
    std::filesystem::remove("CHINE24.FON");
    EXPECT_EQ(CHINE_init(0), -2);  // the fonts that were there before are gone
    EXPECT_EQ(test::take_log(), "File CHINE24.FON open error\n");
    EXPECT_TRUE(nothing_works());
    write_fonts();
    EXPECT_EQ(CHINE_init(0), 0);
    EXPECT_TRUE(all_fonts_draw());
    CHINE_set_color(4, 7);
    CHINE_set_color(-1, 7);
    EXPECT_EQ(test::take_log(), "");
    CHINE_free();
    EXPECT_TRUE(nothing_works());
}

TEST(Chine, LoadsThePackAndRefusesBadOnes) {
    struct Case {
        Bytes pack;
        std::int32_t result;
        const char *log;
    };
    Bytes few(whole_pack());
    few.resize(16);
    const Case cases[] = {
        {whole_pack(), 0, ""},
        {pack_of(5, {}, {}), -2, "ERROR : total files 5 error\n"},
        {pack_of(0x80000000, {}, {}), -2, "ERROR : total files -2147483648 error\n"},
        {{}, -2, "ERROR : total files 0 error\n"},
        {pack_of(4, {0x7FFFFFFF, 1, 0, 0}, {}), -2, "ERROR : memory alloc error\n"},
        {pack_of(4, {16, 0xFFFFFFF0, 0, 0}, {}), -2, "ERROR : memory alloc error\n"},
        {pack_of(4, {0x7FFFFFFF, 0, 0, 0}, {}), 0, ""},  // all missing: blank
        {few, 0, ""},                                    // no directory: fonts of no size
    };
    for (const Case &one : cases)
        for (const std::int32_t mode : {1, 2, -1}) {
            write_pack(one.pack);
            EXPECT_EQ(CHINE_init(mode), one.result);
            EXPECT_EQ(test::take_log(), one.log);
            EXPECT_EQ(test::exists("FONT.SCF"), mode != 1);
            EXPECT_EQ(all_fonts_draw(), one.pack.size() > 2000000);
            test::take_log();
            CHINE_free();
        }
    // A pack that cannot be opened: a directory stands where it would be expanded.
    std::filesystem::remove("FONT.SCF");
    std::filesystem::create_directory("FONT.SCF");
    EXPECT_EQ(CHINE_init(2), -2);
    EXPECT_EQ(test::take_log(),
              "ERROR : file FONT.SCF open error(LZSS_expand_file)\nERROR : open file FONT.SCF error\n");
    std::filesystem::remove("FONT.SCF");
    // No compressed pack: an older one that was expanded serves.
    std::filesystem::remove("FONT.LZF");
    const std::string missing = "ERROR : file FONT.LZF open error(LZSS_expand_file)\n";
    EXPECT_EQ(CHINE_init(1), -2);
    EXPECT_EQ(test::take_log(), missing + "ERROR : open file FONT.SCF error\n");
    test::write_file("FONT.SCF", whole_pack());
    for (const std::int32_t mode : {2, 1}) {
        EXPECT_EQ(CHINE_init(mode), 0);
        EXPECT_EQ(test::take_log(), missing);
        EXPECT_TRUE(all_fonts_draw());
        EXPECT_EQ(test::exists("FONT.SCF"), mode == 2);
    }
}

TEST(Chine, BearsEveryRefusal) {
    write_fonts();
    write_pack(whole_pack());
    std::int32_t result = 0;
    const auto outcome = [&] {
        std::uint8_t none[1];
        if (result == 0) return std::string(all_fonts_draw() ? "0 all" : "0 part");
        CHINE_print16(0, 0, "A", 0, none);
        return std::to_string(result);
    };
    const Bytes pattern(576, 1);
    test::inject({.group = "CHINE_init (fonts), CHINE_set_color, CHINE_set_color_pattern, "
                           "CHINE_set_text_window, CHINE_print16, "
                           "CHINE_print24, CHINE_free",
                  .use =
                      [&] {
                          result = CHINE_init(0);
                          if (result != 0) return;
                          CHINE_set_color_pattern(3, pattern.data());
                          CHINE_set_text_window(0, 0, 640, 480);
                      },
                  .outcome = outcome,
                  .right = "0 all",
                  .memory = {"-2| memory alloc error in CHINE_init, CHINE not init"},
                  .files = {"-2| File ASCII16.FON open error, CHINE not init",
                            "-2| File ASCII24.FON open error, CHINE not init",
                            "-2| File CHINE16.FON open error, CHINE not init",
                            "-2| File CHINE24.FON open error, CHINE not init", "0 part"},
                  .prepare = CHINE_free});
    // A pack of the single-byte fonts alone, of which not each block is worth a failure.
    Bytes data = noise()[0];
    data.insert(data.end(), noise()[2].begin(), noise()[2].end());
    write_pack(pack_of(4, {4096, 0, 12288, 0}, data));
    test::inject(
        {.group = "CHINE_init (pack)",
         .use = [&] { result = CHINE_init(1); },
         .outcome =
             [&] {
                 if (result != 0) return std::to_string(result);
                 const int drawn =
                     (cell("A", false) == stored(0, 'A', 16)) + (cell("A", true) == stored(2, 'A', 48));
                 return "0 " + std::to_string(drawn);
             },
         .right = "0 2",
         .memory = {"-2| ERROR : memory alloc error"},
         .files = {"-2| BITIO_input_bit error, ERROR : open file FONT.SCF error",
                   "-2| BITIO_input_bit error, ERROR : total files 0 error",
                   "-2| BITIO_input_bits error, ERROR : open file FONT.SCF error",
                   "-2| ERROR : file FONT.LZF open error(LZSS_expand_file), ERROR : open file FONT.SCF error",
                   "-2| ERROR : file FONT.LZF open error(LZSS_expand_file), ERROR : total files 0 error",
                   "-2| ERROR : file FONT.SCF open error(LZSS_expand_file), ERROR : open file FONT.SCF error",
                   "-2| ERROR : open file FONT.SCF error", "-2| ERROR : total files 0 error", "0 1",
                   "0 1| BITIO_input_bit error", "0 2| BITIO_input_bits error"},
         .prepare = CHINE_free});
}

TEST(Chine, DrawsWhatShortFontsLackAsBlank) {
    // Fonts that end within a glyph: the rest of it is blank, and nothing of the font behind it shows.
    constexpr std::size_t kFirst = 'A' * 16 + 5, kSecond = 5495 * 32 + 3, kThird = 48 * 256;
    Bytes data(kFirst + kSecond + kThird, 0xFF);
    std::copy_n(noise()[0].begin(), kFirst, data.begin());
    std::copy_n(noise()[1].begin(), kSecond, data.begin() + kFirst);
    write_pack(pack_of(4, {kFirst, kSecond, kThird, 100}, data));
    Bytes part_of_single = stored(0, 'A', 16), part_of_wide = stored(1, 5495, 32);
    std::fill(part_of_single.begin() + 5, part_of_single.end(), 0);
    std::fill(part_of_wide.begin() + 3, part_of_wide.end(), 0);
    const auto holds = [&] {
        return cell("A", false) == part_of_single && cell("B", false) == Bytes(16) &&
               cell("\xA4\x40", false) == part_of_wide && cell("\xA4\x41", false) == Bytes(32) &&
               cell("\xFE\xFE", true) == Bytes(72);
    };
    ASSERT_EQ(CHINE_init(1), 0);
    EXPECT_TRUE(holds());
    CHINE_free();
    // The same from separate files.
    write_fonts();
    std::filesystem::resize_file("ASCII16.FON", kFirst);
    std::filesystem::resize_file("CHINE16.FON", kSecond);
    std::filesystem::resize_file("CHINE24.FON", 0);
    ASSERT_EQ(CHINE_init(0), 0);
    EXPECT_TRUE(holds());
    EXPECT_EQ(test::take_log(), "");
}
