// A character is drawn without a test per pixel and, outline and shadow included, without a second pass.
// Every row is first composed as bits, one word for each colour a pixel can get: what one drawing of the
// glyph writes is known from the row and the one above it, and a later drawing over an earlier one is a few
// operations on words. Then the words are spread to pixels, a vector register at a time.
#include "text/draw_glyph.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace ink::text {
namespace {

// Columns of a drawn row as bits, the leftmost in bit 63. The widest character, 24 pixels in double size with
// outline and shadow, takes 51.
using Bits = std::uint64_t;

// The copies of a glyph that make its outline, in the order in which they are drawn.
enum Copy { kLeft, kRight, kUpper, kLower, kCopies };

// Pixels as they stand in memory: as many as a word or a vector register of any processor holds.
using Word = std::uint64_t;
using Pixels [[gnu::vector_size(16)]] = std::uint8_t;
constexpr std::size_t kWide = sizeof(Pixels), kNarrow = sizeof(Word);

template <typename T>
T load(const std::uint8_t *from) {
    T pixels;
    std::memcpy(&pixels, from, sizeof pixels);
    return pixels;
}
template <typename T>
void store(std::uint8_t *to, T pixels) {
    std::memcpy(to, &pixels, sizeof pixels);
}
template <typename T>
T filled(std::uint8_t colour) {
    std::array<std::uint8_t, sizeof(T)> bytes;
    bytes.fill(colour);
    return load<T>(bytes.data());
}

// For each byte of bits, leftmost pixel in bit 7, the eight pixels that are 0xFF where the bit is set.
constexpr auto kMasks = [] {
    std::array<std::array<std::uint8_t, kNarrow>, 256> masks{};
    for (std::size_t bits = 0; bits < masks.size(); ++bits)
        for (std::size_t i = 0; i < kNarrow; ++i) masks[bits][i] = (bits >> (7 - i)) & 1 ? 0xFF : 0;
    return masks;
}();

// The mask of the pixels of row from column at on.
template <typename T>
T mask(Bits row, std::size_t at) {
    const auto masks = [row](std::size_t column) {
        return load<Word>(kMasks[static_cast<std::size_t>(row << column >> 56)].data());
    };
    if constexpr (sizeof(T) == kNarrow) {
        return masks(at);
    } else {
        using Pair [[gnu::vector_size(16)]] = Word;
        return reinterpret_cast<T>(Pair{masks(at), masks(at + kNarrow)});
    }
}
template <typename T>
T select(T where, T colours, T others) {
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

// What all drawings leave in one row, with kOutlines words for the outline: one for each copy when each
// brings the colours of the pixels it is a copy of, one for all while they have the same colour.
template <std::size_t kOutlines>
struct Row : Layer {
    std::array<Bits, kOutlines> outline{};

    // Draws one copy for the outline over what is there.
    void draw_copy(const Layer &layer, std::size_t copy) {
        const Bits kept = ~layer.all();
        background = (background & kept) | layer.background;
        shadow = (shadow & kept) | layer.shadow;
        for (Bits &bits : outline) bits &= kept;
        outline[copy % kOutlines] |= layer.ink;
    }
    // Draws the glyph itself over its outline.
    void draw_top(const Layer &layer) {
        draw_copy(layer, 0);
        outline[0] &= ~layer.ink;
        ink = layer.ink;
    }
};

// The colours of one row of a pattern as drawn, readable from a vector's width before the row to one after
// it.
class ColourRow {
  public:
    ColourRow(const ColourPattern &pattern, std::size_t row, std::size_t width, bool zoom) {
        if (zoom) {
            for (std::size_t i = 0; i < width; ++i)
                doubled_[kWide + 2 * i] = doubled_[kWide + 2 * i + 1] = *pattern.at(row * width + i);
            colours_ = doubled_.data() + kWide;
        } else {
            colours_ = pattern.at(row * width);
        }
    }
    ColourRow(const ColourRow &) = delete;
    ColourRow &operator=(const ColourRow &) = delete;

    const std::uint8_t *at(std::ptrdiff_t column) const { return colours_ + column; }

  private:
    const std::uint8_t *colours_;
    std::array<std::uint8_t, 2 * kMaxGlyphSize + 2 * kWide> doubled_{};
};

// The colours of a row: the same for all its pixels, or one for each, from pointers to that of the first
// column.
struct Colours {
    std::uint8_t background, ink, outline;
};
struct PatternedColours {
    const std::uint8_t *ink = nullptr;
    std::array<const std::uint8_t *, kCopies> outline{};
};

// Each way of drawing is compiled by itself: with the four of them told apart at run time, characters take 1.4
// times (shadow) to 2.8 times as long (outline).
template <bool kOpaque, bool kShadow, bool kOutline, bool kPatterned>
class Drawing {
  public:
    Drawing(const draw::Surface &screen, std::int64_t x, std::int64_t y, const Glyph &glyph, bool zoom,
            const ColourPattern &ink, const ColourPattern &outline, std::uint8_t background)
        : screen_(screen),
          x_(x),
          y_(y),
          zoom_(zoom),
          glyph_width_(glyph.width),
          height_(static_cast<std::int64_t>(glyph.height << zoom)),
          ink_(ink),
          outline_(outline),
          colours_{background, ink.first(), outline.first()} {
        const std::size_t width = glyph.width << zoom;
        cell_ = ~Bits{0} << (64 - width) >> kMargin;
        columns_ = (width + 2 * kMargin + kShadow + kNarrow - 1) / kNarrow * kNarrow;
        std::size_t row = kBefore;
        for (std::size_t i = 0; i < glyph.height; ++i) {
            const Bits bits = (zoom ? double_columns(glyph.rows[i]) : Bits{glyph.rows[i]} << 32) >> kMargin;
            rows_[row++] = bits;
            if (zoom) rows_[row++] = bits;
        }
        std::fill_n(rows_.begin(), kBefore, 0);
        std::fill_n(rows_.begin() + static_cast<std::ptrdiff_t>(row), kAfter, 0);
    }

    void draw() const {
        const auto first = static_cast<int>(std::max<std::int64_t>(-kMargin, -y_));
        const auto end = static_cast<int>(std::min(height_ + kMargin + kShadow, screen_.height - y_));
        if (first >= end) return;
        const std::int64_t left = x_ - kMargin, right = left + static_cast<std::int64_t>(columns_);
        if (left >= 0 && right <= screen_.width) {
            std::uint8_t *line = screen_.at(left, y_ + first);
            compose(first, end, [&, this](int row, const auto &composed) {
                paint_row(line, row, composed);
                line += screen_.width;
            });
            return;
        }
        // Only some of the columns are on the screen: paint on a copy of them.
        const std::int64_t from = std::max<std::int64_t>(left, 0), to = std::min(right, screen_.width);
        if (from >= to) return;
        compose(first, end, [&, this](int row, const auto &composed) {
            std::uint8_t *const line = screen_.at(0, y_ + row);
            std::array<std::uint8_t, 64> part{};
            std::copy(line + from, line + to, part.begin() + (from - left));
            paint_row(part.data(), row, composed);
            std::copy_n(part.begin() + (from - left), to - from, line + from);
        });
    }

  private:
    // How many columns and rows are drawn before and after those of the glyph.
    static constexpr int kMargin = kOutline ? 1 : 0;
    static constexpr std::size_t kOutlines = !kOutline ? 0 : kPatterned ? kCopies : 1;
    // Empty rows, to be read around those of the glyph.
    static constexpr int kBefore = 3, kAfter = 4;

    // What one drawing of the glyph leaves in the row. Whatever the size, the pixels of a shadow are written
    // before ink or background can come to stand there, so they stay only where neither does.
    Layer layer(int row) const {
        const Bits *const here = rows_.data() + kBefore + row;
        Layer one{*here, 0, 0};
        if constexpr (kOpaque) one.background = row >= 0 && row < height_ ? cell_ & ~one.ink : 0;
        if constexpr (kShadow) {
            const Bits above = here[-1];
            const Bits fallen = zoom_ ? above | above >> 1 | one.ink >> 1 : above >> 1;
            one.shadow = fallen & ~(one.ink | one.background);
        }
        return one;
    }

    // Calls paint with each row from first to the one before end.
    template <typename Paint>
    void compose(int first, int end, Paint paint) const {
        if constexpr (!kOutline) {
            for (int row = first; row < end; ++row) paint(row, Row<0>{layer(row), {}});
        } else {
            Layer above, here = layer(first - 1), below = layer(first);
            for (int row = first; row < end; ++row) {
                above = here;
                here = below;
                below = layer(row + 1);
                Row<kOutlines> composed;
                if (x_ > 0) composed.draw_copy(here.left(), kLeft);
                composed.draw_copy(here.right(), kRight);
                if (y_ > 0) composed.draw_copy(below, kUpper);
                composed.draw_copy(above, kLower);
                composed.draw_top(here);
                paint(row, composed);
            }
        }
    }

    [[gnu::always_inline]] void paint_row(std::uint8_t *to, int row, const Row<kOutlines> &composed) const {
        const auto colours_of = [&](const ColourPattern &pattern, int drawn) {
            const std::int64_t inside = std::clamp<std::int64_t>(drawn, 0, height_ - 1) >> zoom_;
            return ColourRow(pattern, static_cast<std::size_t>(inside), glyph_width_, zoom_);
        };
        if constexpr (!kPatterned) {
            paint_columns(to, composed, {});
        } else if constexpr (!kOutline) {
            const ColourRow ink = colours_of(ink_, row);
            paint_columns(to, composed, {ink.at(0), {}});
        } else {
            const ColourRow ink = colours_of(ink_, row), here = colours_of(outline_, row),
                            below = colours_of(outline_, row + 1), above = colours_of(outline_, row - 1);
            // The first column drawn is the one before the glyph's.
            paint_columns(to, composed, {ink.at(-1), {here.at(0), here.at(-2), below.at(-1), above.at(-1)}});
        }
    }

    [[gnu::always_inline]] void paint_columns(std::uint8_t *to, const Row<kOutlines> &row,
                                              const PatternedColours &patterned) const {
        std::size_t at = 0;
        for (; at + kWide <= columns_; at += kWide) paint<Pixels>(to, at, row, patterned);
        if (at < columns_) paint<Word>(to, at, row, patterned);
    }

    template <typename T>
    [[gnu::always_inline]] void paint(std::uint8_t *to, std::size_t at, const Row<kOutlines> &row,
                                      const PatternedColours &patterned) const {
        T pixels;
        if constexpr (kOpaque && !kShadow && !kOutline) {
            pixels =
                filled<T>(colours_.background);  // the columns are those of the cell, and all are written
        } else {
            pixels = load<T>(to + at);
            if constexpr (kOpaque)
                pixels = select(mask<T>(row.background, at), filled<T>(colours_.background), pixels);
            if constexpr (kShadow) pixels &= ~mask<T>(row.shadow, at);
        }
        for (std::size_t i = 0; i < kOutlines; ++i) {
            T colours;
            if constexpr (kPatterned)
                colours = load<T>(patterned.outline[i] + at);
            else
                colours = filled<T>(colours_.outline);
            pixels = select(mask<T>(row.outline[i], at), colours, pixels);
        }
        T colours;
        if constexpr (kPatterned)
            colours = load<T>(patterned.ink + at);
        else
            colours = filled<T>(colours_.ink);
        store(to + at, select(mask<T>(row.ink, at), colours, pixels));
    }

    const draw::Surface screen_;
    const std::int64_t x_, y_;
    const bool zoom_;
    const std::size_t glyph_width_;
    const std::int64_t height_;
    const ColourPattern &ink_, &outline_;
    const Colours colours_;
    Bits cell_;
    std::size_t columns_;  // a whole number of words
    std::array<Bits, kBefore + 2 * kMaxGlyphSize + kAfter> rows_;
};

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
}

void draw_text_glyph(const draw::Surface &screen, std::int64_t x, std::int64_t y, const Glyph &glyph,
                     const TextStyle &style, const ColourSlots &slots, Background background) {
    // Nothing of a character that starts further away can reach the screen.
    constexpr std::int64_t kReach = 2 * kMaxGlyphSize + 3;
    if (x < -kReach || x > screen.width + kReach || y < -kReach || y > screen.height + kReach) return;

    const ColourPattern &ink = slots[static_cast<std::size_t>(style.slot)], &outline = slots[kOutlineSlot];
    const bool patterned = !ink.flat() || (style.outline && !outline.flat());
    const auto choose = [&](auto... chosen) {
        Drawing<decltype(chosen)::value...>(screen, x, y, glyph, style.zoom, ink, outline, background.colour)
            .draw();
    };
    const auto branch = [](bool which, auto &&next) {
        return which ? next(std::true_type{}) : next(std::false_type{});
    };
    branch(background.opaque, [&](auto opaque) {
        branch(style.shadow, [&](auto shadow) {
            branch(style.outline, [&](auto outlined) {
                branch(patterned, [&](auto pattern) { choose(opaque, shadow, outlined, pattern); });
            });
        });
    });
}

}  // namespace ink::text
