// The people of the game as they stand and walk, and as they look when they speak.
#pragma once

#include <vector>

#include "canvas.h"

namespace paint {

using Frames = std::vector<ink::tool::IndexedPicture>;

// Placed relative to the feet. The hero: 0 to 7 walk to the right, 8 and 9 stand, 10 and 11 reach out. The others: 0 to 3
// stand, 4 and 5 speak.
Frames paint_hero();
Frames paint_master();
Frames paint_seller();
Frames paint_girl();
Frames paint_boatman();

// 112 x 136, the shoulders at the lower edge.
Canvas portrait_of_hero();
Canvas portrait_of_master();
Canvas portrait_of_seller();
Canvas portrait_of_girl();
Canvas portrait_of_boatman();

}  // namespace paint
