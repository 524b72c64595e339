// The cursors: a brush that points, feet that go, a hand that takes, a bubble that talks.
#include "things.h"

namespace people {
namespace {

constexpr int kSize = 32;

// Paper white within ink, so that it is seen before everything.
void white(Canvas &canvas, const Path &path, double tone = 1) {
    canvas.shape(path, kPaper, tone, 1.6);
}

}  // namespace

// The drop at its tip grows and is drawn in again.
std::vector<Canvas> arrow_cursor() {
    std::vector<Canvas> frames;
    for (const double drop : {0.0, 0.5, 1.0, 0.5}) {
        Canvas canvas(kSize, kSize);
        canvas.line({{13, 13}, {28, 28}}, kInk, 0.05, {6, 6.4, 6});
        canvas.line({{13, 13}, {28, 28}}, kStraw, 0.8, {3.2, 3.6, 3.2});
        canvas.line({{14, 13}, {28, 27}}, kPaper, 1, {0.8, 1.2, 0.8});
        canvas.line({{12, 12}, {14.4, 14.4}}, kInk, 0.05, {8, 8.4, 8});
        canvas.line({{12, 12}, {14.4, 14.4}}, kVermilion, 0.6, {5, 5.6, 5});
        white(canvas, outline({{1.6, 1.6}, {1.6, 1.6}, {8, 3.4}, {13.6, 9}, {9, 13.6}, {3.4, 8}}));
        canvas.fill(outline({{2, 2},
                             {2, 2},
                             {5.4 + drop * 3, 3.2 + drop},
                             {6 + drop * 2.4, 6 + drop * 2.4},
                             {3.2 + drop, 5.4 + drop * 3}}),
                    kInk, 0.06);
        frames.push_back(canvas);
    }
    return frames;
}

// Two shoes that take turns.
std::vector<Canvas> walk_cursor() {
    std::vector<Canvas> frames;
    for (const double step : {0.0, 2.0, 4.0, 2.0}) {
        Canvas canvas(kSize, kSize);
        for (const bool left : {true, false}) {
            const double x = left ? 5 : 17, y = left ? 4 + step : 8 - step;
            const auto at = [&](Path path) { return moved(std::move(path), x, y); };
            white(canvas, at(outline({{1, 11}, {0.6, 4}, {4, 0.6}, {8, 3}, {9, 9}, {7.6, 13}, {2.4, 13}})));
            white(canvas, at(outline({{2.4, 15.4}, {7.2, 15.4}, {7.4, 18.6}, {4.8, 20.4}, {2.2, 18.6}})));
            canvas.line(at(curve({{2.4, 6}, {4.6, 3.4}, {7, 6}})), kVermilion, 0.6, {1, 2, 1});
        }
        frames.push_back(canvas);
    }
    return frames;
}

// The sleeve is the apprentice's; the fingers close a little.
std::vector<Canvas> hand_cursor() {
    std::vector<Canvas> frames;
    for (const double bend : {0.0, 0.7, 1.4, 0.7}) {
        Canvas canvas(kSize, kSize);
        canvas.shape(outline({{12, 23}, {26, 22}, {26, 22}, {30, 31}, {30, 31}, {12, 31}, {12, 31}}), kIndigo,
                     0.5, 1.6);
        canvas.line(curve({{12, 24.4}, {19, 25}, {27, 23.4}}), kPaper, 1, {2.2, 2.4, 2.2});
        const Path hand = outline({{6.4, 3 + bend},
                                   {9.4, 2.4 + bend},
                                   {11.4, 6},
                                   {13.6, 11},
                                   {18, 11 + bend},
                                   {22, 12 + bend},
                                   {25, 15 + bend},
                                   {25.6, 20},
                                   {24, 23},
                                   {14, 24},
                                   {9, 20},
                                   {4.6, 15},
                                   {5.4, 12.6},
                                   {9, 14},
                                   {7, 8}});
        canvas.shape(hand, kSkin, gradient({6, 20}, 0.66, {24, 10}, 1), 1.6);
        for (const double x : {16.0, 19.6, 22.6})
            canvas.line(curve({{x, 12.4 + bend}, {x + 0.6, 15 + bend}, {x + 0.4, 17}}), kWood, 0.3,
                        {1, 1.2, 0.6});
        frames.push_back(canvas);
    }
    return frames;
}

// One dot after the other.
std::vector<Canvas> talk_cursor() {
    std::vector<Canvas> frames;
    for (int dots = 0; dots < 4; ++dots) {
        Canvas canvas(kSize, kSize);
        white(canvas, outline({{4, 12},
                               {7, 5},
                               {16, 3},
                               {26, 5},
                               {29, 12},
                               {26, 19},
                               {16, 21.4},
                               {12, 21},
                               {8, 24},
                               {3, 28},
                               {3, 28},
                               {5, 22},
                               {6, 18.6}}));
        for (int i = 0; i < dots; ++i)
            canvas.fill(ellipse(10 + i * 6.4, 12.4, 2, 2), i == dots - 1 ? kVermilion : kInk,
                        i == dots - 1 ? 0.6 : 0.2);
        frames.push_back(canvas);
    }
    return frames;
}

}  // namespace people
