// How the font files are laid out, for the library that reads them and the tool that makes them. All bitmaps
// are rows of bits, the top row first, bit 7 of a row's first byte leftmost; there is no header.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace ink::text {

struct FontLayout {
    const char *file_name;
    std::size_t glyphs, width, height;

    constexpr std::size_t row_bytes() const { return width / 8; }
    constexpr std::size_t glyph_bytes() const { return row_bytes() * height; }
    constexpr std::size_t bytes() const { return glyphs * glyph_bytes(); }
};

// A double-byte font covers the whole code space: lead bytes 0x81 to 0xFE, 157 trail bytes each.
inline constexpr std::size_t kBig5Rows = 126, kBig5Columns = 157, kBig5Glyphs = kBig5Rows * kBig5Columns;

// In the order in which the pack holds them. The characters of the single-byte font of 24 pixels stand in the
// left columns of their cells, since text advances by less than a cell.
enum Font { kAscii16, kChinese16, kAscii24, kChinese24, kFontCount };
inline constexpr std::size_t kAscii24Advance = 12;
inline constexpr std::array<FontLayout, kFontCount> kFontLayouts{{
    {"ASCII16.FON", 256, 8, 16},
    {"CHINE16.FON", kBig5Glyphs, 16, 16},
    {"ASCII24.FON", 256, 16, 24},
    {"CHINE24.FON", kBig5Glyphs, 24, 24},
}};

// The place of a character in a double-byte font. Trail bytes that Big5 does not use share the places of
// others; lead bytes outside 0x81 to 0xFE, and a few trail bytes of the last row, lead past the end.
constexpr std::size_t big5_glyph(std::uint8_t lead, std::uint8_t trail) {
    const std::uint8_t row = static_cast<std::uint8_t>(lead - 0x81);
    const std::uint8_t column = static_cast<std::uint8_t>(trail - (trail < 0xA1 ? 0x40 : 0x62));
    return kBig5Columns * row + column;
}

// The pack: a header whose last four bytes count the fonts, a directory whose entries end in a font's size,
// and the fonts back to back. Numbers are little-endian. It is kept compressed and expanded to be loaded.
inline constexpr const char *kPackFile = "FONT.SCF", *kCompressedPackFile = "FONT.LZF";
inline constexpr std::size_t kPackHeaderBytes = 16, kPackCountOffset = 12;
inline constexpr std::size_t kPackEntryBytes = 84, kPackSizeOffset = 80;
inline constexpr std::size_t kPackDataOffset = kPackHeaderBytes + kFontCount * kPackEntryBytes;

}  // namespace ink::text
