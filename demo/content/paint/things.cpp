#include "things.h"

#include "figure_kit.h"
#include "nature.h"

namespace paint {
namespace {

constexpr int kSize = 48;

Canvas inkstone() {
    Figure figure(kSize, kSize, 0, 0);
    figure.shape({{5, 30}, {7, 18}, {20, 11}, {36, 12}, {44, 22}, {43, 34}, {34, 42}, {14, 42}},
                 {Ramp::ink, 0.34});
    figure.shape({{10, 27}, {14, 19}, {24, 16}, {35, 18}, {38, 26}, {35, 33}, {24, 36}, {13, 34}},
                 {Ramp::ink, 0.5});
    figure.flat({{12, 26}, {16, 20}, {24, 18}, {26, 24}, {20, 30}, {13, 31}}, {Ramp::ink, 0.06});
    figure.line({{14, 25}, {18, 21}, {23, 20}}, 1.6, {Ramp::sky, 0.9});
    figure.line({{10, 38}, {24, 40}, {37, 37}}, 1.2, {Ramp::ink, 0.66});
    figure.spot(36, 16, 2, 1.6, {Ramp::gold, 0.66});
    return figure.canvas();
}

Canvas tea() {
    Figure figure(kSize, kSize, 0, 0);
    figure.shape({{8, 40}, {40, 40}, {43, 43}, {36, 46}, {12, 46}, {5, 43}}, {Ramp::wood, 0.4});
    figure.shape({{9, 22}, {24, 20}, {39, 22}, {37, 34}, {30, 41}, {18, 41}, {11, 34}}, {Ramp::teal, 0.72});
    figure.oval(24, 22, 15, 4.6, {Ramp::teal, 0.8});
    figure.spot(24, 22.6, 12.4, 3, {Ramp::jade, 0.46});
    figure.line({{14, 30}, {20, 34}, {28, 32}, {34, 30}}, 1.3, {Ramp::indigo, 0.3});
    for (int steam = 0; steam < 3; ++steam)
        figure.line(
            {{16.0 + steam * 8, 17}, {13.0 + steam * 8, 12}, {18.0 + steam * 8, 8}, {15.0 + steam * 8, 3}}, 1,
            2.2, 0.8, {Ramp::paper, 0.94});
    return figure.canvas();
}

// A swallow of paper on bamboo, its tails behind it; the icon and the one in the pine are the same.
void paint_kite(Figure &figure, double tail) {
    for (const double side : {-1.0, 1.0}) {
        figure.line({{side * 4, 34}, {side * 7 + 3, 34 + tail * 0.5}, {side * 5 - 2, 34 + tail}}, 3.2, 2.6,
                    1.6, {Ramp::vermilion, side < 0 ? 0.5 : 0.38});
        figure.shape({{0, 8},
                      {side * 9, 6},
                      {side * 20, 11},
                      {side * 22, 19},
                      {side * 14, 18},
                      {side * 5, 21},
                      {0, 20}},
                     {Ramp::vermilion, 0.5});
        figure.spot(side * 13, 13.4, 3.6, 2.8, {Ramp::gold, 0.8});
        figure.spot(side * 13, 13.4, 1.5, 1.3, {Ramp::ink, 0.1});
        figure.shape({{side * 1, 24}, {side * 8, 28}, {side * 11, 38}, {side * 3, 33}}, {Ramp::indigo, 0.46});
    }
    figure.shape({{-5, 6}, {0, 1}, {5, 6}, {6, 18}, {3, 30}, {0, 33}, {-3, 30}, {-6, 18}},
                 {Ramp::paper, 0.9});
    figure.spot(-2.4, 8, 1.3, 1.6, {Ramp::ink, 0.02});
    figure.spot(2.4, 8, 1.3, 1.6, {Ramp::ink, 0.02});
    figure.line({{-3, 18}, {0, 20}, {3, 18}}, 1.6, {Ramp::vermilion, 0.46});
    figure.line({{-3, 23}, {0, 25}, {3, 23}}, 1.6, {Ramp::vermilion, 0.46});
}

Canvas kite_icon() {
    Figure figure(kSize, kSize, 24, 1);
    paint_kite(figure, 11);
    return figure.canvas();
}

Canvas kite_in_pine() {
    Figure figure(60, 82, 28, 8);
    figure.line({{0, 0}, {-4, 18}, {6, 20}}, 1, {Ramp::paper, 0.9});
    paint_kite(figure, 34);
    return figure.canvas();
}

Canvas oil() {
    Figure figure(kSize, kSize, 0, 0);
    figure.shape(
        {{14, 44}, {8, 33}, {11, 23}, {19, 18}, {19, 12}, {29, 12}, {29, 18}, {37, 23}, {40, 33}, {34, 44}},
        {Ramp::wood, 0.54});
    figure.line({{11, 25}, {24, 22}, {37, 25}}, 1.8, {Ramp::straw, 0.8});
    figure.plate({{17, 6}, {31, 6}, {32, 13}, {16, 13}}, {Ramp::vermilion, 0.46});
    figure.plate({{18, 27}, {31, 27}, {31, 40}, {18, 40}}, {Ramp::vermilion, 0.54});
    figure.line({{24.5, 29.6}, {22, 34}, {24.5, 38}, {27.4, 34.6}, {24.5, 29.6}}, 1.5, {Ramp::gold, 0.9});
    figure.line({{12.6, 31}, {13.6, 38}}, 2, {Ramp::wood, 0.86});
    return figure.canvas();
}

Canvas brush() {
    Figure figure(kSize, kSize, 0, 0);
    figure.limb({{43, 5}, {20, 28}}, 4.4, 5, 5.4, {Ramp::straw, 0.6});
    for (int knot = 0; knot < 2; ++knot)
        figure.line({{35.0 - knot * 9, 10.0 + knot * 9}, {39.0 - knot * 9, 14.0 + knot * 9}}, 1.2,
                    {Ramp::straw, 0.2});
    figure.limb({{22, 26}, {19, 29}}, 6.4, 6.4, 6.4, {Ramp::gold, 0.5});
    figure.shape({{21, 32}, {16, 27}, {10, 33}, {5, 43}, {14, 39}}, {Ramp::gold, 0.36});
    figure.flat({{14, 36}, {10, 34.6}, {6, 43}, {12, 39.6}}, {Ramp::paper, 0.94});
    figure.line({{43, 5}, {46, 8}, {44, 13}}, 1.4, {Ramp::vermilion, 0.5});
    return figure.canvas();
}

Canvas sheet() {
    Figure figure(kSize, kSize, 0, 0);
    figure.plate({{8, 13}, {36, 8}, {43, 35}, {14, 41}}, {Ramp::paper, 0.76});
    figure.plate({{5, 10}, {34, 6}, {39, 34}, {10, 39}}, {Ramp::paper, 0.9});
    for (int fibre = 0; fibre < 5; ++fibre)
        figure.line({{11.0 + fibre * 5, 15.0 + fibre * 3}, {16.0 + fibre * 4, 13.0 + fibre * 4}}, 0.8,
                    {Ramp::paper, 0.62});
    figure.limb({{10, 39}, {39, 34}}, 4, 4, 4, {Ramp::paper, 0.98});
    figure.spot(33, 30, 2.4, 2.4, {Ramp::vermilion, 0.5});
    return figure.canvas();
}

Canvas ink_stick() {
    Figure figure(kSize, kSize, 0, 0);
    figure.plate({{27, 4}, {41, 9}, {22, 45}, {8, 40}}, {Ramp::ink, 0.3});
    figure.flat({{27, 4}, {30, 5}, {11, 41}, {8, 40}}, {Ramp::ink, 0.56});
    // A dragon in gold, as it is on good ink.
    figure.line({{31, 12}, {26, 15}, {30, 20}, {23, 24}, {26, 29}, {18, 33}}, 2, 2.6, 1, {Ramp::gold, 0.72});
    figure.line({{33, 10}, {35.6, 12}}, 1.8, {Ramp::gold, 0.9});
    figure.flat({{15, 36}, {24, 39}, {21, 45}, {8.6, 40}}, {Ramp::vermilion, 0.46});
    return figure.canvas();
}

Canvas painting() {
    Figure figure(kSize, kSize, 0, 0);
    figure.plate({{9, 8}, {39, 8}, {39, 40}, {9, 40}}, {Ramp::teal, 0.44});
    figure.plate({{13, 11}, {35, 11}, {35, 37}, {13, 37}}, {Ramp::indigo, 0.2});
    figure.spot(24, 23, 8.6, 8.6, {Ramp::gold, 0.5}, 0.5);
    figure.spot(24, 23, 7, 7, {Ramp::moon, 0.9});
    figure.spot(21, 21, 1.8, 1.4, {Ramp::moon, 0.2});
    figure.spot(26, 26, 2.2, 1.6, {Ramp::moon, 0.3});
    figure.limb({{6, 7}, {42, 7}}, 4, 4, 4, {Ramp::wood, 0.5});
    figure.limb({{6, 41}, {42, 41}}, 4.6, 4.6, 4.6, {Ramp::wood, 0.5});
    return figure.canvas();
}

// A sampan with a roof of mats, its bow to the right.
Canvas boat() {
    Figure figure(124, 62, 0, 0);
    figure.shape({{4, 34},
                  {18, 40},
                  {60, 42},
                  {102, 38},
                  {120, 28},
                  {112, 44},
                  {98, 54},
                  {60, 57},
                  {24, 54},
                  {10, 46}},
                 {Ramp::wood, 0.36});
    figure.line({{5, 35}, {18, 41}, {60, 43}, {102, 39}, {119, 29}}, 2.6, {Ramp::wood, 0.66});
    figure.line({{14, 47}, {60, 50}, {106, 46}}, 1.2, {Ramp::wood, 0.08});
    for (double x = 20; x < 106; x += 17) figure.line({{x, 42}, {x + 2, 54}}, 1, {Ramp::wood, 0.14});
    figure.shape({{28, 41}, {27, 26}, {35, 14}, {52, 9}, {70, 14}, {78, 26}, {78, 41}, {60, 43}, {40, 42}},
                 {Ramp::straw, 0.5});
    for (int mat = 0; mat < 7; ++mat) {
        figure.line({{31.0 + mat * 7, 38}, {33.0 + mat * 6.4, 22}, {39.0 + mat * 4, 13}}, 1,
                    {Ramp::straw, 0.2});
        if (mat < 4)
            figure.line({{28, 22.0 + mat * 6}, {52, 19.0 + mat * 6}, {77, 22.0 + mat * 6}}, 1,
                        {Ramp::straw, mat % 2 ? 0.26 : 0.8});
    }
    figure.shape({{66, 41}, {66, 28}, {71, 22}, {76, 28}, {76, 40}}, {Ramp::ink, 0.1});
    figure.oval(88, 30, 4, 5, {Ramp::vermilion, 0.52});
    figure.line({{88, 22}, {88, 25}}, 1.2, kContour);
    figure.line({{79, 20}, {88, 22}}, 1.4, kContour);
    return figure.canvas();
}

constexpr Tone fixed(int index) {
    return {Ramp::exact, static_cast<double>(index)};
}

// A form in one of the colours that no light changes, with a dark edge.
void cut_out(Figure &figure, const Path &points, int index) {
    Path ring = curve(points, true);
    ring.push_back(ring[0]);
    figure.canvas().lay(stroke(figure.here(ring), 2.6), fixed(kBlack));
    figure.canvas().lay(fill(figure.here(curve(points, true))), fixed(index));
}

Frames arrow() {
    Frames frames;
    for (int i = 0; i < 6; ++i) {
        Figure figure(30, 30, 1, 1);
        cut_out(figure, {{26, 24}, {24, 26}, {13, 15}, {15, 13}}, kBrown);
        cut_out(figure, {{16, 13}, {13, 16}, {10, 13.6}, {13.6, 10}}, kGold);
        cut_out(figure, {{1, 1}, {8, 2.6}, {13, 9}, {9, 13}, {2.6, 8}}, kPaperWhite);
        figure.flat({{1, 1}, {5.4, 2}, {7, 5.4}, {2, 5.4}}, fixed(kBlack));
        // Light that runs along the hair.
        if (i < 4) figure.spot(4.6 + i * 2, 5.4 + i * 2, 1.1, 1.1, fixed(kBrightGold));
        frames.push_back(figure.picture());
    }
    return frames;
}

// Two soles that step in turn.
Frames walk() {
    Frames frames;
    for (int i = 0; i < 4; ++i) {
        Figure figure(26, 32, 0, 0);
        const double left = i < 2 ? 0 : -3, right = i < 2 ? -3 : 0;
        cut_out(figure,
                {{8, 30 + left},
                 {4.6, 26 + left},
                 {5.6, 20 + left},
                 {4, 13 + left},
                 {7, 8 + left},
                 {11, 12 + left},
                 {10.6, 20 + left},
                 {11.4, 26 + left}},
                i < 2 ? kPaperWhite : kGold);
        cut_out(figure,
                {{18, 30 + right},
                 {14.6, 26 + right},
                 {15.4, 20 + right},
                 {15, 12 + right},
                 {19, 8 + right},
                 {22, 13 + right},
                 {20.4, 20 + right},
                 {21.4, 26 + right}},
                i < 2 ? kGold : kPaperWhite);
        frames.push_back(figure.picture());
    }
    return frames;
}

Frames hand() {
    Frames frames;
    for (int i = 0; i < 4; ++i) {
        Figure figure(30, 34, 0, 0);
        const double bend = i % 2;
        cut_out(figure,
                {{4, 4 + bend},
                 {7, 3 + bend},
                 {12, 11 + bend},
                 {16, 10},
                 {20, 12},
                 {24, 14},
                 {26, 20},
                 {24, 27},
                 {14, 28},
                 {9, 22},
                 {5, 17},
                 {10, 17}},
                kPaperWhite);
        figure.line({{14, 12}, {16, 16}}, 1.2, fixed(kGrey));
        figure.line({{18, 13}, {20, 17}}, 1.2, fixed(kGrey));
        cut_out(figure, {{13, 27}, {25, 24}, {28, 30}, {16, 33}}, kVermilion);
        frames.push_back(figure.picture());
    }
    return frames;
}

// A bubble in which three drops of ink appear.
Frames talk() {
    Frames frames;
    for (int i = 0; i < 4; ++i) {
        Figure figure(34, 30, 0, 0);
        cut_out(
            figure,
            {{3, 26}, {7, 19}, {3, 12}, {8, 4}, {18, 2}, {28, 4}, {32, 11}, {28, 19}, {18, 22}, {11, 21.6}},
            kPaperWhite);
        for (int drop = 0; drop < i; ++drop)
            figure.spot(11.0 + drop * 6.6, 12, 2, 2, fixed(drop == 2 ? kVermilion : kBlack));
        frames.push_back(figure.picture());
    }
    return frames;
}

}  // namespace

std::vector<Thing> paint_things() {
    return {{"i_stone.img", inkstone()}, {"i_tea.img", tea()},       {"i_kite.img", kite_icon()},
            {"i_oil.img", oil()},        {"i_brush.img", brush()},   {"i_paper.img", sheet()},
            {"i_ink.img", ink_stick()},  {"i_moon.img", painting()}, {"kite.img", kite_in_pine()},
            {"boat.img", boat()}};
}

std::vector<Cursor> paint_cursors() {
    return {{"c_arrow.can", arrow()}, {"c_walk.can", walk()}, {"c_hand.can", hand()}, {"c_talk.can", talk()}};
}

}  // namespace paint
