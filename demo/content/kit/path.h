// Lines and outlines: made of points, bent, moved and turned.
#pragma once

#include <vector>

namespace paint {

struct Point {
    double x = 0, y = 0;
};
using Path = std::vector<Point>;

// A smooth line through all points, closed back to the first; a point given twice is a corner.
Path curve(const Path &points, bool closed = false);
inline Path outline(const Path &points) {
    return curve(points, true);
}

Path ellipse(double x, double y, double rx, double ry);
// A part of it, from one angle in degrees to another; 0 is to the right and 90 below.
Path arc(double x, double y, double rx, double ry, double from, double to);
Path rectangle(double left, double top, double right, double bottom);

// Moved, and then scaled about the origin of the new place.
Path placed(const Path &path, double x, double y, double scale_x = 1, double scale_y = 1);
Path moved(Path path, double dx, double dy);
Path turned(Path path, Point around, double degrees);
Path scaled(Path path, Point around, double across, double down);
Path mirrored(Path path, double axis);

}  // namespace paint
