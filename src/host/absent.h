// A sound device and a disc drive that are not there: every operation is refused.
#pragma once

#include "host/host.h"

namespace ink::host {

class NoSound final : public Sound {
  public:
    bool create() override { return false; }
    bool set_cooperative_level(HWND) override { return false; }
    SoundBuffer *create_buffer(const WaveFormat &, std::uint32_t) override { return nullptr; }
    void release() override {}
};

class NoDisc final : public Disc {
  public:
    bool open() override { return false; }
    bool close() override { return false; }
    bool stop() override { return false; }
    bool set_time_format(DiscTime) override { return false; }
    bool track_count(std::int32_t &) override { return false; }
    bool track_length(std::int32_t, std::uint32_t &) override { return false; }
    bool mode(DiscMode &) override { return false; }
    bool play(std::uint32_t, std::uint32_t) override { return false; }
};

}  // namespace ink::host
