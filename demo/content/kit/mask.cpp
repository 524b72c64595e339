#include "kit/mask.h"

#include <algorithm>
#include <cmath>

#include "kit/noise.h"

namespace paint {
namespace {

constexpr int kSubRows = 4;

// An empty mask over the box, as far as it lies near a picture.
Mask box(double left, double top, double right, double bottom) {
    constexpr double kFar = 700;
    Mask mask;
    mask.left = floor_of(std::clamp(left, -8.0, kFar)) - 1;
    mask.top = floor_of(std::clamp(top, -8.0, kFar)) - 1;
    mask.width = floor_of(std::clamp(right, -8.0, kFar)) + 2 - mask.left;
    mask.height = floor_of(std::clamp(bottom, -8.0, kFar)) + 2 - mask.top;
    mask.cover.resize(static_cast<std::size_t>(mask.width) * static_cast<std::size_t>(mask.height));
    return mask;
}

// Adds a span of a sub-row, each pixel by how much of it the span covers.
void add_span(Mask &mask, int row, double from, double to) {
    from = std::max(from, static_cast<double>(mask.left));
    to = std::min(to, static_cast<double>(mask.left + mask.width));
    for (int x = floor_of(from); x < to; ++x) {
        const double part = std::min(to, x + 1.0) - std::max(from, static_cast<double>(x));
        float &cover = mask.at(x, row);
        cover = std::min(1.0F, cover + static_cast<float>(part / kSubRows));
    }
}

}  // namespace

Mask fill(const Path &path) {
    Point low = path[0], high = path[0];
    for (const Point &point : path) {
        low = {std::min(low.x, point.x), std::min(low.y, point.y)};
        high = {std::max(high.x, point.x), std::max(high.y, point.y)};
    }
    Mask mask = box(low.x, low.y, high.x, high.y);
    std::vector<double> crossings;
    for (int sub = 0; sub < mask.height * kSubRows; ++sub) {
        const double y = mask.top + (sub + 0.5) / kSubRows;
        crossings.clear();
        for (std::size_t i = 0; i < path.size(); ++i) {
            const Point &a = path[i], &b = path[(i + 1) % path.size()];
            if ((a.y <= y) != (b.y <= y)) crossings.push_back(a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y));
        }
        std::sort(crossings.begin(), crossings.end());
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2)
            add_span(mask, mask.top + sub / kSubRows, crossings[i], crossings[i + 1]);
    }
    return mask;
}

Mask stroke(const Path &path, double start, double middle, double end) {
    const double widest = std::max({start, middle, end}) / 2 + 1;
    Point low = path[0], high = path[0];
    for (const Point &point : path) {
        low = {std::min(low.x, point.x), std::min(low.y, point.y)};
        high = {std::max(high.x, point.x), std::max(high.y, point.y)};
    }
    Mask mask = box(low.x - widest, low.y - widest, high.x + widest, high.y + widest);
    const double last = static_cast<double>(std::max<std::size_t>(1, path.size() - 1));
    const auto radius = [&](double index) {
        const double t = index / last;
        return (t < 0.5 ? mix(start, middle, t * 2) : mix(middle, end, t * 2 - 1)) / 2;
    };
    for (std::size_t i = 0; i + 1 < path.size(); ++i) {
        const Point a = path[i], b = path[i + 1];
        const double ra = radius(static_cast<double>(i)), rb = radius(static_cast<double>(i) + 1);
        const double reach = std::max(ra, rb) + 1, dx = b.x - a.x, dy = b.y - a.y;
        const double length = std::max(1e-9, dx * dx + dy * dy);
        const int right = std::min(mask.left + mask.width - 1, floor_of(std::max(a.x, b.x) + reach));
        const int bottom = std::min(mask.top + mask.height - 1, floor_of(std::max(a.y, b.y) + reach));
        for (int y = std::max(mask.top, floor_of(std::min(a.y, b.y) - reach)); y <= bottom; ++y) {
            for (int x = std::max(mask.left, floor_of(std::min(a.x, b.x) - reach)); x <= right; ++x) {
                const double px = x + 0.5 - a.x, py = y + 0.5 - a.y;
                const double t = clamp01((px * dx + py * dy) / length);
                const double ex = px - dx * t, ey = py - dy * t;
                const double r = mix(ra, rb, t);
                // A stroke thinner than a pixel covers no more than its width of it.
                const double part = clamp01(r - std::sqrt(ex * ex + ey * ey) + 0.5) * std::min(1.0, r * 2);
                mask.at(x, y) = std::max(mask.at(x, y), static_cast<float>(part));
            }
        }
    }
    return mask;
}

}  // namespace paint
