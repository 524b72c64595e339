// Those whom the hero meets.
#include "people.h"

#include "figure_kit.h"

namespace paint {
namespace {

// What changes from frame to frame: a breath of 0 to 1, closed eyes, an open mouth.
struct Moment {
    double breath = 0;
    bool blink = false, speaks = false;
    int number = 0;
};

template <class Painter>
Frames six(const Painter &painter) {
    return {painter(Moment{0, false, false, 0}),  painter(Moment{0.6, false, false, 1}),
            painter(Moment{1, true, false, 2}),   painter(Moment{0.5, false, false, 3}),
            painter(Moment{0.3, false, true, 4}), painter(Moment{0.9, false, false, 5})};
}

void eyes(Figure &figure, double x, double y, double apart, const Moment &now, double size = 1) {
    for (const double at : {x, x + apart}) {
        if (now.blink)
            figure.line({{at - 1.6 * size, y}, {at + 1.4 * size, y + 0.4}}, 1.2, {Ramp::ink, 0.08});
        else
            figure.spot(at, y, 1.25 * size, 1.9 * size, {Ramp::ink, 0.02});
    }
}

void mouth(Figure &figure, double x, double y, const Moment &now) {
    if (now.speaks)
        figure.spot(x, y + 0.4, 1.9, 1.7, {Ramp::vermilion, 0.12});
    else
        figure.line({{x - 1.8, y}, {x, y + 0.5}, {x + 1.8, y}}, 1.1, {Ramp::vermilion, 0.2});
}

// Stooped over his staff, with a long white beard and a scholar's cap.
ink::tool::IndexedPicture master(const Moment &now) {
    Figure figure(92, 122, 44, 116);
    const double b = now.breath;
    figure.shape({{-10, -4}, {-2, -6}, {5, -3}, {5, 0}, {-10, 0}}, {Ramp::ink, 0.3});
    figure.shape({{4, -4}, {12, -5}, {18, -2}, {18, 0}, {4, 0}}, {Ramp::ink, 0.3});
    figure.shape({{-14, -66 - b},
                  {-4, -77 - b},
                  {8, -75 - b},
                  {15, -64},
                  {15, -42},
                  {19, -14},
                  {18, -3},
                  {2, -1},
                  {-16, -3},
                  {-18, -16},
                  {-17, -42}},
                 {Ramp::paper, 0.66}, 0.3);
    figure.line({{-15, -6}, {2, -4}, {17, -6}}, 3, {Ramp::ink, 0.34});
    figure.line({{3, -70}, {7, -40}, {8, -6}}, 4, {Ramp::ink, 0.3});
    figure.line({{1, -70}, {4.6, -40}, {5.6, -6}}, 1.2, {Ramp::paper, 0.98});
    figure.limb({{-15, -47}, {0, -44.6}, {15, -47}}, 3.6, 3.6, 3.6, {Ramp::jade, 0.44});
    figure.oval(9, -38, 2.6, 2.6, {Ramp::jade, 0.8});
    figure.line({{9, -35}, {9.4, -28}}, 2, {Ramp::vermilion, 0.5});
    figure.limb({{29, -74}, {27.4, -40}, {28.6, -1}}, 3, 2.8, 3, {Ramp::wood, 0.44});
    figure.limb({{29, -74}, {33, -79}, {29, -82}}, 3.4, 3.6, 3, {Ramp::wood, 0.44});
    figure.shape(
        {{-4, -66 - b}, {6, -67 - b}, {15, -58}, {27, -54}, {28, -47}, {18, -43}, {8, -46}, {-2, -54}},
        {Ramp::paper, 0.58}, 0.2);
    figure.limb({{25, -51}, {28.4, -51.6}}, 5.4, 5, 5, {Ramp::skin, 0.6});
    // The head hangs forward.
    figure.shift(now.speaks ? 0.6 : 0, -b * 0.8);
    figure.shape({{1, -90}, {8, -97}, {18, -95}, {22, -87}, {20, -78}, {12, -73}, {4, -76}},
                 {Ramp::skin, 0.66});
    figure.shape({{0, -84}, {-2, -92}, {3, -96}, {6, -90}, {4.6, -80}, {3, -74}}, {Ramp::paper, 0.9});
    figure.shape({{-2, -92}, {0, -106}, {6, -111}, {17, -110}, {20, -103}, {21, -93}, {10, -95}},
                 {Ramp::ink, 0.3});
    figure.line({{-1, -95}, {10, -97.4}, {21, -95}}, 2.6, {Ramp::ink, 0.54});
    figure.shape({{-2, -98}, {-8, -94}, {-10, -80}, {-6, -82}, {-2, -92}}, {Ramp::ink, 0.26});
    eyes(figure, 12.4, -86.4, 6, {now.breath, true, false, now.number});
    figure.line({{8.6, -90}, {12, -91.6}, {15, -89.4}}, 2, 2.4, 1.4, {Ramp::paper, 0.98});
    figure.line({{17, -90}, {20, -91}, {22.4, -88}}, 2, 2.2, 1.4, {Ramp::paper, 0.98});
    figure.line({{16.6, -86}, {18.6, -82.6}, {16.4, -81.6}}, 1.1, {Ramp::skin, 0.16});
    const double jaw = now.speaks ? 1.6 : 0;
    figure.shape({{5, -80},
                  {11, -80.6},
                  {15, -79 + jaw * 0.4},
                  {20.6, -80},
                  {21, -70 + jaw},
                  {17, -58 + jaw},
                  {13, -49 + jaw},
                  {10, -58 + jaw},
                  {6, -68}},
                 {Ramp::paper, 0.94});
    for (int hair = 0; hair < 3; ++hair)
        figure.line({{9.0 + hair * 3.6, -74 + jaw}, {11.0 + hair * 2, -64 + jaw}, {13, -55 + jaw}}, 0.9,
                    {Ramp::paper, 0.6});
    figure.line({{11, -79.6}, {15.4, -78.6}, {19.6, -79.6}}, 1.4, {Ramp::paper, 0.6});
    if (now.speaks) figure.spot(16, -77.4, 2, 1.2, {Ramp::vermilion, 0.1});
    return figure.picture();
}

// Round, her sleeves rolled up, a paper fan in one hand.
ink::tool::IndexedPicture seller(const Moment &now) {
    Figure figure(92, 130, 44, 124);
    const double b = now.breath;
    figure.shape({{-14, -4}, {-6, -6}, {0, -3}, {0, 0}, {-14, 0}}, {Ramp::vermilion, 0.3});
    figure.shape({{4, -4}, {10, -6}, {17, -3}, {17, 0}, {4, 0}}, {Ramp::vermilion, 0.3});
    figure.shape({{-18, -44}, {18, -44}, {24, -18}, {25, -4}, {2, -1}, {-24, -4}, {-24, -18}},
                 {Ramp::plum, 0.42}, 0.3);
    figure.line({{-23, -8}, {2, -5}, {24, -8}}, 2.4, {Ramp::gold, 0.56});
    figure.shape({{-14, -78 - b},
                  {0, -83 - b},
                  {14, -78 - b},
                  {21, -62},
                  {21, -46},
                  {10, -40},
                  {-12, -40},
                  {-21, -46},
                  {-21, -62}},
                 {Ramp::vermilion, 0.46}, 0.2);
    figure.shape({{-12, -56}, {0, -54}, {12, -56}, {16, -30}, {14, -12}, {0, -9}, {-14, -12}, {-16, -30}},
                 {Ramp::paper, 0.82}, 0.2);
    figure.line({{-20, -54}, {0, -50.6}, {20, -54}}, 3, {Ramp::indigo, 0.4});
    figure.line({{-6, -82}, {1, -68}, {4, -58}}, 2.8, {Ramp::paper, 0.94});
    figure.line({{8, -82}, {2, -69}}, 2.4, {Ramp::paper, 0.8});
    // One hand on the hip.
    figure.limb({{-17, -62}, {-29, -54}, {-20, -46}}, 6.4, 6.6, 6, {Ramp::skin, 0.66});
    figure.limb({{-13, -75}, {-20, -69}, {-23, -61}}, 10, 11.6, 11, {Ramp::vermilion, 0.42});
    figure.line({{-28, -61.6}, {-19, -58}}, 3.2, {Ramp::paper, 0.86});
    // The other with the fan.
    const double wave = now.number % 2 == 0 ? 0 : 4;
    figure.oval(32, -78 + wave, 9.4, 11, {Ramp::paper, 0.84});
    figure.line({{27, -82 + wave}, {32, -79 + wave}, {37, -83 + wave}}, 1.2, {Ramp::jade, 0.4});
    figure.spot(33, -74 + wave, 2.2, 2.2, {Ramp::vermilion, 0.5});
    figure.limb({{30, -67 + wave}, {27, -58 + wave}}, 2.2, 2.2, 2.2, {Ramp::wood, 0.4});
    figure.limb({{20, -63}, {27, -54 + wave * 0.4}, {28, -60 + wave}}, 6.4, 6.4, 5.6, {Ramp::skin, 0.66});
    figure.limb({{13, -75}, {20, -69}, {22.6, -61}}, 10, 11.6, 11, {Ramp::vermilion, 0.4});
    figure.line({{18.6, -58}, {27.6, -60}}, 3.2, {Ramp::paper, 0.86});
    figure.shift(0, -b);
    figure.limb({{1, -82}, {1, -86}}, 8, 8, 8, {Ramp::skin, 0.46});
    figure.shape(
        {{-11, -97}, {-6, -107}, {6, -108}, {14, -100}, {15, -91}, {9, -83.6}, {-2, -82.6}, {-10, -88}},
        {Ramp::skin, 0.74});
    figure.shape({{-12, -90},
                  {-14, -101},
                  {-7, -111},
                  {5, -113},
                  {14, -107},
                  {16, -96},
                  {12, -102},
                  {4, -105},
                  {-4, -103},
                  {-8, -97}},
                 {Ramp::ink, 0.3});
    figure.oval(-7, -114, 7.6, 6, {Ramp::ink, 0.34});
    figure.line({{-16, -113}, {1, -117}}, 1.8, {Ramp::gold, 0.7});
    figure.spot(2, -117.4, 2.2, 2.2, {Ramp::jade, 0.7});
    eyes(figure, 3, -94.4, 7.6, now);
    figure.line({{0.6, -98.6}, {3.6, -99.4}, {6, -98.2}}, 1.2, {Ramp::ink, 0.1});
    figure.line({{9, -98.2}, {11.4, -99.4}, {13.6, -98}}, 1.2, {Ramp::ink, 0.1});
    figure.spot(0.6, -90, 2.9, 1.9, {Ramp::blossom, 0.55}, 0.75);
    figure.spot(12.2, -90, 2.1, 1.8, {Ramp::blossom, 0.55}, 0.75);
    mouth(figure, 7.4, -87.6, now);
    return figure.picture();
}

// A cat with patches, sitting beside her.
void cat(Figure &figure, const Moment &now) {
    const double tip = now.number % 3 * 3.0;
    figure.limb({{22, -4}, {13, -5}, {9, -12 - tip * 0.5}, {12 - tip * 0.6, -19 - tip}}, 4, 3.6, 2.6,
                {Ramp::paper, 0.86});
    figure.shape({{19, -2}, {18, -12}, {22, -20}, {30, -20}, {35, -12}, {35, -1}, {27, 0}},
                 {Ramp::paper, 0.92});
    figure.flat({{18.6, -8}, {19, -14}, {24, -18}, {25, -10}, {22, -5}}, {Ramp::gold, 0.4});
    figure.line({{30, -10}, {30.6, -1}}, 1, {Ramp::ink, 0.3});
    figure.plate({{23.4, -26}, {22, -34}, {27.6, -30}}, {Ramp::gold, 0.4});
    figure.plate({{32, -30}, {37.4, -34}, {36.4, -25}}, {Ramp::paper, 0.8});
    figure.oval(30, -24, 8, 6.6, {Ramp::paper, 0.92});
    figure.flat({{22.8, -25}, {24, -29.6}, {29, -30.4}, {28, -25}, {25, -22}}, {Ramp::gold, 0.42});
    if (now.blink) {
        figure.line({{26, -24}, {28.4, -24.4}}, 1, {Ramp::ink, 0.05});
        figure.line({{32.4, -24.4}, {34.6, -24}}, 1, {Ramp::ink, 0.05});
    } else {
        figure.spot(27.4, -24.4, 1.1, 1.6, {Ramp::ink, 0.02});
        figure.spot(33.4, -24.4, 1.1, 1.6, {Ramp::ink, 0.02});
    }
    figure.spot(30.8, -21.6, 1.1, 0.8, {Ramp::blossom, 0.4});
    figure.line({{24, -20}, {34, -18.4}}, 1.8, {Ramp::vermilion, 0.5});
    figure.spot(30, -18, 1.5, 1.5, {Ramp::gold, 0.85});
}

// Small, two buns of hair, hands behind her back.
ink::tool::IndexedPicture girl(const Moment &now) {
    Figure figure(92, 100, 40, 94);
    const double b = now.breath * 0.7;
    for (const double x : {-6.0, 5.0}) {
        figure.limb({{x, -18}, {x, -4}}, 6, 5.6, 5, {Ramp::teal, 0.4});
        figure.shape({{x - 4, -4}, {x + 2, -5}, {x + 6, -2}, {x + 6, 0}, {x - 4, 0}},
                     {Ramp::vermilion, 0.42});
    }
    figure.shape({{-9, -48 - b},
                  {0, -51 - b},
                  {9, -48 - b},
                  {12, -34},
                  {17, -16},
                  {15, -12},
                  {0, -10},
                  {-15, -12},
                  {-17, -16},
                  {-12, -34}},
                 {Ramp::blossom, 0.5}, 0.26);
    figure.line({{-14, -15}, {0, -13}, {14, -15}}, 2.2, {Ramp::paper, 0.96});
    figure.shape({{-8, -49 - b}, {0, -50.6 - b}, {8, -49 - b}, {9.6, -34}, {0, -32}, {-9.6, -34}},
                 {Ramp::jade, 0.56});
    figure.line({{0, -50}, {0, -34}}, 1.2, {Ramp::gold, 0.7});
    figure.limb({{-8, -46}, {-14, -37}, {-11, -29}}, 6, 7.4, 8, {Ramp::blossom, 0.44});
    figure.limb({{8, -46}, {14, -38}, {now.speaks ? 20.0 : 12.0, now.speaks ? -42.0 : -29.0}}, 6, 7.4, 8,
                {Ramp::blossom, 0.4});
    if (now.speaks) figure.limb({{21, -43}, {23.4, -45}}, 4.4, 4.2, 4, {Ramp::skin, 0.7});
    figure.shift(now.number == 3 ? 0.7 : 0, -b);
    for (const double side : {-1.0, 1.0}) {
        figure.oval(side * 11.5 + 1, -77, 6.4, 6.2, {Ramp::ink, 0.34});
        figure.line({{side * 8 - 1, -71}, {side * 13 + 1, -71.6}}, 2.6, {Ramp::vermilion, 0.56});
        figure.line({{side * 14 + 1, -71}, {side * 16 + 1, -64}}, 1.9, {Ramp::vermilion, 0.48});
    }
    figure.shape({{-12, -62}, {-8, -73}, {1, -77}, {10, -73}, {14, -62}, {11, -54}, {3, -49.6}, {-6, -51}},
                 {Ramp::skin, 0.82});
    figure.shape({{-13, -58},
                  {-13.6, -68},
                  {-8, -77},
                  {1, -80},
                  {11, -77},
                  {15.4, -68},
                  {14.6, -58},
                  {12, -66},
                  {6, -69},
                  {1, -67},
                  {-4, -69},
                  {-10, -66}},
                 {Ramp::ink, 0.3});
    eyes(figure, -3.4, -60.4, 9, now, 1.2);
    figure.spot(-6.6, -56.4, 2.7, 1.8, {Ramp::blossom, 0.5}, 0.8);
    figure.spot(9, -56.4, 2.4, 1.8, {Ramp::blossom, 0.5}, 0.8);
    mouth(figure, 1.6, -54.4, now);
    figure.shift(now.number == 3 ? -0.7 : 0, b);
    cat(figure, now);
    return figure.picture();
}

// Lean and weathered, a wide straw hat, a cape of rushes, the pole upright.
ink::tool::IndexedPicture boatman(const Moment &now) {
    Figure figure(96, 142, 46, 136);
    const double b = now.breath;
    figure.limb({{24, -128}, {23, -60}, {24, -1}}, 3, 3.2, 3.4, {Ramp::straw, 0.52});
    for (int knot = 0; knot < 5; ++knot)
        figure.line({{21.6, -112.0 + knot * 24}, {26, -112.4 + knot * 24}}, 1.2, {Ramp::straw, 0.16});
    for (const double x : {-7.0, 7.0}) {
        figure.limb({{x * 0.8, -34}, {x, -12}, {x, -5}}, 6.4, 5.6, 5, {Ramp::skin, 0.5});
        figure.shape({{x - 4, -4}, {x + 2, -5}, {x + 8, -2}, {x + 8, 0}, {x - 4, 0}}, {Ramp::straw, 0.4});
        figure.line({{x - 2, -3}, {x + 2, -1}}, 1.2, {Ramp::wood, 0.2});
    }
    figure.shape({{-11, -52},
                  {11, -52},
                  {13, -34},
                  {12, -24},
                  {1.4, -25},
                  {0, -34},
                  {-1.4, -25},
                  {-12, -24},
                  {-13, -34}},
                 {Ramp::teal, 0.36}, 0.3);
    figure.shape(
        {{-11, -82 - b}, {0, -86 - b}, {11, -82 - b}, {13, -64}, {12, -50}, {0, -47}, {-12, -50}, {-13, -64}},
        {Ramp::teal, 0.54}, 0.3);
    figure.line({{-5, -84}, {1, -72}, {5, -60}}, 2.6, {Ramp::paper, 0.86});
    figure.limb({{-12, -53}, {0, -51}, {12, -53}}, 3.6, 3.6, 3.6, {Ramp::wood, 0.3});
    figure.shape({{7, -55}, {12, -58}, {15, -52}, {12, -46}, {7, -48}}, {Ramp::gold, 0.42});
    figure.limb({{-11, -74}, {-17, -62}, {-13, -52}}, 7, 7, 6.4, {Ramp::skin, 0.52});
    figure.limb({{-13, -54}, {-10, -51}}, 5, 5, 5, {Ramp::skin, 0.56});
    figure.limb({{11, -76}, {19, -68}, {24, -74}}, 7, 6.6, 6, {Ramp::skin, 0.52});
    figure.spot(24, -74, 3.4, 3, {Ramp::skin, 0.62});
    // The cape: three rows of rushes.
    for (int row = 2; row >= 0; --row) {
        const double y = -84 - b + row * 8.0, half = 12 + row * 2.6;
        figure.shape({{-half + 2, y},
                      {0, y - 3},
                      {half - 2, y},
                      {half + 1, y + 10},
                      {half * 0.5, y + 12},
                      {0, y + 10},
                      {-half * 0.5, y + 12},
                      {-half - 1, y + 10}},
                     {Ramp::straw, 0.42 + row * 0.04}, 0.5);
        for (double x = -half + 2; x < half; x += 3.4)
            figure.line({{x * 0.9, y + 1}, {x, y + 10}}, 0.9, {Ramp::straw, 0.14});
    }
    figure.shift(now.speaks ? 0.7 : 0, -b);
    figure.limb({{1, -86}, {2, -90}}, 6, 6, 6, {Ramp::skin, 0.36});
    figure.shape({{-7, -100}, {0, -107}, {9, -105}, {12, -98}, {10.6, -90}, {4, -85.6}, {-4, -88}},
                 {Ramp::skin, 0.54});
    eyes(figure, 3.4, -97, 5.8, now);
    figure.line({{1, -100}, {5.6, -100.4}}, 1.6, {Ramp::ink, 0.1});
    figure.line({{7.6, -100.4}, {11, -100}}, 1.6, {Ramp::ink, 0.1});
    figure.flat({{0, -92}, {5, -93}, {10.4, -92}, {9.6, -86}, {4, -83.6}, {-1, -87}}, {Ramp::ink, 0.36}, 0.8);
    mouth(figure, 6.8, -90.6, now);
    figure.shape({{-23, -100},
                  {-10, -109},
                  {1, -121},
                  {5, -121},
                  {15, -110},
                  {28, -101},
                  {16, -99.6},
                  {2, -102},
                  {-12, -99}},
                 {Ramp::straw, 0.62});
    for (int ring = 1; ring < 4; ++ring)
        figure.line({{-23.0 + ring * 5.6, -100 - ring * 4.4},
                     {2.4, -102.6 - ring * 4.6},
                     {28.0 - ring * 5.6, -101 - ring * 4.2}},
                    1, {Ramp::straw, 0.3});
    figure.line({{-8, -100}, {-4, -90}, {3, -85}}, 1.2, {Ramp::vermilion, 0.4});
    return figure.picture();
}

}  // namespace

Frames paint_master() {
    return six(master);
}
Frames paint_seller() {
    return six(seller);
}
Frames paint_girl() {
    return six(girl);
}
Frames paint_boatman() {
    return six(boatman);
}

}  // namespace paint
