// Scaling to the nearest pixel, rounded down.
#pragma once

#include <cstdint>

#include "draw/surface.h"

namespace ink::draw {

// One axis of a scaled picture: it is so many destination pixels long, and pixel i of them shows source pixel
// floor(i x step / unit).
struct Scale {
    std::int64_t length = 0;
    std::int64_t step = 0, unit = 1;
};

enum class Transparency { none, colour_0 };

// Draws the sprite scaled with its top-left corner at (x, y). No scale may lead past the end of the sprite.
void draw_scaled(const Surface &target, std::int64_t x, std::int64_t y, const Scale &columns,
                 const Scale &rows, const Sprite &sprite, Transparency transparency);

}  // namespace ink::draw
