#include "inkstone/chine.h"

#include <cstring>

#include "core/log.h"
#include "draw/surface.h"
#include "host/file_name.h"
#include "text/draw_glyph.h"
#include "text/fonts.h"
#include "text/pen.h"

namespace {

using namespace ink;
using namespace ink::text;

// What the two sizes of text differ in.
struct Size {
    Font single, wide;
    std::int32_t single_advance, wide_advance;  // a line is as high as a wide character
    std::int32_t line_end;                      // fewer columns than this left in the window end a line
    const char *not_loaded;
};
constexpr Size kSize16{kAscii16, kChinese16, 8, 16, 8, "CHINE not init"};
constexpr Size kSize24{kAscii24, kChinese24, kAscii24Advance, 24, 24, "Chine not enable"};

bool loaded = false;
Fonts fonts;
TextStyle style;
TextArea window{0, 0, draw::kScreenWidth, draw::kScreenHeight};
ColourSlots slots16, slots24;

bool is_slot(std::int32_t slot) {
    return slot >= 0 && slot < kColourSlots;
}

// Whether there are fonts; the message is logged when there are none.
bool is_loaded(const char *message) {
    if (!loaded) log_error(message);
    return loaded;
}

// Gives every ink pixel ink to its right as well, in the rows that count as thin: those without ink in the
// second column from the right.
void embolden(Glyph &glyph) {
    const std::uint32_t second_last = std::uint32_t{1} << (33 - glyph.width);
    const std::uint32_t inside = ~(second_last / 2 - 1);
    for (std::uint32_t &row : glyph.rows)
        if ((row & second_last) == 0) row |= row >> 1 & inside;
}

// Carries out the control sequence at text, whose bytes are read up to the terminating zero, and returns its
// length.
std::size_t control(const char *text) {
    const char letter = text[1], argument = letter ? text[2] : '\0';
    switch (letter) {
        case 'D':
        case 'd': style.bold = argument == '1'; return 3;
        case 'W':
        case 'w': return 3;
        case 'P':
        case 'p': return 2;
        default:
            if (!apply_control(style, letter, argument)) log_error("Control Code error");
            return 3;
    }
}

void print(const Size &size, const ColourSlots &slots, std::int32_t x, std::int32_t y, const char *text,
           std::int32_t mode, std::uint8_t *buffer) {
    if (!is_loaded(size.not_loaded)) return;
    const std::int64_t right = window.right, bottom = window.bottom;
    if (x > right - size.wide_advance || x < window.left || y > bottom - size.wide_advance || y < window.top)
        return;
    if (!text || !buffer) return;

    const draw::Surface screen = draw::screen(buffer);
    const Background background(mode);
    Pen pen(x, y);
    const auto put = [&](const Glyph &glyph, std::int32_t advance) {
        draw_text_glyph(screen, pen.x(), pen.y(), glyph, style, slots, background);
        pen.advance(advance, style.zoom);
    };
    const std::size_t length = std::strlen(text);
    for (std::size_t i = 0; i < length;) {
        const auto byte = static_cast<std::uint8_t>(text[i]);
        if (byte >= 0x80 && i + 1 < length) {
            Glyph glyph = fonts.glyph(size.wide, big5_glyph(byte, static_cast<std::uint8_t>(text[i + 1])));
            if (style.bold) embolden(glyph);
            put(glyph, size.wide_advance);
            i += 2;
        } else if (byte == '~') {
            i += control(text + i);
        } else {
            put(fonts.glyph(size.single, byte), size.single_advance);
            i += 1;
        }
        if (pen.wrap(window, size.line_end, size.wide_advance)) log_error("TEXT out of range");
    }
}

}  // namespace

int32_t CHINE_init(int32_t mode) {
    loaded = false;
    fonts = {};
    const bool success = mode == 0 ? fonts.load_files() : fonts.load_pack();
    if (mode == 1) host::remove_file(kPackFile);
    if (!success) return -2;
    style = {.outline = style.outline};
    slots16 = slots24 = {};
    loaded = true;
    return 0;
}

void CHINE_free(void) {
    fonts = {};
    loaded = false;
}

void CHINE_print16(int32_t x, int32_t y, const char *text, int32_t mode, uint8_t *buffer) {
    print(kSize16, slots16, x, y, text, mode, buffer);
}

void CHINE_print24(int32_t x, int32_t y, const char *text, int32_t mode, uint8_t *buffer) {
    print(kSize24, slots24, x, y, text, mode, buffer);
}

void CHINE_set_color(int32_t slot, int32_t color) {
    if (!is_loaded(kSize24.not_loaded) || !is_slot(slot)) return;
    slots16[static_cast<std::size_t>(slot)].fill(static_cast<std::uint8_t>(color));
    slots24[static_cast<std::size_t>(slot)].fill(static_cast<std::uint8_t>(color));
}

void CHINE_set_color_pattern(int32_t slot, const uint8_t *pattern) {
    if (!is_loaded(kSize24.not_loaded) || !is_slot(slot) || !pattern) return;
    slots24[static_cast<std::size_t>(slot)].copy(pattern, 24, 24);
    // Rows of 16 colours out of rows of 24, from row 2, column 20 on.
    slots16[static_cast<std::size_t>(slot)].copy(pattern + 2 * 24 + 20, 16, 24);
}

void CHINE_set_text_window(int32_t left, int32_t top, int32_t right, int32_t bottom) {
    window = {left, top, right, bottom};
}
