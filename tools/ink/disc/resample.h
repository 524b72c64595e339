// Sound from one rate to another.
#pragma once

#include <cstdint>
#include <vector>

namespace ink::tool {

// Samples of left and right by turns, at the rate of a track, with nothing added above the frequencies that
// were there. Throws std::runtime_error.
std::vector<float> resampled(const std::vector<float> &samples, std::uint32_t rate);

}  // namespace ink::tool
