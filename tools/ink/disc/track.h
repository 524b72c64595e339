// The sound of one track of a disc.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace ink::tool {

inline constexpr std::uint32_t kTrackRate = 44100;

// Stereo frames, kTrackRate in a second.
using Track = std::vector<std::array<std::int16_t, 2>>;

// A sample of which 1 is full scale.
inline std::int16_t to_sample(double value) {
    return static_cast<std::int16_t>(std::lround(std::clamp(value * 32768, -32768.0, 32767.0)));
}

}  // namespace ink::tool
