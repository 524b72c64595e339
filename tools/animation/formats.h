// The kinds of files that animations come from and go to.
#pragma once

#include "animation/animation.h"

namespace ink::tool {

Bytes encode_gif(const Animation &animation, bool transparent);

Bytes encode_apng(const Animation &animation, bool transparent);

// A description, a text of lines that name pictures or parts of them:
//
//   anchor X Y           what is added to the place of every frame in the game
//
//   picture FILE         a frame: a picture beside the description
//
//   sheet FILE           a picture of several frames; what follows are parts of it
//
//   frame X Y W H        a frame: the part at X, Y
//
//   grid W H [COUNT]     frames: all parts of that size, row by row, or the first COUNT of them
//
// Behind picture, frame and grid may stand: at X Y, the place of the frame; for MS, how long it is shown. A ;
// begins a comment.
RawAnimation read_sheet(const std::filesystem::path &name);

}  // namespace ink::tool
