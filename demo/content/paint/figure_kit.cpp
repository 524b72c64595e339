#include "figure_kit.h"

#include <algorithm>

namespace paint {

void Figure::body(const Path &path, Tone tone, double folds) {
    double left = path[0].x, right = left, top = path[0].y, bottom = top;
    for (const Point &point : path) {
        left = std::min(left, point.x);
        right = std::max(right, point.x);
        top = std::min(top, point.y);
        bottom = std::max(bottom, point.y);
    }
    Path ring = path;
    ring.push_back(path[0]);
    canvas_.lay(stroke(ring, 2.2), kContour);
    canvas_.lay(fill(path), [&](int x, int y) {
        const double across = (x - left) / std::max(1.0, right - left),
                     down = (y - top) / std::max(1.0, bottom - top);
        const double fold =
            folds * (noise((x - (x - (left + right) / 2) * down * 0.3) / 4.6, y / 34.0, 5) - 0.5);
        return Tone{tone.ramp, tone.value + 0.14 - 0.3 * across * across - 0.06 * down + fold};
    });
}

void Figure::shape(const Path &points, Tone tone, double folds) {
    body(here(curve(points, true)), tone, folds);
}

void Figure::plate(const Path &points, Tone tone) {
    body(here(points), tone, 0);
}

void Figure::oval(double x, double y, double rx, double ry, Tone tone) {
    body(here(ellipse(x, y, rx, ry)), tone, 0);
}

void Figure::limb(const Path &points, double start, double middle, double end, Tone tone) {
    const Path path = here(curve(points));
    canvas_.lay(stroke(path, start + 2, middle + 2, end + 2), kContour);
    canvas_.lay(stroke(path, start, middle, end), tone);
    Path lit = path;
    for (Point &point : lit) point.x -= middle * 0.22;
    canvas_.shade(stroke(lit, start * 0.3, middle * 0.3, end * 0.3), 0.06);
}

void Figure::line(const Path &points, double start, double middle, double end, Tone tone) {
    canvas_.lay(stroke(here(curve(points)), start, middle, end), tone);
}

void Figure::flat(const Path &points, Tone tone, double opacity) {
    canvas_.lay(fill(here(curve(points, true))), tone, opacity);
}

void Figure::spot(double x, double y, double rx, double ry, Tone tone, double opacity) {
    canvas_.lay(fill(here(ellipse(x, y, rx, ry))), tone, opacity);
}

ink::tool::IndexedPicture Figure::picture() {
    ink::tool::IndexedPicture picture = canvas_.picture();
    picture.x = -floor_of(x_);
    picture.y = -floor_of(y_);
    return picture;
}

}  // namespace paint
