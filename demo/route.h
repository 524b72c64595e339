// The way of the scripted player through the story.
#pragma once

#include <vector>

#include "player.h"

namespace moon {

// half is 0 for the whole of it, 1 for what comes until the game is left with a saved game, 2 for the rest.
std::vector<Player::Goal> route(int half);

}  // namespace moon
