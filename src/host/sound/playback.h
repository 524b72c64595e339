// The common time of everything a machine plays.
#pragma once

#include <cstdint>
#include <mutex>

namespace ink::host {

// Frames (one sample for each ear) per second of the mix. It is the rate of audio discs, whose sound thus
// passes unchanged.
inline constexpr std::uint32_t kMixRate = 44100;

class Playback {
  public:
    // Whether the time passes by itself, and not only as far as the machine is told.
    virtual bool in_real_time() const = 0;
    // Begins to play, at the first use of the sound device or the disc drive.
    virtual void start() = 0;
    // Brings everything that plays up to the present, and keeps it there while the lock is held: the device
    // may take sound on a thread of its own.
    virtual std::unique_lock<std::mutex> present() = 0;

  protected:
    ~Playback() = default;
};

}  // namespace ink::host
