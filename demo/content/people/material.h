// The materials of the game's palette, by short names, and their colours by day, of which edges are mixed.
#pragma once

#include "../paint/palette.h"

namespace people {

using Ramp = paint::Ramp;

inline constexpr Ramp kNothing = Ramp::none, kSky = Ramp::sky, kStone = Ramp::stone, kWood = Ramp::wood,
                      kPaper = Ramp::paper, kVermilion = Ramp::vermilion, kJade = Ramp::jade,
                      kGold = Ramp::gold, kInk = Ramp::ink, kSkin = Ramp::skin, kIndigo = Ramp::indigo,
                      kPlum = Ramp::plum, kStraw = Ramp::straw, kTeal = Ramp::teal,
                      kMountain = Ramp::mountain, kMoon = Ramp::moon, kBlossom = Ramp::blossom;
inline constexpr int kRamps = static_cast<int>(Ramp::blossom) + 1;

struct Colour {
    double red = 0, green = 0, blue = 0;  // 0 to 63
};

// A tone of a ramp by day, 0 its darkest and 1 its lightest.
Colour by_day(Ramp ramp, double tone);

}  // namespace people
