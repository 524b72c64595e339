// What a machine lets be heard: its sound buffers and its disc in one mix of 16-bit stereo frames, kMixRate
// in a second, taken by a sound device on its own thread or, where there is none, by the machine's clock.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <vector>

#include "host/disc/disc_drive.h"
#include "host/machine/clock.h"
#include "host/sound/mixer.h"
#include "host/sound/playback.h"

namespace ink::host {

class Loudspeaker final : private Playback {
  public:
    // open_device is called once, when something first wants to play: true when a device takes the sound from
    // there on, by calls of render.
    Loudspeaker(const Clock &clock, std::function<bool()> open_device)
        : clock_(clock), open_device_(std::move(open_device)) {}

    Mixer &mixer() { return mixer_; }
    DiscDrive &drive() { return drive_; }

    // Fills the device's buffer with what comes next.
    void render(std::int16_t *stereo, std::size_t frames);

    // Keeps what is heard from now on, ten minutes at most, or ends that. What was kept before is forgotten.
    void capture(bool on);
    // Takes up to that many of the frames that were kept, the oldest first; how many were taken.
    std::size_t read(std::int16_t *stereo, std::size_t frames);

  private:
    static constexpr std::size_t kBlock = 1024;  // the most frames that are mixed at a time

    bool in_real_time() const override { return !clock_.simulated(); }
    void start() override;
    std::unique_lock<std::mutex> present() override;
    std::uint64_t frames_by_clock() const;
    void mix(std::int16_t *stereo, std::size_t frames);
    void keep(const std::int16_t *stereo, std::size_t frames);
    void pass(std::uint64_t frames);

    const Clock &clock_;
    std::function<bool()> open_device_;
    bool started_ = false;
    bool device_ = false;
    std::mutex mutex_;
    std::uint64_t played_ = 0;  // frames, by the clock
    Mixer mixer_{*this};
    DiscDrive drive_{*this};
    bool capturing_ = false;
    std::vector<std::int16_t> captured_;
};

}  // namespace ink::host
