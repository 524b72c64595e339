// The apprentice, and Xiaoman with her cat, seen close.
#include "portrait.h"

namespace people {

Canvas hero_portrait() {
    Canvas canvas = portrait_ground(kJade, 0.78);
    // The scroll case looks over the shoulder.
    const auto on_back = [](Path path) { return moved(turned(std::move(path), {0, 0}, -22), 18, 88); };
    canvas.shape(on_back(rectangle(-8, -40, 8, 44)), kWood, gradient({8, 0}, 0.66, {30, 0}, 0.3), 1.6);
    canvas.shape(on_back(rectangle(-10, -46, 10, -35)), kGold, gradient({0, 0}, 0.8, {26, 0}, 0.45), 1.5);
    // Shoulders.
    canvas.shape(outline({{3, 137},
                          {3, 137},
                          {9, 116},
                          {30, 105},
                          {46, 98},
                          {70, 98},
                          {86, 105},
                          {104, 116},
                          {109, 137},
                          {109, 137}}),
                 kIndigo, gradient({16, 130}, 0.2, {92, 100}, 0.56), 1.6);
    ink_line(canvas, {{24, 137}, {27, 124}, {34, 114}}, 2);
    ink_line(canvas, {{92, 137}, {90, 124}, {84, 115}}, 2);
    canvas.shape(outline({{47, 84}, {66, 84}, {68, 98}, {60, 108}, {52, 106}, {45, 98}}), kSkin, 0.44, 1.4);
    collar(canvas, 57, 98, kPaper, 0.92);
    canvas.line(curve({{20, 110}, {40, 122}, {58, 137}}), kInk, 0.06, {6.4, 6.4, 6.4});
    canvas.line(curve({{20, 110}, {40, 122}, {58, 137}}), kWood, 0.42, {4, 4, 4});
    // The ribbon, the knot.
    canvas.line(curve({{40, 17}, {22, 16}, {8, 28}, {4, 40}}), kInk, 0.06, {7, 8, 3});
    canvas.line(curve({{40, 17}, {22, 16}, {8, 28}, {4, 40}}), kVermilion, 0.56, {5, 6, 1.4});
    canvas.line(curve({{40, 18}, {28, 26}, {20, 42}}), kInk, 0.06, {6, 7, 3});
    canvas.line(curve({{40, 18}, {28, 26}, {20, 42}}), kVermilion, 0.44, {4, 5, 1.4});
    canvas.shape(outline({{38, 14}, {37, 6}, {46, 0.8}, {56, 3}, {59, 11}, {56, 18}, {42, 19}}), kInk,
                 gradient({40, 12}, 0.1, {58, 2}, 0.3), 1.4);
    canvas.line(curve({{39, 17}, {48, 19.5}, {58, 16.5}}), kVermilion, 0.58, {3.4, 4.4, 3.4});
    // Face.
    canvas.shape(outline({{31, 54},
                          {36, 34},
                          {56, 26},
                          {76, 34},
                          {81, 48},
                          {80.5, 58},
                          {81.5, 66},
                          {78, 78},
                          {70, 88},
                          {61, 92.5},
                          {50, 89},
                          {38, 78}}),
                 kSkin, gradient({32, 70}, 0.6, {78, 52}, 0.95), 1.5);
    canvas.shade(paint::fill(outline({{34, 48},
                                      {50, 44},
                                      {66, 42},
                                      {80, 46},
                                      {80, 51},
                                      {66, 47},
                                      {52, 50},
                                      {44, 60},
                                      {44, 74},
                                      {38, 76},
                                      {33, 66}})),
                 -0.12, kSkin);
    blush(canvas, {47, 74}, 9);
    blush(canvas, {76, 73}, 6);
    portrait_eye(canvas, {53.5, 61.5}, {12.5, 1, kWood, 1});
    portrait_eye(canvas, {73, 61.5}, {9.5, 1, kWood, 0.6});
    ink_line(canvas, {{45, 53}, {53, 49.4}, {60, 51}}, 2.6);
    ink_line(canvas, {{69, 51}, {74, 49.6}, {79, 52}}, 2.4);
    canvas.line(curve({{67, 62}, {70.6, 71}, {66, 73}}), kSkin, 0.26, {0.8, 1.6, 1.2});
    canvas.line(curve({{57, 80}, {65, 83.4}, {72.6, 79.4}}), kVermilion, 0.16, {0.9, 2, 0.8});
    canvas.line(curve({{62, 86.4}, {66, 86.6}}), kSkin, 0.46, {0.8, 1.2, 0.6});
    // Hair, with a light on it and a loose strand.
    canvas.shape(outline({{31, 74},
                          {25, 60},
                          {24, 42},
                          {34, 24},
                          {52, 15},
                          {70, 18},
                          {82, 30},
                          {83, 48},
                          {83, 48},
                          {77, 38},
                          {66, 31},
                          {58, 38},
                          {48, 43},
                          {41, 50},
                          {38, 60},
                          {36, 72}}),
                 kInk, gradient({26, 60}, 0.06, {78, 22}, 0.24), 1.4);
    for (const double d : {0.0, 4.0, 8.0})
        canvas.line(curve({{38 + d, 30 + d * 0.3}, {50 + d, 21.5 + d * 0.7}, {66 + d * 0.6, 24 + d * 0.5}}),
                    kInk, 0.46 - d * 0.02, {0.5, 1.5, 0.5});
    ink_line(canvas, {{64, 32}, {68, 40}, {67, 47}}, 1.7);
    canvas.shape(outline({{33, 62}, {36.5, 58}, {40, 62}, {40, 70}, {36.5, 74}, {33.5, 69}}), kSkin, 0.6,
                 1.3);
    ink_line(canvas, {{36, 62}, {38, 66}, {36.4, 70}}, 1, 0.25);
    return canvas;
}

Canvas girl_portrait() {
    Canvas canvas = portrait_ground(kGold, 0.8);
    // Shoulders of the red jacket.
    canvas.shape(outline({{10, 137},
                          {10, 137},
                          {15, 120},
                          {34, 109},
                          {48, 103},
                          {68, 103},
                          {84, 109},
                          {98, 120},
                          {102, 137},
                          {102, 137}}),
                 kVermilion, gradient({16, 130}, 0.34, {90, 104}, 0.66), 1.6);
    canvas.shape(outline({{48, 90}, {66, 90}, {67, 104}, {58, 110}, {48, 104}}), kSkin, 0.48, 1.3);
    canvas.line(curve({{42, 105}, {57, 113}, {74, 104}}), kInk, 0.06, {8.4, 9, 8.4});
    canvas.line(curve({{42, 105}, {57, 113}, {74, 104}}), kGold, 0.74, {5.6, 6, 5.6});
    canvas.line({{60, 114}, {62, 137}}, kGold, 0.7, {3, 3, 3});
    for (const double y : {121.0, 132.0}) canvas.shape(ellipse(61, y, 3.2, 2.6), kGold, 0.82, 1.1);
    // Buns with ribbons.
    for (const double x : {22.0, 84.0}) {
        const double out = x < 50 ? -1 : 1;
        canvas.line(curve({{x, 34}, {x + 8 * out, 46}, {x + 7 * out, 62}}), kInk, 0.06, {6, 7.4, 3});
        canvas.line(curve({{x, 34}, {x + 8 * out, 46}, {x + 7 * out, 62}}), kVermilion, 0.55, {4, 5.4, 1.2});
        canvas.shape(ellipse(x, 20, 15, 15), kInk, gradient({x - 12, 34}, 0.06, {x + 10, 8}, 0.28), 1.5);
        canvas.line(arc(x, 20, 9, 9, 200, 320), kInk, 0.46, {0.6, 1.7, 0.6});
        canvas.line(curve({{x - 11, 31}, {x, 35.4}, {x + 11, 31}}), kVermilion, 0.58, {4, 5, 4});
    }
    // A round face.
    canvas.shape(outline({{26, 60},
                          {32, 40},
                          {54, 30},
                          {78, 38},
                          {86, 56},
                          {87, 70},
                          {80, 84},
                          {68, 93},
                          {56, 95},
                          {40, 89},
                          {29, 76}}),
                 kSkin, gradient({28, 76}, 0.64, {80, 56}, 0.98), 1.5);
    canvas.shade(paint::fill(outline({{28, 54},
                                      {44, 50},
                                      {64, 48},
                                      {84, 54},
                                      {85, 59},
                                      {66, 54},
                                      {46, 56},
                                      {36, 64},
                                      {34, 76},
                                      {28, 70}})),
                 -0.1, kSkin);
    blush(canvas, {44, 79}, 10);
    blush(canvas, {79, 78}, 8);
    portrait_eye(canvas, {50, 66}, {14, 1.25, kWood, 0.5});
    portrait_eye(canvas, {73, 66}, {12, 1.25, kWood, 0.3});
    ink_line(canvas, {{43, 55}, {50, 52}, {56, 54}}, 2.2);
    ink_line(canvas, {{68, 53.6}, {74, 52}, {80, 55}}, 2.2);
    canvas.line(curve({{64, 74}, {66.6, 76.6}, {63, 77.4}}), kSkin, 0.3, {0.7, 1.5, 0.8});
    canvas.shape(outline({{53, 81.4}, {62, 83}, {72, 80.6}, {68, 87.4}, {60, 88.6}}), kVermilion, 0.14, 1);
    canvas.fill(outline({{56, 82.4}, {62, 83.6}, {69, 82}, {67, 84.6}, {59, 85}}), kPaper, 0.97);
    // A fringe.
    canvas.shape(outline({{25, 72},
                          {22, 54},
                          {30, 34},
                          {48, 24},
                          {64, 25},
                          {82, 34},
                          {90, 54},
                          {88, 70},
                          {88, 70},
                          {84, 52},
                          {76, 50},
                          {70, 53},
                          {64, 48},
                          {57, 53},
                          {50, 48.6},
                          {42, 54},
                          {35, 54},
                          {30, 60},
                          {28, 72}}),
                 kInk, gradient({24, 64}, 0.06, {80, 30}, 0.25), 1.4);
    canvas.line(curve({{38, 38}, {50, 32}, {66, 33}}), kInk, 0.46, {0.5, 1.7, 0.5});
    canvas.line(curve({{44, 42}, {54, 37.6}, {70, 39}}), kInk, 0.4, {0.5, 1.3, 0.5});
    ink_line(canvas, {{57, 25}, {57, 32}}, 1, 0.4);
    // Sesame looks up from below.
    canvas.shape(outline({{76, 137},
                          {76, 137},
                          {76, 120},
                          {74, 106},
                          {74, 106},
                          {83, 112},
                          {93, 111},
                          {103, 104},
                          {103, 104},
                          {104, 120},
                          {108, 137},
                          {108, 137}}),
                 kInk, gradient({76, 130}, 0.38, {104, 106}, 0.62), 1.5);
    canvas.fill(outline({{85, 137}, {86, 126}, {92, 122}, {98, 126}, {100, 137}}), kPaper, 0.93);
    for (const double x : {85.0, 97.0}) {
        canvas.fill(ellipse(x, 121, 3.6, 3.4), kGold, 0.85);
        canvas.line({{x + 0.4, 118}, {x + 0.4, 124}}, kInk, 0, {1.4, 2.4, 1.4});
    }
    canvas.fill(outline({{90, 127}, {95, 127}, {92.6, 130}}), kVermilion, 0.7);
    for (int i = 0; i < 8; ++i)
        canvas.fill(ellipse(80 + 22 * scatter(i, 8), 111 + 5 * scatter(i, 9), 1, 0.9), kInk, 0.1);
    return canvas;
}

}  // namespace people
