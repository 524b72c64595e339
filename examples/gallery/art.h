// What the gallery draws with: one palette and a few pictures, all worked out in whole numbers so that they
// are the same everywhere.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace gallery {

using Bytes = std::vector<std::uint8_t>;
using Palette = std::array<std::uint8_t, 768>;  // components 0 to 63

// After the fourteen system colours the palette holds ramps of sixteen colours each, from dark to light.
inline constexpr int kShades = 16;
enum Ramp {
    kInk = 16,
    kRed = 32,
    kGold = 48,
    kJade = 64,
    kSky = 80,
    kDusk = 96,
    kPaper = 112,
    kRampsEnd = 128
};

Palette make_palette();

// A picture with its size in front, as the library's image operations take it.
struct Image {
    int width, height;
    Bytes block;

    const std::uint8_t *bitmap() const { return block.data() + 4; }
};

const Image &lantern();  // 40 x 60, colour 0 around it
const Image &seal();     // 32 x 32, without transparent pixels, and not the same in a mirror

// Hills by the water under the moon, for any size.
Bytes landscape(int width, int height);

}  // namespace gallery
