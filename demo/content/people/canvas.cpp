#include "canvas.h"

#include <algorithm>
#include <utility>

namespace people {

double scatter(int i, std::uint32_t seed) {
    return paint::hash(static_cast<std::uint32_t>(i), 77, seed) / 4294967296.0;
}

Tone flat(double tone) {
    return [tone](double, double) { return tone; };
}

Tone gradient(Point from, double tone_from, Point to, double tone_to) {
    const double dx = to.x - from.x, dy = to.y - from.y, length = dx * dx + dy * dy;
    return [=](double x, double y) {
        const double t = paint::clamp01(((x - from.x) * dx + (y - from.y) * dy) / length);
        return paint::mix(tone_from, tone_to, t);
    };
}

Tone grained(Tone tone, double amount, double across, double down, std::uint32_t seed) {
    return [=, tone = std::move(tone)](double x, double y) {
        return tone(x, y) + amount * (2 * paint::cloud(x / across, y / down, seed) - 1);
    };
}

void Canvas::fill(const Path &path, Ramp ramp, const Tone &tone, double opacity) {
    lay(
        paint::fill(path),
        [&](int x, int y) {
            return paint::Tone{ramp, paint::clamp01(tone(x + 0.5, y + 0.5))};
        },
        opacity);
}

void Canvas::fill(const Path &path, Ramp ramp, double tone, double opacity) {
    fill(path, ramp, flat(tone), opacity);
}

void Canvas::line(const Path &path, Ramp ramp, double tone, const Brush &brush, double opacity) {
    lay(paint::stroke(path, brush.begin, brush.middle, brush.end), {ramp, paint::clamp01(tone)}, opacity);
}

void Canvas::shape(const Path &path, Ramp ramp, const Tone &tone, double contour) {
    fill(path, ramp, tone);
    Path closed = path;
    closed.push_back(path.front());
    line(closed, kInk, 0.06, {contour, contour, contour});
}

void Canvas::shape(const Path &path, Ramp ramp, double tone, double contour) {
    shape(path, ramp, flat(tone), contour);
}

void Canvas::tint(Point middle, double rx, double ry, Ramp ramp, double tone, double opacity) {
    wash(paint::fill(ellipse(middle.x, middle.y, rx, ry)), {ramp, tone}, [&](int x, int y) {
        const double dx = (x + 0.5 - middle.x) / rx, dy = (y + 0.5 - middle.y) / ry;
        const double inside = std::max(0.0, 1 - dx * dx - dy * dy);
        return opacity * inside * inside;
    });
}

}  // namespace people
