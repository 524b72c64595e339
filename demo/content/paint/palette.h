// The palette that every picture of the game is painted in: ramps of one material each, from its shade to its
// light, and the four lights that they are seen in. A picture stays; the light is a palette.
#pragma once

#include <array>
#include <cstdint>

#include "picture/picture.h"

namespace paint {

struct Colour {
    double red = 0, green = 0, blue = 0;  // 0 to 255
};

enum Light { kDay, kDusk, kNight, kMoonlight, kLights };

// The materials. kNothing is what is not painted, which the game shows through.
enum Ramp : std::uint8_t {
    kNothing,
    kSky,
    kWater,  // a ring that the game turns: its tones go up and come down again
    kStone,
    kWood,
    kPaper,
    kVermilion,
    kJade,
    kGold,
    kInk,
    kSkin,
    kIndigo,
    kPlum,
    kStraw,
    kTeal,
    kMountain,
    kWindow,  // dark panes by day, warm light by night
    kMoon,
    kFire,
    kRamps
};

// Where a ramp lies in the palette.
struct Range {
    int base, count;
};
Range range(Ramp ramp);

// A tone of a ramp by day, 0 the shade and 1 the light; what edges are mixed of.
Colour by_day(Ramp ramp, double tone);

ink::tool::Palette palette(Light light);

}  // namespace paint
