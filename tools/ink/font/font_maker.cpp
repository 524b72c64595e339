#include "font/font_maker.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <utility>

#include "charset/big5.h"
#include "font/font_file.h"

namespace ink::tool {
namespace {

using text::FontLayout;

bool is_level1(unsigned code) {
    return code >= 0xA440 && code <= 0xC67E;
}
bool is_level2(unsigned code) {
    return code >= 0xC940 && code <= 0xF9D5;
}

// The characters of a font in the order of its glyphs.
std::vector<Character> characters_of(const FontLayout &layout) {
    std::vector<Character> characters(layout.glyphs);
    if (layout.glyphs == 256) {
        for (unsigned code = 0; code < 256; ++code)
            characters[code] = {static_cast<std::uint16_t>(code),
                                {unicode_of_cp437(static_cast<std::uint8_t>(code))},
                                code > 0x20 && code < 0x7F};
        return characters;
    }
    for (unsigned lead = 0x81; lead <= 0xFE; ++lead)
        for (unsigned trail = 0x40; trail <= 0xFE; ++trail) {
            if (trail > 0x7E && trail < 0xA1) continue;
            const auto code = static_cast<std::uint16_t>(lead << 8 | trail);
            const auto glyph =
                text::big5_glyph(static_cast<std::uint8_t>(lead), static_cast<std::uint8_t>(trail));
            characters[glyph] = {code, unicode_of_big5(code), is_level1(code) || is_level2(code)};
        }
    return characters;
}

// Where the base line of a source lies in the cells, counted in rows from their top: where the font has it,
// if its lines are no higher than the cells, else so that its standard characters stand in the middle.
int base_line(const FontFile &file, int height, const std::vector<Character> &characters,
              const std::vector<std::optional<Drawn>> &drawn) {
    int above = file.ascent(), below = file.descent();
    if (above + below > height) {
        bool first = true;
        for (std::size_t i = 0; i < drawn.size(); ++i) {
            if (!drawn[i] || !characters[i].standard || drawn[i]->blank()) continue;
            const int top = drawn[i]->top, bottom = drawn[i]->height - top;
            above = first ? top : std::max(above, top);
            below = first ? bottom : std::max(below, bottom);
            first = false;
        }
    }
    return above + (height - above - below) / 2;
}

class Cell {
  public:
    Cell(const FontLayout &layout, std::size_t used_width, std::uint8_t *bytes)
        : layout_(layout),
          used_width_(static_cast<int>(used_width)),
          height_(static_cast<int>(layout.height)),
          bytes_(bytes) {}

    // Puts the character on the base line, in the middle of the columns it leaves free, and moved into the
    // cell where it would stand out. What is too large is cut off.
    void put(const Drawn &drawn, int base) {
        const int x = inside(drawn.left + (used_width_ - drawn.advance) / 2, drawn.width, used_width_);
        const int y = inside(base - drawn.top, drawn.height, height_);
        for (int row = std::max(0, -y); row < std::min(drawn.height, height_ - y); ++row)
            for (int column = std::max(0, -x); column < std::min(drawn.width, used_width_ - x); ++column)
                if (drawn.ink[static_cast<std::size_t>(row * drawn.width + column)]) set(x + column, y + row);
    }

  private:
    static int inside(int start, int length, int room) {
        return length > room ? start : std::clamp(start, 0, room - length);
    }
    void set(int x, int y) {
        const auto column = static_cast<std::size_t>(x), row = static_cast<std::size_t>(y);
        bytes_[row * layout_.row_bytes() + column / 8] |= static_cast<std::uint8_t>(0x80 >> (column % 8));
    }

    const FontLayout &layout_;
    const int used_width_, height_;
    std::uint8_t *const bytes_;
};

void count(Coverage &coverage, const Character &character) {
    if (is_level1(character.code))
        ++coverage.level1;
    else if (is_level2(character.code))
        ++coverage.level2;
    else
        ++coverage.others;
}

}  // namespace

MadeFont make_font(text::Font font, const std::vector<std::string> &sources,
                   const std::function<void(std::size_t, std::size_t)> &progress) {
    const FontLayout &layout = text::kFontLayouts[font];
    const std::size_t width = font == text::kAscii24 ? text::kAscii24Advance : layout.width;
    const std::vector<Character> characters = characters_of(layout);
    MadeFont made{std::vector<std::uint8_t>(layout.bytes()), {}};
    std::vector<bool> taken(characters.size());
    std::size_t looked_up = 0;
    bool has_standard = false;
    for (const std::string &source : sources) {
        const FontFile file(source, static_cast<int>(width), static_cast<int>(layout.height));
        std::vector<std::optional<Drawn>> drawn(characters.size());
        for (std::size_t i = 0; i < characters.size(); ++i) {
            if (!taken[i]) drawn[i] = file.draw(characters[i]);
            if (++looked_up % 256 == 0) progress(looked_up, sources.size() * characters.size());
        }
        const int base = base_line(file, static_cast<int>(layout.height), characters, drawn);
        for (std::size_t i = 0; i < characters.size(); ++i) {
            if (!drawn[i] || drawn[i]->blank()) continue;
            Cell cell(layout, width, made.bitmaps.data() + i * layout.glyph_bytes());
            cell.put(*drawn[i], base);
            taken[i] = true;
            has_standard = has_standard || characters[i].standard;
            count(made.inked, characters[i]);
        }
    }
    if (!has_standard)
        throw std::runtime_error(
            std::string(layout.file_name) + ": " + sources.front() +
            (layout.glyphs == 256 ? " has no character of ASCII" : " has no Chinese character of Big5"));
    return made;
}

}  // namespace ink::tool
