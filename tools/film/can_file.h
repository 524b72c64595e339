// CAN animation files, made of pictures.
#pragma once

#include "picture/picture.h"

namespace ink::tool {

// The file of an animation. Each frame stands where its picture is placed, and the anchor is added to all of
// them.
Bytes can_file(const std::vector<IndexedPicture> &frames, int anchor_x, int anchor_y);

}  // namespace ink::tool
