#include "kit/path.h"

#include <algorithm>
#include <utility>

#include "kit/noise.h"

namespace paint {

Path curve(const Path &points, bool closed) {
    constexpr int kSteps = 10;
    const int count = static_cast<int>(points.size());
    const auto point = [&](int i) {
        return points[static_cast<std::size_t>(closed ? (i + count) % count : std::clamp(i, 0, count - 1))];
    };
    Path path;
    for (int i = 0; i < (closed ? count : count - 1); ++i) {
        const Point a = point(i - 1), b = point(i), c = point(i + 1), d = point(i + 2);
        for (int step = 0; step < kSteps; ++step) {
            const double t = step / static_cast<double>(kSteps);
            const auto at = [t](double p, double q, double r, double s) {
                return q + 0.5 * t * (r - p + t * (2 * p - 5 * q + 4 * r - s + t * (3 * (q - r) + s - p)));
            };
            path.push_back({at(a.x, b.x, c.x, d.x), at(a.y, b.y, c.y, d.y)});
        }
    }
    if (!closed) path.push_back(points.back());
    return path;
}

Path arc(double x, double y, double rx, double ry, double from, double to) {
    constexpr int kSides = 48;
    Path path;
    for (int i = 0; i <= kSides; ++i) {
        const double turns = (from + (to - from) * i / kSides) / 360;
        path.push_back({x + rx * cosine(turns), y + ry * sine(turns)});
    }
    return path;
}

Path ellipse(double x, double y, double rx, double ry) {
    return arc(x, y, rx, ry, 0, 360);
}

Path rectangle(double left, double top, double right, double bottom) {
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

Path placed(const Path &path, double x, double y, double scale_x, double scale_y) {
    Path moved;
    for (const Point &point : path) moved.push_back({x + point.x * scale_x, y + point.y * scale_y});
    return moved;
}

Path moved(Path path, double dx, double dy) {
    for (Point &p : path) p = {p.x + dx, p.y + dy};
    return path;
}

Path turned(Path path, Point around, double degrees) {
    const double s = sine(degrees / 360), c = cosine(degrees / 360);
    for (Point &p : path) {
        const double x = p.x - around.x, y = p.y - around.y;
        p = {around.x + x * c - y * s, around.y + x * s + y * c};
    }
    return path;
}

Path scaled(Path path, Point around, double across, double down) {
    for (Point &p : path) p = {around.x + (p.x - around.x) * across, around.y + (p.y - around.y) * down};
    return path;
}

Path mirrored(Path path, double axis) {
    return scaled(std::move(path), {axis, 0}, -1, 1);
}

}  // namespace paint
