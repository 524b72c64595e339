// Xiaoman, a small girl with two buns, and Sesame, her cat, grey with specks.
#include "people.h"

namespace people {
namespace {

struct Pose {
    double breath = 0;
    double tail = 0;  // the cat's, degrees
    double arms = 0;  // how far raised
    Eyes eyes = Eyes::open;
    bool mouth = false, cat_blinks = false;
};

void cat(Canvas &canvas, const Pose &pose) {
    const auto at = [](Path path) { return at_feet(moved(std::move(path), 33, 0)); };
    const Path tail = turned(curve({{-8, -4}, {-17, -3}, {-20, -11}, {-15, -17}}), {-8, -4}, pose.tail);
    canvas.line(at(tail), kInk, 0.05, {6, 6, 4.6});
    canvas.line(at(tail), kInk, 0.5, {3.8, 3.8, 2.4});
    const Path body = outline(
        {{-11, -1}, {-12, -11}, {-6, -20}, {3, -23}, {8, -17}, {9, -6}, {9, 0}, {9, 0}, {-9, 0}, {-9, 0}});
    canvas.shape(at(body), kInk, gradient({110, 0}, 0.42, {134, 0}, 0.62), 1.1);
    canvas.shape(at(outline({{2, -16}, {7, -14}, {8, -4}, {4, -5}})), kPaper, 0.9, 0);
    for (const double x : {2.0, 7.0}) canvas.shape(at(ellipse(x, -1.6, 3.2, 1.8)), kPaper, 0.9, 0.9);
    const Path head = outline({{-6, -26},
                               {-7, -35},
                               {-7, -35},
                               {-1, -31},
                               {6, -31},
                               {12, -35},
                               {12, -35},
                               {12, -26},
                               {9, -20},
                               {3, -18},
                               {-3, -20}});
    canvas.shape(at(head), kInk, gradient({114, 0}, 0.46, {136, 0}, 0.64), 1.1);
    canvas.fill(at(outline({{0, -24}, {4, -26}, {8, -24}, {7, -20}, {3, -19}, {0.5, -21}})), kPaper, 0.92);
    for (int i = 0; i < 9; ++i)
        canvas.fill(at(ellipse(-9 + 12 * scatter(i, 3), -4 - 14 * scatter(i, 4), 1, 0.8)), kInk, 0.1);
    for (const double x : {0.0, 7.4}) {
        if (pose.cat_blinks)
            canvas.line(at(curve({{x - 1.6, -26.5}, {x, -25.6}, {x + 1.6, -26.5}})), kInk, 0, {1, 1.3, 1});
        else {
            canvas.fill(at(ellipse(x, -26.6, 1.9, 1.9)), kGold, 0.8);
            canvas.line(at({{x, -28}, {x, -25.2}}), kInk, 0, {1, 1.4, 1});
        }
    }
    canvas.fill(at(ellipse(4, -23, 1.3, 0.9)), kVermilion, 0.7);
    canvas.line(at(curve({{-4, -19}, {2, -16.6}, {9, -19}})), kVermilion, 0.5, {2, 2.6, 2});
    canvas.fill(at(ellipse(3, -15.6, 1.7, 1.7)), kGold, 0.75);
}

void body(Canvas &canvas, double b) {
    for (const double x : {-5.0, 5.0}) {
        limb(canvas, {{x, -26 - b}, {x * 1.1, -14}, {x * 1.2, -5}}, kJade, x < 0 ? 0.42 : 0.55, 9, 9, 8);
        canvas.shape(at_feet(outline({{x * 1.2 - 4, -1},
                                      {x * 1.2 - 3, -4.5},
                                      {x * 1.2 + 4, -4},
                                      {x * 1.2 + 7, -1},
                                      {x * 1.2 + 6, 0},
                                      {x * 1.2 - 4, 0}})),
                     kVermilion, 0.3, 1);
    }
    const Path jacket = outline({{-9, -49 - b},
                                 {0, -52 - b},
                                 {9, -49 - b},
                                 {12, -34 - b},
                                 {15, -21},
                                 {15, -21},
                                 {0, -18},
                                 {-15, -21},
                                 {-15, -21},
                                 {-12, -34 - b}});
    canvas.shape(at_feet(jacket), kVermilion, gradient({76, 0}, 0.4, {104, 0}, 0.64));
    canvas.line(at_feet(curve({{-14, -23}, {0, -20.4}, {14, -23}})), kGold, 0.75, {2, 2.2, 2});
    canvas.line(at_feet(curve({{1, -51 - b}, {4, -44 - b}, {3, -34 - b}, {4, -21}})), kGold, 0.7,
                {1.6, 1.8, 1.4});
    canvas.fill(at_feet(ellipse(-5, -31 - b, 2.6, 2.6)), kGold, 0.72);
    canvas.fill(at_feet(ellipse(-5, -31 - b, 1.1, 1.1)), kVermilion, 0.4);
    canvas.fill(at_feet(ellipse(9, -30 - b, 2.2, 2.6)), kGold, 0.72);
}

void head(Canvas &canvas, const Pose &pose) {
    const auto at = [&pose](Path path) { return at_feet(moved(std::move(path), 1, -63 - pose.breath)); };
    for (const double x : {-10.5, 8.5}) {
        canvas.shape(at(ellipse(x, -12, 6, 6)), kInk, 0.15, 1.1);
        canvas.line(at(curve({{x - 4, -7.6}, {x, -6.6}, {x + 4, -7.6}})), kVermilion, 0.55, {2, 2.6, 2});
        canvas.line(at(curve({{x, -7}, {x + (x < 0 ? -5 : 5), -3}, {x + (x < 0 ? -6 : 6), 2}})), kVermilion,
                    0.5, {1.6, 2.4, 0.8});
    }
    const Path face =
        outline({{-12, -3}, {-5, -10}, {6, -10}, {12.4, -3}, {12.4, 5}, {7, 11}, {-2, 11.4}, {-9, 7}});
    canvas.shape(at(face), kSkin, gradient({80, 0}, 0.68, {102, 0}, 0.94), 1.1);
    for (const double x : {0.0, 11.6})
        canvas.tint({FigureCanvas::kFeet.x + x, FigureCanvas::kFeet.y - 58 - pose.breath}, 4, 3, kVermilion,
                    0.8, 0.75);
    const Path hair = outline({{-12, 5},
                               {-13.5, -4},
                               {-7, -12},
                               {2, -13.4},
                               {10, -10},
                               {13.4, -2},
                               {13.4, -2},
                               {9, -4.4},
                               {3, -5},
                               {-3, -4},
                               {-8, 0},
                               {-9.4, 5}});
    canvas.shape(at(hair), kInk, 0.15, 1);
    canvas.line(at({{2, -13}, {3, -5}}), kSkin, 0.5, {0.8, 0.8, 0.6}, 0.5);
    eyes(canvas, {3, -62 - pose.breath}, 6.6, pose.eyes, 1.1);
    canvas.line(at(curve({{6.4, 3.6}, {7.2, 4.6}, {6.2, 4.8}})), kSkin, 0.3, {0.7, 0.9, 0.7});
    if (pose.mouth)
        canvas.shape(at(ellipse(5.4, 7.6, 2.2, 2.2)), kVermilion, 0.12, 0.6);
    else
        canvas.line(at(curve({{3, 7}, {5.6, 8.6}, {8.4, 7}})), kVermilion, 0.25, {0.8, 1.3, 0.8});
}

FigureCanvas draw(const Pose &pose) {
    FigureCanvas canvas;
    const double b = pose.breath, a = pose.arms;
    sleeve(canvas, {{8, -46 - b}, {13 + 2 * a, -38 - b}, {14 + 8 * a, -29 - b - 24 * a}, 8, 11}, kVermilion,
           0.36);
    body(canvas, b);
    sleeve(canvas, {{-8, -46 - b}, {-12 - 3 * a, -38 - b}, {-12 - 6 * a, -28 - b - 20 * a}, 8, 11},
           kVermilion, 0.52);
    head(canvas, pose);
    cat(canvas, pose);
    return canvas;
}

}  // namespace

std::vector<FigureCanvas> girl() {
    return {draw({0, 0, 0}),
            draw({0.5, 10, 0, Eyes::open, false, true}),
            draw({0.9, 18, 0.05, Eyes::closed}),
            draw({0.5, 8, 0}),
            draw({0.6, 4, 0.55, Eyes::open, true}),
            draw({1.6, 14, 1, Eyes::laughing, true})};
}

}  // namespace people
