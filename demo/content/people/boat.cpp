// Ashui's boat: a hull of dark boards, an arched mat against rain and sun, a lamp at the bow.
#include "things.h"

namespace people {

Canvas boat() {
    Canvas canvas(108, 58);
    // The water around it: what the hull mirrors, and rings.
    canvas.fill(outline({{8, 48}, {24, 51}, {56, 53}, {88, 51}, {101, 47}, {90, 55}, {56, 57.6}, {20, 55}}),
                kInk, 0.2);
    // The mat: far edge, inside, near edge.
    canvas.shape(
        outline({{30, 38}, {30, 38}, {33, 20}, {43, 11}, {58, 9}, {73, 13}, {81, 24}, {83, 38}, {83, 38}}),
        kStraw, gradient({34, 36}, 0.4, {72, 12}, 0.82), 1.5);
    canvas.shape(outline({{66, 38}, {66, 38}, {66, 22}, {72, 13}, {80, 20}, {83, 38}, {83, 38}}), kInk,
                 gradient({68, 14}, 0.08, {82, 38}, 0.26), 1.3);
    canvas.line(curve({{66, 38}, {65, 24}, {71, 13}}), kStraw, 0.9, {2, 2.4, 2});
    for (int i = 0; i < 4; ++i) {
        const double x = 33 + i * 9.0;
        canvas.line(curve({{x, 37.0}, {x + 1, 24}, {x + 8 + i * 0.6, 12.0 - i * 0.4}}), kStraw, 0.24,
                    {0.8, 1.1, 0.6});
    }
    for (const double y : {18.0, 25.0, 32.0})
        canvas.line(curve({{33 - (y - 18) * 0.2, y + 1}, {48, y - 1}, {65, y}}), kStraw, 0.3, {0.6, 1, 0.6});
    // The hull, with a brighter gunwale and the grain of its boards.
    canvas.shape(outline({{1, 28},
                          {1, 28},
                          {16, 36},
                          {54, 39},
                          {90, 36},
                          {106, 26},
                          {106, 26},
                          {102, 40},
                          {92, 50},
                          {56, 53},
                          {20, 51},
                          {7, 42}}),
                 kWood, gradient({50, 38}, 0.5, {54, 53}, 0.14), 1.6);
    canvas.line(curve({{2, 29}, {17, 37.4}, {54, 40.4}, {90, 37.4}, {105, 27.6}}), kWood, 0.82,
                {1.6, 2.6, 1.6});
    canvas.line(curve({{7, 37}, {24, 43}, {56, 45.4}, {90, 42}, {103, 34}}), kInk, 0.08, {0.6, 1.3, 0.6});
    canvas.line(curve({{12, 43}, {28, 47.6}, {56, 49.4}, {88, 47}, {98, 42}}), kInk, 0.08, {0.6, 1.1, 0.6});
    // A painted eye finds the way; a lamp hangs at the bow.
    canvas.fill(ellipse(92, 40, 4.2, 3), kPaper, 0.92);
    canvas.fill(ellipse(93, 40, 1.9, 1.9), kInk, 0.04);
    canvas.line(curve({{100, 31}, {99, 14}, {94, 9}}), kInk, 0.06, {2.8, 2.6, 2});
    canvas.line(curve({{100, 31}, {99, 14}, {94, 9}}), kWood, 0.5, {1.2, 1.2, 0.8});
    canvas.shape(ellipse(93, 16, 4, 5), kVermilion, gradient({89, 20}, 0.4, {96, 12}, 0.8), 1.1);
    canvas.line({{90.4, 11.4}, {95.6, 11.4}}, kGold, 0.7, {1.8, 1.8, 1.8});
    canvas.line({{90.6, 20.8}, {95.4, 20.8}}, kGold, 0.6, {1.8, 1.8, 1.8});
    // Where it is tied up.
    canvas.line(curve({{3, 29}, {8, 34}, {14, 34}}), kStraw, 0.8, {1.6, 1.8, 1.6});
    for (const double x : {10.0, 64.0})
        canvas.line(curve({{x, 55.4}, {x + 14, 57}, {x + 28, 56}}), kSky, 0.8, {0.6, 1.4, 0.6});
    return canvas;
}

}  // namespace people
