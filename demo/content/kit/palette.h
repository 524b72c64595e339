// The colours of the game: one layout of indices, four lights that fall on it.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "picture/picture.h"

namespace paint {

// A row of shades of one material, from the darkest to the lightest. Exact is none: its values are indices.
enum class Ramp : std::uint8_t {
    none,
    exact,
    sky,
    water,  // a ring of colours, which the program turns
    stone,
    wood,
    paper,
    vermilion,
    jade,
    gold,
    ink,
    skin,
    indigo,
    plum,
    straw,
    teal,
    mountain,
    window,  // dark panes by day, warm light by night
    moon,    // its darkest shade is that of the stars, which by day no one tells from the sky
    blossom,
};

struct RampRange {
    int first, count;
};
RampRange range_of(Ramp ramp);

// Entries 1 to 15, which are the same in every light.
enum Fixed : int {
    kBlack = 1,
    kDarkGrey,
    kGrey,
    kLightGrey,
    kPaperWhite,
    kVermilion,
    kJade,
    kGold,
    kGlassBlue,
    kPink,
    kBrown,
    kDarkRed,
    kDarkJade,
    kBrightGold,
    kWhite,
};

enum class Light { day, dusk, night, moon };
ink::tool::Palette palette_of(Light light);

// How bright the darkest and the lightest shade of a ramp are by day, 0 to 1.
struct Brightness {
    double dark, light;
};
Brightness brightness_of(Ramp ramp);

}  // namespace paint
