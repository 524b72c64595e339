#include "film.h"

#include <algorithm>
#include <cmath>

#include "nature.h"
#include "scenes.h"

namespace paint {
namespace {

constexpr int kFall = 10, kSpread = 30, kDay = 8, kNightfall = 24, kNight = 12;
constexpr Point kDrop{320, 262};

Canvas paper() {
    Canvas canvas(640, 480);
    canvas.lay(canvas.all(), [](int x, int y) {
        const double stain = cloud(x / 90.0, y / 70.0, 4), fibre = noise(x / 11.0, y / 1.8, 5);
        return Tone{Ramp::paper, 0.93 + 0.1 * (stain - 0.5) + 0.04 * (fibre - 0.5)};
    });
    return canvas;
}

// The falling drop, longer the faster it falls.
Canvas falling(const Canvas &ground, int frame) {
    Canvas canvas = ground;
    const double t = (frame + 1) / double{kFall}, y = -20 + (kDrop.y + 20) * t * t, long_tail = 10 + 26 * t;
    canvas.lay(fill(curve({{kDrop.x, y - long_tail},
                           {kDrop.x + 3, y - 10},
                           {kDrop.x + 8, y},
                           {kDrop.x, y + 9},
                           {kDrop.x - 8, y},
                           {kDrop.x - 3, y - 10}},
                          true)),
               {Ramp::ink, 0.04});
    canvas.lay(fill(ellipse(kDrop.x - 3, y, 1.6, 2.6)), {Ramp::ink, 0.8});
    return canvas;
}

// How far from the drop's place the ink has to come to reach a pixel: it runs along the fibres, quicker to the sides.
double distance_at(int x, int y) {
    const double dx = (x - kDrop.x) * 0.8, dy = y - kDrop.y;
    return std::sqrt(dx * dx + dy * dy) * (0.66 + 0.68 * cloud(x / 74.0, y / 74.0, 7)) +
           9 * (noise(x / 4.0, y / 4.0, 8) - 0.5);
}

ink::tool::IndexedPicture mix_at(const ink::tool::IndexedPicture &outside,
                                 const ink::tool::IndexedPicture &inside,
                                 const ink::tool::IndexedPicture &edge, const std::vector<double> &distance,
                                 double reach, double wet) {
    // The ink goes before, thin at its rim; behind it the view comes through in specks that grow together.
    ink::tool::IndexedPicture picture = outside;
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
        const double depth = (reach - distance[i]) / wet;
        if (depth < 0) continue;
        const int x = static_cast<int>(i) % picture.width, y = static_cast<int>(i) / picture.width;
        const double speck = noise(x / 2.2, y / 2.2, 10);
        if (depth > 0.45 + 0.55 * speck)
            picture.pixels[i] = inside.pixels[i];
        else if (depth > 0.24 * speck)
            picture.pixels[i] = edge.pixels[i];
    }
    return picture;
}

}  // namespace

std::vector<ink::tool::IndexedPicture> paint_film() {
    const Canvas ground = paper();
    const ink::tool::IndexedPicture blank = ground.picture(), view = paint_panorama().picture();
    Canvas wet(640, 480);
    wet.lay(wet.all(), [](int x, int y) {
        return Tone{Ramp::ink, 0.04 + 0.3 * rise(0.5, 0.8, cloud(x / 20.0, y / 20.0, 9))};
    });
    const ink::tool::IndexedPicture ink = wet.picture();
    std::vector<double> distance;
    for (int y = 0; y < 480; ++y)
        for (int x = 0; x < 640; ++x) distance.push_back(distance_at(x, y));

    std::vector<ink::tool::IndexedPicture> film;
    for (int frame = 0; frame < kFall; ++frame) film.push_back(falling(ground, frame).picture());
    for (int frame = 0; frame < kSpread; ++frame) {
        const double t = (frame + 1) / double{kSpread}, reach = 14 + 470 * t * (0.35 + 0.65 * t);
        film.push_back(mix_at(blank, view, ink, distance, reach, std::min(reach, 90 - 30 * t)));
    }
    for (int frame = 0; frame < kDay; ++frame) film.push_back(view);
    for (ink::tool::IndexedPicture &picture : film) picture.palette = palette_of(Light::day);
    // Evening and night come over the finished picture through its colours alone.
    const ink::tool::Palette lights[] = {palette_of(Light::day), palette_of(Light::dusk),
                                         palette_of(Light::night)};
    for (int frame = 1; frame <= kNightfall + kNight; ++frame) {
        const int way = std::min(frame * 2 * 64 / kNightfall, 2 * 64), part = std::min(way / 64, 1),
                  rest = way - part * 64;
        ink::tool::IndexedPicture picture = view;
        for (std::size_t i = 0; i < picture.palette.size(); ++i) {
            const int from = lights[part][i], to = lights[part + 1][i];
            picture.palette[i] = static_cast<std::uint8_t>(from + (to - from) * rest / 64);
        }
        film.push_back(picture);
    }
    return film;
}

}  // namespace paint
