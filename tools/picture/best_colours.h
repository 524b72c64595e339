// Choosing the colours of a palette.
#pragma once

#include <array>
#include <vector>

#include "picture/quantise.h"

namespace ink::tool {

using Rgb = std::array<int, 3>;

// At most count colours with which the pictures look best, components of 0 to 63. Pixels that are not there
// have no say. Throws std::runtime_error when memory runs out.
std::vector<Rgb> best_colours(const std::vector<ColourPicture> &pictures, int count);

}  // namespace ink::tool
