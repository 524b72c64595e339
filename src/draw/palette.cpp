#include "draw/palette.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "draw/glass.h"
#include "inkstone/palette.h"

namespace ink::draw {
namespace {

// The search ends with the first colour that is closer than this.
constexpr int kCloseEnough = 16;

constexpr std::uint8_t kSystemColours[][kComponents] = {
    {0, 0, 0},    {63, 0, 0}, {0, 63, 0},   {0, 0, 63},   {63, 63, 0},  {0, 63, 63},  {63, 0, 63},
    {63, 63, 63}, {0, 0, 0},  {13, 13, 13}, {26, 26, 26}, {39, 39, 39}, {51, 51, 51}, {63, 63, 63},
};

// A component far outside those of palettes, where all entries lie on one side of it: moving it there changes all
// distances alike and leaves none below kCloseEnough, so it may be no farther and a distance fits 32 bits.
int near_component(std::int64_t component) {
    constexpr std::int64_t kFar = 1 << 10;
    return static_cast<int>(std::clamp(component, -kFar, kFar));
}

std::int32_t find_colour(std::int32_t first, std::int32_t last, std::int64_t wanted_red,
                         std::int64_t wanted_green, std::int64_t wanted_blue, const std::uint8_t *palette) {
    const int red = near_component(wanted_red), green = near_component(wanted_green),
              blue = near_component(wanted_blue);
    std::int32_t best = 0;
    int best_distance = std::numeric_limits<int>::max();
    for (std::int32_t i = std::max(first, 0); i < std::min(last, kPaletteEntries); ++i) {
        const std::uint8_t *entry = palette + i * static_cast<std::int32_t>(kComponents);
        const int apart = std::abs(entry[0] - red) + std::abs(entry[1] - green) + std::abs(entry[2] - blue);
        if (apart < kCloseEnough) return i;
        if (apart < best_distance) {
            best = i;
            best_distance = apart;
        }
    }
    return best;
}

// What a brightness turns into under glass: below the middle level towards black, above it towards white.
std::int64_t under_glass(std::int64_t brightness, std::int64_t level) {
    constexpr std::int64_t kUnchanged = 64, kWhite = 63;
    if (level < kUnchanged) return brightness * level / kUnchanged;
    return (brightness - kWhite) * kUnchanged / level + kWhite;
}

}  // namespace
}  // namespace ink::draw

using namespace ink::draw;

int32_t PAL_find_color(int32_t first, int32_t last, int32_t red, int32_t green, int32_t blue,
                       const uint8_t *palette) {
    return find_colour(first, last, red, green, blue, palette);
}

void PAL_make_glass_table(int32_t first, int32_t last, int32_t n, int32_t level, const uint8_t *palette) {
    std::uint8_t *table = glass_table(n);
    if (table == nullptr) return;
    for (std::size_t colour = 0; colour < kPaletteEntries; ++colour) {
        const std::int64_t grey = under_glass(palette[colour * kComponents], level);
        table[colour] = static_cast<std::uint8_t>(find_colour(first, last, grey, grey, grey, palette));
    }
}

void PAL_make_system_color(uint8_t *palette) {
    std::copy_n(&kSystemColours[0][0], sizeof kSystemColours, palette);
}
