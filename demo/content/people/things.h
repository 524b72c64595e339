// What can be found in the game, 48 x 48 each, the kite in its tree, the boat at its jetty, and the cursors.
#pragma once

#include <vector>

#include "canvas.h"

namespace people {

constexpr int kThingSize = 48;

Canvas inkstone();
Canvas teapot();
Canvas kite();
Canvas oil_jar();
Canvas brush();
Canvas paper();
Canvas ink_stick();
Canvas painted_moon();

Canvas hanging_kite();
Canvas boat();

// Frames of one size each, 18 of them a second at most.
std::vector<Canvas> arrow_cursor();  // the tip of a brush, which points at things
std::vector<Canvas> walk_cursor();
std::vector<Canvas> hand_cursor();
std::vector<Canvas> talk_cursor();

}  // namespace people
