// The people of the game, in frames that stand on their feet.
#pragma once

#include "figure.h"

namespace people {

// 0 to 7 walking to the right, 8 standing, 9 blinking, 10 and 11 reaching.
std::vector<FigureCanvas> hero();

// 0 to 3 at rest, 4 and 5 talking.
std::vector<FigureCanvas> master();
std::vector<FigureCanvas> seller();
std::vector<FigureCanvas> girl();  // and her cat
std::vector<FigureCanvas> boatman();

}  // namespace people
