// The things of the game in plain shapes, and its pointers.
#pragma once

#include <vector>

#include "picture/picture.h"

namespace plain {

// In the order of the game's numbers, from the inkstone on: 48 x 48 pixels each.
std::vector<ink::tool::IndexedPicture> things();

ink::tool::IndexedPicture kite();
ink::tool::IndexedPicture boat();

// The four pointers: arrow, walk, hand and talk, of a colour each, which breathes.
std::vector<ink::tool::IndexedPicture> pointer(int kind);

}  // namespace plain
