// Pictures for whoever wants to see where a replay differs.
#pragma once

#include "host/replay/picture.h"

namespace ink::host {

// As a file that every system shows. False when it cannot be written.
bool write_bitmap(const char *name, const Pane &pane, const std::array<Color, 256> &palette);

}  // namespace ink::host
