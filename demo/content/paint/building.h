// What carpenters and masons made: roofs, planks, walls, windows, lanterns.
#pragma once

#include <cstdint>

#include "kit/canvas.h"

namespace paint {

// The tiled slope of a roof between its ridge and its eaves, which curve up at the ends.
struct Roof {
    Point ridge_left, ridge_right, eave_left, eave_right;
    double sag;   // how far the eaves hang below a straight line in the middle
    double tile;  // width of a column of tiles at the eaves
};
void paint_roof(Canvas &canvas, const Roof &roof);

// Boards with grain, along the row or upright.
void paint_wood(Canvas &canvas, const Path &outline, double value, bool upright, std::uint32_t seed);

// A post or a beam, lit at its left or upper side.
void paint_beam(Canvas &canvas, double left, double top, double right, double bottom, double value,
                std::uint32_t seed);

// A plastered wall with stains, darker under the eaves.
void paint_plaster(Canvas &canvas, const Path &outline, double value, std::uint32_t seed);

// Stones laid in rows.
void paint_masonry(Canvas &canvas, const Path &outline, double width, double height, double value,
                   std::uint32_t seed);

// A window of paper panes behind a lattice.
void paint_lattice(Canvas &canvas, double left, double top, double right, double bottom, int columns,
                   int rows);

// A paper lantern on its string, (x, y) being its middle. Paper of gold glows by night.
void paint_lantern(Canvas &canvas, double x, double y, double rx, double ry, Ramp paper = Ramp::vermilion);
Mask lantern_shape(double x, double y, double rx, double ry);

}  // namespace paint
