// ink font and ink strings, with fonts of a few characters.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "inkstone/chine.h"
#include "support/tool.h"

namespace {

using test::Bytes;
using test::ink;

// A bitmap font with characters of solid ink. Its cells are width x height, the last two rows below the base
// line.
void write_font(const std::string &name, const std::string &registry, int width, int height,
                const std::vector<int> &codes) {
    const std::string size = std::to_string(width) + " " + std::to_string(height);
    std::string text = "STARTFONT 2.1\nFONT -x-x-medium-r-normal--16-160-75-75-c-80-" + registry + "\nSIZE " +
                       std::to_string(height) + " 75 75\nFONTBOUNDINGBOX " + size +
                       " 0 -2\nSTARTPROPERTIES 4\n" + "FONT_ASCENT " + std::to_string(height - 2) +
                       "\nFONT_DESCENT 2\nCHARSET_REGISTRY \"" + registry.substr(0, registry.find('-')) +
                       "\"\nCHARSET_ENCODING \"" + registry.substr(registry.find('-') + 1) +
                       "\"\nENDPROPERTIES\nCHARS " + std::to_string(codes.size()) + "\n";
    for (const int code : codes) {
        text += "STARTCHAR c" + std::to_string(code) + "\nENCODING " + std::to_string(code) +
                "\nSWIDTH 500 0\nDWIDTH " + std::to_string(width) + " 0\nBBX " + size + " 0 -2\nBITMAP\n";
        const std::string row =
            std::string(std::size_t(width / 4), 'F') + std::string(std::size_t(width / 4 % 2), '0');
        for (int i = 0; i < height; ++i) text += row + "\n";
        text += "ENDCHAR\n";
    }
    test::write_text(name, text + "ENDFONT\n");
}
const std::string kSources =
    "--ascii16 ascii.bdf --ascii24 ascii24.bdf --chinese16 big5.bdf --chinese16 unicode.bdf --chinese24 "
    "big5.bdf.gz ";

void write_fonts() {
    write_font("ascii.bdf", "ISO10646-1", 8, 16, {'A', 0xE9});
    write_font("ascii24.bdf", "ISO8859-1", 12, 20, {'A'});
    write_font("big5.bdf", "Big5.ETen-0", 12, 14, {0xA440, 0xC940, 0xA143});
    write_font("unicode.bdf", "ISO10646-1", 16, 16, {0x4E00, 0x4E59});  // A440 again, and A441
    ASSERT_EQ(std::system("gzip -k -f big5.bdf"), 0);
}
Bytes glyph(const char *file, std::size_t index, std::size_t size) {
    const Bytes bytes = test::read_file(file);
    return {bytes.begin() + std::ptrdiff_t(index * size), bytes.begin() + std::ptrdiff_t((index + 1) * size)};
}

}  // namespace

TEST(FontTool, MakesFontsThatTheLibraryLoads) {
#if defined(_WIN32)
    GTEST_SKIP() << "this ink reads no fonts";
#endif
    write_fonts();
    ASSERT_EQ(ink("font build " + kSources + "-o made"), 0) << test::read_text("err");
    const std::string report = test::read_text("out");
    EXPECT_NE(
        report.find("3 of 13053 standard Big5 characters have ink (level 1: 2 of 5401, level 2: 1 of 7652), "
                    "and 1 others"),
        std::string::npos)
        << report;
    std::filesystem::current_path("made");
    EXPECT_EQ(glyph("ASCII16.FON", 'A', 16), Bytes(16, 0xFF));
    EXPECT_EQ(glyph("ASCII16.FON", 0x82, 16),
              Bytes(16, 0xFF));  // e with acute, at its place in code page 437
    EXPECT_EQ(glyph("ASCII16.FON", 'B', 16), Bytes(16));
    // Two rows free above and below; the last four columns stay free.
    Bytes wide(48);
    for (std::size_t row = 2; row < 22; ++row) wide[2 * row] = 0xFF, wide[2 * row + 1] = 0xF0;
    EXPECT_EQ(glyph("ASCII24.FON", 'A', 48), wide);
    Bytes middle(32);  // 12 x 14 in the middle of 16 x 16, from the first font that has it
    for (std::size_t row = 1; row < 15; ++row) middle[2 * row] = 0x3F, middle[2 * row + 1] = 0xFC;
    EXPECT_EQ(glyph("CHINE16.FON", 5495, 32), middle);
    EXPECT_EQ(glyph("CHINE16.FON", 5496, 32), Bytes(32, 0xFF));
    EXPECT_EQ(glyph("CHINE16.FON", 5497, 32), Bytes(32));
    EXPECT_EQ(CHINE_init(1), 0);
    Bytes screen(640 * 480);
    CHINE_set_color(0, 9);
    CHINE_print16(0, 0, "\xA4\x41", 1, screen.data());
    EXPECT_EQ(screen[15 * 640 + 15], 9);
    EXPECT_EQ(ink("font show ../shown.png -s 16 -t 一乙A"), 0) << test::read_text("err");
    EXPECT_TRUE(test::exists("../shown.png"));
}

// square.ttf, made with fontTools, has A and U+4E00. A is a box of 1/2 x 4/5 of the size on the base line: of 16,
// 8 x 13 pixels in the middle of the cell's height.
TEST(FontTool, DrawsOutlineFontsAtTheSizeOfTheCell) {
#if defined(_WIN32)
    GTEST_SKIP() << "this ink reads no fonts";
#endif
    write_fonts();
    ASSERT_EQ(ink("font build " + kSources + "--ascii16 " TEST_DATA "/square.ttf -o made"), 0);
    EXPECT_EQ(glyph("made/ASCII16.FON", 'A', 16), Bytes(16, 0xFF));  // the first that has it
    std::string sources = kSources;
    sources.replace(sources.find("ascii.bdf"), 9, TEST_DATA "/square.ttf");
    ASSERT_EQ(ink("font build " + sources + "-o made"), 0) << test::read_text("err");
    Bytes square(16, 0xFF);
    square[0] = square[14] = square[15] = 0;
    EXPECT_EQ(glyph("made/ASCII16.FON", 'A', 16), square);
    sources.insert(sources.find(".ttf") + 4, "@20000");
    EXPECT_EQ(ink("font build " + sources + "-o none"), 1);
    EXPECT_NE(
        test::read_text("err").find("its character 0x41 is 10000 x 16000 pixels and does not fit into "
                                    "cells of 8 x 16; it is drawn smaller with " TEST_DATA "/square.ttf@16"),
        std::string::npos)
        << test::read_text("err");
}

TEST(FontTool, WritesNothingWhenAFontDoesNotFit) {
#if defined(_WIN32)
    GTEST_SKIP() << "this ink reads no fonts";
#endif
    write_fonts();
    const std::pair<const char *, const char *> wrong[] = {
        {"--chinese16 missing.bdf", "missing.bdf: no such file"},
        {"--chinese24 ascii24.bdf", "CHINE24.FON: ascii24.bdf has no Chinese character of Big5"},
        {"--ascii16 ascii24.bdf", "do not fit into cells of 8 x 16"},
        {"--ascii16 unicode.bdf", "ASCII16.FON: unicode.bdf has no character of ASCII"},
        {"--chinese24 out", "out: is not a font"},
    };
    for (const auto &[option, message] : wrong) {
        std::string sources = kSources;
        const std::string name(option, std::strcspn(option, " "));
        for (std::size_t at; (at = sources.find(name)) != std::string::npos;)
            sources.erase(at, sources.find("--", at + 2) - at);
        EXPECT_EQ(ink("font build " + sources + " " + option + " -o made"), 1);
        EXPECT_NE(test::read_text("err").find(message), std::string::npos) << test::read_text("err");
        EXPECT_FALSE(test::exists("made"));
    }
}

TEST(StringsTool, CompilesTextsAsBig5) {
    test::write_text("a.txt", "\xEF\xBB\xBF; texts\nA = 許\"A?\r\n\nB = ~C1x\n");
    ASSERT_EQ(ink("strings a.txt a.h"), 0) << test::read_text("err");
    // The second byte of the first character is a backslash.
    EXPECT_EQ(
        test::read_text("a.h"),
        "/* Made by ink strings: texts in Big5. */\nstatic const char A[] = \"\\263\\134\\042A\\077\";\n"
        "static const char B[] = \"~C1x\";\n");
    test::write_text("b.txt", "A = x\nB = 靐\n");
    EXPECT_EQ(ink("strings b.txt b.h"), 1);
    EXPECT_EQ(test::read_text("err"), "b.txt:2:5: Big5 has no character 靐\n    B = 靐\n        ^\n");
    EXPECT_FALSE(test::exists("b.h"));
}
