// Faces for the panel, each before nothing, so that the glass shows through.
#include "figure_kit.h"
#include "people.h"

namespace paint {
namespace {

constexpr Tone kHair{Ramp::ink, 0.26};
constexpr Tone kPupil{Ramp::ink, 0.02};

struct Features {
    double skin;          // how light it is
    double eye_y, apart;  // of the middle of the face to each eye
    double open;          // height of an eye
    double brow;          // thickness
};

// An eye with its lid, its iris and a spark; the face looks a little to the right.
void paint_eye(Figure &figure, double x, double y, double open, bool right) {
    const double outer = right ? 7.4 : -7.4, inner = right ? -6.4 : 6.4;
    figure.flat({{x + inner, y + 1}, {x, y - open}, {x + outer, y - 0.4}, {x, y + open * 0.8}},
                {Ramp::paper, 0.98});
    figure.spot(x + 1, y - 0.2, 3.4, open * 0.98, {Ramp::wood, 0.12});
    figure.spot(x + 1, y, 2.1, open * 0.66, kPupil);
    figure.spot(x + 2.1, y - open * 0.36, 1.1, 1.1, {Ramp::paper, 1});
    figure.line({{x + inner, y + 0.8}, {x, y - open - 0.2}, {x + outer + 0.6, y - 0.8}}, 1.4, 2.6, 1.6,
                kPupil);
    figure.line({{x + inner * 0.6, y + open * 0.8}, {x + outer * 0.7, y + open * 0.6}}, 0.9,
                {Ramp::skin, 0.12});
}

void paint_features(Figure &figure, double x, double y, const Features &face) {
    for (const bool right : {false, true}) {
        const double at = x + (right ? face.apart * 0.92 : -face.apart);
        if (face.open > 0)
            paint_eye(figure, at, y + face.eye_y, face.open, right);
        else
            figure.line(
                {{at - 7, y + face.eye_y - 1}, {at, y + face.eye_y + 2}, {at + 7, y + face.eye_y - 1.4}}, 1,
                2.2, 1, kPupil);
        const double side = right ? 1 : -1;
        figure.line({{at - side * 7, y + face.eye_y - 9},
                     {at + side * 1, y + face.eye_y - 12},
                     {at + side * 9, y + face.eye_y - 9}},
                    face.brow, face.brow * 1.2, 1, kHair);
        figure.spot(at + side * 3, y + face.eye_y + 12, 6.4, 4, {Ramp::blossom, 0.66}, 0.3);
    }
    figure.line({{x + 3, y + face.eye_y + 1}, {x + 7, y + face.eye_y + 11}, {x + 2.4, y + face.eye_y + 13}},
                0.8, 1.4, 1, {Ramp::skin, 0.2});
}

// Neck and shoulders in a robe that crosses over the breast.
void paint_bust(Figure &figure, Ramp cloth, double value, double half, double skin, Tone collar) {
    figure.shape({{-half, 140},
                  {-half + 1, 116},
                  {-half * 0.72, 103},
                  {-16, 95},
                  {16, 95},
                  {half * 0.72, 103},
                  {half - 1, 116},
                  {half, 140}},
                 {cloth, value}, 0.3);
    figure.shape({{-11, 74}, {12, 74}, {12, 94}, {16, 98}, {2, 114}, {-14, 98}, {-11, 92}},
                 {Ramp::skin, skin - 0.24});
    figure.line({{15, 94}, {6, 112}, {-4, 128}, {-10, 142}}, 9.6, kContour);
    figure.line({{15, 94}, {6, 112}, {-4, 128}, {-10, 142}}, 7.4, {collar.ramp, collar.value - 0.14});
    figure.line({{-15, 94}, {-4, 112}, {8, 128}, {16, 142}}, 10, kContour);
    figure.line({{-15, 94}, {-4, 112}, {8, 128}, {16, 142}}, 7.8, collar);
}

void paint_head(Figure &figure, double skin, double wide, double chin) {
    figure.shape({{-wide, 44},
                  {-wide + 3, 24},
                  {0, 14},
                  {wide - 2, 24},
                  {wide + 2, 44},
                  {wide - 1, 60},
                  {wide * 0.56, chin - 7},
                  {3, chin},
                  {-wide * 0.5, chin - 7},
                  {-wide + 1, 60}},
                 {Ramp::skin, skin});
}

void paint_ear(Figure &figure, double x, double y, double skin) {
    figure.oval(x, y, 4.6, 7, {Ramp::skin, skin - 0.1});
    figure.line({{x - 0.6, y - 4}, {x + 1.4, y}, {x - 0.4, y + 4}}, 1, {Ramp::skin, 0.2});
}

void smile(Figure &figure, double x, double y, double half, double depth) {
    figure.line({{x - half, y}, {x + 0.5, y + depth}, {x + half, y - 0.6}}, 1, 2, 1, {Ramp::vermilion, 0.16});
    figure.line({{x - half * 0.4, y + depth + 3.4}, {x + half * 0.4, y + depth + 3.2}}, 1.2,
                {Ramp::skin, 0.26});
}

}  // namespace

Canvas portrait_of_hero() {
    Figure figure(112, 136, 54, 0);
    figure.limb({{-44, 138}, {-27, 78}}, 13, 13, 13, {Ramp::wood, 0.46});
    figure.line({{-36, 92}, {-24, 96}}, 4, {Ramp::gold, 0.6});
    figure.oval(-4, 9, 11, 9, kHair);
    figure.shape(
        {{-28, 70}, {-31, 42}, {-26, 22}, {-8, 11}, {14, 12}, {28, 28}, {29, 46}, {20, 66}, {-20, 76}},
        kHair);
    paint_bust(figure, Ramp::indigo, 0.5, 46, 0.76, {Ramp::paper, 0.92});
    paint_head(figure, 0.8, 25, 84);
    paint_ear(figure, -25, 52, 0.8);
    paint_features(figure, 2, 40, {0.8, 10, 11, 4.6, 2.2});
    smile(figure, 5, 71, 7, 2.4);
    figure.shape({{-28, 54},
                  {-30, 36},
                  {-20, 19},
                  {0, 12},
                  {20, 18},
                  {29, 36},
                  {28, 50},
                  {24, 36},
                  {14, 27},
                  {0, 29},
                  {-10, 27},
                  {-19, 38},
                  {-23, 52}},
                 kHair);
    for (int hair = 0; hair < 5; ++hair)
        figure.line({{-20.0 + hair * 8, 29}, {-12.0 + hair * 5, 20}, {-4.0 + hair, 14}}, 0.6, 1.1, 0.6,
                    {Ramp::ink, 0.6});
    figure.limb({{-14, 15}, {-3, 17}, {8, 14}}, 4.4, 4.4, 4.4, {Ramp::vermilion, 0.52});
    figure.line({{-14, 15}, {-26, 20}, {-34, 34}}, 3, 4, 2, {Ramp::vermilion, 0.46});
    return figure.canvas();
}

Canvas portrait_of_master() {
    Figure figure(112, 136, 56, 0);
    figure.shape({{-24, 40}, {-38, 44}, {-42, 74}, {-32, 70}, {-24, 52}}, {Ramp::ink, 0.22});
    paint_bust(figure, Ramp::paper, 0.62, 48, 0.66, {Ramp::ink, 0.3});
    figure.shape({{-27, 34}, {-30, 56}, {-24, 78}, {-18, 60}, {-20, 38}}, {Ramp::paper, 0.9});
    figure.shape({{25, 36}, {30, 56}, {25, 76}, {20, 60}}, {Ramp::paper, 0.82});
    paint_head(figure, 0.68, 25, 82);
    paint_ear(figure, -24, 54, 0.66);
    paint_features(figure, 2, 42, {0.68, 10, 11, 0, 0.1});
    for (const double side : {-1.0, 1.0}) {
        figure.line({{2 + side * 3, 44}, {2 + side * 12, 38}, {2 + side * 23, 48}}, 3, 5, 2,
                    {Ramp::paper, 0.98});
        figure.line({{2 + side * 20, 56}, {2 + side * 24, 60}}, 1, {Ramp::skin, 0.16});
        figure.line({{2 + side * 19, 59}, {2 + side * 23, 65}}, 1, {Ramp::skin, 0.16});
        figure.line({{2 + side * 9, 63}, {2 + side * 15, 70}}, 1.2, {Ramp::skin, 0.22});
    }
    figure.line({{-8, 37}, {2, 35}, {12, 37}}, 1, {Ramp::skin, 0.24});
    // Moustache and beard.
    figure.shape({{-20, 66},
                  {-12, 74},
                  {0, 72},
                  {4, 70},
                  {10, 72},
                  {20, 72},
                  {25, 66},
                  {24, 86},
                  {16, 108},
                  {6, 132},
                  {0, 120},
                  {-10, 106},
                  {-19, 86}},
                 {Ramp::paper, 0.94}, 0.1);
    for (int hair = 0; hair < 7; ++hair)
        figure.line({{-13.0 + hair * 5, 80}, {-9.0 + hair * 4, 100}, {-1.0 + hair * 1.8, 118}}, 0.7, 1.1, 0.5,
                    {Ramp::paper, 0.52});
    figure.line({{1, 70}, {-9, 73}, {-17, 84}}, 3, 5, 1.4, {Ramp::paper, 1});
    figure.line({{5, 70}, {14, 73}, {22, 83}}, 3, 5, 1.4, {Ramp::paper, 0.96});
    figure.line({{-1, 77}, {4, 78.6}, {9, 76.6}}, 1, 2.4, 1, {Ramp::vermilion, 0.16});
    // The cap.
    figure.shape({{-29, 34}, {-28, 12}, {-18, 3}, {18, 2}, {27, 10}, {29, 34}, {0, 28}}, {Ramp::ink, 0.26});
    figure.line({{-29, 33}, {0, 27.6}, {29, 33}}, 7, kContour);
    figure.line({{-28, 33}, {0, 27.6}, {28, 33}}, 5, {Ramp::ink, 0.5});
    figure.line({{-24, 18}, {0, 12}, {24, 17}}, 1.4, {Ramp::ink, 0.5});
    figure.oval(1, 28, 4.4, 4, {Ramp::jade, 0.74});
    return figure.canvas();
}

Canvas portrait_of_seller() {
    Figure figure(112, 136, 54, 0);
    figure.oval(-10, 10, 17, 11, kHair);
    figure.line({{-34, 12}, {14, 2}}, 3, {Ramp::gold, 0.66});
    figure.spot(16, 2, 4.4, 4.4, {Ramp::jade, 0.74});
    figure.shape({{-32, 66}, {-35, 42}, {-26, 20}, {0, 12}, {26, 20}, {34, 44}, {30, 64}, {0, 80}}, kHair);
    paint_bust(figure, Ramp::vermilion, 0.44, 50, 0.76, {Ramp::paper, 0.92});
    paint_head(figure, 0.8, 30, 86);
    figure.line({{-10, 84}, {4, 88}, {16, 84}}, 1.4, {Ramp::skin, 0.24});
    paint_ear(figure, -29, 56, 0.8);
    figure.spot(-29, 65, 2.6, 3.4, {Ramp::jade, 0.7});
    paint_features(figure, 3, 42, {0.8, 10, 12.6, 4.2, 1.7});
    figure.spot(-14, 66, 8, 5, {Ramp::blossom, 0.6}, 0.49);
    figure.spot(20, 66, 7, 5, {Ramp::blossom, 0.6}, 0.49);
    figure.flat({{-3, 71}, {5, 73}, {14, 70}, {11, 77}, {5, 79}, {0, 77}}, {Ramp::vermilion, 0.14});
    figure.flat({{0, 72.4}, {5, 73.6}, {11, 72}, {9, 74.6}, {2, 75}}, {Ramp::paper, 0.96});
    figure.spot(15, 78, 1.2, 1.2, {Ramp::ink, 0.1});
    figure.shape({{-33, 52},
                  {-34, 36},
                  {-22, 19},
                  {2, 13},
                  {24, 20},
                  {33, 38},
                  {32, 50},
                  {26, 36},
                  {12, 27},
                  {-8, 28},
                  {-22, 36},
                  {-28, 50}},
                 kHair);
    for (int hair = 0; hair < 5; ++hair)
        figure.line({{-22.0 + hair * 10, 32}, {-16.0 + hair * 7, 22}, {-8.0 + hair * 3, 15}}, 0.6, 1.2, 0.6,
                    {Ramp::ink, 0.6});
    return figure.canvas();
}

Canvas portrait_of_girl() {
    Figure figure(112, 136, 50, 0);
    for (const double side : {-1.0, 1.0}) {
        figure.oval(side * 27, 17, 14, 13, kHair);
        figure.line({{side * 17, 27}, {side * 32, 30}}, 5, {Ramp::vermilion, 0.54});
        figure.line({{side * 31, 30}, {side * 36, 46}}, 3.4, 3, 2, {Ramp::vermilion, 0.46});
        figure.line({{side * 18, 11}, {side * 27, 8}, {side * 36, 13}}, 0.8, 1.4, 0.8, {Ramp::ink, 0.6});
    }
    figure.shape({{-31, 68}, {-33, 44}, {-24, 22}, {0, 14}, {24, 22}, {33, 46}, {30, 68}, {0, 80}}, kHair);
    paint_bust(figure, Ramp::blossom, 0.52, 40, 0.82, {Ramp::jade, 0.62});
    paint_head(figure, 0.86, 28, 86);
    paint_features(figure, 1, 44, {0.86, 10, 13, 5.8, 1.5});
    figure.spot(-15, 69, 7, 4.6, {Ramp::blossom, 0.42}, 0.5);
    figure.spot(18, 69, 6.4, 4.6, {Ramp::blossom, 0.42}, 0.5);
    figure.flat({{-5, 72}, {3, 74}, {11, 71.4}, {8, 78}, {3, 79.6}, {-2, 78}}, {Ramp::vermilion, 0.14});
    figure.flat({{-2, 73.4}, {3, 74.4}, {8, 73}, {6, 75.4}, {0, 75.6}}, {Ramp::paper, 0.98});
    figure.shape({{-31, 60},
                  {-32, 40},
                  {-20, 21},
                  {1, 15},
                  {21, 21},
                  {32, 40},
                  {31, 60},
                  {26, 44},
                  {18, 38},
                  {9, 40},
                  {1, 36},
                  {-7, 40},
                  {-17, 38},
                  {-26, 44}},
                 kHair);
    // The cat looks out from under her arm.
    figure.plate({{17, 106}, {15, 90}, {28, 100}}, {Ramp::gold, 0.4});
    figure.plate({{40, 99}, {54, 90}, {53, 108}}, {Ramp::paper, 0.84});
    figure.shape({{14, 112}, {20, 101}, {35, 97}, {50, 101}, {57, 112}, {53, 125}, {36, 131}, {19, 126}},
                 {Ramp::paper, 0.92});
    figure.flat({{15, 112}, {20, 103}, {32, 99}, {33, 110}, {26, 119}, {18, 118}}, {Ramp::gold, 0.42});
    for (const double x : {27.0, 44.0}) {
        figure.spot(x, 112, 3.4, 4, {Ramp::jade, 0.8});
        figure.spot(x, 112, 1.3, 3.6, kPupil);
    }
    figure.flat({{33, 118}, {38, 118}, {35.6, 121}}, {Ramp::blossom, 0.36});
    figure.line({{30, 123}, {33, 124.6}, {35.6, 121.6}, {38.4, 124.6}, {42, 123}}, 1.1, kContour);
    for (const double side : {-1.0, 1.0}) {
        figure.line({{36 + side * 10, 119}, {36 + side * 20, 117}}, 0.9, {Ramp::ink, 0.5});
        figure.line({{36 + side * 10, 121}, {36 + side * 20, 122}}, 0.9, {Ramp::ink, 0.5});
    }
    figure.shape({{-16, 140}, {4, 128}, {26, 130}, {50, 134}, {52, 142}, {10, 144}}, {Ramp::blossom, 0.46},
                 0.2);
    return figure.canvas();
}

Canvas portrait_of_boatman() {
    Figure figure(112, 136, 56, 0);
    paint_bust(figure, Ramp::teal, 0.5, 46, 0.52, {Ramp::paper, 0.84});
    for (const double side : {-1.0, 1.0}) {
        figure.shape({{side * 16, 98},
                      {side * 34, 100},
                      {side * 50, 116},
                      {side * 54, 142},
                      {side * 26, 142},
                      {side * 22, 120}},
                     {Ramp::straw, 0.44}, 0.4);
        for (int straw = 0; straw < 8; ++straw)
            figure.line({{side * (20.0 + straw * 3), 101}, {side * (25.0 + straw * 4), 138}}, 1,
                        {Ramp::straw, straw % 2 ? 0.16 : 0.8});
    }
    figure.shape({{-24, 50}, {-27, 70}, {-20, 76}, {-16, 56}}, kHair);
    paint_head(figure, 0.54, 24, 84);
    paint_ear(figure, -24, 54, 0.52);
    paint_features(figure, 2, 42, {0.54, 11, 11, 3.2, 3.4});
    figure.line({{-18, 64}, {-10, 69}}, 1, {Ramp::skin, 0.1});
    figure.line({{20, 64}, {14, 69}}, 1, {Ramp::skin, 0.1});
    figure.line({{-17, 57}, {-22, 60}}, 1, {Ramp::skin, 0.1});
    smile(figure, 5, 73, 8, 1.4);
    // A thin moustache and a tuft on the chin.
    figure.line({{4, 69}, {-4, 70}, {-10, 77}}, 1.8, 2.6, 0.8, {Ramp::ink, 0.24});
    figure.line({{6, 69}, {14, 70}, {19, 76}}, 1.8, 2.6, 0.8, {Ramp::ink, 0.24});
    figure.shape({{-4, 80}, {5, 82}, {11, 79}, {9, 90}, {4, 99}, {-1, 90}}, {Ramp::ink, 0.28});
    // The hat shades the brow.
    figure.flat({{-24, 36}, {0, 40}, {26, 36}, {25, 47}, {0, 49}, {-24, 47}}, {Ramp::skin, 0.2}, 0.45);
    figure.shape({{-55, 42},
                  {-34, 24},
                  {-12, 6},
                  {-2, 2},
                  {4, 2},
                  {14, 7},
                  {36, 24},
                  {55, 40},
                  {34, 41},
                  {0, 37},
                  {-34, 42}},
                 {Ramp::straw, 0.6});
    for (int ring = 1; ring < 6; ++ring) {
        const double half = 54 - ring * 8.6, y = 41 - ring * 6.4;
        figure.line({{-half, y}, {1, y - 4.6}, {half + 1, y - 1}}, 1.2, {Ramp::straw, 0.28});
    }
    for (int rib = -4; rib <= 4; ++rib)
        figure.line({{rib * 2.0 + 1, 5}, {rib * 11.0, 37.0}}, 0.8, {Ramp::straw, 0.34});
    figure.line({{-24, 42}, {-22, 66}, {-4, 86}}, 1.8, {Ramp::vermilion, 0.42});
    figure.line({{27, 42}, {25, 64}, {8, 86}}, 1.8, {Ramp::vermilion, 0.36});
    return figure.canvas();
}

}  // namespace paint
