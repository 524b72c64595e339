// The apprentice: slim, in an indigo robe, a scroll case on the back, the hair tied up in vermilion.
#include <algorithm>

#include "people.h"

namespace people {
namespace {

struct Pose {
    double near_foot = 5, far_foot = -4;  // forward of the body
    double near_lift = 0, far_lift = 0;
    double rise = 0;   // of the body
    double swing = 0;  // of the near arm, degrees forward; the far one goes the other way
    double reach = 0;  // 0 to 1: the near arm stretched out
    Eyes eyes = Eyes::open;
};

void leg(Canvas &canvas, double foot, double lift, double rise, bool near) {
    const Point hip{near ? 1.0 : -1.0, -44 - rise}, ankle{foot - 1, -4 - lift};
    const Point knee{(hip.x + ankle.x) / 2 + 2 + lift * 0.55, (hip.y + ankle.y) / 2 - lift * 0.3};
    limb(canvas, {hip, knee, ankle}, kPaper, near ? 0.62 : 0.42, 9, 8, 6);
    // The shoe tips over as the heel comes up.
    const double tilt = lift > 0 && foot < 3 ? lift * 4 : (foot > 12 ? -8 : 0);
    const Path shoe = outline({{foot - 6, -4 - lift},
                               {foot - 2, -6.5 - lift},
                               {foot + 4, -4 - lift},
                               {foot + 8, -1.6 - lift},
                               {foot + 6, 0 - lift},
                               {foot + 6, 0 - lift},
                               {foot - 6, 0 - lift},
                               {foot - 6, 0 - lift}});
    canvas.shape(at_feet(turned(shoe, {foot, -2 - lift}, tilt)), kInk, near ? 0.22 : 0.14, 1);
}

void scroll_case(Canvas &canvas, double rise) {
    const Path tube = turned(rectangle(-5, -31, 5, 14), {0, 0}, -18);
    const auto at = [rise](Path path) { return at_feet(moved(std::move(path), -13, -66 - rise)); };
    canvas.shape(at(tube), kWood, gradient({70, 0}, 0.62, {82, 0}, 0.3));
    canvas.shape(at(turned(rectangle(-6, -34, 6, -27), {0, 0}, -18)), kGold, 0.55, 1.1);
    canvas.shape(at(turned(rectangle(-6, 9, 6, 15), {0, 0}, -18)), kGold, 0.42, 1.1);
}

void robe(Canvas &canvas, const Pose &pose) {
    const double front = std::max(pose.near_foot, pose.far_foot),
                 back = std::min(pose.near_foot, pose.far_foot);
    const double r = pose.rise, f = 12 + std::max(0.0, front) * 0.42, b = -13 + std::min(0.0, back) * 0.5;
    const Path skirt = outline({{-9, -56 - r},
                                {9, -56 - r},
                                {9, -56 - r},
                                {11, -42 - r},
                                {f, -22 - r},
                                {f, -22 - r},
                                {(f + b) / 2, -19 - r},
                                {b, -21 - r},
                                {b, -21 - r},
                                {-11, -40 - r}});
    canvas.shape(at_feet(skirt), kIndigo, gradient({76, 0}, 0.28, {104, 0}, 0.52));
    canvas.line(at_feet(curve({{f, -23 - r}, {(f + b) / 2, -20.5 - r}, {b, -22 - r}})), kIndigo, 0.85,
                {1.6, 2, 1.6});
    for (const double x : {-5.0, 0.5, 6.0})
        canvas.line(
            at_feet(curve({{x * 0.9, -54 - r}, {x * 1.1, -40 - r}, {(f + b) / 2 + x * 1.5, -25 - r}})),
            kIndigo, 0.14, {0.6, 1.2, 1.6});
    const Path body = outline({{-10, -77 - r},
                               {-3, -82 - r},
                               {5, -82 - r},
                               {10, -76 - r},
                               {10, -64 - r},
                               {9, -54 - r},
                               {-9, -54 - r},
                               {-11, -66 - r}});
    canvas.shape(at_feet(body), kIndigo, gradient({78, 0}, 0.3, {102, 0}, 0.56));
    // The collar crosses, white under indigo; the sash is the one red thing he wears.
    canvas.line(at_feet(curve({{-3, -82 - r}, {3, -74 - r}, {8, -62 - r}})), kPaper, 0.95, {2.4, 2.6, 1.6});
    canvas.line(at_feet(curve({{6, -82 - r}, {3, -76 - r}, {-5, -66 - r}})), kPaper, 0.85, {2.2, 2.2, 1.4});
    canvas.shape(at_feet(outline({{-10, -58 - r}, {10, -58 - r}, {10, -52 - r}, {-10, -52 - r}})), kVermilion,
                 0.52, 1.1);
    canvas.line(
        at_feet(curve({{6, -53 - r}, {8 + pose.swing * 0.05, -45 - r}, {7 + pose.swing * 0.12, -36 - r}})),
        kVermilion, 0.45, {3.4, 2.8, 1.6});
}

void head(Canvas &canvas, const Pose &pose) {
    const double r = pose.rise;
    const auto at = [r](Path path) { return at_feet(moved(std::move(path), 1, -94 - r)); };
    canvas.shape(at(ellipse(0, 11, 4.5, 6)), kSkin, 0.48, 1);
    // Ribbon and topknot behind, then face, ear and hair.
    canvas.line(at(curve({{-5, -13}, {-12, -11}, {-17 - pose.rise, -6}})), kVermilion, 0.55, {2.4, 3, 0.8});
    canvas.line(at(curve({{-5, -13}, {-10, -7}, {-13 - pose.rise, 1}})), kVermilion, 0.42, {2, 2.6, 0.8});
    canvas.shape(at(ellipse(-3, -16, 5.4, 5.2)), kInk, 0.16, 1.1);
    const Path face =
        outline({{-9, -6}, {-2, -12}, {7, -10}, {10.5, -3}, {10.4, 3}, {8, 9}, {3, 12.4}, {-4, 10}, {-9, 3}});
    canvas.shape(at(face), kSkin, gradient({84, 0}, 0.62, {100, 0}, 0.9), 1.1);
    canvas.tint({FigureCanvas::kFeet.x + 8, FigureCanvas::kFeet.y - 89 - r}, 4, 2.6, kVermilion, 0.8, 0.5);
    const Path hair = outline({{-10, 6},
                               {-12.5, -3},
                               {-9, -12},
                               {0, -15},
                               {8, -12.5},
                               {10.5, -6},
                               {10.5, -6},
                               {5, -8.5},
                               {0, -6},
                               {-3.5, -1.5},
                               {-4.5, 4},
                               {-7, 6}});
    canvas.shape(at(hair), kInk, gradient({80, 40}, 0.1, {92, 60}, 0.2), 1);
    canvas.line(at(curve({{-7, -9}, {-1, -12.5}, {5, -11.5}})), kInk, 0.42, {0.6, 1.4, 0.6});
    canvas.shape(at(ellipse(-4.5, 3, 2.1, 3)), kSkin, 0.66, 0.9);
    const Point eye{2.6, -94 - r + 0.8};
    eyes(canvas, {eye.x + 1, eye.y}, 5.6, pose.eyes);
    canvas.line(at(curve({{0.6, -3.4}, {3, -4.4}, {5, -3.8}})), kInk, 0.1, {0.7, 1.2, 0.7});
    canvas.line(at(curve({{7, -4}, {8.6, -4.3}, {10, -3.6}})), kInk, 0.1, {0.7, 1.1, 0.7});
    canvas.line(at(curve({{7.2, 3}, {8.2, 4.2}, {7, 4.6}})), kSkin, 0.25, {0.7, 1, 0.7});
    canvas.line(at(curve({{4.2, 7.4}, {6, 8.3}, {8, 7.2}})), kVermilion, 0.3, {0.8, 1.3, 0.8});
}

Arm arm(const Pose &pose, bool near) {
    const double r = pose.rise, swing = near ? pose.swing : -pose.swing;
    Arm result;
    result.shoulder = {near ? -4.0 : 6.0, -75 - r};
    const Point elbow = turned({{result.shoulder.x - 1, -61 - r}}, result.shoulder, -swing)[0];
    const Point hand = turned({{result.shoulder.x + 2, -45 - r}}, result.shoulder, -swing * 1.25 - 4)[0];
    result.elbow = elbow;
    result.hand = hand;
    if (near && pose.reach > 0) {
        result.elbow = {elbow.x + 10 * pose.reach, elbow.y - 3 * pose.reach};
        result.hand = {hand.x + 27 * pose.reach, hand.y - 22 * pose.reach};
    }
    return result;
}

FigureCanvas draw(const Pose &pose) {
    FigureCanvas canvas;
    sleeve(canvas, arm(pose, false), kIndigo, 0.24);
    scroll_case(canvas, pose.rise);
    leg(canvas, pose.far_foot, pose.far_lift, pose.rise, false);
    leg(canvas, pose.near_foot, pose.near_lift, pose.rise, true);
    robe(canvas, pose);
    canvas.line(at_feet(curve({{-9, -78 - pose.rise}, {0, -69 - pose.rise}, {9, -57 - pose.rise}})), kWood,
                0.3, {2, 2.2, 2});
    head(canvas, pose);
    sleeve(canvas, arm(pose, true), kIndigo, 0.44);
    return canvas;
}

// A foot stands for half of the walk while the body goes over it, and comes forward through the air.
void step(double phase, double &foot, double &lift) {
    constexpr double kStride = 15;
    phase -= static_cast<int>(phase);
    foot = phase < 0.5 ? kStride * (1 - 4 * phase) : -kStride * paint::cosine(phase - 0.5);
    lift = phase < 0.5 ? 0 : 8 * paint::sine(phase - 0.5);
    foot += 1;
}

}  // namespace

std::vector<FigureCanvas> hero() {
    std::vector<FigureCanvas> frames;
    for (int i = 0; i < 8; ++i) {
        Pose pose;
        const double phase = i / 8.0;
        step(phase, pose.near_foot, pose.near_lift);
        step(phase + 0.5, pose.far_foot, pose.far_lift);
        pose.rise = -1 - 1.4 * paint::cosine(phase * 2);
        pose.swing = -24 * paint::cosine(phase);
        frames.push_back(draw(pose));
    }
    Pose standing;
    standing.swing = 4;
    frames.push_back(draw(standing));
    standing.eyes = Eyes::closed;
    frames.push_back(draw(standing));
    standing.eyes = Eyes::open;
    for (const double reach : {0.55, 1.0}) {
        standing.reach = reach;
        frames.push_back(draw(standing));
    }
    return frames;
}

}  // namespace people
