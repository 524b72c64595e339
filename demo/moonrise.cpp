#include "moonrise.h"

#include <inkstone/inkstone.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "frame.h"
#include "hero.h"
#include "layout.h"
#include "light.h"
#include "mask.h"
#include "painting.h"
#include "picture.h"
#include "pointer.h"
#include "scene.h"
#include "sound.h"

namespace moon {
namespace {

constexpr int kFullSize = 120, kFirstSize = 16;
constexpr int kWater = 34, kBoat = 31;  // their keys in the mask of the lake

std::vector<std::uint8_t> moon_image, boat;
int risen = 0;     // of 1000: how far the moon has come
int boat_out = 0;  // of 1000: how far the boat has

Point between(Point from, Point to, int progress) {
    return {from.x + (to.x - from.x) * progress / 1000, from.y + (to.y - from.y) * progress / 1000};
}

// The boat has gone out, and where it lay there is water too.
bool is_water(int x, int y) {
    return key_at(x, y) == kWater || key_at(x, y) == kBoat;
}

// The moon upside down in the water, half as high, on every other pixel so that the waves show through. Their crests
// lie farther apart the nearer they are, and between them is no moon at all.
void draw_reflection(int x, int water, int height, int size) {
    std::int32_t width = 0, rows = 0;
    IMG_get_image_size(moon_image.data(), &width, &rows);
    std::vector<std::uint8_t> turned(static_cast<std::size_t>(width * rows));
    MEM_reverse_pest_image(0, 0, moon_image.data(), width, rows, turned.data());
    const int w = size, h = std::max(1, size / 2), top = water + 8 + height / 6;
    static std::vector<std::uint8_t> sheet(INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT);
    BUF_bar(0, 0, w - 1, h - 1, 0, sheet.data());
    BUF_scale_pest_bitmap(0, 0, w, h, width, rows, turned.data(), sheet.data());
    std::vector<std::uint8_t> scaled(static_cast<std::size_t>(w * h) + 4);
    BUF_get_image(0, 0, w, h, scaled.data(), sheet.data());
    // Waves: each row a little to the side of the one above, and only where there is water.
    for (int row = 0; row < h; ++row) {
        const int wave = (5400 / (row + 18) * 30 + static_cast<int>(GetTimerTick(2)) * 12) % 360;
        if (int_cos(wave) < -40000) continue;
        const int shift = int_sin(wave) * 3 / 65536;
        std::uint8_t *pixels = scaled.data() + 4 + row * w;
        const int left = x - w / 2 + shift;
        for (int i = 0; i < w; ++i)
            if (!is_water(left + i, top + row)) pixels[i] = 0;
        BUF_mesh_pest_bitmap(left, top + row, w, 1, pixels, 0xFF, screen());
    }
}

void draw_moon() {
    if (risen == 0) return;
    const int water = layout("lake", "water", {300})[0];
    const Point sky = layout_point("lake", "moon", {420, 90});
    const Point out = layout_point("lake", "boat_out", {430, 330});
    const Point middle = between({out.x + 40, water}, sky, risen);
    const int size = kFirstSize + (kFullSize - kFirstSize) * risen / 1000;
    BUF_scale_pest_image(middle.x - size / 2, middle.y - size / 2, size, size, moon_image.data(), screen());
    draw_reflection(middle.x, water, water - middle.y, size);
}

void draw_boat() {
    const Point lies = layout_point("lake", "boat", {400, 330});
    const Point now = between(lies, layout_point("lake", "boat_out", {430, 330}), boat_out);
    std::int32_t width = 0, height = 0;
    IMG_get_image_size(boat.data(), &width, &height);
    // Farther out on the lake it is smaller.
    const int percent = 100 - 45 * boat_out / 1000;
    const int bob = int_sin(static_cast<int>(GetTimerTick(2)) * 9 % 360) * 2 / 65536;
    draw_person(kBoatman, now.x + width * percent / 250, now.y + bob + height * percent / 160, percent, true,
                0);
    BUF_scale_pest_image(now.x, now.y + bob, width * percent / 100, height * percent / 100, boat.data(),
                         screen());
}

}  // namespace

void draw_risen_moon() {
    if (moon_image.empty()) {  // the game was loaded after it had risen
        moon_image = cut_moon(read_painting());
        boat = read_image("boat.img");
        risen = boat_out = 1000;
    }
    draw_moon();
    draw_boat();
    const Point jetty = layout_point("lake", "jetty", {120, 405});
    constexpr int kApart = 60;
    draw_person(kMaster, jetty.x, jetty.y, percent_at(jetty.y), false, 0);
    draw_person(kSeller, jetty.x + kApart, jetty.y, percent_at(jetty.y), false, 0);
    draw_person(kGirl, jetty.x + kApart * 2, jetty.y, percent_at(jetty.y), false, 0);
}

void let_moon_rise() {
    moon_image = cut_moon(read_painting());
    boat = read_image("boat.img");
    risen = boat_out = 0;
    hide_pointer();
    const Point jetty = layout_point("lake", "jetty", {120, 405});
    fade_out();
    set(kMoonlit, 1);
    place_hero({jetty.x + 190, jetty.y});
    prepare(Light::kNight);
    draw_scene();
    WViewBuffer2Screen();
    fade_to(Light::kNight);
    play(Sound::kSplash);
    for_milliseconds(5000, [](int progress) {
        boat_out = progress;
        draw_scene();
    });
    play(Sound::kSplash);
    for_milliseconds(1200, [](int) { draw_scene(); });
    play_music(kPaintingMusic);
    play(Sound::kBell);
    // While it rises the palette goes from night to moonlight, in steps.
    begin_slow_fade(Light::kMoon);
    for_milliseconds(9000, [](int progress) {
        // Quick at first, and slower the higher it stands.
        const int left = 1000 - progress;
        risen = 1000 - left * left / 1000;
        slow_fade_to(progress);
        draw_scene();
    });
    fade_to(Light::kMoon);
    risen = 1000;
}

}  // namespace moon
