// Lines and outlines: made of points, bent, moved and turned; and how much of each pixel they cover.
#pragma once

#include <functional>
#include <vector>

namespace people {

struct Point {
    double x = 0, y = 0;
};
using Path = std::vector<Point>;

// The library's own computers do not agree on the last digit of a sine; all of them agree on these.
double sine(double degrees);
double cosine(double degrees);

// A smooth line through the points; a point given twice is a corner.
Path curve(const Path &points);
// The same as an outline, from the last point back to the first.
Path outline(const Path &points);

Path ellipse(double x, double y, double rx, double ry);
// A part of it, from one angle to another; 0 is to the right and 90 below.
Path arc(double x, double y, double rx, double ry, double from, double to);
Path box(double left, double top, double right, double bottom);

Path moved(Path path, double dx, double dy);
Path turned(Path path, Point around, double degrees);
Path scaled(Path path, Point around, double across, double down);
Path mirrored(Path path, double axis);

// Calls cover(x, y, part) for each pixel of width x height that lies in the outline, with the part of it that
// does, above 0 to 1.
using Cover = std::function<void(int x, int y, double part)>;
void rasterise(const Path &path, int width, int height, const Cover &cover);

// The same for a line whose width, at t from 0 to 1 along it, is width_at(t).
void rasterise_line(const Path &path, const std::function<double(double)> &width_at, int width, int height,
                    const Cover &cover);

}  // namespace people
