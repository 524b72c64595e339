// By the library's own resampler, where there is no libsamplerate.
#include <algorithm>

#include "disc/resampling.h"
#include "disc/track.h"
#include "host/sound/resampler.h"

namespace ink::tool {

std::vector<float> at_track_rate(const std::vector<float> &samples, std::uint32_t rate) {
    if (rate == kTrackRate || samples.empty()) return samples;
    constexpr float kFullScale = 1 << 23;  // samples are 24-bit numbers on the way
    const auto frames = static_cast<std::int64_t>(samples.size() / 2);
    const host::Resampler resampler(rate, kTrackRate);
    std::vector<float> made;
    for (host::SamplePosition at; static_cast<std::int64_t>(at.frame) < frames; resampler.advance(at, 1))
        for (const std::int64_t side : {0, 1}) {
            const auto read = [&](std::int64_t frame) {
                const bool there = frame >= 0 && frame < frames;
                const float sample = there ? samples[static_cast<std::size_t>(2 * frame + side)] : 0.0F;
                return static_cast<std::int32_t>(std::clamp(sample, -1.0F, 1.0F) * (kFullScale - 1));
            };
            made.push_back(static_cast<float>(resampler.at(at, read)) / kFullScale);
        }
    return made;
}

}  // namespace ink::tool
