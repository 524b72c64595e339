// Tracks out of wave files.
#pragma once

#include <string>

#include "disc/track.h"

namespace ink::tool {

// Reads a RIFF wave file of PCM samples of 8, 16, 24 or 32 bits or of floating-point ones, at any rate. One
// channel goes to both sides, of more than two the first two are taken. Samples of 16 bits at the track's
// rate stay as they are.
Track read_wave(const std::string &name);

}  // namespace ink::tool
