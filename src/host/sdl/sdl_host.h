// The desktop machine: a window, keys and a pointer through SDL2.
#pragma once

#include "host/host.h"

namespace ink::host {

// Null when SDL has no display here.
Machine *open_sdl();

}  // namespace ink::host
