// The play itself: the hero goes where the player clicks, and does what is to be done there.
#pragma once

#include "layout.h"
#include "scene.h"

namespace moon {

// Plays until the story is at its end or the player leaves for the title page.
void play_story();

// For the script: each ends when it is done.
void walk_and_wait(Point feet);
void reach_and_wait();
void go_to(Place place, Side side);
void sleep_till(int night);

// The light of the place and the time, and its music.
void show_place();

}  // namespace moon
