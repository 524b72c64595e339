// FLIC films as the tool reads them.
#pragma once

#include "animation/animation.h"

namespace ink::tool {

// Every frame as a game sees it after playing it, read by the library: at most 640 x 480 pixels of it. Throws
// std::runtime_error for a file that is none, or is damaged.
Animation read_flic(const Bytes &file);

}  // namespace ink::tool
