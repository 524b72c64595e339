#include "inkstone/ascii.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "draw/surface.h"
#include "text/draw_glyph.h"
#include "text/pen.h"

namespace {

using namespace ink;
using namespace ink::text;

// 256 glyphs of 15 rows. A cell has 16: the last one is the first row of the next glyph, so that lines and
// blocks that run through all 15 rows can join those of the next text line; the byte at the end is that row
// of the last glyph.
constexpr std::size_t kGlyphRows = 15, kCellWidth = 8, kCellHeight = 16;
constexpr std::array<std::uint8_t, 256 * kGlyphRows + 1> kFont{
#include "text/ascii_font.inc"
};

constexpr TextArea kArea{0, 0, draw::kScreenWidth, draw::kScreenHeight};

TextStyle style;
ColourSlots slots;

Glyph glyph_of(char character) {
    const std::size_t code = static_cast<std::uint8_t>(character);
    return font_glyph({kFont.data() + kGlyphRows * code, kCellHeight}, kCellWidth, kCellHeight);
}

}  // namespace

void print_ascii16(int32_t x, int32_t y, const char *text, int32_t mode, uint8_t *buffer) {
    if (x > kArea.right - 16 || x < kArea.left || y > kArea.bottom - 16 || y < kArea.top) return;
    if (!text || !buffer) return;
    const draw::Surface screen = draw::screen(buffer);
    const Background background(mode);
    Pen pen(x, y);
    const std::size_t length = std::strlen(text);
    for (std::size_t i = 0; i < length;) {
        if (text[i] == '~') {
            if (text[i + 1] != 0) apply_control(style, text[i + 1], text[i + 2]);
            i += 3;
        } else {
            draw_text_glyph(screen, pen.x(), pen.y(), glyph_of(text[i]), style, slots, background);
            pen.advance(kCellWidth, style.zoom);
            i += 1;
        }
        pen.wrap(kArea, kCellWidth, kCellHeight);
    }
}

void set_ascii16_color(int32_t slot, int32_t color) {
    if (slot >= 0 && slot < kColourSlots)
        slots[static_cast<std::size_t>(slot)].fill(static_cast<std::uint8_t>(color));
}
