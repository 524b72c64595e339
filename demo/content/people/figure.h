// What the people of the game are made of: limbs, sleeves, eyes; and the animations of them.
#pragma once

#include <vector>

#include "canvas.h"

namespace people {

// Figures are drawn around their feet, x to the right and y down, so that a head has a negative y.
class FigureCanvas : public Canvas {
  public:
    FigureCanvas();
    static constexpr Point kFeet{90, 150};
};
Path at_feet(Path path);

// A limb through three joints, as thick at each, with a contour.
void limb(Canvas &canvas, const Path &joints, Ramp ramp, double tone, double first, double middle,
          double last);

// A wide sleeve from the shoulder over the elbow to the cuff, and the hand that looks out of it.
struct Arm {
    Point shoulder, elbow, hand;
    double shoulder_width = 10, cuff_width = 14;
};
void sleeve(Canvas &canvas, const Arm &arm, Ramp ramp, double tone);

// A pair of eyes in a small face that looks to the right: open, closed, or laughing.
enum class Eyes { open, closed, laughing };
void eyes(Canvas &canvas, Point left, double apart, Eyes how, double size = 1);

// Cut to what is painted, and placed by the feet.
std::vector<ink::tool::IndexedPicture> frames_by_feet(const std::vector<FigureCanvas> &frames);

// Cut to what is painted; x and y say where the part lay.
ink::tool::IndexedPicture trimmed(const ink::tool::IndexedPicture &picture);

}  // namespace people
