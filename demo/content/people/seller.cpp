// Aunt Lin of the paper shop: round, a scarf around her hair, an apron, the sleeves rolled up, a fan in the hand.
#include <cmath>

#include "people.h"

namespace people {
namespace {

struct Pose {
    double breath = 0;
    double fan = 0;   // degrees
    double hand = 0;  // how far the other hand goes out
    Eyes eyes = Eyes::open;
    bool mouth = false;
};

void bare_arm(Canvas &canvas, Point shoulder, Point elbow, Point hand) {
    limb(canvas, {elbow, {(elbow.x + hand.x) / 2, (elbow.y + hand.y) / 2}, hand}, kSkin, 0.7, 7, 7, 5.5);
    limb(canvas, {shoulder, {(shoulder.x + elbow.x) / 2, (shoulder.y + elbow.y) / 2}, elbow}, kTeal, 0.5, 12,
         13, 12);
    // The sleeve is rolled up to the elbow.
    const double dx = elbow.x - shoulder.x, dy = elbow.y - shoulder.y, length = std::sqrt(dx * dx + dy * dy);
    const double ax = 6.4 * dy / length, ay = -6.4 * dx / length;
    canvas.line(at_feet({{elbow.x - ax, elbow.y - ay}, {elbow.x + ax, elbow.y + ay}}), kInk, 0.06,
                {5.6, 5.6, 5.6});
    canvas.line(at_feet({{elbow.x - ax, elbow.y - ay}, {elbow.x + ax, elbow.y + ay}}), kTeal, 0.9,
                {3.4, 3.8, 3.4});
}

void body(Canvas &canvas, double b) {
    for (const double x : {-9.0, 8.0})
        canvas.shape(
            at_feet(outline({{x - 7, -1}, {x - 5, -6}, {x + 5, -6}, {x + 9, -1}, {x + 8, 0}, {x - 7, 0}})),
            kInk, 0.2, 1);
    const Path skirt = outline({{-18, -50 - b},
                                {19, -50 - b},
                                {23, -30},
                                {21, -5},
                                {21, -5},
                                {0, -2},
                                {-21, -5},
                                {-21, -5},
                                {-23, -30}});
    canvas.shape(at_feet(skirt), kTeal, gradient({68, 0}, 0.16, {112, 0}, 0.42));
    const Path blouse = outline({{-18, -48 - b},
                                 {-20, -64 - b},
                                 {-12, -77 - b},
                                 {0, -80 - b},
                                 {13, -77 - b},
                                 {20, -64 - b},
                                 {19, -48 - b}});
    canvas.shape(at_feet(blouse), kTeal, gradient({70, 0}, 0.32, {112, 0}, 0.66));
    canvas.line(at_feet(curve({{1, -79 - b}, {5, -72 - b}, {14, -66 - b}})), kPaper, 0.9, {2.4, 2.6, 1.4});
    const Path apron = outline({{-12, -58 - b},
                                {15, -58 - b},
                                {15, -58 - b},
                                {19, -40},
                                {17, -14},
                                {17, -14},
                                {2, -11},
                                {-13, -14},
                                {-13, -14},
                                {-16, -40}});
    canvas.shape(at_feet(apron), kStraw, gradient({74, 0}, 0.58, {110, 0}, 0.94));
    canvas.line(at_feet(curve({{-18, -50 - b}, {2, -47 - b}, {19, -50 - b}})), kVermilion, 0.5,
                {2.4, 2.8, 2.4});
    for (const double x : {-6.0, 9.0})
        canvas.line(at_feet(curve({{x * 0.9, -44}, {x, -30}, {x * 1.15, -16}})), kStraw, 0.45, {0.6, 1.2, 1});
    // A pocket with a brush in it.
    canvas.line(at_feet(curve({{9, -26}, {11, -39}})), kWood, 0.4, {2, 2, 2});
    canvas.shape(at_feet(outline({{3, -32}, {13, -32}, {13, -32}, {12, -23}, {4, -23}, {3, -32}})), kStraw,
                 0.7, 1);
}

void head(Canvas &canvas, const Pose &pose) {
    const auto at = [&pose](Path path) { return at_feet(moved(std::move(path), 1, -90 - pose.breath)); };
    canvas.shape(at(ellipse(-12, -5, 6, 6.6)), kInk, 0.14, 1.1);
    const Path face =
        outline({{-12, -5}, {-3, -12}, {9, -10}, {13, -2}, {12.5, 5}, {7, 11.5}, {-2, 12}, {-10, 7}});
    canvas.shape(at(face), kSkin, gradient({80, 0}, 0.6, {102, 0}, 0.88), 1.1);
    for (const double x : {0.5, 11.5})
        canvas.tint({FigureCanvas::kFeet.x + x, FigureCanvas::kFeet.y - 85.5 - pose.breath}, 4.2, 3.2,
                    kVermilion, 0.78, 0.65);
    const Path hair = outline(
        {{-13, 2}, {-13, -8}, {-5, -14}, {5, -14}, {13, -6}, {13, -6}, {5, -9}, {-3, -6}, {-8, 1}, {-10, 4}});
    canvas.shape(at(hair), kInk, 0.14, 1);
    const Path scarf = outline(
        {{-14, -6}, {-8, -15}, {2, -18}, {11, -13}, {13, -6}, {13, -6}, {4, -11.5}, {-5, -9.5}, {-12, -2}});
    canvas.shape(at(scarf), kVermilion, gradient({0, 42}, 0.66, {0, 58}, 0.38), 1.1);
    for (const double x : {-7.0, -1.0, 5.5})
        canvas.fill(at(ellipse(x, -12.6 + (x < -4 ? 2 : 0), 1.1, 1.1)), kPaper, 0.9);
    canvas.line(at(curve({{-13, -4}, {-18, -2}, {-20, 4}})), kVermilion, 0.45, {2.4, 3.4, 1});
    canvas.shape(at(ellipse(-7.5, 3, 2.1, 3)), kSkin, 0.62, 0.9);
    canvas.fill(at(ellipse(-7.5, 7.2, 1.3, 1.3)), kJade, 0.7);
    eyes(canvas, {3.4, -90 - pose.breath}, 6.4, pose.eyes);
    for (const double x : {2.4, 8.8})
        canvas.line(at(curve({{x - 2, -4}, {x, -5.2}, {x + 2.2, -4.2}})), kInk, 0.1, {0.8, 1.1, 0.7});
    canvas.line(at(curve({{6.4, 2}, {7.6, 3.6}, {6.2, 4}})), kSkin, 0.25, {0.7, 1, 0.7});
    if (pose.mouth)
        canvas.shape(at(outline({{2.4, 6.4}, {9, 6.2}, {6, 9.8}})), kVermilion, 0.15, 0.8);
    else
        canvas.line(at(curve({{2, 6.4}, {5.6, 8.4}, {9, 6.4}})), kVermilion, 0.25, {0.8, 1.4, 0.8});
}

void fan(Canvas &canvas, Point hand, double degrees) {
    const auto at = [&](Path path) {
        return at_feet(moved(turned(std::move(path), {0, 0}, degrees), hand.x, hand.y));
    };
    canvas.line(at({{0, 3}, {0, -9}}), kWood, 0.5, {2.4, 2.4, 2.4});
    canvas.shape(at(ellipse(0, -17, 10, 9)), kPaper, 0.9, 1.2);
    canvas.line(at(curve({{-5, -14}, {-1, -19}, {6, -20}})), kJade, 0.45, {1, 1.8, 0.8});
    canvas.fill(at(ellipse(-3, -20, 1.8, 1.8)), kVermilion, 0.5);
}

FigureCanvas draw(const Pose &pose) {
    FigureCanvas canvas;
    const double b = pose.breath;
    body(canvas, b);
    bare_arm(canvas, {15, -70 - b}, {22, -57 - b}, {14 + 20 * pose.hand, -45 - b - 18 * pose.hand});
    head(canvas, pose);
    const Point hand{-33, -72 - b};
    fan(canvas, {hand.x, hand.y - 2}, -18 + pose.fan);
    bare_arm(canvas, {-15, -70 - b}, {-24, -56 - b}, hand);
    return canvas;
}

}  // namespace

std::vector<FigureCanvas> seller() {
    return {draw({0, 0, 0}),
            draw({0.5, 9, 0}),
            draw({1, 15, 0, Eyes::closed}),
            draw({0.5, 6, 0}),
            draw({0.6, 4, 0.7, Eyes::open, true}),
            draw({0.8, 12, 1, Eyes::laughing, true})};
}

}  // namespace people
