// The loudspeaker's way to the desktop: one SDL2 audio stream. SDL converts the mix to the rate of the
// device.
#pragma once

namespace ink::host {

class Loudspeaker;

// Lets a device take sound from the loudspeaker from now on, on a thread of its own, until the process ends.
// False when there is none.
bool open_audio(Loudspeaker &loudspeaker);

}  // namespace ink::host
