// The hero: a slim apprentice in indigo, a knot of hair on the head and a scroll case on the back.
#include "figure_kit.h"
#include "people.h"

namespace paint {
namespace {

struct Pose {
    double walk = -1;  // in turns; below 0 for standing
    bool blink = false;
    double reach = 0;
};

void paint_leg(Figure &figure, double turn, bool walking, double hip, double value) {
    const double foot = walking ? 12 * cosine(turn) : hip, lift = walking ? 7 * clamp01(sine(turn)) : 0;
    const double knee = foot * 0.5 + (walking ? 4 + lift * 0.5 : 0);
    figure.limb({{hip * 0.6, -36}, {knee, -19 - lift * 0.3}, {foot, -4 - lift}}, 9, 7.4, 6,
                {Ramp::paper, value});
    figure.shape({{foot - 4, -4 - lift},
                  {foot + 3, -5 - lift},
                  {foot + 9, -2.4 - lift * 0.7},
                  {foot + 9.6, -lift * 0.6},
                  {foot - 4, -lift}},
                 {Ramp::ink, 0.3});
}

void paint_arm(Figure &figure, double swing, double reach, double value) {
    const Point elbow{mix(-1 + swing * 5, 12, reach), mix(-59, -66, reach)};
    const Point hand{mix(2 + swing * 11, 27, reach), mix(-44, -72, reach)};
    figure.limb({{hand.x - (hand.x - elbow.x) * 0.1, hand.y - 1}, {hand.x, hand.y}}, 5, 5, 4.6,
                {Ramp::skin, 0.66});
    figure.limb({{0, -75}, elbow, {mix(elbow.x, hand.x, 0.72), mix(elbow.y, hand.y, 0.72)}}, 8.4, 9.4, 10.4,
                {Ramp::indigo, value});
    figure.line({{mix(elbow.x, hand.x, 0.72) - 3, mix(elbow.y, hand.y, 0.76)},
                 {mix(elbow.x, hand.x, 0.76) + 4, mix(elbow.y, hand.y, 0.7)}},
                2, {Ramp::paper, 0.85});
}

ink::tool::IndexedPicture paint(const Pose &pose) {
    Figure figure(88, 128, 40, 122);
    const bool walking = pose.walk >= 0;
    const double step = walking ? cosine(pose.walk) : 0;
    const double bob = walking ? -1.6 * (1 - step * step) : 0;
    paint_leg(figure, pose.walk + 0.5, walking, -4, 0.36);
    paint_leg(figure, pose.walk, walking, 4, 0.6);
    figure.shift(0, bob);
    // The scroll case across the back.
    figure.limb({{-17, -46}, {-5, -86}}, 7, 7, 7, {Ramp::wood, 0.5});
    figure.line({{-7.6, -80}, {-2.4, -79}}, 2.4, {Ramp::gold, 0.6});
    figure.line({{-16.6, -54}, {-11.4, -53}}, 2.4, {Ramp::gold, 0.6});
    paint_arm(figure, step, 0, 0.3);
    const double sway = walking ? -step * 2.2 : 0;
    figure.shape({{-8, -77},
                  {0, -80},
                  {8, -77},
                  {9.5, -62},
                  {9, -50},
                  {13 + sway, -30},
                  {14.5 + sway, -19},
                  {2 + sway * 1.4, -17},
                  {-13 + sway * 1.8, -20},
                  {-11 + sway, -34},
                  {-8.5, -50},
                  {-9.5, -64}},
                 {Ramp::indigo, 0.55}, 0.3);
    figure.line({{5, -48}, {7 + sway * 0.5, -34}, {8 + sway, -20}}, 1.2, {Ramp::indigo, 0.12});
    figure.line({{-6 + sway, -22}, {2 + sway * 1.2, -19.4}, {13 + sway, -21}}, 1.8, {Ramp::indigo, 0.86});
    figure.line({{-4, -78}, {3, -66}, {9, -58}}, 3, {Ramp::paper, 0.92});
    figure.line({{6, -78}, {3.6, -67}}, 2.4, {Ramp::paper, 0.74});
    figure.limb({{-8, -52}, {0, -50.6}, {8.6, -52}}, 4, 4, 4, {Ramp::vermilion, 0.5});
    figure.line({{5, -50}, {7 + sway * 0.6, -40}, {6 + sway, -33}}, 2.8, 2.4, 2.6, {Ramp::vermilion, 0.42});
    paint_arm(figure, -step, pose.reach, 0.6);
    // Neck, head, hair.
    figure.limb({{1, -80}, {1.6, -85}}, 5, 5, 5, {Ramp::skin, 0.42});
    figure.shape({{-8, -100}, {0, -106}, {9, -103}, {12, -95}, {10.6, -87}, {4, -82.5}, {-4, -84}, {-8, -91}},
                 {Ramp::skin, 0.74});
    figure.shape({{-9.4, -88},
                  {-11.6, -97},
                  {-8, -106},
                  {1, -110},
                  {10, -106.5},
                  {12.4, -99},
                  {8.6, -101.4},
                  {3, -103},
                  {-2, -98},
                  {-4, -92},
                  {-6, -87}},
                 {Ramp::ink, 0.3});
    figure.oval(-2, -112, 5, 4.4, {Ramp::ink, 0.34});
    figure.limb({{-5.4, -108.6}, {2, -109.6}}, 2.4, 2.4, 2.4, {Ramp::vermilion, 0.55});
    figure.line({{-6, -109}, {-11, -104 - bob}, {-14 - step * 1.5, -98}}, 2, 2, 1, {Ramp::vermilion, 0.46});
    figure.spot(-3.4, -93.4, 2.1, 2.7, {Ramp::skin, 0.5});
    if (pose.blink) {
        figure.line({{2.6, -93.4}, {5.4, -92.8}}, 1.3, {Ramp::ink, 0.1});
        figure.line({{8.4, -93}, {10.6, -93.4}}, 1.3, {Ramp::ink, 0.1});
    } else {
        figure.spot(4, -93.6, 1.4, 2.1, {Ramp::ink, 0.02});
        figure.spot(9.2, -93.6, 1.2, 2.0, {Ramp::ink, 0.02});
    }
    figure.line({{2, -97.4}, {5.6, -97.8}}, 1.2, {Ramp::ink, 0.1});
    figure.line({{8, -97.8}, {11, -97.2}}, 1.2, {Ramp::ink, 0.1});
    figure.spot(5.4, -89.6, 1.9, 1.2, {Ramp::blossom, 0.6}, 0.7);
    figure.line({{6.6, -87.4}, {9.2, -87.6}}, 1.1, {Ramp::vermilion, 0.2});
    return figure.picture();
}

}  // namespace

Frames paint_hero() {
    Frames frames;
    for (int i = 0; i < 8; ++i) frames.push_back(paint({1 - i / 8.0, false, 0}));
    frames.push_back(paint({-1, false, 0}));
    frames.push_back(paint({-1, true, 0}));
    frames.push_back(paint({-1, false, 0.6}));
    frames.push_back(paint({-1, false, 1}));
    return frames;
}

}  // namespace paint
