// Music as sound.
#pragma once

#include "disc/notes.h"
#include "disc/track.h"

namespace ink::tool {

// Plays the music: the same sound from the same notes every time, as loud as it goes without clipping.
Track play_notes(const Music &music);

}  // namespace ink::tool
