// DirectSound: its device and its secondary buffers, which the library's handles are.
#pragma once

#include "host/host.h"

struct IDirectSound;

namespace ink::host {

class Win32Sound final : public Sound {
  public:
    bool create() override;
    bool set_cooperative_level(HWND window) override;
    void release() override;

    SoundBuffer create_buffer(const WaveFormat &format, std::uint32_t bytes) override;
    void release_buffer(SoundBuffer buffer) override;
    LockResult lock(SoundBuffer buffer, Locked &whole) override;
    bool unlock(SoundBuffer buffer, const Locked &whole) override;
    bool restore(SoundBuffer buffer) override;

    std::optional<bool> playing(SoundBuffer buffer) override;
    bool play(SoundBuffer buffer, bool looping) override;
    bool stop(SoundBuffer buffer) override;
    bool set_position(SoundBuffer buffer, std::uint32_t byte) override;
    bool set_volume(SoundBuffer buffer, std::int32_t hundredths_of_decibel) override;

  private:
    IDirectSound *device_ = nullptr;
};

}  // namespace ink::host
