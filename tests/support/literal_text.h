// Text drawn write by write, each over the earlier ones: a plain model of both families of text, for
// comparing whole screens.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace test {

struct LiteralGlyph {
    int width = 0, height = 0;
    std::vector<bool> ink;
};

// The glyph whose rows are bytes, the leftmost pixel in bit 7 of the first.
inline LiteralGlyph literal_glyph(const std::uint8_t *bytes, int width, int height) {
    LiteralGlyph glyph{width, height, {}};
    for (int i = 0; i < width * height; ++i) glyph.ink.push_back((bytes[i / 8] >> (7 - i % 8)) & 1);
    return glyph;
}

struct LiteralText {
    std::function<LiteralGlyph(unsigned)> single;
    std::function<LiteralGlyph(unsigned, unsigned)> wide;  // none for the built-in font
    int line = 16, advance = 8, line_end = 8;
    int left = 0, top = 0, right = 640, bottom = 480;
    std::array<std::array<std::uint8_t, 576>, 4> colours{};
    int slot = 0;
    bool zoom = false, bold = false, outline = false, shadow = false;
    std::vector<std::uint8_t> screen = std::vector<std::uint8_t>(640 * 480);
    std::string log;

    void write(int x, int y, int colour) {
        if (x >= 0 && x < 640 && y >= 0 && y < 480) screen[std::size_t(y * 640 + x)] = std::uint8_t(colour);
    }
    void draw(const LiteralGlyph &glyph, int x, int y, int in_slot, int mode) {
        for (int i = 0; i < glyph.width * glyph.height; ++i) {
            const int size = zoom ? 2 : 1, left_x = x + i % glyph.width * size,
                      top_y = y + i / glyph.width * size;
            const bool ink = glyph.ink[std::size_t(i)];
            if (!ink && (mode & 1)) continue;
            const int colour = ink ? colours[std::size_t(in_slot)][std::size_t(i)] : mode / 256;
            for (int at = 0; at < size * size; ++at) write(left_x + at % size, top_y + at / size, colour);
            if (!ink || !shadow) continue;
            if (zoom) {
                for (const auto &[dx, dy] : {std::pair{0, 2}, {1, 2}, {2, 0}, {2, 1}, {2, 2}})
                    write(left_x + dx, top_y + dy, 0);
            } else {
                write(left_x + 1, top_y + 1, 0);
            }
        }
    }
    void character(const LiteralGlyph &glyph, int x, int y, int mode) {
        if (outline) {
            if (x > 0) draw(glyph, x - 1, y, 3, mode);
            draw(glyph, x + 1, y, 3, mode);
            if (y > 0) draw(glyph, x, y - 1, 3, mode);
            draw(glyph, x, y + 1, 3, mode);
        }
        draw(glyph, x, y, slot, mode);
    }
    static LiteralGlyph emboldened(LiteralGlyph glyph) {
        for (int row = 0; row < glyph.height; ++row) {
            const int last = (row + 1) * glyph.width - 1;
            if (glyph.ink[std::size_t(last - 1)]) continue;
            for (int i = last; i > last - glyph.width + 1; --i)
                if (glyph.ink[std::size_t(i - 1)]) glyph.ink[std::size_t(i)] = true;
        }
        return glyph;
    }
    // Returns the length of the sequence at i.
    std::size_t control(const std::string &text, std::size_t i) {
        const char letter = char(std::tolower(text.c_str()[i + 1]));
        const char argument = letter ? text.c_str()[i + 2] : '\0';
        if (letter == 'c')
            slot = argument == '0' ? 0 : argument == '1' ? 1 : 2;
        else if (letter == 'z')
            zoom = argument == '1';
        else if (letter == 'o')
            outline = argument == '1';
        else if (letter == 't')
            shadow = argument == '1';
        else if (letter == 'd' && wide)
            bold = argument == '1';
        else if (letter == 'p' && wide)
            return 2;
        else if (letter != 'w' && wide)
            log += "Control Code error\n";
        return 3;
    }
    void print(int x, int y, const std::string &text, int mode) {
        if (x > right - line || x < left || y > bottom - line || y < top) return;
        bool zoomed = false;
        for (std::size_t i = 0; i < text.size();) {
            const std::uint8_t byte = std::uint8_t(text[i]);
            const bool pair = wide && byte >= 0x80 && i + 1 < text.size();
            if (!pair && byte == '~') {
                i += control(text, i);
            } else {
                LiteralGlyph glyph = pair ? wide(byte, std::uint8_t(text[i + 1])) : single(byte);
                character(pair && bold ? emboldened(glyph) : glyph, x, y, mode);
                x += (pair ? line : advance) * (zoom ? 2 : 1);
                zoomed = zoomed || zoom;
                i += pair ? 2 : 1;
            }
            if (x > right - line_end) {
                x = left;
                y += zoomed ? 2 * line : line;
                zoomed = false;
            }
            if (y > bottom) {
                if (wide) log += "TEXT out of range\n";
                y = top;
            }
        }
    }
};

// Strings and places that bring every mode to every border.
class TextDice {
  public:
    explicit TextDice(unsigned seed) : random_(seed) {}

    int below(int count) { return int(random_() % unsigned(count)); }
    std::string text(bool big5) {
        std::string result;
        // Double size on the first line only.
        if (below(20) == 0) result = "~Z1W~Z0" + std::string(std::size_t(below(130)), 'r');
        for (int left = 1 + below(12); left > 0; --left) {
            const int kind = below(10);
            if (kind < 4) {
                result += '~';
                result += "CcZzOoTtDdWwPpQ"[below(15)];
                result += "01120"[below(5)];
            } else if (kind < 7 && big5) {
                result += char(0x81 + below(126));
                result += char(0x40 + below(63));
            } else {
                result += char(1 + below(255));
            }
        }
        return result;
    }
    // From first to last, its ends more often than the rest.
    int place(int first, int last) {
        const int kind = below(4);
        return kind == 0 ? first + below(3) : kind == 1 ? last - below(3) : first + below(last - first + 1);
    }
    int mode() {
        return std::array{1, 0, 7 * 256, 257 * 256 + 1, -5 * 256 - 2, 5 * 256 + 254}[std::size_t(below(6))];
    }

  private:
    std::mt19937 random_;
};

}  // namespace test
