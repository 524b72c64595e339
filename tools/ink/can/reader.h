// CAN animations as the tool reads them.
#pragma once

#include "animation/animation.h"

namespace ink::tool {

// Every frame, read by the library. Throws std::runtime_error for a file that is none, or is damaged.
Animation read_can(const Bytes &file);

}  // namespace ink::tool
