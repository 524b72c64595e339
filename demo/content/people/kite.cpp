// The kite, a swallow of red paper: as it is carried, and as it hangs in the pine.
#include "things.h"

namespace people {
namespace {

// Painted around (0, 0), then turned and brought to its place.
struct Place {
    Point middle;
    double degrees, size;
    Path operator()(Path path) const {
        return moved(turned(scaled(std::move(path), {0, 0}, size, size), {0, 0}, degrees), middle.x,
                     middle.y);
    }
};

void tail(Canvas &canvas, const Place &at, const Path &points, double tone) {
    canvas.line(at(curve(points)), kInk, 0.06, {4 * at.size, 5 * at.size, 2.6});
    canvas.line(at(curve(points)), kVermilion, tone, {2.4 * at.size, 3.4 * at.size, 1});
}

void swallow(Canvas &canvas, const Place &at) {
    tail(canvas, at, {{-5, 12}, {-9, 22}, {-5, 31}, {-10, 40}}, 0.42);
    tail(canvas, at, {{5, 12}, {8, 22}, {4, 31}, {9, 42}}, 0.56);
    const double contour = 1.4;
    for (const double side : {-1.0, 1.0}) {
        const Path wing = outline({{2 * side, -12},
                                   {10 * side, -16},
                                   {21 * side, -13},
                                   {26 * side, -4},
                                   {26 * side, -4},
                                   {17 * side, -5},
                                   {9 * side, -1},
                                   {3 * side, 4}});
        canvas.shape(at(wing), kVermilion, side < 0 ? 0.42 : 0.6, contour);
        canvas.line(at(curve({{6 * side, -11}, {13 * side, -12}, {20 * side, -9}})), kGold, 0.85,
                    {1, 2.2, 1});
        canvas.fill(at(ellipse(13 * side, -7.6, 2.4, 2)), kPaper, 0.95);
        canvas.fill(at(ellipse(13 * side, -7.6, 1.1, 1)), kInk, 0.05);
    }
    canvas.shape(
        at(outline({{0, 20}, {0, 20}, {-9, 21}, {-9, 21}, {-4, 6}, {0, 2}, {4, 6}, {9, 21}, {9, 21}})),
        kIndigo, 0.4, contour);
    canvas.shape(
        at(outline({{0, -18}, {5, -13}, {5.6, -2}, {3, 8}, {0, 11}, {-3, 8}, {-5.6, -2}, {-5, -13}})), kPaper,
        0.95, contour);
    canvas.fill(at(outline({{0, 10}, {-3, 7}, {-3.6, -1}, {0, -3}, {3.6, -1}, {3, 7}})), kVermilion, 0.62);
    canvas.fill(at(outline({{-4, -12.6}, {0, -17}, {4, -12.6}, {0, -10.6}})), kInk, 0.12);
    for (const double x : {-2.0, 2.0}) canvas.fill(at(ellipse(x, -8.6, 1.2, 1.2)), kInk, 0.05);
    canvas.fill(at(outline({{-1.4, -6}, {1.4, -6}, {0, -3.6}})), kGold, 0.8);
}

}  // namespace

Canvas kite() {
    Canvas canvas(kThingSize, kThingSize);
    swallow(canvas, {{25, 18}, 16, 0.78});
    return canvas;
}

Canvas hanging_kite() {
    Canvas canvas(64, 76);
    // Its string has caught in the branch above.
    canvas.line(curve({{44, 0}, {34, 6}, {40, 14}, {33, 22}}), kPaper, 0.9, {0.9, 1, 0.9});
    swallow(canvas, {{32, 30}, -24, 1});
    return canvas;
}

}  // namespace people
