#include "building.h"

#include <algorithm>

#include "nature.h"

namespace paint {

void paint_roof(Canvas &canvas, const Roof &roof) {
    const auto eave = [&](double t) {
        const double straight = mix(roof.eave_left.y, roof.eave_right.y, t), off = 2 * t - 1;
        return Point{mix(roof.eave_left.x, roof.eave_right.x, t),
                     straight + roof.sag * (1 - off * off * off * off)};
    };
    const auto ridge = [&](double t) {
        const double off = 2 * t - 1;
        return Point{mix(roof.ridge_left.x, roof.ridge_right.x, t),
                     mix(roof.ridge_left.y, roof.ridge_right.y, t) + roof.sag * 0.3 * (1 - off * off)};
    };
    // The slope is steep at the ridge and flattens out towards the eaves.
    const auto on = [&](double t, double down) {
        const Point a = ridge(t), b = eave(t);
        const double bent = down + 0.32 * down * (1 - down);
        return Point{mix(a.x, b.x, down), mix(a.y, b.y, bent)};
    };
    Path outline;
    for (int i = 0; i <= 24; ++i) outline.push_back(on(i / 24.0, 0));
    for (int i = 1; i <= 10; ++i) outline.push_back(on(1, i / 10.0));
    for (int i = 23; i >= 0; --i) outline.push_back(on(i / 24.0, 1));
    for (int i = 9; i > 0; --i) outline.push_back(on(0, i / 10.0));
    canvas.lay(fill(outline), {Ramp::ink, 0.28});
    const int columns = std::max(4, static_cast<int>((roof.eave_right.x - roof.eave_left.x) / roof.tile));
    for (int column = 0; column <= columns; ++column) {
        const double t = column / static_cast<double>(columns);
        Path line;
        for (int i = 0; i <= 10; ++i) line.push_back(on(t, i / 10.0));
        Path dark = line;
        for (Point &point : dark) point.x += roof.tile * 0.33;
        canvas.lay(stroke(dark, roof.tile * 0.2, roof.tile * 0.3, roof.tile * 0.34), {Ramp::ink, 0.06});
        canvas.lay(stroke(line, roof.tile * 0.26, roof.tile * 0.4, roof.tile * 0.5), [&](int x, int y) {
            const double row = noise(x / roof.tile, y / 4.0, 91);
            return Tone{Ramp::ink, 0.44 + (y % 6 < 1 ? -0.16 : 0) + row * 0.16};
        });
        const Point end = eave(t);
        canvas.lay(fill(ellipse(end.x, end.y + 0.5, roof.tile * 0.33, roof.tile * 0.33)), {Ramp::ink, 0.62});
        canvas.lay(fill(ellipse(end.x, end.y + 0.8, roof.tile * 0.17, roof.tile * 0.17)), {Ramp::ink, 0.2});
    }
    Path top;
    for (int i = 0; i <= 24; ++i) top.push_back(ridge(i / 24.0));
    const double thick = roof.tile * 0.8;
    top.insert(top.begin(), {top[0].x - thick, top[0].y - thick * 0.9});
    top.push_back({top.back().x + thick, top.back().y - thick * 0.9});
    canvas.lay(stroke(top, thick + 2), {Ramp::ink, 0.08});
    canvas.lay(stroke(top, thick - 1), {Ramp::ink, 0.5});
    for (Point &point : top) point.y -= thick * 0.2;
    canvas.lay(stroke(top, thick * 0.25), {Ramp::ink, 0.74});
}

void paint_wood(Canvas &canvas, const Path &outline, double value, bool upright, std::uint32_t seed) {
    canvas.lay(fill(outline), [&](int x, int y) {
        const double along = upright ? y : x, across = upright ? x : y;
        const double wander = across + (noise(along / 60.0, across / 20.0, seed) - 0.5) * 7;
        const double grain = noise(along / 44.0, wander / 1.9, seed + 1) * 0.6 +
                             noise(along / 13.0, wander / 1.1, seed + 2) * 0.4;
        return Tone{Ramp::wood, value + (grain - 0.5) * 0.2};
    });
}

void paint_beam(Canvas &canvas, double left, double top, double right, double bottom, double value,
                std::uint32_t seed) {
    const bool upright = bottom - top > right - left;
    canvas.lay(fill(rectangle(left - 1, top - 1, right + 1, bottom + 1)), {Ramp::ink, 0.08});
    paint_wood(canvas, rectangle(left, top, right, bottom), value, upright, seed);
    const double thick = upright ? right - left : bottom - top;
    canvas.shade(fill(upright ? rectangle(left, top, left + thick * 0.3, bottom)
                              : rectangle(left, top, right, top + thick * 0.3)),
                 0.07);
    canvas.shade(fill(upright ? rectangle(right - thick * 0.3, top, right, bottom)
                              : rectangle(left, bottom - thick * 0.3, right, bottom)),
                 -0.08);
}

void paint_plaster(Canvas &canvas, const Path &outline, double value, std::uint32_t seed) {
    double top = outline[0].y;
    for (const Point &point : outline) top = std::min(top, point.y);
    canvas.lay(fill(outline), [&](int x, int y) {
        const double stain = cloud(x / 46.0, y / 60.0, seed), run = noise(x / 5.0, y / 90.0, seed + 5);
        const double speck = noise(x / 2.2, y / 2.2, seed + 6);
        return Tone{Ramp::paper, value + (stain - 0.5) * 0.22 - (run > 0.7 ? 0.04 : 0) -
                                     0.26 * rise(top + 34, top, y) + (speck - 0.5) * 0.05};
    });
}

void paint_masonry(Canvas &canvas, const Path &outline, double width, double height, double value,
                   std::uint32_t seed) {
    canvas.lay(fill(outline), [&](int x, int y) {
        const int row = floor_of(y / height);
        const double shift = (row & 1) * width * 0.5 + noise(row, 3, seed) * width * 0.6;
        const int column = floor_of((x + shift) / width);
        const double in_x = x + shift - column * width, in_y = y - row * height;
        const double stone = noise(column * 7.3, row * 5.1, seed + 1);
        const double worn = cloud(x / 12.0, y / 9.0, seed + 2);
        double tone = value + (stone - 0.5) * 0.22 + (worn - 0.5) * 0.2;
        if (in_y < 1.4) tone += 0.1;
        if (in_x < 1.1 || in_y > height - 1.3) tone -= 0.24;
        return Tone{Ramp::stone, tone};
    });
}

void paint_lattice(Canvas &canvas, double left, double top, double right, double bottom, int columns,
                   int rows) {
    canvas.lay(fill(rectangle(left - 4, top - 4, right + 4, bottom + 4)), {Ramp::ink, 0.06});
    paint_wood(canvas, rectangle(left - 3, top - 3, right + 3, bottom + 3), 0.3, true, 77);
    canvas.lay(fill(rectangle(left, top, right, bottom)), [&](int, int y) {
        return Tone{Ramp::window, 0.78 - 0.4 * (y - top) / (bottom - top)};
    });
    for (int i = 1; i < columns; ++i) {
        const double x = mix(left, right, i / static_cast<double>(columns));
        canvas.lay(fill(rectangle(x - 0.9, top, x + 0.9, bottom)), {Ramp::wood, 0.12});
    }
    for (int i = 1; i < rows; ++i) {
        const double y = mix(top, bottom, i / static_cast<double>(rows));
        canvas.lay(fill(rectangle(left, y - 0.9, right, y + 0.9)), {Ramp::wood, 0.12});
    }
}

Mask lantern_shape(double x, double y, double rx, double ry) {
    return fill(curve({{x - rx * 0.5, y - ry},
                       {x + rx * 0.5, y - ry},
                       {x + rx * 0.92, y - ry * 0.5},
                       {x + rx, y},
                       {x + rx * 0.92, y + ry * 0.5},
                       {x + rx * 0.5, y + ry},
                       {x - rx * 0.5, y + ry},
                       {x - rx * 0.92, y + ry * 0.5},
                       {x - rx, y},
                       {x - rx * 0.92, y - ry * 0.5}},
                      true));
}

void paint_lantern(Canvas &canvas, double x, double y, double rx, double ry, Ramp paper) {
    canvas.lay(stroke({{x, y - ry - 16}, {x, y - ry}}, 1.3), {Ramp::ink, 0.15});
    canvas.lay(lantern_shape(x, y, rx + 1.2, ry + 1.2), {Ramp::ink, 0.1});
    canvas.lay(lantern_shape(x, y, rx, ry), [&](int px, int py) {
        const double across = (px + 0.5 - x) / rx, down = (py + 0.5 - y) / ry;
        return Tone{paper, 0.64 - 0.36 * (across + 0.3) * (across + 0.3) - 0.1 * down};
    });
    for (int rib = -2; rib <= 2; ++rib) {
        const double bend = rib * rx * 0.38;
        canvas.shade(
            stroke(curve({{x + bend * 0.55, y - ry}, {x + bend, y}, {x + bend * 0.55, y + ry}}), 1.0), -0.1);
    }
    canvas.lay(fill(rectangle(x - rx * 0.5, y - ry - 2, x + rx * 0.5, y - ry + 2)), {Ramp::gold, 0.36});
    canvas.lay(fill(rectangle(x - rx * 0.5, y + ry - 2, x + rx * 0.5, y + ry + 2)), {Ramp::gold, 0.36});
    for (int thread = -2; thread <= 2; ++thread)
        canvas.lay(stroke({{x + thread * 1.6, y + ry + 2}, {x + thread * 2.0, y + ry + 13}}, 1.2, 1.1, 0.7),
                   {Ramp::vermilion, thread % 2 == 0 ? 0.5 : 0.34});
}

}  // namespace paint
