// Sprites and rectangles on surfaces: the clipping of surface.h, then one call of a kernel.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "draw/kernels.h"
#include "draw/surface.h"

namespace ink::draw {

// A rectangle on a surface with what is drawn there, in the machine's own numbers: coordinates that lie on a
// surface in memory fit them.
inline Blit make_blit(const Surface &target, std::int64_t x, std::int64_t y, std::int64_t columns,
                      std::int64_t rows, const std::uint8_t *from = nullptr, std::int64_t from_step = 0) {
    return {target.at(x, y),
            static_cast<std::ptrdiff_t>(target.width),
            from,
            static_cast<std::ptrdiff_t>(from_step),
            static_cast<std::ptrdiff_t>(columns),
            static_cast<std::ptrdiff_t>(rows)};
}

// Whether two pieces of memory, each from its first byte to one past its last, have bytes in common.
inline bool overlapping(const std::uint8_t *first, const std::uint8_t *end, const std::uint8_t *other,
                        const std::uint8_t *other_end) {
    const std::less<> before;
    return before(first, other_end) && before(other, end);
}

// Whether the source of a blit lies among what it draws on, as when a part of a buffer is copied elsewhere in
// the same buffer.
inline bool overlapping(const Blit &blit) {
    const std::uint8_t *top = blit.from, *bottom = blit.from + (blit.rows - 1) * blit.from_step;
    if (blit.from_step < 0) std::swap(top, bottom);
    return overlapping(top, bottom + blit.columns, blit.to,
                       blit.to + (blit.rows - 1) * blit.to_step + blit.columns);
}

// Draws from a copy of the blit's source instead. The copy, null when memory is exhausted.
std::unique_ptr<std::uint8_t[]> detach(Blit &blit);

// Copies every pixel of a source that overlaps the target.
void move(const Blit &blit);

enum class Facing { forward, mirrored };

// Clips the sprite placed with its top-left corner at (x, y) and gives what is left of it to
// draw(const Blit &, const Clip &), which is not called when nothing is. A source that overlaps the target is
// drawn as it was before.
template <Facing facing = Facing::forward, class Draw>
inline void place(const Surface &target, std::int64_t x, std::int64_t y, const Sprite &sprite, Draw draw) {
    const Clip clip = clip_image(x, y, sprite.width, sprite.height, target.width, target.height);
    if (clip.empty()) return;
    // What a mirrored picture loses on the left of the target, it loses of its own right.
    const std::int64_t column =
        facing == Facing::forward ? clip.source_x : sprite.width - clip.source_x - clip.columns;
    Blit blit = make_blit(target, clip.x, clip.y, clip.columns, clip.rows, sprite.at(column, clip.source_y),
                          sprite.step);
    if (overlapping(blit)) [[unlikely]] {
        const std::unique_ptr<std::uint8_t[]> copy = detach(blit);
        if (copy != nullptr) draw(blit, clip);
        return;
    }
    draw(blit, clip);
}

// Every pixel of the sprite.
inline void put(const Surface &target, std::int64_t x, std::int64_t y, const Sprite &sprite) {
    const Clip clip = clip_image(x, y, sprite.width, sprite.height, target.width, target.height);
    if (clip.empty()) return;
    const Blit blit = make_blit(target, clip.x, clip.y, clip.columns, clip.rows,
                                sprite.at(clip.source_x, clip.source_y), sprite.step);
    overlapping(blit) ? move(blit) : kernels.copy(blit);
}

// Every pixel that is not 0.
inline void pest(const Surface &target, std::int64_t x, std::int64_t y, const Sprite &sprite) {
    place(target, x, y, sprite, [](const Blit &blit, const Clip &) { kernels.copy_nonzero(blit); });
}

// The pixels of a box that lies on the surface and is not empty, for the kernels without a source.
inline Blit area(const Surface &target, const Box &box) {
    return make_blit(target, box.x1, box.y1, box.columns(), box.rows());
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

// Calls draw(const Box &) for each edge of a box: the top row, the bottom row, and what lies between them of
// the two sides. A box of one row gives that row twice.
template <class Draw>
inline void for_each_edge(const Box &box, Draw draw) {
    if (box.empty()) return;
    draw(Box{box.x1, box.y1, box.x2, box.y1});
    draw(Box{box.x1, box.y2, box.x2, box.y2});
    const Box left{box.x1, box.y1 + 1, box.x1, box.y2 - 1};
    if (left.empty()) return;
    draw(left);
    if (box.x1 != box.x2) draw(Box{box.x2, left.y1, box.x2, left.y2});
}

}  // namespace ink::draw
