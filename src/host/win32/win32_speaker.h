// What disc images let be heard, through the system's wave device.
#pragma once

#include "host/sound/loudspeaker.h"

namespace ink::host {

// Lets the device take sound from the loudspeaker from now on, on a thread of its own. False when there is no
// device. The loudspeaker lives as long as the process.
bool open_speaker(Loudspeaker &loudspeaker);

}  // namespace ink::host
