#include "material.h"

#include <algorithm>

namespace people {

Colour by_day(Ramp ramp, double tone) {
    static const ink::tool::Palette palette = paint::palette_of(paint::Light::day);
    const auto [first, count] = paint::range_of(ramp);
    const double at = std::clamp(tone, 0.0, 1.0) * (count - 1);
    const int step = std::min(static_cast<int>(at), count - 2);
    const auto entry = [](int i) {
        const std::uint8_t *bytes = &palette[static_cast<std::size_t>(i) * 3];
        return Colour{static_cast<double>(bytes[0]), static_cast<double>(bytes[1]),
                      static_cast<double>(bytes[2])};
    };
    const Colour a = entry(first + step), b = entry(first + step + 1);
    const double t = at - step;
    return {a.red + (b.red - a.red) * t, a.green + (b.green - a.green) * t, a.blue + (b.blue - a.blue) * t};
}

}  // namespace people
