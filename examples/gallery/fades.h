// The page of the fades. Its pictures differ in their palettes, so it is in full colour: red, green, blue.
#pragma once

#include "art.h"

namespace gallery {

// Fades the palette of the machine's window and keeps what it shows at some of the steps.
Bytes draw_fades_page();

}  // namespace gallery
