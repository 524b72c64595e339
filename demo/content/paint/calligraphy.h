// Characters written with a brush.
#pragma once

#include <string_view>

#include "kit/canvas.h"

namespace paint {

// The title of the game, its three characters one below the other, each size pixels high.
void write_title(Canvas &canvas, double x, double y, double size, Tone tone);

// A line of roman capitals, those that the title needs, its middle at x.
void write_roman(Canvas &canvas, double x, double y, double height, std::string_view text, Tone tone);

// The sign of the paper shop, four characters side by side, and the one on its banner.
void write_shop_sign(Canvas &canvas, double x, double y, double size, Tone tone);
void write_paper(Canvas &canvas, double x, double y, double size, Tone tone);

// The tablet of the pavilion: moon in the water, to be read from the right.
void write_tablet(Canvas &canvas, double x, double y, double size, Tone tone);

// The master's seal: two characters of red in a square.
void stamp_seal(Canvas &canvas, double x, double y, double size);

}  // namespace paint
