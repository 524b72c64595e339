// What is where in a place: a mask as large as the screen, with the key of a thing at each of its pixels.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "layout.h"

namespace moon {

// Keys that mean the same in every place; from kFirstThingKey on they are its things, and the numbers of the
// procedures that the script has for them.
enum MaskKey : int { kNothing = 0, kFloor = 1, kExitLeft = 2, kExitRight = 3, kFirstThingKey = 10 };

void load_mask(const std::string &name);

// The mask of the frame, into which figures draw their keys; it begins as that of the place without anyone.
std::uint8_t *begin_mask();

// The pixels of the place that have a key, as an image block.
std::vector<std::uint8_t> cut_out(int key);

// What is at a point of the picture drawn last, and a point where a key is; (-1, -1) when it is nowhere.
int key_at(int x, int y);
Point point_of(int key);

// The point of the floor that is nearest; the point itself where there is no floor.
Point nearest_floor(int x, int y);

}  // namespace moon
