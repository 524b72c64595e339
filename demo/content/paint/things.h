// What is carried, what hangs and lies about, and what points at it.
#pragma once

#include <string>
#include <vector>

#include "people.h"

namespace paint {

struct Thing {
    std::string file;
    Canvas picture;
};
std::vector<Thing> paint_things();

// A cursor's hot spot is stated in layout.inf.
struct Cursor {
    std::string file;
    Frames frames;
};
std::vector<Cursor> paint_cursors();

}  // namespace paint
