#include "nature.h"

#include <algorithm>
#include <cmath>

namespace paint {

void paint_sky(Canvas &canvas, int horizon, std::uint32_t seed) {
    canvas.lay(fill(rectangle(0, 0, canvas.width(), horizon)), [&](int x, int y) {
        const double height = y / static_cast<double>(horizon);
        const double band = cloud(x / 210.0, y / 26.0, seed) - 0.5;
        return Tone{Ramp::sky, 0.08 + 0.84 * height + band * 0.34 * (1 - 0.4 * height)};
    });
    // Long clouds with a flat foot and a soft back.
    canvas.wash(fill(rectangle(0, 0, canvas.width(), horizon)), {Ramp::sky, 0.98}, [&](int x, int y) {
        const double body = cloud(x / 150.0, y / 20.0, seed + 40);
        return 0.55 * rise(0.56, 0.74, body) * rise(0, 60, y) * rise(horizon, horizon - 60, y);
    });
}

void paint_stars(Canvas &canvas, int horizon, std::uint32_t seed) {
    const Tone star{Ramp::exact, static_cast<double>(range_of(Ramp::moon).first)};
    Chance chance(seed);
    for (int i = 0; i < 130; ++i) {
        // They thin out towards the haze over the horizon.
        const double x = floor_of(chance.between(0, canvas.width())), high = chance.unit(),
                     y = floor_of(horizon * high * high * 0.72);
        canvas.lay(fill(rectangle(x, y, x + 1, y + 1)), star);
        if (i % 16 != 0) continue;
        canvas.lay(fill(rectangle(x - 1, y, x + 2, y + 1)), star);
        canvas.lay(fill(rectangle(x, y - 1, x + 1, y + 2)), star);
    }
}

void paint_mountain(Canvas &canvas, const Mountain &mountain) {
    Path body = mountain.crest;
    // A crest cut by a hand, not by a ruler.
    for (Point &point : body) point.y += (cloud(point.x / 14, 0, mountain.seed) - 0.5) * 13;
    std::vector<double> crest(static_cast<std::size_t>(canvas.width()), mountain.foot);
    for (std::size_t i = 0; i + 1 < body.size(); ++i)
        for (int x = std::max(0, floor_of(body[i].x));
             x < std::min<double>(canvas.width(), body[i + 1].x + 1); ++x) {
            const double t = (x - body[i].x) / std::max(0.01, body[i + 1].x - body[i].x);
            crest[static_cast<std::size_t>(x)] = mix(body[i].y, body[i + 1].y, clamp01(t));
        }
    body.push_back({body.back().x, static_cast<double>(mountain.foot)});
    body.push_back({body.front().x, static_cast<double>(mountain.foot)});
    canvas.lay(fill(body), [&](int x, int y) {
        const double top = crest[static_cast<std::size_t>(x)];
        const double down = (y - top) / std::max(1.0, mountain.foot - top), below = y - top;
        // The strokes lean outwards from the crest, as the brush runs down the slopes.
        const int next = std::min(x + 6, canvas.width() - 1);
        const double slope = crest[static_cast<std::size_t>(next)] - top;
        const double stroke_x = x - below * (slope > 0 ? -0.45 : 0.45);
        const double streak = noise(stroke_x / 5.0, below / 34.0, mountain.seed + 7) * 0.6 +
                              noise(stroke_x / 2.1, below / 17.0, mountain.seed + 8) * 0.4;
        const double edge = rise(7, 0, below) * 0.16;
        const double lit = slope > 0 ? 0.07 : -0.05;
        const double dark =
            mountain.near * (0.8 - 0.62 * smooth(down) + edge) + (0.62 - streak) * 0.36 * mountain.near;
        return Tone{Ramp::mountain, 0.97 - dark + lit * mountain.near};
    });
}

void paint_mist(Canvas &canvas, double y, double half, double strength, std::uint32_t seed) {
    canvas.wash(fill(rectangle(0, y - half, canvas.width(), y + half)), {Ramp::mountain, 0.99},
                [&](int px, int py) {
                    const double off = (py - y) / half;
                    const double body = cloud(px / 120.0, py / 18.0, seed);
                    return strength * (1 - off * off) * rise(0.25, 0.62, body);
                });
}

void paint_water(Canvas &canvas, const Mask &mask, int horizon, std::uint32_t seed) {
    const int first = range_of(Ramp::water).first;
    canvas.lay(mask, [&](int x, int y) {
        const double depth = 1 + (y - horizon) / 26.0;
        const double across = x / (34.0 * depth), down = (y - horizon) / (1.5 + depth * 1.1);
        const double swell =
            noise(across, down * 0.55, seed) * 13 + noise(across * 3.1, down * 1.3, seed + 1) * 5;
        return Tone{Ramp::exact, static_cast<double>(first + ((floor_of(swell + down * 0.6) & 15)))};
    });
    // Far water lies in the haze.
    canvas.wash(mask, {Ramp::sky, 0.9},
                [&](int, int y) { return 0.75 * rise(horizon + 22, horizon - 2, y); });
}

void paint_reflection(Canvas &canvas, double left, double right, double top, double bottom, Tone tone,
                      std::uint32_t seed) {
    Chance chance(seed);
    for (double y = top; y < bottom; y += 2 + (y - top) / 40) {
        const double far = (y - top) / (bottom - top), shrink = far * (right - left) * 0.2;
        const int strokes = 1 + static_cast<int>(far * 2.5);
        for (int i = 0; i < strokes; ++i) {
            const double width =
                (right - left - 2 * shrink) / strokes * chance.between(0.55, 0.98) * (1 - 0.3 * far);
            const double x = left + shrink + (right - left - 2 * shrink) * (i + 0.5) / strokes +
                             chance.between(-6, 6) * (0.4 + far);
            canvas.lay(stroke({{x - width / 2, y}, {x, y + 0.3}, {x + width / 2, y}}, 0.6, 2.4 - far, 0.5),
                       tone);
        }
    }
}

void paint_trunk(Canvas &canvas, const Path &path, double start, double end, std::uint32_t seed) {
    canvas.lay(stroke(path, start + 2.4, (start + end) / 2 + 2, end + 1.2), {Ramp::ink, 0.12});
    Path lit = path;
    for (Point &point : lit) point.x -= start * 0.06;
    canvas.lay(stroke(path, start, (start + end) / 2, end), [&](int x, int y) {
        const double bark = noise(x / 3.2, y / 9.0, seed) * 0.65 + noise(x / 1.7, y / 3.5, seed + 1) * 0.35;
        return Tone{Ramp::wood, 0.14 + 0.27 * rise(0.3, 0.8, bark)};
    });
    Path back = path;
    for (Point &point : back) point.x += start * 0.27;
    canvas.shade(stroke(back, start * 0.5, (start + end) / 4, end * 0.4), -0.1);
    for (Point &point : back) point.x -= start * 0.55;
    canvas.shade(stroke(back, start * 0.22, (start + end) / 9, 0.5), 0.13);
}

void paint_needles(Canvas &canvas, double x, double y, double half_width, double half_height,
                   std::uint32_t seed) {
    Chance chance(seed);
    // The shadow under the cushion, then fans of needles from the back to the front, lighter towards the top.
    const int fans = static_cast<int>(half_width * half_height / 14) + 8;
    for (int i = 0; i < fans; ++i) {
        const double t = i / static_cast<double>(fans);
        const double across = chance.between(-1, 1), room = std::sqrt(1 - across * across);
        const double fx = x + across * half_width;
        const double fy = y + half_height * (room * (0.75 - 1.4 * t) + chance.between(-0.22, 0.22));
        const double value = 0.1 + 0.5 * t + chance.between(-0.09, 0.12) + across * -0.07;
        const double length = chance.between(6, 10) * (half_width > 30 ? 1.1 : 0.85);
        for (int needle = 0; needle < 9; ++needle) {
            const double turn = 0.53 + 0.44 * (needle + chance.unit()) / 9;
            canvas.lay(stroke({{fx, fy}, {fx + length * cosine(turn) * 1.25, fy + length * sine(turn)}}, 1.5,
                              1.3, 0.5),
                       {Ramp::jade, value});
        }
    }
}

void paint_willow_bough(Canvas &canvas, double x, double y, double length, double sway, std::uint32_t seed) {
    Chance chance(seed);
    const Path bough = curve({{x, y},
                              {x + sway * 0.5, y + length * 0.25},
                              {x + sway * 0.95, y + length * 0.6},
                              {x + sway * 0.85, y + length}});
    canvas.lay(stroke(bough, 1.7, 1.2, 0.6), {Ramp::jade, 0.2});
    const double shade = chance.between(-0.14, 0.16);
    for (std::size_t i = 3; i < bough.size(); ++i) {
        const double t = static_cast<double>(i) / static_cast<double>(bough.size());
        const int leaves = length > 110 ? 3 : 2;
        for (int leaf = 0; leaf < leaves; ++leaf) {
            const double side = chance.unit() < 0.5 ? -1 : 1, size = chance.between(5, 11) * (1.15 - 0.5 * t);
            const Point at{bough[i].x, bough[i].y + chance.between(-3, 3)};
            const Point tip{at.x + side * size * 0.55, at.y + size};
            canvas.lay(stroke({at, {(at.x + tip.x) / 2 + side, (at.y + tip.y) / 2 - 1}, tip}, 0.8, 2.3, 0.5),
                       {Ramp::jade, 0.36 + shade + chance.between(-0.12, 0.26) + 0.2 * (side > 0)});
        }
    }
}

void paint_rock(Canvas &canvas, const Path &outline, std::uint32_t seed) {
    double top = outline[0].y, bottom = outline[0].y;
    for (const Point &point : outline) {
        top = std::min(top, point.y);
        bottom = std::max(bottom, point.y);
    }
    canvas.lay(stroke(outline, 2.2), {Ramp::ink, 0.1});
    canvas.lay(fill(outline), [&](int x, int y) {
        const double down = (y - top) / (bottom - top);
        const double face = noise((x + y * 0.5) / 13.0, (y - x * 0.3) / 17.0, seed);
        const double crack = noise((x + y) / 3.0, (y - x * 0.4) / 8.0, seed + 1);
        return Tone{Ramp::stone, 0.74 - 0.52 * down + (face > 0.5 ? 0.1 : -0.08) - (crack > 0.72 ? 0.16 : 0)};
    });
}

void paint_grain(Canvas &canvas, double strength, std::uint32_t seed) {
    canvas.shade(canvas.all(), [&](int x, int y) {
        const double fibre = noise(x / 9.0, y / 1.6, seed) * 0.5 + noise(x / 1.7, y / 6.0, seed + 1) * 0.5;
        return (fibre - 0.5) * strength;
    });
}

}  // namespace paint
