// Master Shen, Aunt Lin and Ashui, seen close.
#include "portrait.h"

namespace people {

Canvas master_portrait() {
    Canvas canvas = portrait_ground(kMountain, 0.72);
    canvas.shape(outline({{2, 137},
                          {2, 137},
                          {6, 112},
                          {24, 98},
                          {44, 92},
                          {72, 94},
                          {92, 102},
                          {106, 118},
                          {110, 137},
                          {110, 137}}),
                 kPlum, gradient({10, 130}, 0.16, {96, 100}, 0.52), 1.6);
    ink_line(canvas, {{20, 137}, {22, 122}, {30, 110}}, 2);
    collar(canvas, 59, 93, kPaper, 0.84);
    // Face: long, with high cheeks.
    canvas.shape(outline({{34, 56},
                          {38, 40},
                          {58, 36},
                          {78, 42},
                          {83, 54},
                          {82, 62},
                          {84, 70},
                          {78, 80},
                          {68, 88},
                          {52, 88},
                          {38, 76}}),
                 kSkin, gradient({36, 70}, 0.46, {82, 56}, 0.86), 1.5);
    canvas.shade(paint::fill(outline({{36, 46},
                                      {56, 42},
                                      {80, 46},
                                      {82, 53},
                                      {60, 49},
                                      {46, 54},
                                      {44, 72},
                                      {50, 84},
                                      {40, 78},
                                      {34, 62}})),
                 -0.11, kSkin);
    blush(canvas, {52, 73}, 8);
    blush(canvas, {77, 72}, 6);
    for (const double d : {0.0, 3.4}) {
        canvas.line(curve({{52, 44.4 + d}, {62, 43 + d}, {74, 45.4 + d}}), kSkin, 0.34, {0.5, 1, 0.5});
        canvas.line(curve({{45, 62 + d}, {43, 64 + d}, {41.4, 67 + d}}), kSkin, 0.3, {0.5, 1, 0.5});
    }
    portrait_eye(canvas, {55.5, 61}, {12, 0.5, kMountain, -1.4});
    portrait_eye(canvas, {75, 61}, {9.5, 0.5, kMountain, -1.4});
    canvas.line(curve({{50, 66.4}, {56, 68}, {61, 66.4}}), kSkin, 0.3, {0.5, 1, 0.5});
    canvas.line(curve({{68, 60}, {73.4, 71}, {71, 74.4}, {66.4, 74}}), kSkin, 0.2, {0.8, 1.7, 1.4});
    // Hair and ear.
    canvas.shape(outline({{33, 44}, {42, 44}, {44, 54}, {40, 66}, {42, 80}, {36, 76}, {32, 62}}), kPaper,
                 gradient({32, 60}, 0.66, {44, 60}, 0.95), 1.4);
    canvas.shape(outline({{34, 60}, {38, 56}, {42, 60}, {42, 70}, {38.4, 76}, {35, 70}}), kSkin, 0.52, 1.3);
    // Eyebrows that hang down, moustache and beard.
    canvas.line(curve({{47, 55}, {54, 51.6}, {62, 54.4}, {64, 59}}), kInk, 0.1, {4, 5.4, 2});
    canvas.line(curve({{47, 55}, {54, 51.8}, {62, 54.6}, {63.6, 58.4}}), kPaper, 1, {2.4, 4, 1});
    canvas.line(curve({{71, 54.4}, {77, 51.4}, {83, 55}, {86, 61}}), kInk, 0.1, {4, 5, 2});
    canvas.line(curve({{71, 54.4}, {77, 51.6}, {83, 55.2}, {85.4, 60.2}}), kPaper, 1, {2.4, 3.6, 1});
    canvas.shape(outline({{42, 74},
                          {50, 82},
                          {60, 82},
                          {70, 79},
                          {80, 80},
                          {84, 76},
                          {86, 92},
                          {82, 112},
                          {76, 128},
                          {72, 137},
                          {72, 137},
                          {62, 137},
                          {62, 137},
                          {56, 122},
                          {46, 104},
                          {42, 88}}),
                 kPaper, gradient({44, 100}, 0.7, {84, 92}, 1), 1.5);
    for (int i = 0; i < 6; ++i)
        canvas.line(curve({{51.0 + i * 5, 90.0 + (i % 2) * 5}, {55.0 + i * 3.6, 108}, {62.0 + i * 1.8, 130}}),
                    kPaper, 0.5, {0.5, 1.3, 0.6});
    canvas.line(curve({{62, 82.6}, {68, 84.4}, {75, 82}}), kVermilion, 0.16, {1, 2.4, 1});
    for (const double out : {-1.0, 1.0}) {
        const double x = 69.5;
        const Path half =
            curve({{x + out, 77}, {x + 8 * out, 78.4}, {x + 15 * out, 85}, {x + 16.4 * out, 98}});
        canvas.line(half, kInk, 0.1, {4.6, 6.4, 2});
        canvas.line(half, kPaper, 1, {3, 4.6, 0.8});
    }
    // The tall cap of a scholar.
    canvas.shape(outline({{31, 48},
                          {28, 12},
                          {28, 12},
                          {36, 4},
                          {56, 1},
                          {76, 4},
                          {82, 12},
                          {82, 12},
                          {82, 46},
                          {82, 46},
                          {58, 40}}),
                 kInk, gradient({30, 20}, 0.08, {82, 10}, 0.34), 1.6);
    canvas.shade(paint::fill(outline({{28, 13}, {40, 8}, {56, 10}, {58, 40}, {32, 47}})), -0.03, kInk);
    ink_line(canvas, {{57, 10}, {58, 26}, {58, 40}}, 1.6, 0);
    canvas.line(curve({{31, 36}, {58, 29.4}, {82, 35}}), kGold, 0.62, {3, 3.4, 3});
    canvas.shape(outline({{53, 26}, {63, 26}, {64, 36}, {58, 39}, {52, 36}}), kJade,
                 gradient({54, 36}, 0.4, {62, 26}, 0.85), 1.2);
    return canvas;
}

Canvas seller_portrait() {
    Canvas canvas = portrait_ground(kStraw, 0.72);
    canvas.shape(outline({{0, 137},
                          {0, 137},
                          {2, 118},
                          {22, 106},
                          {44, 100},
                          {72, 100},
                          {94, 107},
                          {110, 120},
                          {112, 137},
                          {112, 137}}),
                 kTeal, gradient({10, 130}, 0.24, {96, 104}, 0.68), 1.6);
    canvas.shape(outline({{24, 137}, {24, 137}, {26, 124}, {56, 129}, {88, 124}, {91, 137}, {91, 137}}),
                 kStraw, gradient({26, 130}, 0.6, {90, 126}, 0.92), 1.5);
    canvas.shape(outline({{44, 90}, {70, 90}, {72, 103}, {58, 112}, {42, 103}}), kSkin, 0.46, 1.3);
    collar(canvas, 58, 101, kPaper, 0.92);
    // Her hair is gathered in the neck.
    canvas.shape(ellipse(20, 72, 13, 15), kInk, gradient({10, 80}, 0.05, {30, 60}, 0.22), 1.5);
    canvas.shape(outline({{25, 58},
                          {32, 38},
                          {56, 29},
                          {80, 38},
                          {87, 54},
                          {86, 62},
                          {89, 72},
                          {84, 86},
                          {72, 95},
                          {56, 97.4},
                          {38, 91},
                          {27, 76}}),
                 kSkin, gradient({27, 74}, 0.6, {84, 58}, 0.93), 1.5);
    canvas.shade(
        paint::fill(outline(
            {{28, 52}, {48, 46}, {84, 50}, {86, 56}, {60, 51}, {44, 55}, {38, 66}, {40, 84}, {30, 78}})),
        -0.11, kSkin);
    canvas.line(curve({{50, 92.4}, {60, 94.4}, {70, 91.4}}), kSkin, 0.42, {0.6, 1.4, 0.6});
    blush(canvas, {45, 77}, 11);
    blush(canvas, {81, 75}, 8);
    portrait_eye(canvas, {53, 63}, {12.5, 0.85, kWood, -0.5});
    portrait_eye(canvas, {75, 63}, {10.5, 0.85, kWood, -0.5});
    ink_line(canvas, {{45, 54}, {53, 49.6}, {60, 52}}, 2);
    ink_line(canvas, {{70, 52}, {76, 49.6}, {82, 53.4}}, 2);
    canvas.line(curve({{66, 65}, {70.4, 73}, {65, 75.4}}), kSkin, 0.26, {0.8, 1.7, 1.3});
    canvas.shape(outline({{53, 79.6}, {63, 81.4}, {76, 78.6}, {72, 87}, {62, 89.4}}), kVermilion, 0.2, 1.2);
    canvas.fill(outline({{56, 80.6}, {63, 82}, {73, 80.2}, {70, 83.6}, {60, 84}}), kPaper, 0.97);
    canvas.fill(ellipse(74.6, 87.6, 1.2, 1.2), kInk, 0.1);  // a mole, for luck
    // Hair, and the scarf over it with white dots.
    canvas.shape(outline({{26, 70},
                          {22, 54},
                          {30, 36},
                          {56, 26},
                          {82, 36},
                          {88, 54},
                          {88, 54},
                          {80, 46},
                          {66, 41},
                          {50, 44},
                          {38, 52},
                          {31, 68}}),
                 kInk, 0.13, 1.4);
    canvas.line(curve({{20, 54}, {8, 62}, {3, 76}}), kInk, 0.06, {9, 10, 3});
    canvas.line(curve({{20, 54}, {8, 62}, {3, 76}}), kVermilion, 0.42, {7, 8, 1.4});
    canvas.shape(outline({{19, 58},
                          {20, 40},
                          {32, 20},
                          {54, 10},
                          {76, 15},
                          {88, 32},
                          {89, 47},
                          {89, 47},
                          {72, 35},
                          {52, 36},
                          {34, 46},
                          {25, 60}}),
                 kVermilion, gradient({24, 50}, 0.34, {72, 12}, 0.74), 1.6);
    ink_line(canvas, {{28, 40}, {44, 27}, {64, 24}, {84, 36}}, 1.1, 0.2);
    const Point dots[] = {{28, 48}, {34, 35}, {44, 38}, {47, 20}, {40, 27},
                          {58, 29}, {62, 16}, {73, 30}, {74, 21}, {83, 39}};
    for (const Point &dot : dots) canvas.fill(ellipse(dot.x, dot.y, 2, 1.9), kPaper, 0.94);
    canvas.shape(outline({{29, 66}, {33, 62}, {37, 66}, {37, 74}, {33, 78}, {30, 73}}), kSkin, 0.58, 1.3);
    canvas.shape(ellipse(33.4, 82, 2.6, 3.4), kJade, 0.74, 1.1);
    return canvas;
}

Canvas boatman_portrait() {
    Canvas canvas = portrait_ground(kSky, 0.4);
    canvas.line({{104, 137}, {100, -2}}, kInk, 0.06, {8.4, 8.4, 8});
    canvas.line({{104, 137}, {100, -2}}, kWood, 0.56, {5.6, 5.6, 5});
    canvas.shape(outline({{18, 137}, {22, 112}, {44, 100}, {72, 100}, {90, 112}, {96, 137}}), kTeal, 0.2,
                 1.5);
    canvas.shape(
        outline({{46, 96}, {72, 94}, {74, 106}, {68, 137}, {68, 137}, {60, 137}, {60, 137}, {48, 108}}),
        kSkin, gradient({46, 100}, 0.34, {74, 120}, 0.6), 1.4);
    // The straw cape.
    const Path left = outline(
        {{2, 137}, {2, 137}, {4, 116}, {22, 104}, {45, 96}, {52, 104}, {44, 122}, {38, 137}, {38, 137}});
    canvas.shape(left, kStraw, gradient({4, 130}, 0.42, {46, 100}, 0.78), 1.6);
    const Path right = outline({{110, 137},
                                {110, 137},
                                {108, 120},
                                {94, 106},
                                {74, 96},
                                {70, 104},
                                {76, 120},
                                {82, 137},
                                {82, 137}});
    canvas.shape(right, kStraw, gradient({76, 130}, 0.6, {106, 106}, 0.9), 1.6);
    for (int i = 0; i < 8; ++i) {
        ink_line(canvas, {{44.0 - i * 2, 101.0 + i}, {36.0 - i * 3, 116}, {36.0 - i * 4.4, 137}}, 1.2, 0.25);
        if (i < 6)
            ink_line(canvas, {{76.0 + i * 2, 101.0 + i}, {80.0 + i * 3, 116}, {84.0 + i * 4.4, 137}}, 1.2,
                     0.25);
    }
    // A square face, sunburnt, in the shade of the brim.
    canvas.shape(outline({{31, 50},
                          {40, 40},
                          {60, 38},
                          {80, 44},
                          {84, 56},
                          {82, 62},
                          {85, 72},
                          {83, 84},
                          {74, 96},
                          {60, 100},
                          {46, 95},
                          {35, 82}}),
                 kSkin, gradient({33, 70}, 0.38, {82, 84}, 0.74), 1.6);
    canvas.shade(
        paint::fill(outline(
            {{28, 40}, {90, 40}, {90, 57}, {72, 54}, {52, 56}, {44, 66}, {46, 86}, {36, 84}, {30, 60}})),
        -0.12, kSkin);
    canvas.shape(outline({{32, 62}, {36, 57}, {40.6, 61}, {41, 72}, {37, 78}, {33, 72}}), kSkin, 0.4, 1.3);
    canvas.tint({62, 90}, 21, 13, kInk, 0.6, 0.24);
    for (int i = 0; i < 26; ++i) {
        const double x = 46 + 34 * scatter(i, 21), y = 84 + 13 * scatter(i, 22);
        canvas.line({{x, y}, {x + 0.6, y + 1.6}}, kInk, 0.12, {0.8, 0.9, 0.6});
    }
    portrait_eye(canvas, {56, 63.5}, {12, 0.62, kWood, 0.8});
    portrait_eye(canvas, {76, 63.5}, {9.6, 0.62, kWood, 0.6});
    ink_line(canvas, {{47, 57}, {55, 54.4}, {64, 58}}, 4);
    ink_line(canvas, {{71, 57.6}, {77, 54.6}, {83, 57}}, 3.6);
    canvas.line(curve({{68, 63}, {74, 74}, {71.6, 78}, {66, 77.4}}), kSkin, 0.12, {0.9, 2, 1.7});
    canvas.line(curve({{45, 68}, {43, 70}, {42, 74}}), kSkin, 0.14, {0.6, 1.1, 0.6});
    canvas.line(curve({{56, 86}, {66, 88.6}, {77, 83.4}}), kVermilion, 0.06, {1, 2.4, 1});
    canvas.line(curve({{74, 85}, {88, 82}, {98, 88}}), kInk, 0.06, {2.6, 3, 2});
    canvas.line(curve({{74, 85}, {88, 82}, {98, 88}}), kStraw, 0.74, {1.3, 1.7, 0.8});
    // The hat: its underside, then the cone with its bamboo.
    canvas.shape(outline({{1, 47},
                          {1, 47},
                          {26, 40},
                          {58, 36},
                          {88, 40},
                          {111, 49},
                          {111, 49},
                          {84, 52},
                          {58, 49},
                          {28, 51}}),
                 kStraw, gradient({10, 40}, 0.12, {100, 50}, 0.3), 1.5);
    canvas.shape(outline({{0.6, 47},
                          {0.6, 47},
                          {24, 26},
                          {46, 9},
                          {56, 1},
                          {56, 1},
                          {68, 10},
                          {90, 28},
                          {111, 49},
                          {111, 49},
                          {84, 42},
                          {57, 39},
                          {28, 41}}),
                 kStraw, gradient({16, 44}, 0.44, {86, 14}, 0.98), 1.8);
    for (int i = 0; i < 11; ++i) {
        const double t = i / 10.0, x = 8 + 96 * t;
        ink_line(canvas, {{56, 3}, {(56 + x) / 2, 21}, {x, 45 - 6 * (1 - (2 * t - 1) * (2 * t - 1))}}, 1,
                 0.3);
    }
    ink_line(canvas, {{39, 16}, {56, 13.4}, {73, 16}}, 1.4, 0.2);
    ink_line(canvas, {{22, 30}, {56, 25}, {90, 31}}, 1.4, 0.2);
    canvas.line(curve({{33, 50}, {36, 76}, {50, 98}, {60, 103}}), kVermilion, 0.3, {1.6, 1.8, 1.6});
    return canvas;
}

}  // namespace people
