// The loudspeaker's way to the desktop: one SDL2 audio stream. SDL converts the mix to the rate of the
// device.
#pragma once

#include <SDL_audio.h>

namespace ink::host {

class Loudspeaker;

class SdlAudio {
  public:
    SdlAudio() = default;
    SdlAudio(const SdlAudio &) = delete;
    SdlAudio &operator=(const SdlAudio &) = delete;
    ~SdlAudio();

    // False when there is no sound device.
    bool open(Loudspeaker &loudspeaker);

  private:
    bool initialised_ = false;
    SDL_AudioDeviceID device_ = 0;
};

}  // namespace ink::host
