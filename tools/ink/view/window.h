// A window that shows pictures one after another.
#pragma once

#include <string>

#include "animation/animation.h"

namespace ink::tool {

// Shows the frames at their pace until Esc or the window's end: Space stops and goes on, Left and Right step, C
// turns the palette round. What is larger than 640 x 480 is cut. Throws std::runtime_error where there is no
// display.
void show_in_window(const std::string &title, const Animation &animation);

}  // namespace ink::tool
