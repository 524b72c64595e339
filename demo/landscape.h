// The evening landscape of the title page, painted with the drawing functions.
#pragma once

#include <cstdint>

namespace demo {

// Sky, moon, mountains and water over the whole screen; the water below kShore shimmers when its colours
// turn.
void paint_landscape(std::uint8_t *screen);

inline constexpr std::int32_t kShore = 330;

}  // namespace demo
