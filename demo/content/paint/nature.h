// Sky, mountains, water and trees.
#pragma once

#include <cstdint>

#include "kit/canvas.h"

namespace paint {

// A sky down to the horizon, with long bands of cloud.
void paint_sky(Canvas &canvas, int horizon, std::uint32_t seed);

// Stars, which only night brings out.
void paint_stars(Canvas &canvas, int horizon, std::uint32_t seed);

// A mountain under the crest, which runs from left to right: washed in strokes that follow its slopes, paler
// towards the foot, where it stands in mist.
struct Mountain {
    Path crest;
    int foot;
    double near;  // 0 as pale as the mist, 1 dark
    std::uint32_t seed;
};
void paint_mountain(Canvas &canvas, const Mountain &mountain);

// A bank of mist, thickest along its middle row.
void paint_mist(Canvas &canvas, double y, double half, double strength, std::uint32_t seed);

// Water inside the mask, seen from above the horizon's row.
void paint_water(Canvas &canvas, const Mask &mask, int horizon, std::uint32_t seed);

// What stands above the row mirrored in the water below it: as dark strokes that thin out.
void paint_reflection(Canvas &canvas, double left, double right, double top, double bottom, Tone tone,
                      std::uint32_t seed);

// A trunk or a branch with bark.
void paint_trunk(Canvas &canvas, const Path &path, double start, double end, std::uint32_t seed);

// A flat cushion of pine needles, lit from above.
void paint_needles(Canvas &canvas, double x, double y, double half_width, double half_height,
                   std::uint32_t seed);

// A bough of a willow that hangs down from (x, y), with its leaves.
void paint_willow_bough(Canvas &canvas, double x, double y, double length, double sway, std::uint32_t seed);

// A rock with lit top and dark foot.
void paint_rock(Canvas &canvas, const Path &outline, std::uint32_t seed);

// The fibres of the paper, over all that is painted.
void paint_grain(Canvas &canvas, double strength, std::uint32_t seed);

}  // namespace paint
