// The one who plays: where he stands, and how he walks.
#pragma once

#include <cstdint>

#include "layout.h"

namespace moon {

void load_hero();

// Puts him there at once; his place is part of the state.
void place_hero(Point feet);
Point hero_feet();
void turn_hero_to(int x);

// Lets him walk straight to a point from the next frames on, and stand still.
void walk_hero_to(Point feet);
void stop_hero();
bool hero_walks();

// Moves him for one frame.
void move_hero();

// He stretches out his hand for half a second.
void hero_reaches();

void draw_hero(int percent);

}  // namespace moon
