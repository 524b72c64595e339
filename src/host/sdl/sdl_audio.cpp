#include "host/sdl/sdl_audio.h"

#include <SDL.h>

#include "host/sound/loudspeaker.h"

namespace ink::host {
namespace {

// 12 milliseconds: a sound is heard when its picture is seen.
constexpr Uint16 kDeviceFrames = 512;

void take(void *loudspeaker, Uint8 *bytes, int size) {
    static_cast<Loudspeaker *>(loudspeaker)
        ->render(reinterpret_cast<std::int16_t *>(bytes), static_cast<std::size_t>(size) / 4);
}

}  // namespace

bool SdlAudio::open(Loudspeaker &loudspeaker) {
    initialised_ = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
    if (!initialised_) return false;
    SDL_AudioSpec wanted{};
    wanted.freq = kMixRate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 2;
    wanted.samples = kDeviceFrames;
    wanted.callback = take;
    wanted.userdata = &loudspeaker;
    device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (device_ == 0) return false;
    SDL_PauseAudioDevice(device_, 0);
    return true;
}

SdlAudio::~SdlAudio() {
    if (device_ != 0) SDL_CloseAudioDevice(device_);
    if (initialised_) SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

}  // namespace ink::host
