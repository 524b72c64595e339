// The three small types that carry every drawing operation: a surface to draw on, a sprite to draw, and the
// result of clipping the one against the other. Every clipping rule of the library stands here, once. All of
// them work in 64-bit arithmetic, so no coordinate can overflow.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "core/reader.h"

namespace ink::draw {

inline constexpr std::int32_t kScreenWidth = 640;
inline constexpr std::int32_t kScreenHeight = 480;

// Of colours, masks and keys only the low byte counts.
inline std::uint8_t low_byte(std::int32_t value) {
    return static_cast<std::uint8_t>(value);
}

// Whether a caller can mean a picture of this size. One of 2^31 pixels and more cannot be had from a game's
// own arithmetic; such sizes come from broken data, and nothing is drawn from or made of them.
inline bool plausible(std::int64_t width, std::int64_t height) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
    return width >= 0 && height >= 0 && width <= kMost && height <= kMost && width * height <= kMost;
}

// Pixels to draw on, row after row without gaps. A size below 1 holds no pixel. The size only bounds what is
// drawn, so it may be any: games say "as many rows as it takes" with a large number.
struct Surface {
    std::uint8_t *pixels = nullptr;
    std::int64_t width = 0, height = 0;

    std::uint8_t *at(std::int64_t x, std::int64_t y) const { return pixels + y * width + x; }
    bool contains(std::int64_t x, std::int64_t y) const {
        return x >= 0 && x < width && y >= 0 && y < height;
    }
};

inline Surface screen(std::uint8_t *buffer) {
    return {buffer, kScreenWidth, kScreenHeight};
}
// A null memory buffer holds no pixel.
inline Surface memory(std::uint8_t *buffer, std::int32_t width, std::int32_t height) {
    if (buffer == nullptr || width < 1 || height < 1) return {};
    return {buffer, width, height};
}

// Pixels to draw. The step leads from one row to the next; it is the width unless the rows are taken from a
// larger picture or from the bottom up.
struct Sprite {
    const std::uint8_t *pixels = nullptr;
    std::int64_t width = 0, height = 0, step = width;

    const std::uint8_t *at(std::int64_t x, std::int64_t y) const { return pixels + y * step + x; }
};

// The screen or a memory buffer as a picture to copy out of.
inline Sprite whole_screen(const std::uint8_t *buffer) {
    return {buffer, kScreenWidth, kScreenHeight};
}
inline Sprite whole_memory(const std::uint8_t *buffer, std::int32_t width, std::int32_t height) {
    if (buffer == nullptr || width < 1 || height < 1) return {};
    return {buffer, width, height};
}

inline Sprite upside_down(const Sprite &sprite) {
    if (sprite.height < 1) return {};
    return {sprite.at(0, sprite.height - 1), sprite.width, sprite.height, -sprite.step};
}

// A bitmap: bare pixels, the size stated by the caller.
inline Sprite bitmap(const std::uint8_t *pixels, std::int32_t width, std::int32_t height) {
    if (!plausible(width, height)) return {};
    return {pixels, width, height};
}

// An image block: width and height as 16-bit little-endian numbers, then the pixels. It may stand at any
// address.
inline constexpr std::size_t kImageHeader = 4;
inline constexpr std::int64_t kLargestImage = 65535;  // pixels a side
inline Sprite image(const std::uint8_t *block) {
    return {block + kImageHeader, get_u16(block), get_u16(block + 2)};
}
inline Surface image_surface(std::uint8_t *block) {
    return {block + kImageHeader, get_u16(block), get_u16(block + 2)};
}
inline void put_image_header(std::uint8_t *block, std::uint32_t width, std::uint32_t height) {
    put_u16(block, width);
    put_u16(block + 2, height);
}

// What is left of a sprite placed on a surface: where it starts in each, and how many columns and rows.
struct Clip {
    std::int64_t source_x = 0, source_y = 0;  // the columns and rows of the sprite that are skipped
    std::int64_t x = 0, y = 0;                // the first pixel of the surface
    std::int64_t columns = 0, rows = 0;       // nothing is drawn unless both are above 0

    bool empty() const { return columns <= 0 || rows <= 0; }
};

// The image clip, of every copy of an image block or a bitmap with its top-left corner at (x, y).
inline Clip clip_image(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height,
                       std::int64_t surface_width, std::int64_t surface_height) {
    Clip clip;
    clip.source_x = x < 0 ? -x : 0;
    clip.source_y = y < 0 ? -y : 0;
    clip.x = std::max<std::int64_t>(x, 0);
    clip.y = std::max<std::int64_t>(y, 0);
    clip.columns = std::min(x + width, surface_width) - clip.x;
    clip.rows = std::min(y + height, surface_height) - clip.y;
    return clip;
}

// A rectangle that includes both corners; it is empty when a right or bottom edge lies before its left or
// top.
struct Box {
    std::int64_t x1 = 0, y1 = 0, x2 = -1, y2 = -1;

    bool empty() const { return x1 > x2 || y1 > y2; }
    std::int64_t columns() const { return x2 - x1 + 1; }
    std::int64_t rows() const { return y2 - y1 + 1; }
};

// The bar clamp, of filled rectangles: the part of the rectangle that lies on the surface. Corners in the
// wrong order and rectangles wholly outside come out empty.
inline Box clamp_bar(Box box, std::int64_t width, std::int64_t height) {
    return {std::max<std::int64_t>(box.x1, 0), std::max<std::int64_t>(box.y1, 0), std::min(box.x2, width - 1),
            std::min(box.y2, height - 1)};
}

// The box clamp, of outlines: as the bar clamp, but a box whose right edge is column 0 or whose bottom edge
// is row 0 is not drawn either. A box that reaches beyond the surface gets its edge along the border.
inline Box clamp_box(Box box, std::int64_t width, std::int64_t height) {
    if (box.x1 >= width || box.y1 >= height || box.x2 <= 0 || box.y2 <= 0) return {};
    return clamp_bar(box, width, height);
}

}  // namespace ink::draw
