// The market at the bridge: the paper shop at the left, the stone bridge over the canal in the middle, the willow and the
// steps to the water at the right.
#include "building.h"
#include "calligraphy.h"
#include "nature.h"
#include "scenes.h"

namespace paint {
namespace {

constexpr int kQuay = 344, kHorizon = 226;

// Houses that stand along the canal, small and pale with distance.
void paint_house(Canvas &canvas, double left, double right, double eaves, double foot, double pale,
                 std::uint32_t seed) {
    paint_plaster(canvas, rectangle(left, eaves - 4, right, foot), 0.86 - pale * 0.1, seed);
    Chance chance(seed);
    for (double x = left + 10; x + 14 < right; x += 30) {
        const double y = eaves + 14 + chance.between(0, 6);
        canvas.lay(fill(rectangle(x - 1.5, y - 1.5, x + 13.5, y + 17.5)), {Ramp::wood, 0.2});
        canvas.lay(fill(rectangle(x, y, x + 12, y + 16)), {Ramp::window, chance.between(0.45, 0.85)});
        canvas.lay(fill(rectangle(x + 5.4, y, x + 6.6, y + 16)), {Ramp::wood, 0.2});
        canvas.lay(fill(rectangle(x, y + 7.4, x + 12, y + 8.6)), {Ramp::wood, 0.2});
    }
    paint_roof(
        canvas,
        {{left + 12, eaves - 26}, {right - 12, eaves - 26}, {left - 9, eaves}, {right + 9, eaves}, 4, 6});
    canvas.wash(fill(rectangle(left - 16, eaves - 40, right + 16, foot)), {Ramp::mountain, 0.9},
                [&](int, int y) { return pale * (0.5 + 0.5 * rise(eaves, foot, y)); });
}

void paint_background(Canvas &canvas) {
    paint_sky(canvas, kHorizon + 20, 5);
    paint_stars(canvas, kHorizon, 6);
    paint_mountain(canvas, {curve({{-20, 150},
                                   {60, 130},
                                   {150, 150},
                                   {240, 120},
                                   {300, 92},
                                   {345, 120},
                                   {400, 84},
                                   {450, 118},
                                   {520, 150},
                                   {590, 130},
                                   {670, 150}}),
                            kHorizon, 0.42, 11});
    paint_mist(canvas, 196, 36, 0.9, 21);
    // A pagoda far away.
    for (int floor = 0; floor < 5; ++floor) {
        const double y = 176 - floor * 13.0, half = 13 - floor * 1.7;
        canvas.lay(fill(rectangle(372 - half * 0.62, y, 372 + half * 0.62, y + 11)), {Ramp::mountain, 0.56});
        canvas.lay(fill(curve({{372 - half - 3, y},
                               {372 - half * 0.6, y - 1.5},
                               {372, y - 4},
                               {372 + half * 0.6, y - 1.5},
                               {372 + half + 3, y},
                               {372, y + 2.4}},
                              true)),
                   {Ramp::mountain, 0.2});
    }
    canvas.lay(stroke({{372, 122}, {372, 106}}, 1.8, 1.2, 0.6), {Ramp::mountain, 0.2});
    paint_house(canvas, 252, 318, 182, 236, 0.32, 31);
    paint_house(canvas, 428, 500, 176, 236, 0.3, 32);
    paint_house(canvas, 492, 582, 160, 240, 0.12, 33);
    paint_house(canvas, 570, 660, 176, 246, 0.06, 34);
}

void paint_canal(Canvas &canvas) {
    const Mask water = fill(rectangle(200, 230, 640, 352));
    paint_water(canvas, water, 226, 41);
    paint_reflection(canvas, 492, 590, 240, 292, {Ramp::ink, 0.5}, 42);
    paint_reflection(canvas, 590, 650, 246, 284, {Ramp::ink, 0.46}, 43);
    // The far bank.
    paint_masonry(canvas, {{520, 236}, {640, 240}, {640, 258}, {520, 246}}, 18, 6, 0.44, 44);
}

void paint_bridge(Canvas &canvas) {
    // The vault and its mirror image make a whole moon.
    const double x = 404, spring = 262;
    Path body = curve({{236, 262}, {290, 242}, {350, 208}, {404, 194}, {458, 208}, {518, 242}, {566, 262}});
    const std::size_t crest = body.size();
    body.push_back({566, 272});
    for (int i = 0; i <= 24; ++i) {
        const double turn = i / 48.0;
        body.push_back({x + 52 * cosine(turn), spring + 8 - 46 * sine(turn)});
    }
    body.push_back({236, 272});
    paint_masonry(canvas, body, 22, 8.5, 0.6, 51);
    canvas.shade(fill(body),
                 [](int px, int py) { return -0.1 * rise(210, 268, py) - 0.06 * rise(404, 560, px); });
    Path ring;
    for (int i = 0; i <= 24; ++i)
        ring.push_back({x + 57 * cosine(i / 48.0), spring + 8 - 51 * sine(i / 48.0)});
    canvas.lay(stroke(ring, 10), {Ramp::ink, 0.16});
    canvas.lay(stroke(ring, 7.6), {Ramp::stone, 0.7});
    for (int i = 1; i < 16; ++i)
        canvas.lay(stroke({{x + 53 * cosine(i / 32.0), spring + 8 - 47 * sine(i / 32.0)},
                           {x + 61 * cosine(i / 32.0), spring + 8 - 55 * sine(i / 32.0)}},
                          1),
                   {Ramp::ink, 0.3});
    // The walk and its rail with posts.
    Path deck(body.begin(), body.begin() + static_cast<std::ptrdiff_t>(crest));
    canvas.lay(stroke(deck, 6), {Ramp::ink, 0.14});
    canvas.lay(stroke(deck, 4), {Ramp::stone, 0.84});
    Path rail = deck;
    for (Point &point : rail) point.y -= 15;
    canvas.lay(stroke(rail, 4.4), {Ramp::ink, 0.14});
    canvas.lay(stroke(rail, 2.6), {Ramp::stone, 0.76});
    for (std::size_t i = 2; i < deck.size(); i += 5) {
        canvas.lay(fill(rectangle(deck[i].x - 3.4, deck[i].y - 22, deck[i].x + 3.4, deck[i].y)),
                   {Ramp::ink, 0.14});
        canvas.lay(fill(rectangle(deck[i].x - 2.4, deck[i].y - 21, deck[i].x + 2.4, deck[i].y)),
                   {Ramp::stone, 0.66});
        canvas.lay(fill(ellipse(deck[i].x, deck[i].y - 23, 3.4, 3)), {Ramp::stone, 0.86});
    }
    // Moss, and the mirror image.
    canvas.wash(fill(body), {Ramp::jade, 0.4}, [](int px, int py) {
        return 0.8 * rise(246, 270, py) * rise(0.46, 0.62, cloud(px / 14.0, py / 8.0, 53));
    });
    canvas.lay(stroke({{236, 271}, {348, 271}}, 2), {Ramp::ink, 0.2});
    canvas.lay(stroke({{460, 271}, {566, 271}}, 2), {Ramp::ink, 0.2});
    paint_reflection(canvas, 240, 350, 275, 326, {Ramp::stone, 0.34}, 54);
    paint_reflection(canvas, 458, 562, 275, 320, {Ramp::stone, 0.34}, 55);
}

void paint_quay(Canvas &canvas) {
    canvas.lay(fill(rectangle(0, kQuay, 640, 480)), [](int x, int y) {
        const double depth = 0.5 + (y - kQuay) / 105.0;
        const double down = (y - kQuay) / (6 + 8 * depth);
        const int row = floor_of(down);
        const double across = (x - 320) / depth / 56 + (row & 1) * 0.5 + 40;
        const int column = floor_of(across);
        const double in_x = across - column, in_y = down - row;
        double tone = 0.6 + 0.16 * (noise(column * 3.7, row * 5.3, 61) - 0.5) +
                      0.16 * (cloud(x / 18.0, y / 8.0, 62) - 0.5);
        if (in_x < 0.04 || in_y < 0.09) tone -= 0.2;
        return Tone{Ramp::stone, tone - 0.14 * rise(430, 480, y)};
    });
    // The edge over the water, with an opening where the steps go down.
    canvas.lay(fill({{218, 336}, {476, 336}, {476, 350}, {218, 350}}), {Ramp::stone, 0.78});
    canvas.lay(fill({{576, 336}, {640, 336}, {640, 350}, {576, 350}}), {Ramp::stone, 0.74});
    canvas.lay(stroke({{218, 336}, {476, 336}}, 1.4), {Ramp::ink, 0.2});
    canvas.lay(stroke({{576, 336}, {640, 336}}, 1.4), {Ramp::ink, 0.2});
    canvas.lay(stroke({{230, 350}, {640, 350}}, 1.2), {Ramp::ink, 0.34});
    for (int step = 0; step < 4; ++step) {
        const double y = 340 - step * 8.0, in = step * 5.0;
        canvas.lay(fill(rectangle(482 + in, y - 2, 572 - in, y + 8)), {Ramp::stone, 0.72 - step * 0.1});
        canvas.lay(fill(rectangle(482 + in, y + 4, 572 - in, y + 8)), {Ramp::stone, 0.4 - step * 0.06});
    }
    for (const double x : {250.0, 322.0, 394.0, 466.0, 584.0}) {
        canvas.lay(fill(rectangle(x - 5, 312, x + 5, 346)), {Ramp::ink, 0.12});
        canvas.lay(fill(rectangle(x - 4, 313, x + 4, 346)), [&](int px, int) {
            return Tone{Ramp::stone, 0.74 - (px - x + 4) * 0.05};
        });
        canvas.lay(fill(ellipse(x, 311, 5.6, 4)), {Ramp::stone, 0.86});
    }
    for (const double x : {250.0, 322.0, 394.0}) {
        canvas.lay(fill(rectangle(x + 4, 322, x + 68, 327)), {Ramp::ink, 0.16});
        canvas.lay(fill(rectangle(x + 4, 322.6, x + 68, 326)), {Ramp::stone, 0.68});
    }
}

void paint_shop(Canvas &canvas) {
    paint_plaster(canvas, rectangle(-4, 96, 222, 352), 0.86, 71);
    paint_masonry(canvas, rectangle(-4, 326, 226, 352), 30, 9, 0.44, 72);
    // The open front: a lamp burns somewhere behind the shelves, dim by day.
    canvas.lay(fill(rectangle(18, 176, 176, 330)), [](int x, int y) {
        const double dx = (x - 104) / 96.0, dy = (y - 246) / 84.0;
        const double board = noise(x / 3.0, y / 50.0, 73) - 0.5;
        return Tone{Ramp::window, 0.32 - 0.4 * (dx * dx + dy * dy) + 0.12 * board};
    });
    Chance chance(74);
    for (int shelf = 0; shelf < 3; ++shelf) {
        const double y = 212 + shelf * 32.0;
        for (double x = 26; x < 160; x += 15) {
            const double height = chance.between(8, 20);
            const Ramp ramp = chance.unit() < 0.7   ? Ramp::paper
                              : chance.unit() < 0.5 ? Ramp::vermilion
                                                    : Ramp::indigo;
            for (double sheet = 0; sheet < height; sheet += 3)
                canvas.lay(fill(rectangle(x, y - sheet - 2.4, x + 12, y - sheet)),
                           {ramp, chance.between(0.5, 0.8)});
        }
        paint_beam(canvas, 20, y, 174, y + 4, 0.3, 75);
    }
    // The counter with rolls and sheets on it.
    paint_wood(canvas, {{12, 286}, {172, 286}, {184, 298}, {4, 298}}, 0.6, false, 76);
    paint_wood(canvas, rectangle(4, 298, 184, 346), 0.36, false, 77);
    for (double x = 14; x < 170; x += 42) {
        canvas.lay(fill(rectangle(x, 304, x + 34, 340)), {Ramp::wood, 0.2});
        paint_wood(canvas, rectangle(x + 2, 306, x + 32, 338), 0.4, true, 78);
    }
    canvas.lay(fill({{24, 282}, {66, 282}, {72, 292}, {18, 292}}), {Ramp::paper, 0.94});
    canvas.lay(fill({{26, 278}, {66, 278}, {70, 286}, {20, 286}}), {Ramp::paper, 0.98});
    for (int roll = 0; roll < 4; ++roll) {
        canvas.lay(
            stroke({{84.0 + roll * 6, 290.0 - roll % 2 * 5}, {122.0 + roll * 6, 288.0 - roll % 2 * 5}}, 6),
            {roll == 2 ? Ramp::vermilion : Ramp::paper, 0.76 - 0.1 * roll});
    }
    paint_beam(canvas, 6, 168, 18, 346, 0.28, 79);
    paint_beam(canvas, 174, 168, 186, 346, 0.28, 80);
    paint_lattice(canvas, 194, 190, 216, 300, 2, 8);
    // The sign in gold on black.
    canvas.lay(fill(rectangle(34, 124, 160, 163)), {Ramp::ink, 0.06});
    canvas.lay(fill(rectangle(35, 125, 159, 162)), {Ramp::gold, 0.36});
    canvas.lay(fill(rectangle(38, 128, 156, 159)), {Ramp::ink, 0.1});
    write_shop_sign(canvas, 43, 131, 25, {Ramp::gold, 0.84});
    paint_roof(canvas, {{-40, 62}, {196, 62}, {-60, 114}, {250, 114}, 7, 11});
    // The awning: cloth on two poles.
    const Path awning{{2, 166}, {190, 166}, {226, 206}, {-30, 206}};
    canvas.lay(fill(awning), [](int x, int y) {
        const double across = (x - 96) / (1 + (y - 166) / 180.0);
        const bool light = (floor_of(across / 17 + 40) & 1) == 0;
        const double fold = noise(across / 6, y / 60.0, 82);
        return light ? Tone{Ramp::paper, 0.82 + 0.2 * (fold - 0.5)}
                     : Tone{Ramp::vermilion, 0.46 + 0.24 * (fold - 0.5)};
    });
    for (int tongue = 0; tongue < 16; ++tongue) {
        const double x = -30 + tongue * 16.0;
        canvas.lay(fill(curve({{x, 204}, {x + 16, 204}, {x + 14, 212}, {x + 8, 216}, {x + 2, 212}}, true)),
                   {tongue % 2 ? Ramp::vermilion : Ramp::paper, tongue % 2 ? 0.36 : 0.7});
    }
    canvas.lay(stroke({{-30, 205}, {226, 205}}, 1.2), {Ramp::ink, 0.3});
    canvas.shade(fill({{6, 216}, {186, 216}, {186, 236}, {6, 236}}), -0.1);
    canvas.lay(stroke({{222, 206}, {214, 350}}, 3.6), {Ramp::wood, 0.4});
    // The banner hangs from the end of a beam.
    canvas.lay(stroke({{208, 132}, {252, 132}}, 4.4), {Ramp::ink, 0.08});
    canvas.lay(stroke({{208, 132}, {252, 132}}, 2.8), {Ramp::wood, 0.4});
    const Path banner = curve({{226, 134},
                               {250, 134},
                               {249, 160},
                               {252, 186},
                               {250, 194},
                               {238, 189},
                               {226, 195},
                               {225, 186},
                               {227, 160}},
                              true);
    canvas.lay(stroke(banner, 2.2), {Ramp::ink, 0.1});
    canvas.lay(fill(banner), [](int x, int y) {
        return Tone{Ramp::indigo, 0.42 + 0.2 * (noise((x + y * 0.06) / 5.0, y / 22.0, 84) - 0.5)};
    });
    canvas.lay(fill(ellipse(238, 161, 10.4, 10.4)), {Ramp::paper, 0.92});
    write_paper(canvas, 231, 153.6, 14.5, {Ramp::ink, 0.04});
    canvas.shade(fill({{-4, 346}, {230, 346}, {250, 366}, {-4, 366}}),
                 [](int, int y) { return -0.16 * rise(368, 346, y); });
}

struct Jar {
    double x, y, size;
};

constexpr Point kLanterns[] = {{36, 240}, {98, 244}, {160, 240}};

void paint_willow_trunk(Canvas &canvas) {
    paint_rock(canvas, curve({{594, 362}, {602, 344}, {628, 338}, {650, 350}, {650, 370}, {616, 370}}, true),
               91);
    paint_trunk(canvas, curve({{622, 356}, {612, 300}, {624, 240}, {606, 180}, {580, 130}, {560, 96}}), 27,
                10, 92);
    paint_trunk(canvas, curve({{614, 200}, {630, 150}, {650, 110}}), 16, 8, 93);
    paint_trunk(canvas, curve({{590, 150}, {540, 110}, {500, 92}}), 8, 3, 94);
}

// Boughs whose places and lengths are drawn by lot, one number after another, in an order that no compiler may change.
struct Boughs {
    int count;
    double left, right, top, bottom, shortest, longest, sway_left, sway_right;
};
void paint_boughs(Canvas &canvas, const Boughs &boughs, Chance &chance, std::uint32_t seed) {
    for (int i = 0; i < boughs.count; ++i) {
        const double x = chance.between(boughs.left, boughs.right),
                     y = chance.between(boughs.top, boughs.bottom);
        const double length = chance.between(boughs.shortest, boughs.longest);
        const double sway = chance.between(boughs.sway_left, boughs.sway_right);
        paint_willow_bough(canvas, x, y, length, sway, seed + static_cast<std::uint32_t>(i));
    }
}

// What stands on the quay, and the shade of the willow on its stones.
void paint_goods(Canvas &canvas) {
    for (const Jar &jar : {Jar{258, 362, 1}, Jar{286, 358, 0.8}}) {
        const double x = jar.x, y = jar.y, size = jar.size;
        canvas.lay(fill(ellipse(x + 3, y, 19 * size, 5 * size)), {Ramp::ink, 0.2}, 0.45);
        const Path body = placed(
            curve({{-9, 0}, {-16, -16}, {-13, -30}, {-7, -36}, {7, -36}, {13, -30}, {16, -16}, {9, 0}}, true),
            x, y, size, size);
        canvas.lay(stroke(body, 2.4), {Ramp::ink, 0.08});
        canvas.lay(fill(body), [left = x - 16 * size, size](int px, int py) {
            const double across = (px - left) / (32 * size);
            return Tone{Ramp::wood, 0.62 - 0.5 * across * across + ((py + 3) % 9 == 0 ? 0.08 : 0)};
        });
        canvas.lay(fill(ellipse(x, y - 36 * size, 8.4 * size, 3 * size)), {Ramp::ink, 0.1});
        canvas.lay(fill(ellipse(x, y - 38 * size, 8.4 * size, 3.6 * size)), {Ramp::vermilion, 0.46});
    }
    canvas.shade(fill(rectangle(430, 352, 640, 440)), [](int x, int y) {
        const double dx = (x - 596) / 160.0, dy = (y - 384) / 44.0;
        const double leaves = cloud(x / 22.0, y / 8.0, 96);
        return -0.17 * rise(1, 0.3, dx * dx + dy * dy) * rise(0.36, 0.52, leaves);
    });
}

}  // namespace

Scene paint_market() {
    Scene scene;
    Canvas &canvas = scene.picture;
    paint_background(canvas);
    paint_canal(canvas);
    paint_bridge(canvas);
    paint_quay(canvas);
    paint_shop(canvas);
    for (const Point &at : kLanterns) paint_lantern(canvas, at.x, at.y, 13, 17);
    paint_goods(canvas);
    paint_willow_trunk(canvas);
    Chance chance(95);
    paint_boughs(canvas, {26, 482, 640, 66, 112, 50, 130, -16, 12}, chance, 100);
    paint_grain(canvas, 0.032, 7);

    Keys keys(scene.mask);
    keys.area(25, {{240, 236}, {640, 236}, {640, 344}, {240, 344}});
    keys.area(26, {{236, 240},
                   {300, 220},
                   {350, 190},
                   {404, 172},
                   {458, 190},
                   {520, 224},
                   {566, 244},
                   {566, 272},
                   {456, 272},
                   {440, 236},
                   {404, 222},
                   {368, 236},
                   {352, 272},
                   {236, 272}});
    keys.area(1, {{24, 366}, {616, 366}, {616, 426}, {24, 426}});
    keys.area(2, {{0, 356}, {26, 356}, {26, 440}, {0, 440}});
    keys.area(3, {{614, 372}, {640, 372}, {640, 440}, {614, 440}});
    keys.area(22, {{0, 60}, {196, 60}, {250, 114}, {226, 206}, {222, 346}, {0, 346}});
    keys.area(23, {{480, 60}, {640, 60}, {640, 362}, {596, 362}, {600, 220}, {480, 200}});
    for (const Point &at : kLanterns) keys.area(21, lantern_shape(at.x, at.y, 13, 17));
    keys.area(20, {{176, 262}, {232, 262}, {232, 374}, {176, 374}});

    paint_boughs(scene.front, {22, 560, 650, -20, 60, 110, 250, -22, 8}, chance, 200);
    paint_boughs(scene.front, {9, 300, 560, -27, -25, 40, 96, -14, 8}, chance, 300);
    return scene;
}

}  // namespace paint
