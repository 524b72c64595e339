// Sound at the rate of a track.
#pragma once

#include <cstdint>
#include <vector>

namespace ink::tool {

// Samples of left and right by turns, 1 is full scale, from any rate to a track's, with nothing added above
// the frequencies that were there.
std::vector<float> at_track_rate(const std::vector<float> &samples, std::uint32_t rate);

}  // namespace ink::tool
