// A window that shows pictures one after another.
#pragma once

#include <string>

#include "animation/animation.h"

namespace ink::tool {

// Shows the frames until Esc or the window's end, at their pace when they are moving: Space stops and goes on,
// Left and Right step, C turns the palette round. What is larger than 640 x 480 is cut, what is smaller enlarged
// by a whole factor. Throws std::runtime_error where there is no display.
void show_in_window(const std::string &title, const Animation &animation, bool moving);

}  // namespace ink::tool
