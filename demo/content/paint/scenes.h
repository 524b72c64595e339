// The places of the game and its pages.
#pragma once

#include "kit/canvas.h"

namespace paint {

struct Scene {
    Canvas picture{640, 480};
    Canvas mask{640, 480};   // of exact keys
    Canvas front{640, 480};  // what hides those who walk behind it
};

// What a click on the picture meets. A later area lies over the earlier ones.
class Keys {
  public:
    explicit Keys(Canvas &mask) : mask_(mask) { mask_.lay(mask_.all(), {Ramp::exact, 0}); }
    void area(int key, const Path &outline) {
        mask_.lay(fill(outline), {Ramp::exact, static_cast<double>(key)});
    }
    void area(int key, const Mask &shape) { mask_.lay(shape, {Ramp::exact, static_cast<double>(key)}); }

  private:
    Canvas &mask_;
};

Scene paint_study();
Scene paint_market();
Scene paint_lake();

// Pages without a mask. The panorama is what the title page and the film show of lake and town.
Canvas paint_panorama();
Canvas paint_title();
Canvas paint_end();
Canvas paint_paper();  // the desk from above, with a clean sheet of 288 x 288 at (176, 72)

}  // namespace paint
