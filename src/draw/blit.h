// Sprites and rectangles on surfaces: the clipping of surface.h, then one call of a kernel.
#pragma once

#include "draw/kernels.h"
#include "draw/surface.h"

namespace ink::draw {

// Clips the sprite placed with its top-left corner at (x, y) and gives what is left of it to
// draw(const Blit &, const Clip &), which is not called when nothing is.
template <class Draw>
inline void place(const Surface &target, std::int64_t x, std::int64_t y, const Sprite &sprite, Draw draw) {
    const Clip clip = clip_image(x, y, sprite.width, sprite.height, target.width, target.height);
    if (clip.empty()) return;
    draw(Blit{target.at(clip.x, clip.y), target.width, sprite.at(clip.source_x, clip.source_y), sprite.step,
              clip.columns, clip.rows},
         clip);
}

// Every pixel of the sprite.
inline void put(const Surface &target, std::int64_t x, std::int64_t y, const Sprite &sprite) {
    place(target, x, y, sprite, [](const Blit &blit, const Clip &) { kernels.copy(blit); });
}

// Every pixel that is not 0.
inline void pest(const Surface &target, std::int64_t x, std::int64_t y, const Sprite &sprite) {
    place(target, x, y, sprite, [](const Blit &blit, const Clip &) { kernels.copy_nonzero(blit); });
}

// The pixels of a box that lies on the surface and is not empty, for the kernels without a source.
inline Blit area(const Surface &target, const Box &box) {
    return {target.at(box.x1, box.y1), target.width, nullptr, 0, box.columns(), box.rows()};
}

// A filled rectangle under the bar clamp.
inline void fill(const Surface &target, const Box &box, std::uint8_t colour) {
    const Box bar = clamp_bar(box, target.width, target.height);
    if (!bar.empty()) kernels.fill(area(target, bar), colour);
}

// Of the checkerboard of all (x, y) with x + y even, the phase of a rectangle that begins at (x, y).
inline unsigned mesh_phase(std::int64_t x, std::int64_t y) {
    return static_cast<unsigned>(x + y) & 1;
}

// Calls draw(const Box &) for each part of a box's outline: the top row, the bottom row, and what lies
// between them of the two sides. A box of one row gives that row twice.
template <class Draw>
inline void outline(const Box &box, Draw draw) {
    if (box.empty()) return;
    draw(Box{box.x1, box.y1, box.x2, box.y1});
    draw(Box{box.x1, box.y2, box.x2, box.y2});
    const Box left{box.x1, box.y1 + 1, box.x1, box.y2 - 1};
    if (left.empty()) return;
    draw(left);
    if (box.x1 != box.x2) draw(Box{box.x2, left.y1, box.x2, left.y2});
}

}  // namespace ink::draw
