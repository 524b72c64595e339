// Ashui the boatman: a straw hat that shades his eyes, bare arms, a straw cape, trousers rolled up, and his pole.
#include "people.h"

namespace people {
namespace {

struct Pose {
    double breath = 0;
    double lean = 0;  // of the pole, degrees
    double hand = 0;  // how far the free hand is raised
    double nod = 0;
    bool mouth = false;
};

void legs(Canvas &canvas) {
    for (const double x : {-7.0, 7.0}) {
        limb(canvas, {{x, -26}, {x * 1.15, -14}, {x * 1.1, -5}}, kSkin, x < 0 ? 0.45 : 0.6, 7, 7.4, 5.4);
        canvas.shape(
            at_feet(outline({{x - 4, -1}, {x - 3, -4}, {x + 4, -4}, {x + 9, -1}, {x + 8, 0}, {x - 4, 0}})),
            kSkin, 0.5, 1);
        canvas.line(at_feet(curve({{x - 2, -4.6}, {x + 2, -2.4}, {x + 5, -3.4}})), kStraw, 0.7,
                    {1.4, 1.6, 1.4});
        canvas.shape(at_feet(outline({{x - 8, -46},
                                      {x + 8, -46},
                                      {x + 8, -30},
                                      {x + 6.4, -22},
                                      {x + 6.4, -22},
                                      {x - 6, -22},
                                      {x - 6, -22},
                                      {x - 8, -32}})),
                     kIndigo, x < 0 ? 0.26 : 0.4);
        canvas.line(at_feet({{x - 5.6, -23}, {x + 6, -23}}), kIndigo, 0.8, {2.6, 2.6, 2.6});
    }
}

void body(Canvas &canvas, double b) {
    const Path jacket = outline({{-13, -76 - b},
                                 {0, -81 - b},
                                 {14, -76 - b},
                                 {16, -60 - b},
                                 {15, -40},
                                 {15, -40},
                                 {0, -38},
                                 {-15, -40},
                                 {-15, -40},
                                 {-16, -60 - b}});
    canvas.shape(at_feet(jacket), kTeal, gradient({72, 0}, 0.1, {106, 0}, 0.4));
    canvas.shape(at_feet(outline({{0, -80 - b}, {7, -79 - b}, {9, -62 - b}, {6, -48}, {3, -60 - b}})), kSkin,
                 0.6, 1);
    canvas.shape(at_feet(outline({{-15, -50 - b}, {16, -50 - b}, {16, -44}, {-15, -44}})), kStraw, 0.5, 1.1);
    canvas.line(at_feet(curve({{8, -45}, {10, -38}, {8, -30}})), kStraw, 0.6, {3, 2.6, 1.4});
    // The cape of straw over the shoulders: rows of blades.
    const Path cape = outline({{-4, -83 - b},
                               {6, -82 - b},
                               {16, -75 - b},
                               {19, -62 - b},
                               {9, -66 - b},
                               {2, -72 - b},
                               {-6, -64 - b},
                               {-14, -56 - b},
                               {-20, -58 - b},
                               {-15, -75 - b}});
    canvas.shape(at_feet(cape), kStraw, gradient({72, 0}, 0.45, {108, 0}, 0.8), 1.2);
    for (int i = 0; i < 9; ++i) {
        const double x = -17 + i * 4.0, low = i < 5 ? -58 + i * -2.4 : -70 + (i - 5) * 2.2;
        canvas.line(at_feet(curve({{x * 0.5, -80 - b}, {x * 0.85, -70 - b}, {x, low - b}})), kStraw, 0.2,
                    {0.6, 1.1, 0.5});
    }
}

void head(Canvas &canvas, const Pose &pose) {
    const double b = pose.breath - pose.nod;
    const auto at = [b](Path path) { return at_feet(moved(std::move(path), 2, -90 - b)); };
    const Path face = outline({{-10, -6}, {8, -7}, {11, -1}, {11, 5}, {7, 12}, {0, 13}, {-8, 8}});
    canvas.shape(at(face), kSkin, gradient({82, 0}, 0.36, {102, 0}, 0.66), 1.1);
    canvas.shade(paint::fill(at(rectangle(-12, -8, 12, 0))), -0.1, kSkin);
    canvas.shape(at(ellipse(-6.5, 3, 2.1, 3)), kSkin, 0.45, 0.9);
    eyes(canvas, {5, -88.6 - b}, 5.4, Eyes::open, 0.8);
    canvas.line(at(curve({{7.4, 2.6}, {9.2, 5}, {7, 5.4}})), kSkin, 0.1, {0.8, 1.2, 0.8});
    // A stubbly chin, and a straw in the mouth.
    canvas.tint({FigureCanvas::kFeet.x + 5, FigureCanvas::kFeet.y - 79.6 - b}, 7, 4.4, kInk, 0.3, 0.6);
    canvas.line(at(curve({{2, 8}, {5.5, 9.2}, {9, 7.8}})), kVermilion, 0.08,
                {0.8, pose.mouth ? 3.2 : 1.3, 0.8});
    if (!pose.mouth) canvas.line(at(curve({{8, 8}, {13, 7}, {17, 9}})), kStraw, 0.7, {1, 1.2, 0.8});
    // The brim from below and in front, and the cone.
    canvas.shape(at(outline({{-25, -3}, {-10, -9}, {6, -10}, {27, -3}, {27, -3}, {12, -1}, {-8, -1}})),
                 kStraw, 0.26, 1.1);
    const Path cone = outline({{-26, -3},
                               {-26, -3},
                               {-8, -15},
                               {1, -23},
                               {1, -23},
                               {10, -15},
                               {28, -3},
                               {28, -3},
                               {14, -6.4},
                               {-8, -6.8}});
    canvas.shape(at(cone), kStraw, gradient({70, 0}, 0.5, {112, 0}, 0.95), 1.3);
    for (const double x : {-17.0, -9.0, -2.0, 6.0, 13.0, 20.0})
        canvas.line(at(curve({{1, -22}, {x * 0.55, -13}, {x, -6}})), kStraw, 0.32, {0.5, 0.9, 0.9});
    canvas.line(at(curve({{-6, -13}, {2, -12}, {9, -14}})), kStraw, 0.25, {0.7, 1, 0.7});
}

FigureCanvas draw(const Pose &pose) {
    FigureCanvas canvas;
    const double b = pose.breath;
    const Path pole = at_feet(turned({{26, 2}, {24, -140}}, {26, 2}, pose.lean));
    canvas.line(pole, kInk, 0.06, {5, 5, 4.4});
    canvas.line(pole, kWood, 0.62, {3, 3, 2.4});
    legs(canvas);
    limb(canvas, {{13, -72 - b}, {22, -64 - b}, {25 + pose.lean * 1.2, -72}}, kSkin, 0.5, 8, 7.4, 6);
    body(canvas, b);
    head(canvas, pose);
    const double h = pose.hand;
    limb(canvas, {{-13, -70 - b}, {-20 + 4 * h, -56 - b}, {-17 + 20 * h, -42 - b - 20 * h}}, kSkin, 0.62, 9,
         8, 6.4);
    canvas.shape(
        at_feet(outline({{-20, -73 - b}, {-10, -78 - b}, {-7, -66 - b}, {-13, -61 - b}, {-21, -63 - b}})),
        kStraw, 0.66, 1.1);
    for (const double x : {-17.0, -13.0, -10.0})
        canvas.line(at_feet(curve({{-12, -76 - b}, {x, -65 - b}})), kStraw, 0.26, {0.6, 1, 0.6});
    return canvas;
}

}  // namespace

std::vector<FigureCanvas> boatman() {
    return {draw({0, 0, 0, 0}),       draw({0.5, 0.4, 0, 0}),       draw({0.9, 0.8, 0, 0.6}),
            draw({0.5, 0.4, 0, 0.3}), draw({0.5, 0, 0.7, 0, true}), draw({0.7, 0.3, 1, 1.2, false})};
}

}  // namespace people
