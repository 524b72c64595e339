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
    const auto decode = [&](auto row_of) {
        for (std::size_t i = 0; i < height; ++i) glyph.rows[i] = row_of(bytes.data() + i * row_bytes);
    };
    const auto one = [](const std::uint8_t *row) { return std::uint32_t{row[0]} << 24; };
    const auto two = [one](const std::uint8_t *row) { return one(row) | std::uint32_t{row[1]} << 16; };
    const auto three = [two](const std::uint8_t *row) { return two(row) | std::uint32_t{row[2]} << 8; };
    row_bytes == 1 ? decode(one) : row_bytes == 2 ? decode(two) : decode(three);
    return glyph;
}

}  // namespace ink::text
