// Tracks out of wave files.
#pragma once

#include <span>

#include "disc/track.h"

namespace ink::tool {

// Reads a RIFF wave file of PCM samples of 8, 16, 24 or 32 bits or of floating-point ones, at 200 to
// 1,000,000 frames a second. One channel goes to both sides, of more than two the first two are taken.
// Samples of 16 bits at the track's rate stay as they are. Throws std::runtime_error, whose message is the
// reason alone.
Track decode_wave(std::span<const std::uint8_t> file);

}  // namespace ink::tool
