// The place where the play is: its picture, and who stands in it.
#pragma once

#include <string>

#include "language.h"
#include "layout.h"
#include "state.h"

namespace moon {

// Those who speak. The hero's text stands beside his own portrait, the narrator has none.
enum Speaker : int { kHero, kMaster, kSeller, kGirl, kBoatman, kNarrator, kSpeakers };

void load_scenes();

// Loads the pictures of the place of the state. The hero stays where he is; enter_by puts him to an exit.
enum class Side { kStart, kLeft, kRight };
void enter_place();
void enter_by(Place place, Side side);

// Draws the whole place with everyone in it into the screen buffer.
void draw_scene();

// The names of things, which the script tells.
void name_thing(int key, const Both &name);
std::string name_of_thing(int key);

// Whether the key is that of one of the others.
bool is_person(int key);

// Where the hero stands to do something with a thing.
Point standing_point(int key);

// Who moves the mouth; kNarrator for nobody.
void let_speak(int speaker);

// Outlines the person of that key; kNothing for nobody.
void highlight(int key);

// How large, in percent, somebody is whose feet are at that height.
int percent_at(int y);

// Draws one of the others with the feet at (x, y).
void draw_person(int speaker, int x, int y, int percent, bool mirrored, int key);

}  // namespace moon
