// Sound at the rate of a track alone, for a tool that was built without libsamplerate.
#include <stdexcept>
#include <string>

#include "disc/resample.h"
#include "disc/track.h"

namespace ink::tool {

std::vector<float> resampled(const std::vector<float> &samples, std::uint32_t rate) {
    if (rate == kTrackRate) return samples;
    throw std::runtime_error("has " + std::to_string(rate) +
                             " frames a second; this ink was built without libsamplerate and takes 44100");
}

}  // namespace ink::tool
