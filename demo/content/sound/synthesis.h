// What the sounds of the game are made of: struck things that ring, and rushing noise.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

namespace sound {

constexpr int kRate = 22050;

using Samples = std::vector<double>;
Samples silence(double seconds);

// The same on every machine, unlike those of its library: a sine of so many turns, and a half for each half
// life that has passed.
double sine(double turns);
double halved(double half_lives);

// One of the tones that a struck thing rings with.
struct Partial {
    double frequency, level, half_life;  // hertz, any, seconds
};
void strike(Samples &samples, double at, const std::vector<Partial> &partials, double level = 1);

// A drop's tone, which rises from one frequency to another while it dies away.
void drop(Samples &samples, double at, double from, double to, double seconds, double level);

// Noise between two frequencies, which may move; t goes from 0 to 1.
struct Rush {
    std::function<double(double t)> low, high;  // hertz
    std::function<double(double t)> level;
};
void rush(Samples &samples, double at, double seconds, const Rush &rush, std::uint32_t seed);

// As a wave file of 16-bit mono samples, the loudest at peak, 0 to 1.
void write_wave(const std::filesystem::path &name, const Samples &samples, double peak);

}  // namespace sound
