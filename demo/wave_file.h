// The sound of a tour, as a file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace moon {

constexpr std::uint32_t kSoundRate = 44100;

// Writes pairs of samples, left and right, as a RIFF wave file.
void write_wave(const std::filesystem::path &name, const std::vector<std::int16_t> &stereo);

}  // namespace moon
