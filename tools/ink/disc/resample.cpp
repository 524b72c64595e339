#include "disc/resample.h"

#include <samplerate.h>

#include <stdexcept>

#include "disc/track.h"

namespace ink::tool {

std::vector<float> resampled(const std::vector<float> &samples, std::uint32_t rate) {
    if (rate == kTrackRate || samples.empty()) return samples;
    const double ratio = static_cast<double>(kTrackRate) / rate;
    std::vector<float> made(2 *
                            (static_cast<std::size_t>(static_cast<double>(samples.size() / 2) * ratio) + 1));
    SRC_DATA data{};
    data.data_in = samples.data();
    data.input_frames = static_cast<long>(samples.size() / 2);
    data.data_out = made.data();
    data.output_frames = static_cast<long>(made.size() / 2);
    data.src_ratio = ratio;
    if (const int error = src_simple(&data, SRC_SINC_BEST_QUALITY, 2); error != 0)
        throw std::runtime_error(src_strerror(error));
    made.resize(2 * static_cast<std::size_t>(data.output_frames_gen));
    return made;
}

}  // namespace ink::tool
