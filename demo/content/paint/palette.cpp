#include "palette.h"

#include <algorithm>

namespace paint {
namespace {

struct Keys {
    Colour shade, middle, light;
};

// How a light falls on what has no light of its own: what it takes away, and what the air adds.
struct Fall {
    Colour filter, air;
};

constexpr Range kRanges[kRamps] = {{0, 1},    {16, 32},  {48, 16},  {64, 16}, {80, 16}, {96, 16}, {112, 16},
                                   {128, 16}, {144, 16}, {160, 16}, {176, 8}, {184, 8}, {192, 8}, {200, 8},
                                   {208, 8},  {216, 16}, {232, 8},  {240, 8}, {248, 8}};

constexpr Keys kDayKeys[kRamps] = {
    {},
    {{92, 136, 158}, {176, 202, 196}, {248, 234, 204}},
    {{112, 158, 162}, {150, 186, 182}, {206, 222, 206}},
    {{40, 42, 54}, {124, 122, 120}, {226, 218, 200}},
    {{36, 18, 16}, {124, 72, 44}, {226, 172, 112}},
    {{92, 68, 52}, {208, 186, 148}, {253, 245, 224}},
    {{58, 10, 16}, {192, 52, 36}, {248, 150, 108}},
    {{12, 32, 34}, {66, 114, 84}, {190, 208, 142}},
    {{72, 38, 12}, {214, 144, 44}, {255, 236, 164}},
    {{14, 16, 28}, {84, 90, 106}, {214, 214, 208}},
    {{92, 46, 38}, {216, 150, 112}, {253, 222, 188}},
    {{16, 22, 50}, {50, 76, 126}, {150, 176, 204}},
    {{44, 14, 36}, {126, 58, 92}, {220, 160, 172}},
    {{78, 54, 26}, {188, 146, 80}, {246, 224, 162}},
    {{8, 38, 44}, {42, 114, 116}, {154, 206, 192}},
    {{46, 66, 90}, {118, 146, 158}, {226, 228, 212}},
    {{34, 30, 36}, {88, 78, 74}, {168, 152, 130}},
    {{124, 132, 132}, {216, 212, 184}, {255, 252, 234}},
    {{96, 20, 10}, {240, 116, 34}, {255, 228, 132}},
};

// The sky and the water have colours of their own in each light; so have the lamps.
constexpr Keys kSkyKeys[kLights] = {
    {{92, 136, 158}, {176, 202, 196}, {248, 234, 204}},
    {{70, 62, 112}, {204, 122, 112}, {254, 204, 132}},
    {{8, 12, 32}, {22, 34, 68}, {70, 88, 124}},
    {{14, 26, 60}, {38, 68, 116}, {164, 182, 196}},
};
constexpr Keys kWaterKeys[kLights] = {
    {{112, 158, 162}, {150, 186, 182}, {206, 222, 206}},
    {{104, 78, 116}, {188, 122, 118}, {250, 196, 140}},
    {{10, 18, 42}, {20, 34, 66}, {48, 68, 104}},
    {{18, 36, 74}, {48, 80, 122}, {206, 214, 206}},
};
constexpr Keys kWindowKeys[kLights] = {
    {{34, 30, 36}, {88, 78, 74}, {168, 152, 130}},
    {{110, 44, 14}, {226, 140, 50}, {255, 222, 148}},
    {{124, 52, 12}, {246, 166, 58}, {255, 240, 182}},
    {{116, 56, 20}, {240, 168, 70}, {255, 242, 196}},
};

constexpr Fall kFalls[kLights] = {
    {{1, 1, 1}, {0, 0, 0}},
    {{0.86, 0.66, 0.60}, {22, 12, 24}},
    {{0.30, 0.36, 0.50}, {6, 10, 24}},
    {{0.46, 0.56, 0.70}, {10, 18, 36}},
};

// How much of its own colour a material keeps by night: what the lamps are made for.
double glow(Ramp ramp) {
    switch (ramp) {
        case kMoon:
        case kFire: return 1;
        case kGold: return 0.45;
        case kVermilion: return 0.22;
        case kSkin: return 0.3;
        case kPaper: return 0.12;
        default: return 0;
    }
}

Colour mix(const Colour &a, const Colour &b, double t) {
    return {a.red + (b.red - a.red) * t, a.green + (b.green - a.green) * t, a.blue + (b.blue - a.blue) * t};
}

Colour between(const Keys &keys, double t) {
    return t < 0.5 ? mix(keys.shade, keys.middle, t * 2) : mix(keys.middle, keys.light, t * 2 - 1);
}

Colour seen(Ramp ramp, double tone, Light light) {
    if (ramp == kSky) return between(kSkyKeys[light], tone);
    if (ramp == kWindow) return between(kWindowKeys[light], tone);
    if (ramp == kWater) return between(kWaterKeys[light], tone < 0.5 ? tone * 2 : 2 - tone * 2);
    const Colour day = between(kDayKeys[ramp], tone);
    const Fall &fall = kFalls[light];
    const Colour fallen = {day.red * fall.filter.red + fall.air.red,
                           day.green * fall.filter.green + fall.air.green,
                           day.blue * fall.filter.blue + fall.air.blue};
    return mix(fallen, day, light == kDay ? 1 : glow(ramp));
}

// 0 black and see-through; then what texts and panels are drawn with, the same in every light.
constexpr Colour kFixed[16] = {{0, 0, 0},       {12, 14, 24},    {56, 58, 68},    {116, 118, 124},
                               {188, 186, 180}, {250, 242, 222}, {206, 58, 40},   {86, 148, 116},
                               {212, 160, 60},  {36, 48, 76},    {240, 188, 180}, {122, 76, 46},
                               {112, 20, 22},   {30, 74, 62},    {255, 218, 112}, {255, 255, 252}};

std::uint8_t component(double value) {
    return static_cast<std::uint8_t>(std::clamp(value / 4.0 + 0.25, 0.0, 63.0));
}

}  // namespace

Range range(Ramp ramp) {
    return kRanges[ramp];
}

Colour by_day(Ramp ramp, double tone) {
    return seen(ramp, std::clamp(tone, 0.0, 1.0), kDay);
}

ink::tool::Palette palette(Light light) {
    ink::tool::Palette all{};
    const auto set = [&all](int entry, const Colour &colour) {
        const auto at = static_cast<std::size_t>(entry) * 3;
        all[at] = component(colour.red);
        all[at + 1] = component(colour.green);
        all[at + 2] = component(colour.blue);
    };
    for (int i = 0; i < 16; ++i) set(i, kFixed[i]);
    for (int ramp = kSky; ramp < kRamps; ++ramp) {
        const auto [base, count] = kRanges[ramp];
        // The ring has no last tone: behind its last comes its first.
        const double steps = ramp == kWater ? count : count - 1;
        for (int i = 0; i < count; ++i) set(base + i, seen(static_cast<Ramp>(ramp), i / steps, light));
    }
    return all;
}

}  // namespace paint
