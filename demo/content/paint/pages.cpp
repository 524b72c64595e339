// The last page and the desk that is painted at.
#include "building.h"
#include "calligraphy.h"
#include "nature.h"
#include "scenes.h"

namespace paint {
namespace {

// A plum branch from a corner, in ink with blossoms of red.
void paint_plum(Canvas &canvas, const Path &bough, double width, std::uint32_t seed) {
    const Path path = curve(bough);
    canvas.lay(stroke(path, width, width * 0.6, 1), [seed](int x, int y) {
        return Tone{Ramp::ink, 0.12 + 0.4 * rise(0.5, 0.8, noise(x / 3.0, y / 7.0, seed))};
    });
    Chance chance(seed);
    for (std::size_t i = 4; i < path.size(); i += 3) {
        const Point at{path[i].x + chance.between(-14, 14), path[i].y + chance.between(-16, 12)};
        canvas.lay(stroke({path[i], at}, 2, 1.4, 0.8), {Ramp::ink, 0.2});
        const double r = chance.between(2.4, 4.6);
        const bool bud = chance.unit() < 0.35;
        for (int petal = 0; petal < (bud ? 1 : 5); ++petal)
            canvas.lay(fill(ellipse(at.x + (bud ? 0 : r * cosine(petal / 5.0)),
                                    at.y + (bud ? 0 : r * sine(petal / 5.0)), r * 0.8, r * 0.8)),
                       {Ramp::vermilion, chance.between(0.45, 0.72)});
        if (!bud) canvas.lay(fill(ellipse(at.x, at.y, r * 0.42, r * 0.42)), {Ramp::gold, 0.85});
    }
}

}  // namespace

Canvas paint_end() {
    Canvas canvas(640, 480);
    // A mounted scroll: brocade, a narrow line of gold, paper.
    canvas.lay(canvas.all(), [](int x, int y) {
        const double a = ((x + y) / 12) & 1, b = ((x - y + 960) / 12) & 1;
        return Tone{Ramp::indigo, 0.26 + 0.07 * a + 0.07 * b + 0.05 * noise(x / 2.0, y / 2.0, 3)};
    });
    canvas.lay(fill(rectangle(33, 33, 607, 447)), {Ramp::gold, 0.5});
    canvas.lay(fill(rectangle(35, 35, 605, 445)), [](int x, int y) {
        const double stain = cloud(x / 80.0, y / 70.0, 4), fibre = noise(x / 11.0, y / 1.8, 5);
        return Tone{Ramp::paper, 0.9 + 0.16 * (stain - 0.5) + 0.05 * (fibre - 0.5)};
    });
    // Mountains in a thin wash along the foot.
    const auto hill = [&](const Path &crest, double strength, std::uint32_t seed) {
        Path body = curve(crest);
        for (Point &point : body) point.y += (cloud(point.x / 15, 0, seed) - 0.5) * 14;
        double top = 480;
        for (const Point &point : body) top = point.y < top ? point.y : top;
        body.push_back({605, 445});
        body.push_back({35, 445});
        canvas.wash(fill(body), {Ramp::mountain, 0.3}, [=](int x, int y) {
            return strength * rise(444, top, y) * (0.6 + 0.6 * noise(x / 7.0, y / 30.0, seed + 1));
        });
    };
    hill({{35, 410}, {100, 372}, {160, 398}, {230, 352}, {300, 396}, {400, 420}, {500, 396}, {605, 424}},
         0.46, 11);
    hill({{35, 430}, {90, 412}, {180, 428}, {300, 424}, {420, 430}, {520, 410}, {605, 392}}, 0.7, 12);
    paint_plum(canvas, {{35, 52}, {86, 66}, {140, 62}, {196, 84}, {240, 78}}, 9, 21);
    paint_plum(canvas, {{92, 66}, {110, 78}, {108, 90}}, 4, 22);
    // Where the picture hangs.
    canvas.shade(fill(rectangle(366, 96, 582, 312)), -0.14);
    canvas.lay(fill(rectangle(358, 86, 582, 310)), {Ramp::ink, 0.1});
    canvas.lay(fill(rectangle(360, 88, 580, 308)), {Ramp::teal, 0.44});
    canvas.lay(fill(rectangle(368, 96, 572, 300)), {Ramp::gold, 0.52});
    canvas.lay(fill(rectangle(370, 98, 570, 298)), {Ramp::paper, 0.98});
    stamp_seal(canvas, 552, 324, 28);
    paint_grain(canvas, 0.02, 6);
    return canvas;
}

Canvas paint_paper() {
    Canvas canvas(640, 480);
    for (int board = 0; board < 5; ++board) {
        const double top = board * 100.0;
        paint_wood(canvas, rectangle(0, top, 640, top + 99), 0.36 + 0.06 * noise(board, 1, 3), false,
                   static_cast<std::uint32_t>(10 + board));
        canvas.lay(fill(rectangle(0, top + 98.6, 640, top + 100)), {Ramp::wood, 0.06});
    }
    // The lamp stands at the upper right, beyond the edge.
    canvas.shade(canvas.all(), [](int x, int y) {
        const double dx = (x - 430) / 520.0, dy = (y - 60) / 430.0;
        return 0.08 - 0.2 * (dx * dx + dy * dy);
    });
    // Felt under the sheet.
    canvas.shade(fill(rectangle(150, 52, 500, 392)), -0.1);
    canvas.lay(fill(rectangle(154, 50, 486, 382)), [](int x, int y) {
        return Tone{Ramp::indigo, 0.26 + 0.1 * (noise(x / 2.0, y / 2.0, 21) - 0.5)};
    });
    canvas.lay(stroke({{156, 52}, {484, 52}, {484, 380}, {156, 380}, {156, 52}}, 1.4), {Ramp::indigo, 0.6});
    canvas.shade(fill(rectangle(178, 74, 468, 364)), -0.08);
    canvas.lay(fill(rectangle(176, 72, 464, 360)), {Ramp::exact, range_of(Ramp::paper).first + 14.0});
    // Weights of jade on its upper edge and its lower one.
    for (const double y : {58.0, 362.0}) {
        canvas.shade(fill(rectangle(272, y + 3, 374, y + 15)), -0.1);
        canvas.lay(fill(rectangle(268, y - 1, 371, y + 12)), {Ramp::ink, 0.1});
        canvas.lay(fill(rectangle(269, y, 370, y + 11)), [y](int x, int py) {
            return Tone{Ramp::jade, 0.62 - (py - y) * 0.03 + 0.16 * (noise(x / 9.0, py / 4.0, 23) - 0.5)};
        });
        canvas.lay(stroke({{271, y + 1.6}, {368, y + 1.6}}, 1.2), {Ramp::jade, 0.9});
    }
    // The four treasures along the lower edge, where no tool lies.
    canvas.shade(fill(ellipse(92, 448, 74, 26)), -0.08);
    canvas.lay(
        fill(curve({{22, 450}, {30, 424}, {90, 414}, {148, 424}, {156, 450}, {140, 478}, {40, 478}}, true)),
        {Ramp::ink, 0.08});
    canvas.lay(
        fill(curve({{25, 450}, {32, 427}, {90, 417}, {146, 427}, {153, 450}, {138, 475}, {42, 475}}, true)),
        [](int x, int y) {
            return Tone{Ramp::ink, 0.42 - (x - 25) * 0.0012 - (y - 417) * 0.002};
        });
    canvas.lay(
        fill(curve({{42, 450}, {48, 434}, {90, 427}, {130, 434}, {136, 450}, {122, 466}, {56, 466}}, true)),
        {Ramp::ink, 0.05});
    canvas.lay(stroke(curve({{54, 440}, {72, 434}, {92, 432}}), 1, 3, 1), {Ramp::ink, 0.8});
    canvas.shade(stroke({{430, 452}, {620, 440}}, 12), -0.08);
    canvas.lay(stroke({{436, 446}, {606, 434}}, 9), {Ramp::ink, 0.08});
    canvas.lay(stroke({{436, 446}, {606, 434}}, 7), {Ramp::straw, 0.56});
    canvas.lay(stroke({{436, 444.6}, {606, 432.6}}, 2), {Ramp::straw, 0.86});
    canvas.lay(stroke({{434, 446}, {420, 447}}, 8), {Ramp::gold, 0.5});
    canvas.lay(stroke(curve({{420, 447}, {404, 447}, {386, 452}}), 8, 9, 1), {Ramp::ink, 0.12});
    return canvas;
}

}  // namespace paint
