#include "plain/sounds.h"

#include <cmath>
#include <cstdint>
#include <functional>
#include <numbers>

namespace plain {
namespace {

using ink::tool::Bytes;

void append(Bytes &to, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) to.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}
void append(Bytes &to, const std::string &text) {
    to.insert(to.end(), text.begin(), text.end());
}

// A wave file of 16-bit mono samples; sample(t) is -1 to 1 at t seconds.
Bytes wave(double seconds, const std::function<double(double)> &sample) {
    constexpr std::uint32_t kRate = 22050;
    const auto count = static_cast<std::uint32_t>(seconds * kRate);
    Bytes file;
    append(file, "RIFF");
    append(file, 36 + 2 * count, 4);
    append(file, "WAVEfmt ");
    append(file, 16, 4);
    append(file, 1, 2);  // PCM
    append(file, 1, 2);  // mono
    append(file, kRate, 4);
    append(file, kRate * 2, 4);
    append(file, 2, 2);
    append(file, 16, 2);
    append(file, "data");
    append(file, 2 * count, 4);
    for (std::uint32_t i = 0; i < count; ++i)
        append(file, static_cast<std::uint32_t>(static_cast<std::int32_t>(32000 * sample(i / double{kRate}))),
               2);
    return file;
}

double tone(double frequency, double t) {
    return std::sin(2 * std::numbers::pi * frequency * t);
}

// Between -1 and 1, the same at each call for the same time.
double noise(double t) {
    auto bits = static_cast<std::uint32_t>(t * 22050 + 0.5) * 2654435761U;
    bits = (bits ^ bits >> 13) * 2246822519U;
    return static_cast<double>(bits >> 16 & 0xFFFF) / 32768.0 - 1.0;
}

// A struck bowl with its overtones.
double bowl(double frequency, double t) {
    return 0.5 * std::exp(-t * 3.2) * tone(frequency, t) +
           0.25 * std::exp(-t * 5) * tone(frequency * 2.76, t) +
           0.12 * std::exp(-t * 8) * tone(frequency * 5.4, t);
}

}  // namespace

std::vector<std::pair<std::string, Bytes>> sounds() {
    return {
        {"step.wav",
         wave(0.09, [](double t) { return std::exp(-t * 70) * (0.5 * tone(110, t) + 0.2 * noise(t)); })},
        {"click.wav",
         wave(0.12,
              [](double t) { return 0.8 * std::exp(-t * 90) * (0.7 * tone(420, t) + 0.3 * tone(1130, t)); })},
        {"chime.wav", wave(1.5, [](double t) { return bowl(523.25, t); })},
        {"bell.wav", wave(2.5, [](double t) { return bowl(196, t * 0.8); })},
        {"page.wav", wave(0.35, [](double t) { return 0.4 * t * 8 * std::exp(-t * 14) * noise(t); })},
        {"splash.wav",
         wave(0.9, [](double t) { return 0.5 * std::exp(-t * 5) * noise(t) * (0.5 + 0.5 * tone(7, t)); })},
    };
}

}  // namespace plain
