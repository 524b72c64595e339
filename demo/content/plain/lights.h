// The palettes of the game: the same materials by day, at dusk, by night and under the moon.
#pragma once

#include "picture/picture.h"

namespace plain {

enum Light { kDay, kDusk, kNight, kMoonlight };

// Components 0 to 63.
ink::tool::Palette light(int light);

}  // namespace plain
