// Text in the built-in font, compared with a plain model of every write.
#include "inkstone/ascii.h"

#include <gtest/gtest.h>

#include <cstring>

#include "support/guarded.h"
#include "support/literal_text.h"

using test::Guarded;

namespace {

using Rows = std::vector<unsigned>;

// The 16 rows of a character's cell as the library draws it.
Rows cell(unsigned code) {
    Guarded screen(640 * 480);
    set_ascii16_color(0, 255);
    const char text[] = {'~', 'C', '0', char(code), 0};
    print_ascii16(0, 0, text, 1, screen);
    set_ascii16_color(0, 0);
    Rows rows(16);
    for (unsigned i = 0; i < 128; ++i)
        rows[i / 8] |= unsigned(screen.data()[i / 8 * 640 + i % 8] == 255) << (7 - i % 8);
    return rows;
}

bool draws(int x, int y, const char *text) {
    const std::vector<std::uint8_t> blank(640 * 480, 9);
    Guarded screen(640 * 480, 9);
    print_ascii16(x, y, text, 1, screen);
    return screen.contents() != blank;
}

}  // namespace

TEST(Ascii, FontIsThatOfCodePage437) {
    EXPECT_EQ(cell('!'), (Rows{0, 0, 0, 0x18, 0x3C, 0x3C, 0x3C, 0x18, 0x18, 0, 0x18, 0x18, 0, 0, 0, 0}));
    EXPECT_EQ(cell('0'), (Rows{0, 0, 0, 0x3E, 0x63, 0x67, 0x6F, 0x7B, 0x73, 0x63, 0x63, 0x3E, 0, 0, 0, 0}));
    EXPECT_EQ(cell('A'), (Rows{0, 0, 0, 8, 0x1C, 0x36, 0x63, 0x63, 0x7F, 0x63, 0x63, 0x63, 0, 0, 0, 0}));
    EXPECT_EQ(cell('g'), (Rows{0, 0, 0, 0, 0, 0, 0x3B, 0x66, 0x66, 0x66, 0x3E, 6, 0x66, 0x3C, 0, 0}));
    EXPECT_EQ(cell(0xB3), Rows(16, 0x18));  // the last row is the next glyph's first
    Rows block(16, 0xFF);
    block[15] = 0;
    EXPECT_EQ(cell(0xDB), block);
    EXPECT_EQ(cell(' '), Rows(16, 0));
    EXPECT_EQ(cell(0xFF), Rows(16, 0));
    // Blank but for the glyphs that run through all rows: rows 0 to 2 and 14.
    for (unsigned code = 1; code < 256; ++code) {
        if (code == '~' || code == 8 || code == 10 || (code >= 0xB0 && code <= 0xDF) || code == 0xF4 ||
            code == 0xF5)
            continue;
        const Rows rows = cell(code);
        EXPECT_EQ(rows[0] | rows[1] | rows[2] | rows[14], 0u) << code;
        EXPECT_EQ(Rows(rows.begin(), rows.end() - 1) == Rows(15, 0), code == ' ' || code == 0xFF) << code;
    }
}

TEST(Ascii, EveryWriteLandsAsInThePlainModel) {
    test::LiteralText model;
    model.single = [](unsigned code) {
        std::array<std::uint8_t, 16> bytes{};
        const Rows rows = cell(code);
        std::copy(rows.begin(), rows.end(), bytes.begin());
        return test::literal_glyph(bytes.data(), 8, 16);
    };
    std::vector<test::LiteralGlyph> cells;
    for (unsigned code = 0; code < 256; ++code)
        cells.push_back(code == '~' ? test::LiteralGlyph() : model.single(code));
    model.single = [&](unsigned code) { return cells[code]; };
    for (int slot = 0; slot < 4; ++slot) {
        set_ascii16_color(slot, 0x3300 + 17 * (slot + 1));
        model.colours[std::size_t(slot)].fill(std::uint8_t(17 * (slot + 1)));
    }
    set_ascii16_color(4, 1);
    set_ascii16_color(-1, 1);

    test::TextDice dice(1);
    Guarded screen(640 * 480, 200);
    model.screen.assign(640 * 480, 200);
    for (int round = 0; round < 3000; ++round) {
        const int x = dice.place(-1, 626), y = dice.place(-1, 466), mode = dice.mode();
        const std::string text = dice.text(false);
        print_ascii16(x, y, text.c_str(), mode, screen);
        model.print(x, y, text, mode);
        ASSERT_EQ(0, std::memcmp(screen.data(), model.screen.data(), model.screen.size()))
            << "round " << round << " at " << x << ", " << y << " mode " << mode << ": " << text;
    }
    EXPECT_TRUE(screen.intact());
}

TEST(Ascii, StartsInsideTheScreenOnly) {
    EXPECT_TRUE(draws(624, 464, "A") && draws(0, 0, "A"));
    EXPECT_FALSE(draws(625, 0, "A") || draws(0, 465, "A") || draws(-1, 0, "A") || draws(0, -1, "A"));
    EXPECT_FALSE(draws(INT32_MAX, INT32_MAX, "A") || draws(INT32_MIN, INT32_MIN, "A"));
    EXPECT_FALSE(draws(0, 0, "") || draws(0, 0, nullptr) || draws(0, 0, "~") || draws(0, 0, "~C"));
    print_ascii16(0, 0, "A", 0, nullptr);
}

TEST(Ascii, ControlSequencesStayInForce) {
    set_ascii16_color(0, 10);
    set_ascii16_color(1, 11);
    set_ascii16_color(2, 12);
    // The colour of the ink of a full block at a column of the first line; 0 where there is none.
    const auto ink = [](const char *text, int column) {
        Guarded screen(640 * 480);
        print_ascii16(0, 0, text, 1, screen);
        return int(screen.data()[column]);
    };
    EXPECT_EQ(ink("~C1\xDB\xDB~C0\xDB", 8), 11);
    EXPECT_EQ(ink("~C1\xDB\xDB~C0\xDB", 16), 10);
    EXPECT_EQ(ink("~c9\xDB", 0), 12);
    EXPECT_EQ(ink("~C0~X1\xDB", 0), 10);
    EXPECT_EQ(ink("~C1~C", 0), 0);
    EXPECT_EQ(ink("\xDB", 0), 12);  // a last ~C takes the end of the text for its argument
    EXPECT_EQ(ink("\xDB~z1", 8), 0);
    EXPECT_EQ(ink("\xDB", 15), 12);
    EXPECT_EQ(ink("~Z", 0), 0);
    EXPECT_EQ(ink("\xDB", 8), 0);
    EXPECT_EQ(ink("~C1~", 0), 0);  // a last tilde does nothing
    EXPECT_EQ(ink("\xDB", 0), 11);
}
