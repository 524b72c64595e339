#include "figure.h"

#include <algorithm>
#include <cmath>

namespace people {

FigureCanvas::FigureCanvas() : Canvas(180, 160) {}

Path at_feet(Path path) {
    return moved(std::move(path), FigureCanvas::kFeet.x, FigureCanvas::kFeet.y);
}

void limb(Canvas &canvas, const Path &joints, Ramp ramp, double tone, double first, double middle,
          double last) {
    const Path path = at_feet(curve(joints));
    canvas.line(path, kInk, 0.06, {first + 2.2, middle + 2.2, last + 2.2});
    canvas.line(path, ramp, tone, {first, middle, last});
}

void sleeve(Canvas &canvas, const Arm &arm, Ramp ramp, double tone) {
    const Point &s = arm.shoulder, &e = arm.elbow, &h = arm.hand;
    const double dx = h.x - e.x, dy = h.y - e.y, length = std::max(1.0, std::sqrt(dx * dx + dy * dy));
    const Point along{dx / length, dy / length}, across{-along.y, along.x};
    const Point cuff{h.x - along.x * 3, h.y - along.y * 3};
    const double half = arm.cuff_width / 2, thick = arm.shoulder_width / 2;
    canvas.shape(at_feet(ellipse(h.x, h.y, 3.4, 3.4)), kSkin, 0.72, 1.1);
    // The cloth hangs: the cuff's lower edge falls below the arm.
    const Point up{cuff.x - across.x * half * 0.55, cuff.y - across.y * half * 0.55};
    const Point down{cuff.x + across.x * half * 0.75, cuff.y + across.y * half * 0.75 + half * 0.5};
    const Path cloth = outline({{s.x - thick, s.y + 2},
                                {s.x - thick * 0.2, s.y - thick * 0.9},
                                {s.x + thick * 0.9, s.y + 1},
                                {e.x + thick * 0.8 * -across.x + thick * 0.5, e.y - thick * 0.8 * across.y},
                                up,
                                up,
                                down,
                                down,
                                {e.x - thick * 0.9, e.y + thick * 0.7}});
    canvas.shape(at_feet(cloth), ramp, tone);
    canvas.line(at_feet(curve({up, {cuff.x, cuff.y + half * 0.15}, down})), ramp, tone + 0.28, {1.6, 2, 1.6});
    canvas.line(at_feet(curve({{s.x, s.y + thick * 0.8}, {e.x - 0.5, e.y + 1}, {down.x - 2, down.y - 3}})),
                ramp, tone - 0.2, {0.6, 1.4, 0.8});
}

void eyes(Canvas &canvas, Point left, double apart, Eyes how, double size) {
    for (const double x : {left.x, left.x + apart}) {
        if (how == Eyes::open) {
            canvas.line(at_feet({{x, left.y - 1.5 * size}, {x, left.y + 1.3 * size}}), kInk, 0,
                        {1.7 * size, 2.1 * size, 1.7 * size});
        } else {
            const double bend = how == Eyes::laughing ? -1.6 * size : 1.2 * size;
            canvas.line(at_feet(curve({{x - 2 * size, left.y}, {x, left.y + bend}, {x + 2 * size, left.y}})),
                        kInk, 0, {1, 1.3, 1});
        }
    }
}

ink::tool::IndexedPicture trimmed(const ink::tool::IndexedPicture &picture) {
    int left = picture.width, right = -1, top = picture.height, bottom = -1;
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            if (picture.row(y)[x] == 0) continue;
            left = std::min(left, x);
            right = std::max(right, x);
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
    }
    ink::tool::IndexedPicture part = ink::tool::cut(picture, left, top, right - left + 1, bottom - top + 1);
    part.x = left;
    part.y = top;
    return part;
}

std::vector<ink::tool::IndexedPicture> frames_by_feet(const std::vector<FigureCanvas> &frames) {
    std::vector<ink::tool::IndexedPicture> all;
    for (const FigureCanvas &frame : frames) {
        all.push_back(trimmed(frame.picture(0.12)));
        all.back().x -= static_cast<int>(FigureCanvas::kFeet.x);
        all.back().y -= static_cast<int>(FigureCanvas::kFeet.y);
    }
    return all;
}

}  // namespace people
