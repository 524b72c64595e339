#include "shape.h"

#include <algorithm>
#include <cmath>

namespace people {
namespace {

constexpr int kRowsInPixel = 5;
constexpr int kStepsInCurve = 8;

// A point of the Catmull-Rom spline between b and c.
Point between(Point a, Point b, Point c, Point d, double t) {
    const auto on_axis = [t](double p, double q, double r, double s) {
        return q + 0.5 * t * (r - p + t * (2 * p - 5 * q + 4 * r - s + t * (3 * (q - r) + s - p)));
    };
    return {on_axis(a.x, b.x, c.x, d.x), on_axis(a.y, b.y, c.y, d.y)};
}

Path spline(const Path &points, bool closed) {
    const int count = static_cast<int>(points.size());
    const auto at = [&](int i) {
        const int index = closed ? (i + count) % count : std::clamp(i, 0, count - 1);
        return points[static_cast<std::size_t>(index)];
    };
    Path path;
    for (int i = 0; i < (closed ? count : count - 1); ++i)
        for (int step = 0; step < kStepsInCurve; ++step)
            path.push_back(
                between(at(i - 1), at(i), at(i + 1), at(i + 2), step / static_cast<double>(kStepsInCurve)));
    if (!closed && count > 0) path.push_back(points.back());
    return path;
}

struct Crossing {
    double x;
    int direction;
};

// Adds the part of each pixel that lies between two places of a row.
void add_span(std::vector<double> &row, double from, double to) {
    from = std::max(from, 0.0);
    to = std::min(to, static_cast<double>(row.size()));
    for (int x = static_cast<int>(from); x < to; ++x)
        row[static_cast<std::size_t>(x)] += std::min(to, x + 1.0) - std::max(from, static_cast<double>(x));
}

}  // namespace

double sine(double degrees) {
    degrees -= 360 * std::floor(degrees / 360);
    if (degrees > 180) return -sine(degrees - 180);
    if (degrees > 90) degrees = 180 - degrees;
    const double x = degrees * 0.017453292519943295, y = x * x;
    return x * (1 - y / 6 * (1 - y / 20 * (1 - y / 42 * (1 - y / 72))));
}

double cosine(double degrees) {
    return sine(degrees + 90);
}

Path curve(const Path &points) {
    return spline(points, false);
}

Path outline(const Path &points) {
    return spline(points, true);
}

Path arc(double x, double y, double rx, double ry, double from, double to) {
    Path path;
    const int steps = std::max(8, static_cast<int>((rx + ry) * std::abs(to - from) / 360));
    for (int i = 0; i <= steps; ++i) {
        const double angle = from + (to - from) * i / steps;
        path.push_back({x + rx * cosine(angle), y + ry * sine(angle)});
    }
    return path;
}

Path ellipse(double x, double y, double rx, double ry) {
    return arc(x, y, rx, ry, 0, 360);
}

Path box(double left, double top, double right, double bottom) {
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

Path moved(Path path, double dx, double dy) {
    for (Point &p : path) p = {p.x + dx, p.y + dy};
    return path;
}

Path turned(Path path, Point around, double degrees) {
    const double s = sine(degrees), c = cosine(degrees);
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

void rasterise(const Path &path, int width, int height, const Cover &cover) {
    if (path.size() < 3) return;
    const auto [top, bottom] = std::minmax_element(path.begin(), path.end(),
                                                   [](const Point &a, const Point &b) { return a.y < b.y; });
    const int first = std::max(0, static_cast<int>(std::floor(top->y)));
    const int last = std::min(height - 1, static_cast<int>(std::floor(bottom->y)));
    std::vector<double> row(static_cast<std::size_t>(width));
    std::vector<Crossing> crossings;
    for (int y = first; y <= last; ++y) {
        std::fill(row.begin(), row.end(), 0.0);
        for (int sub = 0; sub < kRowsInPixel; ++sub) {
            const double at = y + (sub + 0.5) / kRowsInPixel;
            crossings.clear();
            for (std::size_t i = 0; i < path.size(); ++i) {
                const Point &a = path[i], &b = path[(i + 1) % path.size()];
                if ((a.y <= at) == (b.y <= at)) continue;
                crossings.push_back({a.x + (b.x - a.x) * (at - a.y) / (b.y - a.y), a.y < b.y ? 1 : -1});
            }
            std::sort(crossings.begin(), crossings.end(),
                      [](const Crossing &a, const Crossing &b) { return a.x < b.x; });
            int depth = 0;
            for (std::size_t i = 0; i + 1 < crossings.size(); ++i) {
                depth += crossings[i].direction;
                if (depth != 0) add_span(row, crossings[i].x, crossings[i + 1].x);
            }
        }
        for (int x = 0; x < width; ++x) {
            const double part = row[static_cast<std::size_t>(x)] / kRowsInPixel;
            if (part > 0.004) cover(x, y, std::min(part, 1.0));
        }
    }
}

void rasterise_line(const Path &path, const std::function<double(double)> &width_at, int width, int height,
                    const Cover &cover) {
    if (path.size() < 2) return;
    double left = width, top = height, right = 0, bottom = 0, widest = 0;
    const double segments = static_cast<double>(path.size() - 1);
    for (std::size_t i = 0; i < path.size(); ++i) {
        left = std::min(left, path[i].x);
        right = std::max(right, path[i].x);
        top = std::min(top, path[i].y);
        bottom = std::max(bottom, path[i].y);
        widest = std::max(widest, width_at(static_cast<double>(i) / segments));
    }
    const int x0 = std::max(0, static_cast<int>(left - widest - 1));
    const int x1 = std::min(width - 1, static_cast<int>(right + widest + 1));
    const int y0 = std::max(0, static_cast<int>(top - widest - 1));
    const int y1 = std::min(height - 1, static_cast<int>(bottom + widest + 1));
    if (x1 < x0 || y1 < y0) return;
    // Where its pieces overlap, a line is no thicker: the most that any covers counts.
    const int across = x1 - x0 + 1;
    std::vector<double> parts(static_cast<std::size_t>(across * (y1 - y0 + 1)));
    for (std::size_t i = 0; i + 1 < path.size(); ++i) {
        const Point &a = path[i], &b = path[i + 1];
        const double wa = width_at(static_cast<double>(i) / segments) / 2;
        const double wb = width_at(static_cast<double>(i + 1) / segments) / 2;
        const double reach = std::max(wa, wb) + 1, dx = b.x - a.x, dy = b.y - a.y;
        const double length = dx * dx + dy * dy;
        const int from_y = std::max(y0, static_cast<int>(std::min(a.y, b.y) - reach));
        const int to_y = std::min(y1, static_cast<int>(std::max(a.y, b.y) + reach));
        const int from_x = std::max(x0, static_cast<int>(std::min(a.x, b.x) - reach));
        const int to_x = std::min(x1, static_cast<int>(std::max(a.x, b.x) + reach));
        for (int y = from_y; y <= to_y; ++y) {
            for (int x = from_x; x <= to_x; ++x) {
                const double px = x + 0.5 - a.x, py = y + 0.5 - a.y;
                const double t = length > 0 ? std::clamp((px * dx + py * dy) / length, 0.0, 1.0) : 0;
                const double ex = px - t * dx, ey = py - t * dy, half = wa + (wb - wa) * t;
                // What is thinner than a pixel covers less of it.
                const double part =
                    std::clamp(half + 0.5 - std::sqrt(ex * ex + ey * ey), 0.0, std::min(1.0, 2 * half));
                double &most = parts[static_cast<std::size_t>((y - y0) * across + x - x0)];
                most = std::max(most, part);
            }
        }
    }
    for (int y = y0; y <= y1; ++y) {
        for (int x = x0; x <= x1; ++x) {
            const double part = parts[static_cast<std::size_t>((y - y0) * across + x - x0)];
            if (part > 0.004) cover(x, y, part);
        }
    }
}

}  // namespace people
