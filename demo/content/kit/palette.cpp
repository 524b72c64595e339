#include "kit/palette.h"

#include <array>
#include <cstddef>

namespace paint {
namespace {

// Three colours of a ramp, between which the others lie, for each light.
struct Keys {
    std::uint32_t dark, middle, light;
};
struct RampColours {
    RampRange range;
    std::array<Keys, 4> lights;
};

// In the order of Ramp, from the sky on.
constexpr RampColours kRamps[] = {
    {{16, 32},
     {{{0x7199A8, 0xBCCFC6, 0xF6EAD0},
       {0x3A3D6E, 0xA8688A, 0xF8BC78},
       {0x060A1C, 0x101A3A, 0x2C3A64},
       {0x0B142E, 0x1E3260, 0x5C78A6}}}},
    {{48, 16},
     {{{0x84ABA8, 0xA2C0B6, 0xC6D8C6},
       {0x5C4C78, 0x94688A, 0xD89484},
       {0x0B1430, 0x14224A, 0x223662},
       {0x122248, 0x284674, 0x6486B2}}}},
    {{64, 16},
     {{{0x272B33, 0x84867F, 0xE2DCCA},
       {0x221F33, 0x766872, 0xDEB89A},
       {0x070A16, 0x252D48, 0x56668E},
       {0x0B1122, 0x3B496C, 0x93A6C8}}}},
    {{80, 16},
     {{{0x24130E, 0x78482C, 0xD6A878},
       {0x20101A, 0x6A3A34, 0xD08C5C},
       {0x0A060D, 0x3A272B, 0x7C5C50},
       {0x0E0A14, 0x483840, 0x988684}}}},
    {{96, 16},
     {{{0x86714F, 0xD3C299, 0xFCF4DE},
       {0x664A56, 0xCB9478, 0xFCDCAC},
       {0x181A2E, 0x484E70, 0x8C94AE},
       {0x222A46, 0x6B7BA0, 0xC6D2E2}}}},
    {{112, 16},
     {{{0x3A0A0C, 0xBC321E, 0xF29A68},
       {0x32080F, 0xA82C20, 0xF48048},
       {0x180610, 0x641C26, 0xB84C44},
       {0x220A16, 0x7E2830, 0xD06C5C}}}},
    {{128, 16},
     {{{0x10221B, 0x4A7854, 0xC2D298},
       {0x101B26, 0x4C5C50, 0xBCA070},
       {0x050C16, 0x1A3640, 0x42686A},
       {0x081622, 0x2A505A, 0x80ACA6}}}},
    {{144, 16},
     {{{0x523410, 0xD29A34, 0xFFF2B8},
       {0x523014, 0xE29034, 0xFFEAA6},
       {0x40220F, 0xD88830, 0xFFE8A0},
       {0x42260F, 0xD69038, 0xFFF0B4}}}},
    {{160, 16},
     {{{0x07080D, 0x2E3648, 0x9CA4AA},
       {0x07070E, 0x302E48, 0xA08C94},
       {0x02030A, 0x10162B, 0x3C4866},
       {0x03050D, 0x18233E, 0x5C7096}}}},
    {{176, 8},
     {{{0x70402C, 0xD69C74, 0xFCDEBC},
       {0x64342C, 0xD28A62, 0xFACC9E},
       {0x38262F, 0x8C6668, 0xC8A09A},
       {0x423242, 0x988088, 0xD8C2BC}}}},
    {{184, 8},
     {{{0x111A36, 0x335088, 0x94B0D2},
       {0x12142F, 0x34427A, 0x9A8EB0},
       {0x070A1C, 0x1C2C58, 0x506C9C},
       {0x0A1028, 0x26407A, 0x7496CC}}}},
    {{192, 8},
     {{{0x26102A, 0x70406E, 0xCC9CBA},
       {0x240E26, 0x6A3660, 0xCC8C98},
       {0x10081A, 0x3A2748, 0x76587E},
       {0x180E26, 0x50385E, 0x9C80A8}}}},
    {{200, 8},
     {{{0x50391A, 0xBA9652, 0xF4E2AA},
       {0x482E1C, 0xB07C48, 0xF2C488},
       {0x1C1620, 0x524848, 0x928470},
       {0x262230, 0x6E685E, 0xBCB49C}}}},
    {{208, 8},
     {{{0x0C2C30, 0x2C7470, 0xA2D0BC},
       {0x0E2430, 0x305C64, 0xA8AC96},
       {0x060F1E, 0x173B48, 0x457072},
       {0x0A182A, 0x20505C, 0x76A8A8}}}},
    {{216, 16},
     {{{0x3E5C68, 0x86A09E, 0xE2E4D2},
       {0x33325A, 0x8A6A84, 0xEEB894},
       {0x080E22, 0x182546, 0x344872},
       {0x0C1634, 0x2B4370, 0x7898C0}}}},
    {{232, 8},
     {{{0x241F1C, 0x66584A, 0xB0A080},
       {0x502A14, 0xB87838, 0xF4CC80},
       {0x8A4410, 0xEEA03A, 0xFFEAAC},
       {0x8A4814, 0xEEA844, 0xFFF0BC}}}},
    {{240, 8},
     {{{0x98B4B4, 0xEEE4C4, 0xFFFEF0},
       {0x7C5A84, 0xEED8B0, 0xFFF6DC},
       {0xA8B0C4, 0xE8E6C4, 0xFFFFEC},
       {0x9CAAC0, 0xEEECCC, 0xFFFFF2}}}},
    {{248, 8},
     {{{0x70283E, 0xDE8490, 0xFCE0D8},
       {0x682436, 0xDC7478, 0xFCCCB4},
       {0x2C1428, 0x6C4258, 0xAC8490},
       {0x3A1C34, 0x8C5C74, 0xD4B0B8}}}},
};

constexpr std::uint32_t kFixed[] = {0x000000, 0x0A0C12, 0x3A3E48, 0x787C82, 0xB8B8B0, 0xF8F0DC,
                                    0xC83824, 0x4C8C68, 0xD0A040, 0x5880A8, 0xE8A8A0, 0x6C4428,
                                    0x701818, 0x204C3C, 0xFFE07C, 0xFFFFFF};

constexpr int component(std::uint32_t colour, int index) {
    return static_cast<int>(colour >> (16 - 8 * index)) & 255;
}

// The colour at step of count, by three keys.
int between(const Keys &keys, int index, int step, int count) {
    const int last = (count - 1) * 2, twice = step * 4;
    const int from = component(twice < last ? keys.dark : keys.middle, index);
    const int to = component(twice < last ? keys.middle : keys.light, index);
    const int way = twice < last ? twice : twice - last;
    return from + (to - from) * way / last;
}

double brightness(std::uint32_t colour) {
    return (component(colour, 0) * 3 + component(colour, 1) * 6 + component(colour, 2)) / 2550.0;
}

}  // namespace

RampRange range_of(Ramp ramp) {
    if (ramp <= Ramp::exact) return {0, 256};
    return kRamps[static_cast<std::size_t>(ramp) - static_cast<std::size_t>(Ramp::sky)].range;
}

ink::tool::Palette palette_of(Light light) {
    ink::tool::Palette palette{};
    const auto set = [&](int entry, int index, int value) {
        palette[static_cast<std::size_t>(entry * 3 + index)] = static_cast<std::uint8_t>(value / 4);
    };
    for (int i = 0; i < 16; ++i)
        for (int c = 0; c < 3; ++c) set(i, c, component(kFixed[i], c));
    for (const RampColours &ramp : kRamps) {
        const Keys &keys = ramp.lights[static_cast<std::size_t>(light)];
        const bool ring = ramp.range.first == range_of(Ramp::water).first;
        for (int i = 0; i < ramp.range.count; ++i)
            for (int c = 0; c < 3; ++c) {
                // A ring leads up to the lightest shade and down again, so that it turns without a seam.
                const int value =
                    ring ? between(keys, c, i < 8 ? i : 15 - i, 8) : between(keys, c, i, ramp.range.count);
                set(ramp.range.first + i, c, value);
            }
    }
    return palette;
}

Brightness brightness_of(Ramp ramp) {
    if (ramp <= Ramp::exact) return {0, 1};
    const Keys &keys = kRamps[static_cast<std::size_t>(ramp) - static_cast<std::size_t>(Ramp::sky)].lights[0];
    return {brightness(keys.dark), brightness(keys.light)};
}

}  // namespace paint
