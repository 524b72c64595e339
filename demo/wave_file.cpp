#include "wave_file.h"

#include <fstream>
#include <stdexcept>
#include <string>

namespace moon {
namespace {

// Little-endian.
std::string number(std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
}

}  // namespace

void write_wave(const std::filesystem::path &name, const std::vector<std::int16_t> &stereo) {
    const auto size = static_cast<std::uint32_t>(stereo.size() * 2);
    std::string file = "RIFF" + number(36 + size, 4) + "WAVEfmt " + number(16, 4);
    file += number(1, 2) + number(2, 2);  // PCM, two channels
    file += number(kSoundRate, 4) + number(kSoundRate * 4, 4) + number(4, 2) + number(16, 2);
    file += "data" + number(size, 4);
    for (const std::int16_t sample : stereo) file += number(static_cast<std::uint16_t>(sample), 2);
    std::ofstream out(name, std::ios::binary);
    out.write(file.data(), static_cast<std::streamsize>(file.size()));
    if (!out) throw std::runtime_error("cannot write " + name.string());
}

}  // namespace moon
