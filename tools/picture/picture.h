// Pictures of palette indices, as the tools read, show and put together.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "files/file.h"

namespace ink::tool {

// 256 times red, green, blue, 0 to 63 each.
using Palette = std::array<std::uint8_t, 768>;

struct IndexedPicture {
    int width = 0, height = 0;
    Bytes pixels = Bytes(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    Palette palette{};
    int x = 0, y = 0;  // where the picture's file places it

    const std::uint8_t *row(int y_of_row) const {
        return pixels.data() + static_cast<std::ptrdiff_t>(y_of_row) * width;
    }
    std::uint8_t *row(int y_of_row) { return pixels.data() + static_cast<std::ptrdiff_t>(y_of_row) * width; }
};

// The palette with components of 0 to 255, the brightest 63 becoming 255, and back. dim_palette undoes
// bright_palette, and what the machines' palettes of 4 x 63 hold.
Palette bright_palette(const Palette &palette);
Palette dim_palette(const Palette &bright);

// What a picture without colours of its own is shown with.
Palette grey_palette();

// The part of a picture at (x, y), which must lie on it.
IndexedPicture cut(const IndexedPicture &from, int x, int y, int width, int height);
// Puts a picture onto another, every pixel; it must fit.
void paste(IndexedPicture &onto, const IndexedPicture &picture, int x, int y);

// Image blocks: a header of width and height as 16-bit numbers, then the pixels; and the same compressed.
// Making one throws std::runtime_error for a side above 65535.
Bytes image_block(const IndexedPicture &picture);
Bytes compressed_image(const IndexedPicture &picture);
IndexedPicture picture_of_block(std::span<const std::uint8_t> block);

}  // namespace ink::tool
