#include "light.h"

#include <inkstone/inkstone.h>

#include <algorithm>
#include <array>
#include <fstream>

namespace moon {
namespace {

using Palette = std::array<std::uint8_t, 768>;

constexpr int kWaterColours = 16;
constexpr std::int32_t kWaterCounter = 0;

std::array<Palette, 4> palettes{};
Palette target{};   // what the fade leads to, and what is shown after it
bool still = true;  // the water: in the dark and while a fade goes on
int slow_step = 0;

void fade() {
    // Half a second in 64 steps. A step of one tick would make it more than three.
    PAL_fade_init(target.data(), [] {
        clear_time_delay();
        wait_time_delay(8);
    });
    PAL_fade_effect(0);
}

}  // namespace

void load_palettes() {
    const char *const names[] = {"day.pal", "dusk.pal", "night.pal", "moon.pal"};
    for (std::size_t i = 0; i < palettes.size(); ++i) {
        std::ifstream file(names[i], std::ios::binary);
        file.read(reinterpret_cast<char *>(palettes[i].data()), 768);
    }
    prepare(Light::kDay);
}

void prepare(Light light) {
    target = palettes[static_cast<std::size_t>(light)];
    // The colours of the glass are shades of ink: a third and a half of the brightness underneath.
    PAL_make_glass_table(kInkRamp, kInkRamp + 16, kDarkGlass, 24, target.data());
    PAL_make_glass_table(kInkRamp, kInkRamp + 16, kDimGlass, 36, target.data());
    PAL_make_glass_table(kGoldRamp, kGoldRamp + 16, kWarmGlass, 100, target.data());
}

void fade_to(Light light) {
    prepare(light);
    fade();
    still = false;
}

void fade_out() {
    target.fill(0);
    fade();
    still = true;
}

void begin_slow_fade(Light light) {
    prepare(light);
    PAL_fade_init(target.data(), nullptr);
    PAL_step_fade_effect(0);
    slow_step = 0;
    still = true;
}

void slow_fade_to(int progress) {
    constexpr int kSteps = 63;
    for (; slow_step < progress * kSteps / 1000; ++slow_step) PAL_step_fade_effect(1);
}

const unsigned char *palette() {
    return target.data();
}

void move_water() {
    constexpr std::uint32_t kTicks = 3;
    if (still || GetTimerTick(kWaterCounter) < kTicks) return;
    SetTimerTick(kWaterCounter, 0);
    const auto first = target.begin() + kWaterRamp * 3;
    std::rotate(first, first + (kWaterColours - 1) * 3, first + kWaterColours * 3);
    // The view takes components of eight bits.
    std::array<std::uint8_t, kWaterColours * 3> shown;
    std::transform(first, first + kWaterColours * 3, shown.begin(),
                   [](std::uint8_t value) { return static_cast<std::uint8_t>(value * 4); });
    WViewSetPartPalette(kWaterRamp, kWaterColours, shown.data());
}

}  // namespace moon
