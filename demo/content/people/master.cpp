// Master Shen: stooped, a tall cap, a white beard, a plum robe, and a staff to lean on.
#include "people.h"

namespace people {
namespace {

struct Pose {
    double breath = 0;  // the shoulders' rise
    double hand = 0;    // how far the free hand is raised
    double beard = 0;   // its tip, to the side
    Eyes eyes = Eyes::closed;
    bool mouth = false;
};

void staff(Canvas &canvas) {
    const Path wood = at_feet(curve({{22, 0}, {23, -30}, {21, -58}, {24, -82}, {20, -90}, {15, -88}}));
    canvas.line(wood, kInk, 0.06, {5, 5, 5});
    canvas.line(wood, kWood, 0.5, {2.8, 2.8, 2.8});
}

void robe(Canvas &canvas, double b) {
    const Path skirt = outline({{-14, -54 - b},
                                {10, -54 - b},
                                {14, -30},
                                {17, -3},
                                {17, -3},
                                {2, 0},
                                {-17, -3},
                                {-17, -3},
                                {-17, -28}});
    canvas.shape(at_feet(rectangle(-11, -4, 0, 0)), kInk, 0.16, 1);
    canvas.shape(at_feet(rectangle(3, -4, 15, 0)), kInk, 0.2, 1);
    canvas.shape(at_feet(moved(skirt, 0, -1)), kPlum, gradient({72, 0}, 0.2, {106, 0}, 0.52));
    canvas.line(at_feet(curve({{-16, -5}, {2, -2.5}, {16, -5}})), kPlum, 0.86, {2, 2.6, 2});
    for (const double x : {-8.0, -2.0, 6.0})
        canvas.line(at_feet(curve({{x * 0.8, -52 - b}, {x, -30}, {x * 1.35, -8}})), kPlum, 0.06,
                    {0.6, 1.4, 2});
    // The back is bent: the shoulders come before the hips.
    const Path body = outline({{-15, -54 - b},
                               {-17, -68 - b},
                               {-8, -80 - b},
                               {5, -83 - b},
                               {14, -77 - b},
                               {13, -64 - b},
                               {11, -54 - b}});
    canvas.shape(at_feet(body), kPlum, gradient({74, 0}, 0.22, {104, 0}, 0.58));
    canvas.line(at_feet(curve({{2, -83 - b}, {9, -72 - b}, {9, -58 - b}})), kPaper, 0.82, {2, 3, 2});
    canvas.shape(at_feet(outline({{-15, -56 - b}, {11, -57 - b}, {11, -52 - b}, {-15, -50 - b}})), kInk, 0.3,
                 1);
}

void head(Canvas &canvas, const Pose &pose) {
    const auto at = [&pose](Path path) { return at_feet(moved(std::move(path), 12, -91 - pose.breath)); };
    const Path face = outline({{-9, -4}, {-4, -9}, {5, -9}, {10, -4}, {11, 2}, {8, 8}, {1, 10}, {-7, 7}});
    canvas.shape(at(face), kSkin, gradient({94, 0}, 0.5, {112, 0}, 0.8), 1.1);
    canvas.tint({FigureCanvas::kFeet.x + 20, FigureCanvas::kFeet.y - 87 - pose.breath}, 4, 3, kVermilion, 0.8,
                0.5);
    // White hair at the temples, then the cap.
    canvas.shape(at(outline({{-10, -5}, {-5, -6}, {-4, 2}, {-6, 8}, {-10, 4}})), kPaper, 0.92, 1);
    canvas.shape(at(ellipse(-4, 1.5, 2.1, 3.1)), kSkin, 0.55, 0.9);
    canvas.shape(
        at(outline(
            {{-10, -5}, {-11, -19}, {-11, -19}, {-2, -22}, {8, -20}, {8, -20}, {10, -7}, {10, -7}, {0, -6}})),
        kInk, gradient({88, 0}, 0.12, {112, 0}, 0.3), 1.1);
    canvas.line(at(curve({{-10, -10}, {0, -9.5}, {10, -11}})), kGold, 0.6, {1.4, 1.6, 1.4});
    canvas.shape(at(outline({{-11, -20}, {-14, -16}, {-13, -6}, {-10, -6}})), kInk, 0.1, 1);
    eyes(canvas, {14.4, -91.5 - pose.breath}, 6, pose.eyes, 0.9);
    for (const double x : {1.5, 8.0})
        canvas.line(at(curve({{x - 1.5, -3.4}, {x + 1, -4.6}, {x + 3, -2.2}})), kPaper, 1, {1.5, 2.4, 1});
    canvas.line(at(curve({{7, 0}, {9.6, 3}, {7, 4}})), kSkin, 0.22, {0.8, 1.2, 0.8});
    if (pose.mouth) canvas.fill(at(ellipse(5.6, 7.2, 2.2, 1.9)), kVermilion, 0.1);
    const double tip = pose.beard;
    const Path beard = outline({{-4, 6},
                                {2, 8.6},
                                {8, 7.4},
                                {11, 9},
                                {9.5, 18},
                                {6 + tip, 31},
                                {4 + tip, 33},
                                {-1 + tip * 0.5, 22},
                                {-4, 13}});
    canvas.shape(at(beard), kPaper, gradient({98, 0}, 0.8, {110, 0}, 1), 1);
    canvas.line(at(curve({{2, 12}, {3.4, 20}, {4.4 + tip, 29}})), kPaper, 0.5, {0.6, 1.2, 0.6});
    canvas.line(at(curve({{2, 6}, {7, 5}, {11, 10}})), kPaper, 1, {1.4, 2.6, 1});
    if (pose.mouth) canvas.fill(at(ellipse(5.8, 8, 1.9, 1.5)), kVermilion, 0.12);
}

FigureCanvas draw(const Pose &pose) {
    FigureCanvas canvas;
    const double b = pose.breath;
    staff(canvas);
    sleeve(canvas, {{11, -75 - b}, {17, -66 - b}, {22, -66}, 9, 13}, kPlum, 0.26);
    robe(canvas, b);
    head(canvas, pose);
    const double h = pose.hand;
    sleeve(canvas, {{-5, -74 - b}, {-7 + 3 * h, -58 - b}, {6 + 14 * h, -48 - b - 20 * h}, 12, 20}, kPlum,
           0.44);
    return canvas;
}

}  // namespace

std::vector<FigureCanvas> master() {
    return {draw({0, 0, 0, Eyes::open}),
            draw({0.7, 0, 0.6, Eyes::open}),
            draw({1.2, 0, 1, Eyes::closed}),
            draw({0.6, 0, 0.5, Eyes::open}),
            draw({0.6, 0.6, -0.6, Eyes::open, true}),
            draw({0.8, 0.85, 0.8, Eyes::laughing, false})};
}

}  // namespace people
