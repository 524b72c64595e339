// The one routine that draws a character, for the built-in font and the loaded ones.
#pragma once

#include <array>
#include <cstdint>

#include "draw/surface.h"
#include "text/glyph.h"
#include "text/style.h"

namespace ink::text {

// The colours of a slot: the pixel of a glyph in row r and column c takes entry r x (width of the glyph) + c.
// The row kernels read a few entries past either end of a glyph's row and ignore what they read there.
class ColourPattern {
  public:
    // A pattern of one colour.
    void fill(std::uint8_t colour);
    // A pattern of size x size colours whose row r starts at pattern + r x pitch. The rows may overlap.
    void copy(const std::uint8_t *pattern, std::size_t size, std::size_t pitch);

    bool flat() const { return flat_; }
    std::uint8_t first() const { return entries_[kMargin]; }
    const std::uint8_t *at(std::size_t entry) const { return entries_.data() + kMargin + entry; }

  private:
    static constexpr std::size_t kMargin = 16;
    std::array<std::uint8_t, kMaxGlyphSize * kMaxGlyphSize + 2 * kMargin> entries_{};
    bool flat_ = true;
};
using ColourSlots = std::array<ColourPattern, kColourSlots>;

// The background of a mode word: transparent when bit 0 is set, else the colour mode / 256.
struct Background {
    bool opaque;
    std::uint8_t colour;

    explicit Background(std::int32_t mode)
        : opaque((mode & 1) == 0), colour(static_cast<std::uint8_t>(mode / 256)) {}
};

// Draws the glyph with its top-left corner at (x, y). Pixels outside the screen are dropped. The result is as
// if the glyph were drawn pixel by pixel, row by row, each write over the earlier ones. Ink is written in the
// slot's colours, followed by its shadow in colour 0 one step to the right and below; in double size ink
// covers 2 x 2 pixels and its shadow the five pixels around their lower right corner. What has no ink is
// written in the background colour, unless it is transparent.
//
// With an outline the glyph is first drawn in this way in slot 3, with its background and shadow, one pixel
// to the left (unless x is 0 or less), to the right, above (unless y is 0 or less) and below.
void draw_text_glyph(const draw::Surface &screen, std::int64_t x, std::int64_t y, const Glyph &glyph,
                     const TextStyle &style, const ColourSlots &slots, Background background);

}  // namespace ink::text
