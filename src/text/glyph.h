// One character's bitmap, decoded for drawing.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace ink::text {

inline constexpr std::size_t kMaxGlyphSize = 24;

// Each row is a word whose bit 31 is the leftmost pixel; bits beyond the width are clear.
struct Glyph {
    std::size_t width = 0, height = 0;
    std::array<std::uint32_t, kMaxGlyphSize> rows{};
};

// The bitmap of width x height pixels (width a multiple of 8) whose rows stand in bytes, the leftmost pixel
// in bit 7 of a row's first byte. Rows that bytes has not got are blank.
inline Glyph font_glyph(std::span<const std::uint8_t> bytes, std::size_t width, std::size_t height) {
    Glyph glyph{width, height, {}};
    const std::size_t row_bytes = width / 8, wanted = row_bytes * height;
    std::array<std::uint8_t, kMaxGlyphSize * kMaxGlyphSize / 8> padded{};
    if (bytes.size() < wanted) {
        std::copy(bytes.begin(), bytes.end(), padded.begin());
        bytes = padded;
    }
    const std::uint8_t *row = bytes.data();
    for (std::size_t i = 0; i < height; ++i, row += row_bytes) {
        glyph.rows[i] = std::uint32_t{row[0]} << 24;
        if (row_bytes > 1) glyph.rows[i] |= std::uint32_t{row[1]} << 16;
        if (row_bytes > 2) glyph.rows[i] |= std::uint32_t{row[2]} << 8;
    }
    return glyph;
}

}  // namespace ink::text
