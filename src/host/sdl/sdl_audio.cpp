#include "host/sdl/sdl_audio.h"

#include <SDL.h>

#include <cstdlib>

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

bool open_audio(Loudspeaker &loudspeaker) {
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return false;
    SDL_AudioSpec wanted{};
    wanted.freq = kMixRate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 2;
    wanted.samples = kDeviceFrames;
    wanted.callback = take;
    wanted.userdata = &loudspeaker;
    static SDL_AudioDeviceID device = 0;
    device = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (device == 0) return false;
    SDL_PauseAudioDevice(device, 0);
    // The loudspeaker stays, but what SDL stands on is torn down when the process ends.
    std::atexit([] { SDL_CloseAudioDevice(device); });
    return true;
}

}  // namespace ink::host
