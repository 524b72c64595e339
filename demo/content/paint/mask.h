// Shapes: which part of each pixel they cover.
#pragma once

#include <vector>

namespace paint {

struct Point {
    double x, y;
};
using Path = std::vector<Point>;

// A smooth curve through all points; closed leads back to the first.
Path curve(const Path &points, bool closed = false);
Path ellipse(double x, double y, double rx, double ry);
Path rectangle(double left, double top, double right, double bottom);

// Moved, and then scaled about the origin of the new place.
Path placed(const Path &path, double x, double y, double scale_x = 1, double scale_y = 1);

struct Mask {
    int left = 0, top = 0, width = 0, height = 0;
    std::vector<float> cover;  // 0 to 1, row by row

    float &at(int x, int y) {
        return cover[static_cast<std::size_t>(y - top) * static_cast<std::size_t>(width) +
                     static_cast<std::size_t>(x - left)];
    }
    float at(int x, int y) const { return const_cast<Mask *>(this)->at(x, y); }
};

// The inside of a closed path.
Mask fill(const Path &path);

// A brush drawn along a path: its width at the start, in the middle and at the end.
Mask stroke(const Path &path, double start, double middle, double end);
inline Mask stroke(const Path &path, double width) {
    return stroke(path, width, width, width);
}

}  // namespace paint
