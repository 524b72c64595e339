// The film before the game: a drop of ink falls, spreads, and becomes the lake and its town; night falls, and the sky
// stays empty.
#pragma once

#include <vector>

#include "kit/canvas.h"

namespace paint {

inline constexpr int kFilmMilliseconds = 83;

std::vector<ink::tool::IndexedPicture> paint_film();

}  // namespace paint
