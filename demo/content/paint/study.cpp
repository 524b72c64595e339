// The master's room: a bed in its frame at the left, the shelf, the round window on the lake with the desk below it, the
// stove and the screen at the right.
#include "building.h"
#include "nature.h"
#include "scenes.h"

namespace paint {
namespace {

constexpr int kFloor = 318;
constexpr Point kWindow{338, 158};
constexpr double kRadius = 80;

void paint_room(Canvas &canvas) {
    paint_plaster(canvas, rectangle(0, 0, 640, kFloor), 0.72, 3);
    // The light of the window and the lamp on the wall; corners are dim.
    canvas.shade(fill(rectangle(0, 0, 640, kFloor)), [](int x, int y) {
        const double dx = (x - 360) / 330.0, dy = (y - 190) / 230.0;
        return 0.1 - 0.3 * (dx * dx + dy * dy);
    });
    // Wainscot and beams.
    for (int board = 0; board < 14; ++board)
        paint_wood(canvas, rectangle(board * 46.0, 252, board * 46.0 + 45, kFloor), 0.32, true,
                   static_cast<std::uint32_t>(20 + board));
    for (int board = 0; board < 14; ++board)
        canvas.lay(fill(rectangle(board * 46.0 + 45, 252, board * 46.0 + 46.4, kFloor)), {Ramp::wood, 0.05});
    paint_beam(canvas, -5, 246, 645, 254, 0.4, 11);
    paint_beam(canvas, -5, kFloor - 8, 645, kFloor, 0.2, 12);
    paint_beam(canvas, -5, 24, 645, 46, 0.26, 13);
    for (int rafter = 0; rafter < 9; ++rafter) {
        const double x = rafter * 80.0 - 10;
        canvas.lay(fill({{x, -2}, {x + 16, -2}, {x + 13, 24}, {x + 3, 24}}), {Ramp::wood, 0.12});
    }
    for (const double x : {148.0, 500.0}) paint_beam(canvas, x, 46, x + 15, kFloor, 0.3, 14);
    // Floor boards run towards the eye.
    canvas.lay(fill(rectangle(0, kFloor, 640, 480)), [](int x, int y) {
        const double depth = 0.55 + (y - kFloor) / 210.0, across = (x - 330) / depth;
        const int board = floor_of(across / 52);
        const double in = across / 52 - board;
        const double grain = noise(across / 2.6, (y + board * 37) / (40 * depth), 15);
        const double light = 0.16 * rise(300, 0, x > 330 ? x - 330 : 330 - x) * rise(480, 330, y);
        return Tone{Ramp::wood, 0.34 + light + 0.09 * noise(board, 2, 16) + (grain - 0.5) * 0.14 -
                                    (in < 0.035 ? 0.22 : 0) - 0.12 * rise(430, 480, y)};
    });
    canvas.shade(fill(rectangle(0, kFloor, 640, kFloor + 12)),
                 [](int, int y) { return -0.12 * rise(kFloor + 12, kFloor, y); });
    // Light that falls through the window on the floor.
    canvas.shade(fill(ellipse(362, 380, 150, 44)), [](int x, int y) {
        const double dx = (x - 362) / 150.0, dy = (y - 380) / 44.0;
        return 0.1 * rise(1, 0.3, dx * dx + dy * dy);
    });
}

void paint_window(Canvas &canvas) {
    const double x = kWindow.x, y = kWindow.y;
    canvas.lay(fill(ellipse(x, y, kRadius + 13, kRadius + 13)), {Ramp::ink, 0.06});
    canvas.lay(fill(ellipse(x, y, kRadius + 11, kRadius + 11)), [&](int px, int py) {
        const double grain = noise(px / 9.0, py / 2.0, 22);
        return Tone{Ramp::wood, 0.3 + (grain - 0.5) * 0.16 + (x - px + y - py) / 700};
    });
    canvas.lay(fill(ellipse(x, y, kRadius + 2, kRadius + 2)), {Ramp::ink, 0.06});
    Canvas view(640, 480);
    const Mask hole = fill(ellipse(x, y, kRadius, kRadius));
    canvas.lay(hole, [&](int px, int py) {
        const double band = cloud(px / 60.0, py / 12.0, 23) - 0.5;
        return Tone{Ramp::sky, 0.3 + 0.55 * (py - 78) / 120.0 + band * 0.3};
    });
    const auto inside = [&](const Path &path) {
        Mask mask = fill(path);
        for (int py = mask.top; py < mask.top + mask.height; ++py)
            for (int px = mask.left; px < mask.left + mask.width; ++px) {
                const double dx = px + 0.5 - x, dy = py + 0.5 - y;
                if (dx * dx + dy * dy > (kRadius - 0.5) * (kRadius - 0.5)) mask.at(px, py) = 0;
            }
        return mask;
    };
    const auto hills = [&](const Path &crest, double pale, double fade) {
        Path body = curve(crest);
        for (Point &point : body) point.y += (cloud(point.x / 9, 0, 24) - 0.5) * 7;
        body.push_back({440, 190});
        body.push_back({240, 190});
        canvas.lay(inside(body), [&](int px, int py) {
            return Tone{Ramp::mountain,
                        pale + fade * rise(130, 188, py) + 0.1 * (noise(px / 4.0, py / 14.0, 25) - 0.5)};
        });
    };
    hills({{240, 160}, {278, 138}, {310, 156}, {350, 118}, {378, 146}, {404, 132}, {440, 160}}, 0.52, 0.42);
    hills({{240, 176}, {272, 160}, {306, 178}, {350, 184}, {392, 166}, {440, 172}}, 0.24, 0.5);
    const Mask water = inside(rectangle(240, 188, 440, 250));
    paint_water(canvas, water, 182, 26);
    // A twig of plum blossom reaches into the circle.
    canvas.lay(stroke(curve({{262, 118}, {290, 122}, {312, 112}, {338, 118}}), 4, 2.4, 1), {Ramp::ink, 0.1});
    canvas.lay(stroke(curve({{292, 121}, {306, 136}, {322, 140}}), 2.4, 1.6, 0.8), {Ramp::ink, 0.1});
    constexpr Point kFlowers[] = {{284, 116}, {306, 112}, {322, 141}, {338, 116}, {308, 135}, {272, 122}};
    for (const Point &flower : kFlowers) {
        for (int petal = 0; petal < 5; ++petal)
            canvas.lay(fill(ellipse(flower.x + 2.6 * cosine(petal / 5.0), flower.y + 2.6 * sine(petal / 5.0),
                                    2.2, 2.2)),
                       {Ramp::blossom, petal % 2 ? 0.85 : 0.62});
        canvas.lay(fill(ellipse(flower.x, flower.y, 1.2, 1.2)), {Ramp::gold, 0.7});
    }
}

void paint_bed(Canvas &canvas) {
    canvas.lay(fill({{-4, 358}, {132, 358}, {150, 372}, {-4, 376}}), {Ramp::ink, 0.1}, 0.5);
    canvas.lay(fill(rectangle(-4, 120, 122, 300)), [](int x, int y) {
        return Tone{Ramp::plum, 0.2 + 0.1 * noise(x / 7.0, y / 80.0, 31) - 0.08 * rise(200, 300, y)};
    });
    paint_wood(canvas, {{-4, 300}, {118, 300}, {134, 322}, {-4, 322}}, 0.4, false, 32);
    // Quilt and pillow.
    canvas.lay(
        fill(curve({{-8, 276}, {40, 270}, {90, 276}, {122, 290}, {134, 318}, {100, 326}, {-8, 326}}, true)),
        [](int x, int y) {
            const int star = (x / 12 + y / 10) & 1;
            return Tone{Ramp::indigo, 0.42 - 0.2 * rise(290, 326, y) + 0.1 * star +
                                          0.1 * (noise(x / 14.0, y / 7.0, 33) - 0.5)};
        });
    canvas.lay(stroke(curve({{-8, 277}, {40, 271}, {90, 277}, {120, 290}}), 6), {Ramp::paper, 0.72});
    canvas.lay(fill(curve({{-6, 262}, {14, 256}, {34, 262}, {36, 274}, {10, 280}, {-6, 278}}, true)),
               {Ramp::vermilion, 0.42});
    canvas.lay(stroke(curve({{-4, 262}, {14, 258}, {32, 263}}), 2), {Ramp::vermilion, 0.7});
    paint_beam(canvas, -5, 322, 136, 348, 0.28, 34);
    for (double x = 14; x < 120; x += 34) {
        canvas.lay(fill(rectangle(x, 328, x + 24, 342)), {Ramp::wood, 0.1});
        canvas.lay(stroke(curve({{x + 3, 336}, {x + 9, 331}, {x + 15, 339}, {x + 21, 334}}), 1.4),
                   {Ramp::gold, 0.4});
    }
    paint_beam(canvas, 124, 104, 134, 366, 0.3, 35);
    paint_beam(canvas, -5, 100, 142, 114, 0.3, 36);
    for (double x = 8; x < 120; x += 16)
        canvas.lay(stroke(curve({{x, 116}, {x + 5, 124}, {x + 12, 116}}), 1.6), {Ramp::wood, 0.34});
    // The curtain, tied back.
    canvas.lay(fill(curve({{88, 114},
                           {124, 114},
                           {123, 180},
                           {116, 226},
                           {121, 262},
                           {124, 316},
                           {106, 316},
                           {108, 262},
                           {104, 226},
                           {94, 170}},
                          true)),
               [](int x, int y) {
                   return Tone{Ramp::teal, 0.45 + 0.28 * (noise((x - y * 0.05) / 4.0, y / 120.0, 37) - 0.5)};
               });
    canvas.lay(stroke({{104, 226}, {119, 228}}, 4), {Ramp::vermilion, 0.5});
}

void paint_scroll_end(Canvas &canvas, double x, double y, double r, double value) {
    canvas.lay(fill(ellipse(x, y, r + 0.9, r + 0.9)), {Ramp::ink, 0.1});
    canvas.lay(fill(ellipse(x, y, r, r)), {Ramp::paper, value});
    canvas.lay(fill(ellipse(x, y, r * 0.55, r * 0.55)), {Ramp::paper, value - 0.25});
    canvas.lay(fill(ellipse(x, y, r * 0.28, r * 0.28)), {Ramp::wood, 0.2});
}

void paint_shelf(Canvas &canvas) {
    canvas.lay(fill({{172, 334}, {262, 334}, {272, 344}, {168, 344}}), {Ramp::ink, 0.1}, 0.5);
    canvas.lay(fill(rectangle(172, 92, 252, 330)), [](int x, int y) {
        return Tone{Ramp::wood, 0.07 + 0.08 * noise(x / 20.0, y / 9.0, 41)};
    });
    Chance chance(42);
    constexpr double kBoards[] = {92, 150, 206, 264, 326};
    // Scrolls piled up, books laid down, jars.
    for (int i = 0; i < 9; ++i)
        paint_scroll_end(canvas, 182 + (i % 5) * 15.0 + (i >= 5 ? 7 : 0), i < 5 ? 142 : 130, 6.2,
                         chance.between(0.6, 0.95));
    for (int i = 0; i < 6; ++i) {
        const double y = 199 - i * 6.0, x = 178 + chance.between(0, 4);
        canvas.lay(fill(rectangle(x, y, x + 34, y + 5)), {i % 3 == 1 ? Ramp::vermilion : Ramp::indigo, 0.42});
        canvas.lay(fill(rectangle(x + 30, y + 1, x + 35, y + 4)), {Ramp::paper, 0.8});
    }
    canvas.lay(fill(curve({{226, 204},
                           {221, 192},
                           {224, 180},
                           {231, 174},
                           {230, 168},
                           {238, 168},
                           {237, 174},
                           {244, 180},
                           {247, 192},
                           {242, 204}},
                          true)),
               [](int x, int) {
                   return Tone{Ramp::teal, 0.72 - (x - 224) * 0.022};
               });
    canvas.lay(stroke(curve({{226, 190}, {234, 186}, {244, 191}}), 1.2), {Ramp::indigo, 0.3});
    // The fallen scrolls, under which something flat and dark lies.
    canvas.lay(fill(curve({{180, 260}, {182, 249}, {222, 248}, {226, 260}}, true)), {Ramp::ink, 0.2});
    canvas.lay(stroke({{182, 250}, {222, 249}}, 1.3), {Ramp::ink, 0.6});
    canvas.lay(stroke({{178, 252}, {232, 240}}, 9), {Ramp::paper, 0.74});
    canvas.lay(stroke({{178, 249}, {232, 237}}, 2), {Ramp::paper, 0.95});
    canvas.lay(stroke({{186, 238}, {244, 256}}, 8), {Ramp::paper, 0.62});
    canvas.lay(stroke({{210, 243}, {213, 251}}, 3), {Ramp::vermilion, 0.5});
    paint_scroll_end(canvas, 233, 240, 5, 0.8);
    // The oil jar, and baskets.
    canvas.lay(fill(curve({{184, 324},
                           {179, 308},
                           {184, 292},
                           {192, 286},
                           {191, 280},
                           {203, 280},
                           {202, 286},
                           {210, 292},
                           {215, 308},
                           {210, 324}},
                          true)),
               [](int x, int) {
                   return Tone{Ramp::wood, 0.62 - (x - 182) * 0.016};
               });
    canvas.lay(fill(rectangle(190, 276, 204, 282)), {Ramp::vermilion, 0.4});
    canvas.lay(fill(curve({{220, 324}, {218, 304}, {246, 304}, {245, 324}}, true)), [](int x, int y) {
        return Tone{Ramp::straw, 0.34 + 0.16 * (((x / 3) + (y / 3)) & 1)};
    });
    for (const double y : kBoards) paint_beam(canvas, 168, y, 256, y + 5, 0.4, 43);
    paint_beam(canvas, 165, 84, 173, 336, 0.34, 44);
    paint_beam(canvas, 251, 84, 259, 336, 0.34, 45);
    paint_beam(canvas, 160, 80, 264, 88, 0.44, 46);
}

void paint_desk(Canvas &canvas) {
    canvas.lay(fill({{272, 340}, {448, 340}, {462, 352}, {262, 352}}), {Ramp::ink, 0.08}, 0.55);
    for (const double x : {282.0, 430.0}) paint_beam(canvas, x, 276, x + 9, 345, 0.24, 51);
    canvas.lay(fill(rectangle(292, 282, 430, 300)), {Ramp::wood, 0.14});
    paint_beam(canvas, 288, 280, 434, 292, 0.3, 52);
    for (double x = 300; x < 420; x += 26)
        canvas.lay(stroke(curve({{x, 296}, {x + 6, 302}, {x + 16, 296}}), 2), {Ramp::wood, 0.26});
    paint_wood(canvas, {{280, 262}, {442, 262}, {458, 277}, {264, 277}}, 0.58, false, 53);
    paint_beam(canvas, 263, 277, 459, 282, 0.42, 54);
    canvas.lay(stroke(curve({{263, 279}, {256, 276}, {252, 268}}), 5, 4, 3), {Ramp::wood, 0.4});
    canvas.lay(stroke(curve({{459, 279}, {466, 276}, {470, 268}}), 5, 4, 3), {Ramp::wood, 0.4});
    // Paper with a line of writing, held by a weight; the brush stand; the lamp.
    canvas.lay(fill({{316, 264}, {384, 264}, {390, 275}, {310, 275}}), {Ramp::paper, 0.98});
    canvas.lay(stroke({{324, 267}, {340, 267}}, 1.2), {Ramp::ink, 0.3});
    canvas.lay(stroke({{322, 271}, {336, 271}}, 1.2), {Ramp::ink, 0.3});
    canvas.lay(stroke({{378, 265}, {384, 275}}, 3), {Ramp::ink, 0.24});
    canvas.lay(stroke(curve({{286, 268}, {286, 236}, {304, 232}, {320, 236}, {320, 266}}), 2.4),
               {Ramp::wood, 0.16});
    for (int brush = 0; brush < 4; ++brush) {
        const double x = 291 + brush * 7.5;
        canvas.lay(stroke({{x, 236}, {x, 252}}, 1.8), {brush == 2 ? Ramp::vermilion : Ramp::straw, 0.5});
        canvas.lay(stroke({{x, 252}, {x, 262}}, 3.4, 3, 0.6), {brush == 1 ? Ramp::ink : Ramp::paper, 0.4});
    }
    canvas.lay(fill(curve({{404, 272}, {408, 266}, {418, 266}, {422, 272}}, true)), {Ramp::gold, 0.3});
    canvas.lay(stroke({{413, 266}, {413, 244}}, 3), {Ramp::gold, 0.42});
    canvas.lay(fill(curve({{402, 242}, {424, 242}, {420, 247}, {406, 247}}, true)), {Ramp::gold, 0.36});
    canvas.lay(fill(curve({{413, 220}, {418, 232}, {416, 241}, {410, 241}, {408, 232}}, true)),
               [](int, int y) {
                   return Tone{Ramp::window, 0.9 - (y - 222) * 0.012};
               });
    canvas.shade(fill(ellipse(413, 232, 110, 84)), [](int x, int y) {
        const double dx = (x - 413) / 110.0, dy = (y - 232) / 84.0;
        return 0.16 * rise(1, 0, dx * dx + dy * dy);
    });
    for (const double radius : {17.0, 12.0})
        canvas.wash(fill(ellipse(413, 232, radius, radius)), {Ramp::gold, 0.7},
                    [](int, int) { return 0.22; });
    // A stool before it.
    canvas.lay(fill(ellipse(352, 366, 30, 7)), {Ramp::ink, 0.1}, 0.5);
    canvas.lay(
        fill(curve({{328, 334}, {324, 350}, {330, 366}, {374, 366}, {380, 350}, {376, 334}}, true)),
        [](int x, int y) {
            return Tone{Ramp::indigo, 0.66 - (x - 324) * 0.008 + 0.1 * (noise(x / 9.0, y / 6.0, 56) > 0.62)};
        });
    canvas.lay(fill(ellipse(352, 334, 25, 6)), {Ramp::indigo, 0.86});
    canvas.lay(fill(ellipse(352, 334, 17, 3.6)), {Ramp::vermilion, 0.44});
}

void paint_stove(Canvas &canvas) {
    canvas.lay(fill(ellipse(546, 352, 42, 9)), {Ramp::ink, 0.1}, 0.55);
    canvas.lay(
        fill(curve({{516, 350}, {510, 326}, {514, 302}, {578, 302}, {582, 326}, {576, 350}}, true)),
        [](int x, int y) {
            return Tone{Ramp::stone, 0.5 - (x - 540) * 0.006 + 0.1 * (noise(x / 5.0, y / 4.0, 61) - 0.5)};
        });
    canvas.lay(fill(rectangle(510, 297, 582, 305)), {Ramp::stone, 0.64});
    canvas.lay(fill(curve({{532, 348}, {532, 330}, {546, 322}, {560, 330}, {560, 348}}, true)),
               {Ramp::ink, 0.06});
    canvas.lay(fill(curve({{536, 347}, {540, 336}, {545, 341}, {548, 331}, {553, 340}, {557, 347}}, true)),
               {Ramp::gold, 0.6});
    canvas.lay(fill(curve({{541, 347}, {545, 342}, {549, 339}, {553, 347}}, true)), {Ramp::gold, 0.95});
    // The kettle and its steam.
    canvas.lay(stroke(curve({{530, 276}, {546, 252}, {562, 276}}), 2.4), {Ramp::ink, 0.1});
    canvas.lay(
        fill(curve({{528, 297}, {522, 286}, {530, 275}, {546, 271}, {562, 275}, {570, 286}, {564, 297}},
                   true)),
        [](int x, int y) {
            return Tone{Ramp::ink, 0.52 - (x - 526) * 0.007 - (y - 272) * 0.008};
        });
    canvas.lay(stroke(curve({{566, 290}, {578, 282}, {580, 272}}), 6, 4.5, 3), {Ramp::ink, 0.26});
    canvas.lay(fill(ellipse(546, 270, 5, 3)), {Ramp::gold, 0.4});
    for (int puff = 0; puff < 3; ++puff)
        canvas.wash(
            stroke(
                curve(
                    {{582, 268}, {588.0 + puff * 4, 248}, {578.0 + puff * 5, 226}, {590.0 + puff * 4, 200}}),
                2, 9, 5),
            {Ramp::paper, 0.97}, [](int, int y) { return 0.3 * rise(196, 262, y); });
}

void paint_screen(Canvas &canvas) {
    canvas.lay(fill({{586, 330}, {640, 322}, {640, 342}, {590, 340}}), {Ramp::ink, 0.1}, 0.4);
    // Three leaves, folded; a mountain painted over all of them.
    constexpr double kEdges[] = {592, 614, 634, 662};
    for (int leaf = 0; leaf < 3; ++leaf) {
        const double left = kEdges[leaf], right = kEdges[leaf + 1], tilt = leaf % 2 == 0 ? 5 : -5;
        const Path outline{{left, 136 + (tilt > 0 ? tilt : 0)},
                           {right, 136 - (tilt < 0 ? tilt : 0)},
                           {right, 330 - (tilt > 0 ? tilt : 0)},
                           {left, 330 + (tilt < 0 ? tilt : 0)}};
        canvas.lay(stroke({outline[0], outline[1], outline[2], outline[3], outline[0]}, 5),
                   {Ramp::wood, 0.16});
        canvas.lay(fill(outline), [&](int x, int y) {
            const double crest = 214 + 26 * cosine(x / 46.0) - 14 * noise(x / 5.0, 0, 71);
            const double hill = y > crest ? 0.42 * rise(330, crest, y) : 0.0;
            return Tone{Ramp::paper, 0.86 - hill + (leaf % 2 ? -0.12 : 0.02)};
        });
    }
    canvas.lay(fill(ellipse(622, 172, 10, 10)), {Ramp::vermilion, 0.5});
}

void paint_hanging_scroll(Canvas &canvas) {
    canvas.lay(fill(rectangle(450, 66, 492, 212)), {Ramp::ink, 0.1});
    canvas.lay(fill(rectangle(451, 67, 491, 211)), {Ramp::teal, 0.5});
    canvas.lay(fill(rectangle(455, 86, 487, 194)), {Ramp::paper, 0.96});
    // Bamboo, in three stems, and the seal.
    for (int stem = 0; stem < 3; ++stem) {
        const double x = 462 + stem * 7.0;
        canvas.lay(stroke(curve({{x, 192}, {x + 2, 150}, {x + 6.0 - stem, 96}}), 2.6 - stem * 0.5),
                   {Ramp::ink, 0.24 + 0.2 * stem});
        for (int leaf = 0; leaf < 6; ++leaf) {
            const double y = 100 + leaf * 13.0 + stem * 5, side = leaf % 2 ? 1 : -1;
            canvas.lay(
                stroke({{x + 3, y}, {x + 3 + side * 5, y + 4}, {x + 3 + side * 10, y + 10}}, 0.8, 3, 0.4),
                {Ramp::ink, 0.2 + 0.2 * stem});
        }
    }
    canvas.lay(fill(rectangle(479, 180, 485, 187)), {Ramp::vermilion, 0.5});
    paint_beam(canvas, 446, 210, 496, 215, 0.3, 81);
    paint_beam(canvas, 447, 63, 495, 67, 0.3, 82);
    canvas.lay(stroke({{450, 63}, {471, 52}, {492, 63}}, 1.2), {Ramp::vermilion, 0.4});
}

}  // namespace

Scene paint_study() {
    Scene scene;
    Canvas &canvas = scene.picture;
    paint_room(canvas);
    paint_window(canvas);
    paint_hanging_scroll(canvas);
    paint_bed(canvas);
    paint_shelf(canvas);
    paint_desk(canvas);
    paint_stove(canvas);
    paint_screen(canvas);
    paint_grain(canvas, 0.03, 8);

    Keys keys(scene.mask);
    keys.area(15, fill(ellipse(kWindow.x, kWindow.y, kRadius + 10, kRadius + 10)));
    keys.area(1, {{150, 374}, {616, 374}, {616, 424}, {120, 424}, {120, 380}});
    keys.area(3, {{614, 344}, {640, 344}, {640, 430}, {614, 430}});
    keys.area(14, {{0, 100}, {140, 100}, {140, 366}, {0, 366}});
    keys.area(12, {{160, 80}, {264, 80}, {264, 340}, {160, 340}});
    keys.area(11, {{280, 230}, {424, 216}, {472, 268}, {442, 346}, {278, 346}, {252, 268}});
    keys.area(13, {{510, 250}, {584, 250}, {584, 352}, {510, 352}});
    keys.area(16, {{586, 130}, {640, 130}, {640, 340}, {586, 340}});
    keys.area(10, {{456, 258}, {500, 258}, {504, 366}, {452, 366}});

    // The near post of the room and a tassel of its curtain stand before those who walk there.
    Canvas &front = scene.front;
    front.lay(fill(curve({{-4, 0}, {34, 0}, {30, 90}, {18, 190}, {10, 260}, {-4, 300}}, true)),
              [](int x, int y) {
                  return Tone{Ramp::plum, 0.18 + 0.3 * noise((x + y * 0.08) / 5.0, y / 160.0, 91)};
              });
    front.lay(stroke(curve({{34, 0}, {30, 90}, {18, 190}, {10, 260}, {-4, 300}}), 2.4), {Ramp::gold, 0.34});
    return scene;
}

}  // namespace paint
