// Characters written with a brush.
#pragma once

#include "canvas.h"

namespace paint {

// The title of the game, its three characters one below the other, each size pixels high.
void write_title(Canvas &canvas, double x, double y, double size, Tone tone);

// The master's seal: two characters of red in a square.
void stamp_seal(Canvas &canvas, double x, double y, double size);

}  // namespace paint
