// The things that the apprentice finds.
#include "things.h"

namespace people {
namespace {

Canvas thing() {
    return {kThingSize, kThingSize};
}

void light_line(Canvas &canvas, const Path &points, Ramp ramp, double tone, double width = 1.6) {
    canvas.line(curve(points), ramp, tone, {width * 0.4, width, width * 0.4});
}

}  // namespace

// A round slab with a pool, the moon cut into its rim.
Canvas inkstone() {
    Canvas canvas = thing();
    canvas.shape(
        outline({{3, 27}, {8, 15}, {24, 10}, {40, 15}, {45, 27}, {44, 36}, {36, 42}, {12, 42}, {4, 36}}),
        kStone, gradient({8, 40}, 0.1, {34, 12}, 0.42), 1.5);
    canvas.fill(ellipse(24, 25, 19, 12.6), kStone, gradient({8, 20}, 0.34, {40, 28}, 0.56));
    canvas.shape(ellipse(24, 26, 15.6, 9.6), kInk, gradient({14, 18}, 0.1, {34, 36}, 0.4), 1.1);
    canvas.fill(ellipse(20, 24, 10, 6), kInk, 0.04);
    light_line(canvas, {{12, 25}, {16, 20}, {24, 18}}, kInk, 0.8);
    canvas.fill(ellipse(34, 29, 2.4, 1.4), kMoon, 0.7);
    light_line(canvas, {{6, 25}, {12, 16}, {24, 12.6}, {36, 15}}, kStone, 0.8);
    canvas.fill(ellipse(24, 38.6, 2.6, 1.6), kGold, 0.7);
    light_line(canvas, {{12, 37}, {17, 39.6}, {20, 39}}, kGold, 0.5, 1.2);
    light_line(canvas, {{36, 37}, {31, 39.6}, {28, 39}}, kGold, 0.5, 1.2);
    return canvas;
}

Canvas teapot() {
    Canvas canvas = thing();
    canvas.line(arc(23, 17, 12, 12, 195, 345), kInk, 0.06, {5, 5, 5});
    canvas.line(arc(23, 17, 12, 12, 195, 345), kWood, 0.6, {2.6, 3, 2.6});
    canvas.shape(outline({{34, 30}, {40, 24}, {42, 17}, {42, 17}, {46, 18}, {46, 18}, {45, 28}, {37, 37}}),
                 kVermilion, 0.36, 1.4);
    canvas.shape(
        outline({{6, 30}, {10, 20}, {23, 16}, {36, 20}, {40, 30}, {36, 40}, {30, 44}, {16, 44}, {9, 40}}),
        kVermilion, gradient({8, 40}, 0.22, {34, 20}, 0.62), 1.5);
    canvas.shape(outline({{14, 18.6}, {23, 13}, {32, 18.6}, {23, 21}}), kVermilion,
                 gradient({14, 18}, 0.3, {32, 16}, 0.6), 1.2);
    canvas.shape(ellipse(23, 12.4, 2.8, 2.4), kGold, 0.6, 1.1);
    light_line(canvas, {{11, 32}, {14, 24}, {22, 21.6}}, kVermilion, 0.95, 2);
    canvas.line(curve({{16, 33}, {22, 29}, {29, 34}, {34, 29}}), kGold, 0.75, {0.8, 1.7, 0.8});
    canvas.fill(ellipse(22, 36, 1.6, 1.3), kGold, 0.75);
    for (const double x : {36.0, 42.0})
        canvas.line(curve({{x + 3, 14}, {x, 9}, {x + 3, 6}, {x + 1, 2}}), kPaper, 0.9, {0.6, 1.8, 0.5});
    return canvas;
}

Canvas oil_jar() {
    Canvas canvas = thing();
    canvas.shape(outline({{12, 27},
                          {14, 20},
                          {19, 17},
                          {19, 11},
                          {19, 11},
                          {31, 11},
                          {31, 11},
                          {31, 17},
                          {36, 20},
                          {38, 27},
                          {37, 38},
                          {32, 44},
                          {18, 44},
                          {13, 38}}),
                 kTeal, gradient({12, 38}, 0.14, {36, 20}, 0.66), 1.5);
    canvas.shape(outline({{17, 8}, {33, 8}, {33, 12}, {17, 12}}), kTeal, 0.7, 1.2);
    canvas.shape(outline({{19, 8}, {20, 4}, {25, 2.4}, {30, 4}, {31, 8}}), kVermilion,
                 gradient({19, 8}, 0.36, {31, 3}, 0.66), 1.3);
    canvas.line(curve({{18, 14.6}, {25, 16}, {32, 14.6}}), kStraw, 0.8, {2, 2.4, 2});
    light_line(canvas, {{16, 33}, {16.6, 25}, {21, 20.4}}, kTeal, 1, 2.2);
    // A flame on a label of paper.
    canvas.shape(turned(rectangle(18.6, 24, 32.4, 38), {25, 31}, 45), kPaper, 0.92, 1.1);
    canvas.fill(outline({{25, 24}, {28.6, 31}, {27.6, 35}, {25, 36.6}, {22.4, 35}, {21.6, 31}, {24, 29}}),
                kVermilion, 0.6);
    canvas.fill(outline({{25.2, 29}, {26.8, 33}, {25, 35.4}, {23.4, 33}}), kGold, 0.9);
    return canvas;
}

Canvas brush() {
    Canvas canvas = thing();
    canvas.line({{43, 4}, {17, 31}}, kInk, 0.06, {6, 6.4, 6.4});
    canvas.line({{43, 4}, {17, 31}}, kStraw, 0.66, {3.4, 4, 4});
    canvas.line({{42, 3.6}, {17, 29.6}}, kStraw, 1, {1, 1.4, 1});
    for (const double t : {0.3, 0.62})
        canvas.line({{43 - 26 * t - 1.8, 4 + 27 * t - 1.8}, {43 - 26 * t + 1.8, 4 + 27 * t + 1.8}}, kStraw,
                    0.2, {1.3, 1.3, 1.3});
    canvas.line({{19, 29}, {15.4, 32.6}}, kInk, 0.06, {8, 8.4, 8});
    canvas.line({{19, 29}, {15.4, 32.6}}, kVermilion, 0.56, {5.6, 6, 5.6});
    canvas.shape(outline({{11.6, 30}, {18.4, 36}, {17, 40}, {9, 45.4}, {3, 46}, {3, 46}, {4, 39}, {8, 31.6}}),
                 kInk, gradient({6, 38}, 0.46, {16, 42}, 0.12), 1.4);
    light_line(canvas, {{11, 33}, {8, 38}, {6.4, 43}}, kInk, 0.9, 1.8);
    canvas.line(curve({{43, 4}, {46, 7}, {45, 12}, {46.4, 16}}), kVermilion, 0.55, {1.2, 1.8, 1.2});
    return canvas;
}

Canvas paper() {
    Canvas canvas = thing();
    canvas.shape({{8, 12}, {36, 7}, {43, 38}, {14, 44}}, kPaper, 0.62, 1.3);
    canvas.shape({{6, 10}, {34, 6}, {40, 36}, {11, 41}}, kPaper, gradient({8, 36}, 0.8, {34, 8}, 1), 1.4);
    for (int i = 0; i < 14; ++i)
        canvas.line({{10 + 26 * scatter(i, 2), 12 + 24 * scatter(i, 3)},
                     {12 + 26 * scatter(i, 2), 12.6 + 24 * scatter(i, 3)}},
                    kStraw, 0.6, {0.7, 0.9, 0.5});
    // One corner curls up.
    canvas.shape(outline({{40, 36}, {40, 36}, {38, 26}, {33, 28}, {29, 33}, {28, 38.2}, {28, 38.2}}), kPaper,
                 gradient({40, 36}, 0.5, {30, 30}, 0.86), 1.3);
    canvas.line(curve({{7.4, 17}, {20, 15}, {35.6, 13}}), kVermilion, 0.5, {3.4, 3.6, 3.4});
    canvas.line(curve({{8, 20}, {20, 18}, {36, 16}}), kVermilion, 0.3, {0.8, 0.8, 0.8});
    return canvas;
}

Canvas ink_stick() {
    Canvas canvas = thing();
    const auto at = [](Path path) { return turned(std::move(path), {24, 24}, 28); };
    canvas.shape(at(outline({{16, 5},
                             {16, 5},
                             {18, 2},
                             {30, 2},
                             {32, 5},
                             {32, 5},
                             {32, 44},
                             {32, 44},
                             {30, 46},
                             {18, 46},
                             {16, 44},
                             {16, 44}})),
                 kInk, gradient({12, 30}, 0.08, {38, 18}, 0.34), 1.5);
    canvas.fill(at(rectangle(28.6, 4, 31.4, 44)), kInk, 0.52);
    canvas.line(at({{18.6, 6}, {27, 6}, {27, 43}, {18.6, 43}, {18.6, 6}}), kGold, 0.6, {1, 1, 1});
    canvas.fill(at(ellipse(22.8, 13, 3.2, 3.2)), kMoon, 0.8);
    canvas.line(at(curve({{19.6, 21}, {22, 19}, {24, 21}, {26.4, 19.4}})), kGold, 0.85, {0.8, 1.6, 0.8});
    canvas.line(at(curve({{20, 25}, {26, 25}})), kGold, 0.75, {1.2, 1.4, 1});
    canvas.line(at({{23, 23}, {23, 32}}), kGold, 0.75, {1.4, 1.4, 1});
    canvas.line(at(curve({{23, 27}, {21, 30}, {19.6, 31.4}})), kGold, 0.7, {1.2, 1, 0.6});
    canvas.line(at(curve({{23, 27}, {25, 30}, {26.4, 31.4}})), kGold, 0.7, {1.2, 1, 0.6});
    canvas.line(at({{20, 36}, {26, 36}}), kGold, 0.7, {1.2, 1.2, 1});
    canvas.line(at({{20, 39.6}, {26, 39.6}}), kGold, 0.7, {1.2, 1.2, 1});
    canvas.fill(at(outline({{16, 44}, {16, 44}, {32, 44}, {32, 44}, {29, 46.6}, {19, 46.6}})), kInk, 0.7);
    return canvas;
}

// The picture itself, on a scroll.
Canvas painted_moon() {
    Canvas canvas = thing();
    canvas.shape(rectangle(7, 5, 41, 43), kPaper, gradient({8, 40}, 0.72, {40, 6}, 0.94), 1.3);
    canvas.fill(rectangle(11, 8, 37, 40), kIndigo, gradient({24, 8}, 0.1, {24, 32}, 0.6));
    canvas.fill(ellipse(26, 18.6, 8, 8), kMoon, 0.2);
    canvas.fill(ellipse(25.6, 18.2, 7.2, 7.2), kMoon, gradient({20, 24}, 0.5, {30, 13}, 1));
    canvas.fill(outline({{11, 33}, {15, 28}, {19, 31}, {24, 27}, {30, 31.6}, {37, 29}, {37, 34}, {11, 34}}),
                kIndigo, 0.05);
    canvas.fill(rectangle(11, 33, 37, 40), kIndigo, 0.34);
    for (const double y : {34.4, 36.6, 38.6})
        light_line(canvas, {{21 + (y - 34) * 0.6, y}, {31 - (y - 34) * 0.3, y}}, kMoon, 0.7, 1.4);
    canvas.fill(rectangle(32, 35, 35, 38), kVermilion, 0.5);
    for (const double y : {4.4, 43.6}) {
        canvas.line({{5, y}, {43, y}}, kInk, 0.06, {6, 6, 6});
        canvas.line({{5, y}, {43, y}}, kWood, 0.5, {3.4, 3.4, 3.4});
        canvas.line({{7, y - 0.9}, {41, y - 0.9}}, kWood, 0.9, {0.8, 1, 0.8});
        for (const double x : {4.0, 44.0}) canvas.fill(ellipse(x, y, 2, 2.2), kGold, 0.7);
    }
    return canvas;
}

}  // namespace people
