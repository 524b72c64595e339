#include "portrait.h"

namespace people {

Canvas portrait_ground(Ramp ramp, double tone) {
    Canvas canvas(kPortraitWidth, kPortraitHeight);
    canvas.fill(ellipse(56, 62, 55, 55), kInk, 0.08);
    canvas.fill(ellipse(56, 62, 53, 53), kGold, gradient({20, 10}, 0.75, {90, 110}, 0.35));
    canvas.fill(ellipse(56, 62, 50.5, 50.5), kInk, 0.1);
    canvas.fill(ellipse(56, 62, 49.5, 49.5), ramp,
                grained(gradient({80, 12}, tone + 0.12, {30, 110}, tone - 0.16), 0.05, 14, 3));
    return canvas;
}

void portrait_eye(Canvas &canvas, Point middle, const EyeLook &look) {
    const double w = look.width / 2, x = middle.x, y = middle.y, s = look.slant;
    if (look.open <= 0) {
        ink_line(canvas, {{x - w, y}, {x, y + 2.2}, {x + w, y - s}}, 2);
        return;
    }
    const double up = w * 0.62 * look.open, down = w * 0.42 * look.open;
    const Path white = outline({{x - w, y + 0.5},
                                {x - w * 0.4, y - up},
                                {x + w * 0.4, y - up},
                                {x + w, y - s},
                                {x + w * 0.3, y + down},
                                {x - w * 0.5, y + down}});
    canvas.fill(white, kPaper, 0.98);
    canvas.fill(ellipse(x + w * 0.18, y - 0.4, w * 0.48, (up + down) * 0.52), look.iris, 0.3);
    canvas.fill(ellipse(x + w * 0.2, y - 0.5, w * 0.3, (up + down) * 0.36), kInk, 0);
    canvas.fill(ellipse(x + w * 0.36, y - up * 0.42, 1.1, 1.1), kPaper, 1);
    ink_line(canvas,
             {{x - w - 1, y + 1}, {x - w * 0.4, y - up}, {x + w * 0.4, y - up}, {x + w + 1, y - s - 0.4}},
             2.3);
    ink_line(canvas, {{x - w * 0.5, y + down}, {x + w * 0.3, y + down}}, 0.8, 0.2);
}

void ink_line(Canvas &canvas, const Path &points, double width, double tone) {
    canvas.line(curve(points), kInk, tone, {width * 0.45, width, width * 0.4});
}

void blush(Canvas &canvas, Point at, double size) {
    canvas.tint({at.x, at.y}, size, size * 0.72, kVermilion, 0.86, 0.6);
}

void collar(Canvas &canvas, double middle, double neck, Ramp ramp, double tone) {
    const Path under = curve({{middle + 13, neck}, {middle + 4, neck + 14}, {middle - 10, neck + 26}});
    const Path over = curve({{middle - 13, neck}, {middle - 2, neck + 16}, {middle + 10, neck + 40}});
    for (const Path &path : {under, over}) {
        canvas.line(path, kInk, 0.06, {9.4, 9.8, 8.4});
        canvas.line(path, ramp, tone, {6.6, 7, 5.6});
        canvas.line(moved(path, -2.4, 0.8), ramp, tone - 0.18, {1.6, 1.8, 1.2});
    }
}

}  // namespace people
