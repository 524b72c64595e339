// A character is drawn without a test per pixel and, outline and shadow included, without a second pass.
// Every row is first composed as bits, one word for each colour a pixel can get: what one drawing of the
// glyph writes is known from the row and the one above it, and a later drawing over an earlier one is a few
// operations on words. Then the words are spread to pixels, eight at a time.
#include "text/draw_glyph.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <type_traits>

namespace ink::text {
namespace {

// Columns of a drawn row as bits, the leftmost in bit 63. The widest character, 24 pixels in double size with
// outline and shadow, takes 51.
using Bits = std::uint64_t;
// Eight pixels as they stand in memory.
using Pixels = std::uint64_t;

enum class Outline { none, flat, patterned };

constexpr std::size_t kCopies = 4;  // left, right, upper, lower
enum { kLeft, kRight, kUpper, kLower };

Pixels load(const std::uint8_t *from) {
    Pixels pixels;
    std::memcpy(&pixels, from, sizeof pixels);
    return pixels;
}
void store(std::uint8_t *to, Pixels pixels) {
    std::memcpy(to, &pixels, sizeof pixels);
}
Pixels eight_of(std::uint8_t colour) {
    return colour * Pixels{0x0101010101010101};
}

// For each byte of bits, leftmost pixel in bit 7, the eight pixels that are 0xFF where the bit is set.
constexpr auto kMasks = [] {
    std::array<Pixels, 256> masks{};
    for (std::size_t bits = 0; bits < masks.size(); ++bits) {
        std::array<std::uint8_t, 8> bytes{};
        for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = (bits >> (7 - i)) & 1 ? 0xFF : 0;
        masks[bits] = std::bit_cast<Pixels>(bytes);
    }
    return masks;
}();

// Pixels chunk x 8 to chunk x 8 + 7 of a row.
Pixels mask(Bits row, std::size_t chunk) {
    return kMasks[(row >> (56 - 8 * chunk)) & 0xFF];
}
Pixels select(Pixels where, Pixels colours, Pixels others) {
    return others ^ ((others ^ colours) & where);
}

// Every pixel of a glyph's row twice.
Bits double_columns(std::uint32_t row) {
    Bits bits = row;
    bits = (bits | bits << 16) & 0x0000FFFF0000FFFF;
    bits = (bits | bits << 8) & 0x00FF00FF00FF00FF;
    bits = (bits | bits << 4) & 0x0F0F0F0F0F0F0F0F;
    bits = (bits | bits << 2) & 0x3333333333333333;
    bits = (bits | bits << 1) & 0x5555555555555555;
    return bits | bits << 1;
}

// What one drawing of the glyph writes in one row; no bit is in two of the three.
struct Layer {
    Bits ink = 0, background = 0, shadow = 0;

    Bits all() const { return ink | background | shadow; }
    Layer left() const { return {ink << 1, background << 1, shadow << 1}; }
    Layer right() const { return {ink >> 1, background >> 1, shadow >> 1}; }
};

// What all drawings leave in one row.
struct Composed {
    Layer top;
    std::array<Bits, kCopies> outline{};  // by the copy it is of; all in the first when its colour is flat

    template <Outline kOutline>
    void draw_over(const Layer &layer, std::size_t copy) {
        const Bits kept = ~layer.all();
        top = {0, (top.background & kept) | layer.background, (top.shadow & kept) | layer.shadow};
        if constexpr (kOutline == Outline::patterned) {
            for (std::size_t i = 0; i < copy; ++i) outline[i] &= kept;
            outline[copy] = layer.ink;
        } else {
            outline[0] = (outline[0] & kept) | layer.ink;
        }
    }
};

// One row of a pattern's colours as drawn, readable from column -2 on to two columns past the last whole
// eight.
class ColourRow {
  public:
    ColourRow(const ColourPattern &pattern, std::size_t row, std::size_t width, bool zoom) {
        if (pattern.flat()) {
            colours_ = pattern.at(0);
        } else if (!zoom) {
            colours_ = pattern.at(row * width);
        } else {
            for (std::size_t i = 0; i < width; ++i)
                doubled_[kMargin + 2 * i] = doubled_[kMargin + 2 * i + 1] = *pattern.at(row * width + i);
            colours_ = doubled_.data() + kMargin;
        }
    }
    ColourRow(const ColourRow &) = delete;
    ColourRow &operator=(const ColourRow &) = delete;

    Pixels load(std::ptrdiff_t column) const { return text::load(colours_ + column); }

  private:
    static constexpr std::size_t kMargin = 8;
    const std::uint8_t *colours_;
    std::array<std::uint8_t, 2 * kMaxGlyphSize + 2 * kMargin> doubled_;
};

template <bool kOpaque, bool kShadow, Outline kOutline>
class Drawing {
  public:
    Drawing(const draw::Surface &screen, std::int64_t x, std::int64_t y, const Glyph &glyph, bool zoom,
            const ColourPattern &ink, const ColourPattern &outline, std::uint8_t background)
        : screen_(screen),
          x_(x),
          y_(y),
          zoom_(zoom),
          height_(static_cast<int>(glyph.height) << zoom),
          glyph_width_(glyph.width),
          ink_(ink),
          outline_(outline),
          outline_pixels_(eight_of(outline.first())),
          background_(eight_of(background)) {
        const std::size_t width = glyph.width << zoom;
        cell_ = ~Bits{0} << (64 - width) >> kLead;
        for (std::size_t i = 0; i < glyph.height; ++i)
            rows_[i] = (zoom ? double_columns(glyph.rows[i]) : Bits{glyph.rows[i]} << 32) >> kLead;
        chunks_ = (width + 2 * kLead + kShadow + 7) / 8;
        clipped_ = x_ < kLead || x_ - kLead + static_cast<std::int64_t>(8 * chunks_) > screen_.width;
    }

    void draw() const {
        if constexpr (kOutline == Outline::none) {
            for (int row = 0; row < height_ + kShadow; ++row) paint(row, {single(row), {}});
        } else {
            Layer above, here, below = single(-1);
            for (int row = -1; row <= height_ + kShadow; ++row) {
                above = here;
                here = below;
                below = single(row + 1);
                paint(row, compose(above, here, below));
            }
        }
    }

  private:
    // Column -1 is drawn too when there is an outline.
    static constexpr int kLead = kOutline == Outline::none ? 0 : 1;

    Bits ink(int row) const {
        return row >= 0 && row < height_ ? rows_[static_cast<std::size_t>(row >> zoom_)] : 0;
    }

    // What one drawing of the glyph leaves in the row. Whatever the size, the pixels of a shadow are written
    // before ink or background can come to stand there, so they stay only where neither does.
    Layer single(int row) const {
        Layer layer;
        layer.ink = ink(row);
        if constexpr (kOpaque) layer.background = row >= 0 && row < height_ ? cell_ & ~layer.ink : 0;
        if constexpr (kShadow) {
            const Bits above = ink(row - 1);
            const Bits fallen = zoom_ ? above | above >> 1 | layer.ink >> 1 : above >> 1;
            layer.shadow = fallen & ~(layer.ink | layer.background);
        }
        return layer;
    }

    // The copies of the outline in the order in which they are drawn, and the glyph over them.
    Composed compose(const Layer &above, const Layer &here, const Layer &below) const {
        Composed composed;
        if (x_ > 0) composed.draw_over<kOutline>(here.left(), kLeft);
        composed.draw_over<kOutline>(here.right(), kRight);
        if (y_ > 0) composed.draw_over<kOutline>(below, kUpper);
        composed.draw_over<kOutline>(above, kLower);
        for (Bits &copy : composed.outline) copy &= ~here.all();
        composed.top = {here.ink, (composed.top.background & ~here.all()) | here.background,
                        (composed.top.shadow & ~here.all()) | here.shadow};
        return composed;
    }

    ColourRow colours(const ColourPattern &pattern, int row) const {
        const int inside = std::clamp(row, 0, height_ - 1);
        return {pattern, static_cast<std::size_t>(inside >> zoom_), glyph_width_, zoom_};
    }

    // Puts a composed row on the screen.
    void paint(int row, const Composed &composed) const {
        const std::int64_t y = y_ + row;
        if (y < 0 || y >= screen_.height) return;
        const ColourRow ink = colours(ink_, row);
        const auto pixels = [&](std::size_t chunk, Pixels under) {
            const std::ptrdiff_t column = static_cast<std::ptrdiff_t>(8 * chunk) - kLead;
            if constexpr (kOpaque) under = select(mask(composed.top.background, chunk), background_, under);
            if constexpr (kShadow) under &= ~mask(composed.top.shadow, chunk);
            if constexpr (kOutline == Outline::flat)
                under = select(mask(composed.outline[0], chunk), outline_pixels_, under);
            if constexpr (kOutline == Outline::patterned)
                under = outlined(row, chunk, column, composed, under);
            return select(mask(composed.top.ink, chunk), ink.load(column), under);
        };
        const std::int64_t left = x_ - kLead;
        std::uint8_t *const line = screen_.at(0, y);
        for (std::size_t chunk = 0; chunk < chunks_; ++chunk) {
            const std::int64_t at = left + static_cast<std::int64_t>(8 * chunk);
            if (!clipped_) {
                store(line + at, pixels(chunk, load(line + at)));
                continue;
            }
            const std::int64_t begin = std::max<std::int64_t>(at, 0), end = std::min(at + 8, screen_.width);
            if (begin >= end) continue;
            const std::size_t count = static_cast<std::size_t>(end - begin);
            std::array<std::uint8_t, 8> part{};
            std::memcpy(part.data() + (begin - at), line + begin, count);
            store(part.data(), pixels(chunk, load(part.data())));
            std::memcpy(line + begin, part.data() + (begin - at), count);
        }
    }

    // Each copy of a patterned outline brings the colours of the pixel it is a copy of.
    Pixels outlined(int row, std::size_t chunk, std::ptrdiff_t column, const Composed &composed,
                    Pixels under) const {
        const ColourRow here = colours(outline_, row), below = colours(outline_, row + 1),
                        above = colours(outline_, row - 1);
        under = select(mask(composed.outline[kLeft], chunk), here.load(column + 1), under);
        under = select(mask(composed.outline[kRight], chunk), here.load(column - 1), under);
        under = select(mask(composed.outline[kUpper], chunk), below.load(column), under);
        return select(mask(composed.outline[kLower], chunk), above.load(column), under);
    }

    const draw::Surface &screen_;
    const std::int64_t x_, y_;
    const bool zoom_;
    const int height_;
    const std::size_t glyph_width_;
    const ColourPattern &ink_, &outline_;
    const Pixels outline_pixels_, background_;
    Bits cell_;
    std::array<Bits, kMaxGlyphSize> rows_;
    std::size_t chunks_;
    bool clipped_;
};

template <bool kOpaque, bool kShadow>
void draw_outlined(Outline outline, const auto &...arguments) {
    switch (outline) {
        case Outline::none: return Drawing<kOpaque, kShadow, Outline::none>(arguments...).draw();
        case Outline::flat: return Drawing<kOpaque, kShadow, Outline::flat>(arguments...).draw();
        case Outline::patterned: return Drawing<kOpaque, kShadow, Outline::patterned>(arguments...).draw();
    }
}

}  // namespace

void ColourPattern::fill(std::uint8_t colour) {
    entries_.fill(colour);
    flat_ = true;
}

void ColourPattern::copy(const std::uint8_t *pattern, std::size_t size, std::size_t pitch) {
    for (std::size_t row = 0; row < size; ++row)
        std::copy_n(pattern + row * pitch, size, entries_.data() + kMargin + row * size);
    const auto *const first = at(0);
    flat_ = std::all_of(first, first + size * size, [first](std::uint8_t entry) { return entry == *first; });
    if (flat_) fill(*first);
}

void draw_text_glyph(const draw::Surface &screen, std::int64_t x, std::int64_t y, const Glyph &glyph,
                     const TextStyle &style, const ColourSlots &slots, Background background) {
    // Nothing of a character that starts further away can reach the screen.
    constexpr std::int64_t kReach = 2 * kMaxGlyphSize + 3;
    if (x < -kReach || x > screen.width + kReach || y < -kReach || y > screen.height + kReach) return;

    const ColourPattern &ink = slots[static_cast<std::size_t>(style.slot)], &outline = slots[kOutlineSlot];
    const Outline kind = !style.outline ? Outline::none : outline.flat() ? Outline::flat : Outline::patterned;
    const auto draw = [&](auto opaque, auto shadow) {
        draw_outlined<opaque(), shadow()>(kind, screen, x, y, glyph, style.zoom, ink, outline,
                                          background.colour);
    };
    constexpr std::true_type yes;
    constexpr std::false_type no;
    if (background.opaque)
        style.shadow ? draw(yes, yes) : draw(yes, no);
    else
        style.shadow ? draw(no, yes) : draw(no, no);
}

}  // namespace ink::text
