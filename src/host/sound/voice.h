// One sound of the mixer: samples in a format of their own, played once or in a loop into the mix.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "host/host.h"
#include "host/sound/playback.h"
#include "host/sound/resampler.h"

namespace ink::host {

class Voice {
  public:
    // How long a sound that is cut off takes to fade, and one that goes on from its middle to come up: long
    // enough that no click is heard, short enough that no delay is.
    static constexpr std::size_t kFadeFrames = kMixRate / 200;

    // Unsigned samples of 8 bits or signed ones of 16, 24 or 32, one or two channels, 100 to 200000 frames
    // per second. The rates of bytes in the format say nothing new and are not looked at. Empty for any other
    // format. Throws std::bad_alloc.
    static std::optional<Voice> make(const WaveFormat &format, std::uint32_t bytes);

    std::span<std::uint8_t> samples() { return samples_; }
    bool playing() const { return playing_; }
    // Whether it plays and some of it was heard since it was started or moved.
    bool heard() const { return playing_ && heard_; }

    // Goes on where it stood.
    void play(bool looping);
    void stop() { playing_ = false; }
    bool set_position(std::uint32_t byte);
    // In hundredths of a decibel, -10000 (silence) to 0; a sound that plays glides to it.
    void set_volume(std::int32_t volume);

    // Adds the next frames to the mix, or passes over them. A sound played once that reaches its end stops
    // and stands at its start again.
    void mix(std::int32_t *stereo, std::size_t frames);
    void skip(std::uint64_t frames);
    // Adds kFadeFrames frames from where it stands, fading out, without moving on.
    void fade_out(std::int32_t *stereo) const;

  private:
    static constexpr int kGainBits = 24;

    Voice(const WaveFormat &format, std::uint32_t bytes);
    // A sample as one of 16 bits.
    template <unsigned bytes>
    std::int32_t stored(std::int64_t frame, unsigned channel) const;
    // read(std::integral_constant of the bytes in a sample), whose result it gives.
    template <class Read>
    std::int32_t by_size(Read read) const;
    std::int32_t sample(std::int64_t frame, unsigned channel) const;
    std::int32_t sample_at(const SamplePosition &position, unsigned channel) const;
    bool advance(SamplePosition &position, std::uint64_t frames) const;
    // Adds the frame at that position, through the gain.
    void add(const SamplePosition &position, std::int64_t gain, std::int32_t *stereo) const;
    static std::int32_t at_gain(std::int32_t sample, std::int64_t gain);
    std::size_t add_unchanged(std::int32_t *stereo, std::size_t frames) const;
    void finish();
    void glide(std::int64_t from);
    std::int64_t next_gain();

    std::vector<std::uint8_t> samples_;
    unsigned channels_, bytes_per_sample_;
    std::int64_t frames_;
    Resampler resampler_;
    SamplePosition position_;
    bool playing_ = false, looping_ = false, heard_ = false;
    std::int64_t gain_ = std::int64_t{1} << kGainBits, gain_now_ = gain_;  // asked for, and reached
    std::size_t gliding_ = 0;                                              // frames until it is reached
};

}  // namespace ink::host
