// From pictures of any colours to pictures of 256.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "picture/picture.h"

namespace ink::tool {

// A picture with a colour for every pixel: red, green, blue and opacity, 0 to 255 each.
struct ColourPicture {
    using Colour = std::array<std::uint8_t, 4>;
    int width = 0, height = 0;
    std::vector<Colour> pixels;
};

// Pixels less opaque than this are not there: they become colour 0, which nothing that is there becomes.
inline constexpr std::uint8_t kOpaque = 128;

// The entries of a palette, both included, that a picture's colours may be among.
struct Entries {
    int first = 1, last = 255;
    int count() const { return last - first + 1; }
};

// The palette with these entries made anew, so that the pictures look best with them: their very colours
// where they have no more than there are entries. Throws std::runtime_error when there is no entry.
Palette make_palette(const std::vector<ColourPicture> &pictures, Palette palette, Entries entries);

// The picture in the colours of these entries, the nearest for each pixel, or with the difference handed on
// to the pixels around it.
IndexedPicture quantise(const ColourPicture &picture, const Palette &palette, Entries entries, bool dither);

}  // namespace ink::tool
