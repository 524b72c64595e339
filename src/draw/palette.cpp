#include "draw/palette.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "draw/glass.h"
#include "inkstone/palette.h"

namespace ink::draw {
namespace {

// The search ends with the first colour that is closer than this.
constexpr std::int64_t kCloseEnough = 16;

constexpr std::uint8_t kSystemColours[][kComponents] = {
    {0, 0, 0},    {63, 0, 0}, {0, 63, 0},   {0, 0, 63},   {63, 63, 0},  {0, 63, 63},  {63, 0, 63},
    {63, 63, 63}, {0, 0, 0},  {13, 13, 13}, {26, 26, 26}, {39, 39, 39}, {51, 51, 51}, {63, 63, 63},
};

std::int64_t distance(std::int64_t a, std::int64_t b) {
    return a < b ? b - a : a - b;
}

std::int32_t find_colour(std::int32_t first, std::int32_t last, std::int64_t red, std::int64_t green,
                         std::int64_t blue, const std::uint8_t *palette) {
    std::int32_t best = 0;
    std::int64_t best_distance = std::numeric_limits<std::int64_t>::max();
    for (std::int32_t i = std::max(first, 0); i < std::min(last, kPaletteEntries); ++i) {
        const std::uint8_t *entry = palette + i * static_cast<std::int32_t>(kComponents);
        const std::int64_t apart =
            distance(entry[0], red) + distance(entry[1], green) + distance(entry[2], blue);
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
