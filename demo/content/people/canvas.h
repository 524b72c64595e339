// What figures are painted on: areas with a contour of ink, and lines of the brush. A tone is 0, the shade, to 1, the
// light of a material.
#pragma once

#include <functional>

#include "kit/canvas.h"
#include "kit/path.h"

namespace people {

using paint::arc;
using paint::curve;
using paint::ellipse;
using paint::mirrored;
using paint::moved;
using paint::outline;
using paint::Path;
using paint::Point;
using paint::Ramp;
using paint::rectangle;
using paint::scaled;
using paint::turned;

// The materials by short names.
inline constexpr Ramp kStone = Ramp::stone, kWood = Ramp::wood, kPaper = Ramp::paper,
                      kVermilion = Ramp::vermilion, kJade = Ramp::jade, kGold = Ramp::gold, kInk = Ramp::ink,
                      kSkin = Ramp::skin, kIndigo = Ramp::indigo, kPlum = Ramp::plum, kStraw = Ramp::straw,
                      kTeal = Ramp::teal, kSky = Ramp::sky, kMountain = Ramp::mountain, kMoon = Ramp::moon,
                      kBlossom = Ramp::blossom;

// The tone at a place.
using Tone = std::function<double(double x, double y)>;
Tone flat(double tone);
Tone gradient(Point from, double tone_from, Point to, double tone_to);
// The same with the unevenness of a material: grain of so many pixels across and down.
Tone grained(Tone tone, double amount, double across, double down, std::uint32_t seed = 1);

// A number from 0 to below 1 for each i, for what is strewn about.
double scatter(int i, std::uint32_t seed);

// A line of the brush: as wide at its beginning, middle and end.
struct Brush {
    double begin = 1.2, middle = 1.2, end = 1.2;
};

class Canvas : public paint::Canvas {
  public:
    using paint::Canvas::Canvas;

    void fill(const Path &path, Ramp ramp, const Tone &tone, double opacity = 1);
    void fill(const Path &path, Ramp ramp, double tone, double opacity = 1);
    void line(const Path &path, Ramp ramp, double tone, const Brush &brush, double opacity = 1);
    // An area with a contour of ink.
    void shape(const Path &path, Ramp ramp, const Tone &tone, double contour = 1.2);
    void shape(const Path &path, Ramp ramp, double tone, double contour = 1.2);

    // Lays another material over, most in the middle of an ellipse: a blush, a shadow.
    void tint(Point middle, double rx, double ry, Ramp ramp, double tone, double opacity);
};

}  // namespace people
