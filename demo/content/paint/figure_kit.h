// A figure is put together of shapes with a dark contour, lit from the left, counted from a point of its own.
#pragma once

#include "canvas.h"

namespace paint {

class Figure {
  public:
    // The point of the figure, its feet say, lies at (x, y) of a canvas of this size.
    Figure(int width, int height, double x, double y) : canvas_(width, height), x_(x), y_(y) {}

    // A smooth closed shape, with folds that run down when folds is above 0.
    void shape(const Path &points, Tone tone, double folds = 0);
    // The same with straight sides.
    void plate(const Path &points, Tone tone);
    void oval(double x, double y, double rx, double ry, Tone tone);
    // A limb: a thick line with a contour.
    void limb(const Path &points, double start, double middle, double end, Tone tone);
    // A line without one.
    void line(const Path &points, double width, Tone tone) { line(points, width, width, width, tone); }
    void line(const Path &points, double start, double middle, double end, Tone tone);
    // An area without contour and without light on it.
    void flat(const Path &points, Tone tone, double opacity = 1);
    void spot(double x, double y, double rx, double ry, Tone tone, double opacity = 1);

    // Everything that follows is moved by this much.
    void shift(double x, double y) {
        x_ += x;
        y_ += y;
    }

    // The finished picture, placed so that its point is at (0, 0).
    ink::tool::IndexedPicture picture();

    Canvas &canvas() { return canvas_; }
    Path here(const Path &points) const { return placed(points, x_, y_); }

  private:
    void body(const Path &path, Tone tone, double folds);

    Canvas canvas_;
    double x_, y_;
};

inline constexpr Tone kContour{Ramp::ink, 0.05};

}  // namespace paint
