// The lake and the town from afar, as the opening film and the title page show them.
#include "building.h"
#include "calligraphy.h"
#include "nature.h"
#include "scenes.h"

namespace paint {
namespace {

constexpr int kWater = 288;

void paint_town(Canvas &canvas) {
    struct House {
        double left, right, eaves;
    };
    constexpr House kHouses[] = {{352, 404, 254}, {396, 452, 244}, {300, 354, 264},
                                 {446, 494, 256}, {262, 306, 270}, {488, 520, 266}};
    std::uint32_t seed = 60;
    for (const House &house : kHouses) {
        paint_plaster(canvas, rectangle(house.left, house.eaves - 3, house.right, kWater + 2), 0.8, seed);
        Chance chance(seed++);
        for (double x = house.left + 7; x + 9 < house.right; x += 14) {
            const double y = house.eaves + 9 + chance.between(0, 4);
            canvas.lay(fill(rectangle(x - 1, y - 1, x + 8, y + 10)), {Ramp::wood, 0.16});
            canvas.lay(fill(rectangle(x, y, x + 7, y + 9)), {Ramp::window, chance.between(0.5, 0.95)});
            canvas.lay(fill(rectangle(x + 3.1, y, x + 3.9, y + 9)), {Ramp::wood, 0.16});
        }
        paint_roof(canvas, {{house.left + 8, house.eaves - 17},
                            {house.right - 8, house.eaves - 17},
                            {house.left - 6, house.eaves},
                            {house.right + 6, house.eaves},
                            3,
                            4.6});
    }
    // The pagoda on its hill, and trees between the roofs.
    for (int floor = 0; floor < 6; ++floor) {
        const double y = 208 - floor * 15.0, half = 13 - floor * 1.5;
        canvas.lay(fill(rectangle(326 - half * 0.6, y, 326 + half * 0.6, y + 13)), {Ramp::mountain, 0.4});
        canvas.lay(fill(rectangle(323.6, y + 4, 328.4, y + 10)), {Ramp::window, 0.8});
        canvas.lay(fill(curve({{326 - half - 4, y - 1},
                               {326 - half * 0.6, y - 1},
                               {326, y - 4},
                               {326 + half * 0.6, y - 1},
                               {326 + half + 4, y - 1},
                               {326, y + 3}},
                              true)),
                   {Ramp::mountain, 0.08});
    }
    canvas.lay(stroke({{326, 132}, {326, 112}}, 2.2, 1.4, 0.6), {Ramp::mountain, 0.08});
    Chance chance(71);
    for (int i = 0; i < 13; ++i) {
        const double x = 268 + i * 20.0 + chance.between(-5, 5), y = 276 + chance.between(-4, 8);
        const double half_width = chance.between(8, 15), half_height = chance.between(6, 9);
        paint_needles(canvas, x, y, half_width, half_height, static_cast<std::uint32_t>(80 + i));
    }
    paint_reflection(canvas, 262, 522, kWater + 3, kWater + 44, {Ramp::ink, 0.3}, 77);
    // The lights of the windows on the water.
    for (int i = 0; i < 15; ++i) {
        const double x = 276 + i * 16.0;
        for (int glint = 0; glint < 4; ++glint) {
            const double y = kWater + 6 + glint * 9.0 + chance.between(-2, 2), half = chance.between(1.5, 4);
            if (chance.unit() < 0.7)
                canvas.lay(stroke({{x - half, y}, {x + half, y}}, 1.3), {Ramp::window, 0.75});
        }
    }
}

}  // namespace

Canvas paint_panorama() {
    Canvas canvas(640, 480);
    paint_sky(canvas, kWater, 13);
    paint_stars(canvas, kWater, 14);
    paint_mountain(canvas, {curve({{-20, 170},
                                   {50, 120},
                                   {100, 140},
                                   {160, 92},
                                   {220, 140},
                                   {290, 190},
                                   {360, 206},
                                   {430, 160},
                                   {480, 176},
                                   {540, 110},
                                   {590, 140},
                                   {670, 90}}),
                            kWater, 0.34, 11});
    paint_mist(canvas, 226, 44, 0.85, 21);
    paint_mountain(canvas, {curve({{-20, 200},
                                   {30, 176},
                                   {80, 206},
                                   {140, 180},
                                   {190, 220},
                                   {250, 232},
                                   {326, 214},
                                   {400, 236},
                                   {480, 220},
                                   {540, 180},
                                   {600, 204},
                                   {670, 160}}),
                            kWater, 0.62, 12});
    paint_mist(canvas, 264, 30, 0.9, 22);
    const Mask water = fill(rectangle(0, kWater, 640, 480));
    paint_water(canvas, water, kWater, 31);
    paint_mountain(
        canvas,
        {curve(
             {{-20, 236}, {40, 226}, {100, 250}, {170, 268}, {250, 276}, {540, 276}, {590, 260}, {670, 246}}),
         kWater + 4, 0.9, 14});
    paint_town(canvas);
    canvas.lay(stroke({{0, kWater + 3}, {640, kWater + 3}}, 1.2), {Ramp::mountain, 0.7}, 0.6);
    return canvas;
}

Canvas paint_title() {
    Canvas canvas = paint_panorama();
    // Where the moon should be, a ring drawn with a nearly dry brush.
    Path ring;
    for (int i = 0; i <= 44; ++i) {
        const double turn = 0.12 + i / 47.0, wobble = 62 + 1.6 * sine(turn * 2) + i * 0.06;
        ring.push_back({166 + wobble * cosine(turn), 116 + wobble * sine(turn)});
    }
    Mask brush = stroke(ring, 12, 7, 2);
    for (int y = brush.top; y < brush.top + brush.height; ++y)
        for (int x = brush.left; x < brush.left + brush.width; ++x) {
            const double dx = x - 166, dy = y - 116, radius = dx * dx + dy * dy;
            if (noise(radius / 230.0, (dx > 0 ? dy : -dy) / 26.0, 44) < 0.4) brush.at(x, y) *= 0.3F;
        }
    canvas.lay(brush, {Ramp::moon, 0.34}, 0.72);
    write_roman(canvas, 166, 200, 11, "THE MOON IN THE INK", {Ramp::moon, 0.6});
    // The near shore: reeds and a pine bough lean into the picture.
    Chance chance(91);
    for (int i = 0; i < 70; ++i) {
        const double x = i % 5 == 0 ? chance.between(280, 640) : chance.between(430, 650),
                     height = chance.between(24, 100);
        const double lean = chance.between(-20, 8);
        canvas.lay(stroke(curve({{x, 486}, {x + lean * 0.3, 486 - height * 0.55}, {x + lean, 486 - height}}),
                          3.6, 2.6, 0.6),
                   {Ramp::ink, chance.between(0.04, 0.26)});
    }
    paint_trunk(canvas, curve({{660, 8}, {600, 26}, {540, 22}, {500, 36}}), 15, 4, 72);
    constexpr double kCushions[][4] = {
        {620, 16, 40, 12}, {560, 8, 40, 12}, {500, 34, 34, 10}, {596, 44, 34, 10}};
    std::uint32_t seed = 95;
    for (const auto &cushion : kCushions)
        paint_needles(canvas, cushion[0], cushion[1], cushion[2], cushion[3], seed++);
    // The title on a hanging scroll.
    canvas.shade(fill(rectangle(541, 66, 633, 404)), -0.12);
    canvas.lay(fill(rectangle(536, 58, 626, 396)), {Ramp::ink, 0.08});
    canvas.lay(fill(rectangle(537, 59, 625, 395)), [](int x, int y) {
        return Tone{Ramp::indigo, 0.34 + 0.1 * ((x / 6 + y / 6) & 1)};
    });
    canvas.lay(fill(rectangle(543, 76, 619, 378)), [](int x, int y) {
        return Tone{Ramp::paper, 0.92 + 0.12 * (cloud(x / 24.0, y / 30.0, 98) - 0.5)};
    });
    write_title(canvas, 545, 84, 72, {Ramp::ink, 0.04});
    stamp_seal(canvas, 567, 336, 28);
    for (const double y : {52.0, 394.0}) {
        canvas.lay(stroke({{530, y + 4}, {632, y + 4}}, 10), {Ramp::ink, 0.06});
        canvas.lay(stroke({{530, y + 4}, {632, y + 4}}, 8), {Ramp::wood, 0.4});
        canvas.lay(stroke({{532, y + 2}, {630, y + 2}}, 2), {Ramp::wood, 0.66});
        for (const double x : {528.0, 634.0}) canvas.lay(fill(ellipse(x, y + 4, 4, 6)), {Ramp::gold, 0.5});
    }
    canvas.lay(stroke({{552, 52}, {581, 30}, {610, 52}}, 1.6), {Ramp::vermilion, 0.5});
    paint_grain(canvas, 0.03, 9);
    return canvas;
}

}  // namespace paint
