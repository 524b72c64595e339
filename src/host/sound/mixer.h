// The sound device of a machine made in software: sound buffers of any format, mixed.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "host/host.h"
#include "host/sound/playback.h"
#include "host/sound/voice.h"

namespace ink::host {

class Mixer final : public Sound {
  public:
    explicit Mixer(Playback &playback) : playback_(playback) {}

    bool create() override;
    bool set_cooperative_level(HWND) override { return true; }
    void release() override;
    SoundBuffer create_buffer(const WaveFormat &format, std::uint32_t bytes) override;
    void release_buffer(SoundBuffer buffer) override;
    LockResult lock(SoundBuffer buffer, Locked &whole) override;
    bool unlock(SoundBuffer buffer, const Locked &) override { return find(buffer) != nullptr; }
    bool restore(SoundBuffer buffer) override { return find(buffer) != nullptr; }
    std::optional<bool> playing(SoundBuffer buffer) override;
    bool play(SoundBuffer buffer, bool looping) override;
    bool stop(SoundBuffer buffer) override;
    bool set_position(SoundBuffer buffer, std::uint32_t byte) override;
    bool set_volume(SoundBuffer buffer, std::int32_t volume) override;

    // Adds the next frames of everything that plays to the mix, or passes over them. For whoever holds the
    // present.
    void mix(std::int32_t *stereo, std::size_t frames);
    void skip(std::uint64_t frames);

  private:
    struct Buffer {
        SoundBuffer handle;
        std::unique_ptr<Voice> voice;
    };

    // Null for a buffer that is not there.
    Voice *find(SoundBuffer buffer);
    void cut(const Voice &voice);

    Playback &playback_;
    std::vector<Buffer> buffers_;
    std::uintptr_t last_handle_ = 0;
    // What is still heard of sounds that were cut off, from fading_from_ on.
    std::array<std::int32_t, 2 * Voice::kFadeFrames> fading_{};
    std::size_t fading_from_ = fading_.size();
};

}  // namespace ink::host
