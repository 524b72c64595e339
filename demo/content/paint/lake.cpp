// The pavilion on the lake: the pine with the kite at the left, the boat at its pier, the pavilion at the right, and
// between them the place of the moon.
#include "building.h"
#include "calligraphy.h"
#include "nature.h"
#include "scenes.h"

namespace paint {
namespace {

constexpr int kWater = 262;

Path shore_line() {
    return curve({{-10, 330},
                  {60, 338},
                  {130, 346},
                  {210, 344},
                  {290, 350},
                  {370, 348},
                  {440, 342},
                  {520, 346},
                  {650, 340}});
}

void paint_distance(Canvas &canvas) {
    paint_sky(canvas, kWater, 3);
    paint_stars(canvas, kWater, 4);
    paint_mountain(canvas, {curve({{-20, 190},
                                   {40, 150},
                                   {90, 168},
                                   {150, 120},
                                   {205, 158},
                                   {260, 140},
                                   {330, 190},
                                   {400, 205},
                                   {470, 170},
                                   {520, 130},
                                   {575, 96},
                                   {620, 124},
                                   {670, 100}}),
                            kWater, 0.34, 11});
    paint_mist(canvas, 216, 40, 0.8, 21);
    paint_mountain(canvas, {curve({{-20, 222},
                                   {40, 196},
                                   {110, 214},
                                   {170, 186},
                                   {230, 214},
                                   {300, 234},
                                   {370, 240},
                                   {440, 222},
                                   {490, 186},
                                   {530, 196},
                                   {590, 164},
                                   {670, 190}}),
                            kWater, 0.6, 12});
    paint_mist(canvas, 246, 26, 0.85, 22);
    paint_mountain(canvas, {curve({{-20, 236},
                                   {50, 228},
                                   {120, 244},
                                   {180, 254},
                                   {260, 259},
                                   {420, 259},
                                   {500, 250},
                                   {560, 240},
                                   {670, 236}}),
                            kWater, 0.85, 13});
    // A far sail and its shadow.
    canvas.lay(fill({{306, 258}, {309, 239}, {320, 243}, {319, 258}}), {Ramp::paper, 0.62});
    canvas.lay(stroke({{301, 260}, {312, 262}, {324, 259}}, 1, 3, 1), {Ramp::ink, 0.2});
}

void paint_lake_water(Canvas &canvas) {
    const Mask water = fill(rectangle(0, kWater, 640, 360));
    paint_water(canvas, water, kWater, 31);
    canvas.wash(water, {Ramp::mountain, 0.35}, [](int x, int y) {
        const double side = rise(230, 40, x) + rise(430, 600, x);
        return 0.5 * side * rise(kWater + 40, kWater, y) * rise(0.4, 0.6, noise(x / 30.0, y / 2.0, 33));
    });
    canvas.lay(stroke({{0, kWater + 0.5}, {640, kWater + 0.5}}, 1), {Ramp::mountain, 0.9}, 0.7);
    // Lotus leaves along the shore, one with its flower.
    Chance chance(37);
    for (int i = 0; i < 17; ++i) {
        const double x = i < 9 ? chance.between(120, 270) : chance.between(470, 630),
                     y = chance.between(312, 340);
        const double rx = chance.between(7, 14) * (y - 250) / 80;
        canvas.lay(fill(ellipse(x, y + 1.6, rx + 1, rx * 0.32 + 1)), {Ramp::ink, 0.16});
        canvas.lay(fill(ellipse(x, y, rx, rx * 0.32)), [&](int px, int) {
            return Tone{Ramp::jade, 0.5 + (x - px) / rx * 0.14};
        });
        canvas.lay(stroke({{x, y}, {x + rx, y + 1}}, 0.9), {Ramp::jade, 0.2});
        if (i % 5 == 2)
            for (int petal = -2; petal <= 2; ++petal)
                canvas.lay(fill(curve({{x + 1.0, y - 1},
                                       {x + petal * 3.0 - 1.6, y - 7},
                                       {x + petal * 3.3, y - 12 + petal * petal * 1.3},
                                       {x + petal * 3.0 + 1.6, y - 7}},
                                      true)),
                           {Ramp::blossom, 0.62 + 0.13 * (petal % 2 == 0)});
    }
}

void paint_shore(Canvas &canvas) {
    Path bank = shore_line();
    bank.push_back({650, 490});
    bank.push_back({-10, 490});
    canvas.lay(fill(bank), [](int x, int y) {
        const double path = 1 - rise(0, 46, y < 392 ? 392 - y : y - 392);
        const double earth = cloud(x / 34.0, y / 12.0, 41);
        return Tone{Ramp::straw, 0.34 + 0.36 * path + (earth - 0.5) * 0.3 - 0.2 * rise(420, 480, y)};
    });
    canvas.wash(fill(bank), {Ramp::jade, 0.42}, [](int x, int y) {
        const double edge = rise(372, 350, y) + rise(418, 470, y);
        return 0.95 * edge * rise(0.42, 0.6, cloud(x / 26.0, y / 9.0, 43));
    });
    // The water's edge: wet earth, stones, and reeds in clumps.
    const Path shore = shore_line();
    canvas.lay(stroke(shore, 5), [](int x, int y) {
        return Tone{Ramp::wood, 0.2 + 0.3 * noise(x / 7.0, y / 3.0, 45)};
    });
    Chance chance(47);
    for (int i = 0; i < 420; ++i) {
        const bool low = i % 3 != 0;
        const double x = chance.between(-5, 645),
                     y = low ? chance.between(428, 484) : chance.between(346, 358);
        const double length = low ? chance.between(7, 17) : chance.between(4, 8),
                     lean = chance.between(-5, 5);
        canvas.lay(
            stroke({{x, y}, {x + lean * 0.4, y - length * 0.6}, {x + lean, y - length}}, 1.8, 1.4, 0.5),
            {Ramp::jade, low ? chance.between(0.08, 0.42) : chance.between(0.3, 0.6)});
    }
    for (std::size_t i = 2; i < shore.size(); ++i) {
        if (noise(static_cast<double>(i) / 4.0, 0, 48) < 0.46) continue;
        const double x = shore[i].x + chance.between(-6, 6), y = shore[i].y + chance.between(-1, 4),
                     r = chance.between(3, 9);
        canvas.lay(fill(ellipse(x, y + 1.4, r * 1.5, r * 0.7 + 1)), {Ramp::ink, 0.12});
        canvas.lay(fill(ellipse(x, y, r * 1.4, r * 0.7)), [&](int px, int py) {
            return Tone{Ramp::stone, 0.66 + (y - py) * 0.05 - (px - x) * 0.012};
        });
        for (int reed = 0; reed < (i % 3 == 0 ? 5 : 0); ++reed) {
            const double foot = x + chance.between(-9, 9), height = chance.between(9, 26),
                         lean = chance.between(-5, 5);
            canvas.lay(
                stroke(
                    curve({{foot, y + 3}, {foot + lean * 0.3, y - height * 0.5}, {foot + lean, y - height}}),
                    2, 1.5, 0.5),
                {Ramp::jade, chance.between(0.16, 0.5)});
        }
    }
    for (int i = 0; i < 26; ++i) {
        const double x = chance.between(20, 620), y = chance.between(372, 416), r = chance.between(2, 6);
        canvas.lay(fill(ellipse(x, y + 1, r * 1.7, r * 0.6)), {Ramp::ink, 0.25}, 0.4);
        canvas.lay(fill(ellipse(x, y, r * 1.5, r * 0.5)), {Ramp::stone, chance.between(0.5, 0.8)});
    }
    paint_rock(canvas,
               curve({{-6, 352}, {10, 318}, {34, 306}, {58, 318}, {72, 340}, {66, 356}, {20, 362}}, true),
               51);
    paint_rock(canvas, curve({{62, 356}, {70, 338}, {92, 334}, {106, 348}, {100, 358}}, true), 52);
}

void paint_pier(Canvas &canvas) {
    for (const double x : {292.0, 338.0}) {
        canvas.lay(fill(rectangle(x, 316, x + 5, 356)), {Ramp::wood, 0.1});
        paint_reflection(canvas, x - 2, x + 7, 333, 346, {Ramp::ink, 0.2}, 53);
    }
    for (int plank = 0; plank < 8; ++plank) {
        const double y = 315 + plank * 5.4, spread = plank * 1.4;
        paint_wood(canvas,
                   {{288 - spread, y}, {346 + spread, y}, {347 + spread, y + 5}, {287 - spread, y + 5}},
                   0.46 + 0.1 * noise(plank * 3.3, 0, 54), false, static_cast<std::uint32_t>(55 + plank));
        canvas.lay(stroke({{287 - spread, y + 5}, {347 + spread, y + 5}}, 1), {Ramp::ink, 0.1});
    }
    for (const double x : {286.0, 343.0}) {
        paint_beam(canvas, x, 300, x + 6, 334, 0.4, 58);
        canvas.lay(fill(ellipse(x + 3, 300, 4, 2)), {Ramp::wood, 0.7});
    }
}

void paint_pavilion(Canvas &canvas) {
    paint_reflection(canvas, 470, 620, 340, 346, {Ramp::ink, 0.18}, 61);
    paint_masonry(canvas, {{456, 338}, {640, 338}, {644, 362}, {448, 362}}, 26, 8, 0.56, 62);
    canvas.lay(fill({{456, 338}, {474, 328}, {640, 328}, {640, 338}}), {Ramp::stone, 0.82});
    canvas.lay(stroke({{456, 338}, {640, 338}}, 1.2), {Ramp::ink, 0.2});
    for (const double x : {496.0, 604.0}) paint_beam(canvas, x, 208, x + 7, 328, 0.2, 63);
    // The rail at the back, before the lake.
    for (double x = 492; x < 612; x += 9)
        canvas.lay(stroke({{x, 300}, {x, 324}}, 1.6), {Ramp::vermilion, 0.3});
    paint_beam(canvas, 484, 296, 618, 300, 0.32, 64);
    paint_beam(canvas, 484, 318, 618, 321, 0.26, 64);
    for (const double x : {472.0, 622.0}) {
        paint_beam(canvas, x, 206, x + 10, 340, 0.3, 65);
        canvas.lay(fill(rectangle(x - 2, 334, x + 12, 341)), {Ramp::stone, 0.5});
    }
    paint_beam(canvas, 462, 212, 640, 221, 0.28, 66);
    for (double x = 488; x < 620; x += 14)
        canvas.lay(stroke(curve({{x, 222}, {x + 5, 230}, {x + 12, 222}}), 1.6), {Ramp::vermilion, 0.4});
    canvas.lay(fill(rectangle(522, 224, 588, 244)), {Ramp::ink, 0.08});
    canvas.lay(fill(rectangle(525, 226, 585, 242)), {Ramp::wood, 0.12});
    write_tablet(canvas, 537, 227.5, 13, {Ramp::gold, 0.92});
    paint_roof(canvas, {{520, 138}, {606, 138}, {434, 204}, {676, 204}, 12, 9});
    canvas.lay(stroke(curve({{520, 138}, {488, 176}, {452, 198}, {430, 194}}), 7, 5.5, 3), {Ramp::ink, 0.1});
    canvas.lay(stroke(curve({{519, 137}, {487, 174}, {452, 196}, {431, 192}}), 3, 2.5, 1), {Ramp::ink, 0.55});
    canvas.lay(fill(curve({{552, 134}, {556, 118}, {563, 110}, {570, 118}, {574, 134}}, true)),
               {Ramp::ink, 0.12});
    canvas.lay(fill(curve({{556, 131}, {559, 119}, {563, 113}, {566, 120}, {567, 131}}, true)),
               {Ramp::vermilion, 0.5});
    paint_lantern(canvas, 456, 236, 9, 12, Ramp::gold);
}

void paint_pine(Canvas &canvas) {
    paint_trunk(canvas, curve({{26, 330}, {38, 280}, {30, 226}, {58, 172}, {98, 130}, {146, 108}}), 24, 9,
                71);
    paint_trunk(canvas, curve({{48, 190}, {20, 150}, {-6, 130}}), 11, 5, 72);
    paint_trunk(canvas, curve({{70, 160}, {120, 176}, {168, 170}, {206, 182}}), 9, 3, 73);
    paint_trunk(canvas, curve({{98, 130}, {110, 96}, {96, 70}}), 8, 3, 74);
    constexpr double kCushions[][4] = {{20, 128, 44, 15},  {96, 64, 48, 17},   {48, 92, 40, 14},
                                       {150, 98, 50, 16},  {194, 122, 34, 11}, {130, 166, 36, 11},
                                       {206, 178, 36, 11}, {64, 150, 26, 9},   {8, 78, 30, 12}};
    std::uint32_t seed = 80;
    for (const auto &cushion : kCushions)
        paint_needles(canvas, cushion[0], cushion[1], cushion[2], cushion[3], seed++);
}

}  // namespace

Scene paint_lake() {
    Scene scene;
    paint_distance(scene.picture);
    paint_lake_water(scene.picture);
    paint_shore(scene.picture);
    paint_pier(scene.picture);
    paint_pavilion(scene.picture);
    paint_pine(scene.picture);
    paint_grain(scene.picture, 0.035, 9);

    Keys keys(scene.mask);
    keys.area(35, {{0, 90}, {640, 90}, {640, kWater}, {0, kWater}});
    keys.area(34, {{0, kWater}, {640, kWater}, {640, 338}, {0, 338}});
    // The moon is mirrored in the water alone, not on the pier.
    keys.area(0, {{284, 298}, {350, 298}, {356, 360}, {278, 360}});
    keys.area(1, {{24, 364}, {616, 364}, {616, 424}, {24, 424}});
    keys.area(2, {{0, 356}, {26, 356}, {26, 440}, {0, 440}});
    keys.area(33, {{432, 196},
                   {520, 136},
                   {556, 110},
                   {606, 136},
                   {640, 170},
                   {640, 362},
                   {450, 362},
                   {466, 336},
                   {472, 222}});
    keys.area(32, {{0, 60}, {150, 50}, {236, 120}, {240, 190}, {96, 180}, {66, 220}, {60, 330}, {0, 340}});
    keys.area(31, {{346, 300}, {360, 290}, {462, 290}, {472, 302}, {452, 340}, {360, 340}});
    keys.area(30, {{308, 258}, {348, 258}, {348, 370}, {308, 370}});

    // Reeds before everything.
    Chance chance(99);
    for (int i = 0; i < 46; ++i) {
        const bool left = i % 2 == 0;
        const double x = left ? chance.between(-8, 70) : chance.between(574, 648), y = 486,
                     height = chance.between(30, 84);
        const double lean = chance.between(-14, 14);
        scene.front.lay(stroke(curve({{x, y}, {x + lean * 0.3, y - height * 0.55}, {x + lean, y - height}}),
                               3.4, 2.6, 0.6),
                        {Ramp::jade, chance.between(0.02, 0.3)});
    }
    return scene;
}

}  // namespace paint
