// The people seen close: who speaks, beside what is said. 112 x 136, looking to the right.
#pragma once

#include "canvas.h"

namespace people {

constexpr int kPortraitWidth = 112, kPortraitHeight = 136;

Canvas hero_portrait();
Canvas master_portrait();
Canvas seller_portrait();
Canvas girl_portrait();
Canvas boatman_portrait();

// What their faces have in common. A canvas with a round window behind the head:
Canvas portrait_ground(Ramp ramp, double tone);

struct EyeLook {
    double width = 12;
    double open = 1;  // 0 closed
    Ramp iris = kInk;
    double slant = 0;  // how much higher the outer end is
};
void portrait_eye(Canvas &canvas, Point middle, const EyeLook &look);
// Along points, thick in the middle as a brush leaves it.
void ink_line(Canvas &canvas, const Path &points, double width, double tone = 0.05);
void blush(Canvas &canvas, Point at, double size);
// Two borders of a garment that cross under the chin, around the neck at the height given.
void collar(Canvas &canvas, double middle, double neck, Ramp ramp, double tone);

}  // namespace people
