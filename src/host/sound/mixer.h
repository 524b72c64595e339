// The sound device of a machine made in software: sound buffers of any format, mixed.
#pragma once

#include <memory>
#include <vector>

#include "host/host.h"
#include "host/sound/playback.h"

namespace ink::host {

class Mixer final : public Sound {
  public:
    explicit Mixer(Playback &playback);
    ~Mixer();

    bool create() override;
    bool set_cooperative_level(HWND window) override;
    SoundBuffer *create_buffer(const WaveFormat &format, std::uint32_t bytes) override;
    void release() override;

    // Adds the next frames of everything that plays to the mix, or passes over them. For whoever holds the
    // present.
    void mix(std::int32_t *stereo, std::size_t frames);
    void skip(std::uint64_t frames);

  private:
    class Buffer;

    void cut(const Buffer &buffer);

    Playback &playback_;
    std::vector<std::unique_ptr<Buffer>> buffers_;
    unsigned last_number_ = 0;
    // What is still heard of sounds that were cut off, from fading_from_ on.
    std::vector<std::int32_t> fading_;
    std::size_t fading_from_ = 0;
};

}  // namespace ink::host
