#include "plain/lights.h"

#include <algorithm>

#include "plain/page.h"

namespace plain {
namespace {

struct Shade {
    int red, green, blue;
};

// A ramp by day, from its darkest to its brightest entry.
struct Material {
    int base, count;
    Shade dark, bright;
};
constexpr Material kMaterials[] = {
    {kSky, 32, {20, 34, 52}, {60, 55, 44}},     {kStone, 16, {12, 13, 15}, {52, 50, 46}},
    {kWood, 16, {10, 5, 3}, {52, 37, 22}},      {kPaper, 16, {26, 21, 13}, {63, 60, 53}},
    {kVermilion, 16, {14, 3, 2}, {62, 26, 15}}, {kJade, 16, {4, 12, 9}, {42, 56, 38}},
    {kGold, 16, {20, 11, 3}, {63, 57, 32}},     {kInk, 16, {2, 3, 7}, {38, 42, 50}},
    {kSkin, 8, {30, 17, 11}, {62, 51, 40}},     {kIndigo, 8, {5, 8, 22}, {32, 40, 56}},
    {kPlum, 8, {16, 6, 15}, {48, 32, 46}},      {kStraw, 8, {24, 18, 8}, {60, 53, 34}},
    {kTeal, 8, {4, 18, 20}, {30, 50, 50}},      {kMountain, 16, {10, 17, 25}, {48, 51, 50}},
    {kWindow, 8, {10, 9, 11}, {30, 26, 20}},    {kMoon, 8, {40, 38, 30}, {63, 62, 56}},
};
// The entries that no light changes.
constexpr Shade kFixed[] = {{0, 0, 0},   {2, 3, 6},    {16, 17, 20}, {32, 33, 35}, {48, 48, 48}, {62, 60, 54},
                            {55, 16, 9}, {15, 40, 32}, {52, 41, 16}, {22, 36, 50}, {60, 44, 42}, {30, 18, 9},
                            {30, 7, 6},  {7, 22, 18},  {63, 54, 24}, {63, 63, 63}};

// How much of the day's colours a light leaves, of 64, and what shines by itself in it.
struct Tint {
    Shade of;
    bool lamps;
};
constexpr Tint kTints[] = {
    {{64, 64, 64}, false}, {{62, 46, 40}, true}, {{20, 26, 40}, true}, {{34, 42, 56}, true}};

void put(ink::tool::Palette &palette, int index, Shade shade) {
    const int components[] = {shade.red, shade.green, shade.blue};
    for (int i = 0; i < 3; ++i)
        palette[static_cast<std::size_t>(index * 3 + i)] =
            static_cast<std::uint8_t>(std::clamp(components[i], 0, 63));
}

}  // namespace

ink::tool::Palette light(int light) {
    ink::tool::Palette palette{};
    const Tint &tint = kTints[light];
    for (int i = 0; i < 16; ++i) put(palette, i, kFixed[i]);
    const auto tinted = [&](Shade shade) {
        return Shade{shade.red * tint.of.red / 64, shade.green * tint.of.green / 64,
                     shade.blue * tint.of.blue / 64};
    };
    for (const Material &material : kMaterials) {
        for (int i = 0; i < material.count; ++i) {
            const auto between = [&](int a, int b) { return a + (b - a) * i / (material.count - 1); };
            const Shade shade{between(material.dark.red, material.bright.red),
                              between(material.dark.green, material.bright.green),
                              between(material.dark.blue, material.bright.blue)};
            const bool shines = tint.lamps && (material.base == kGold || material.base == kMoon);
            put(palette, material.base + i, shines ? shade : tinted(shade));
            if (tint.lamps && material.base == kWindow)
                put(palette, material.base + i, {36 + i * 3, 26 + i * 3, 8 + i * 2});
        }
    }
    // The ring of the water goes up and comes down again.
    for (int i = 0; i < 16; ++i) {
        const int up = i < 8 ? i : 15 - i;
        put(palette, kWater + i, tinted({22 + up * 3, 34 + up * 2, 40 + up * 2}));
    }
    return palette;
}

}  // namespace plain
