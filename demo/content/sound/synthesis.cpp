#include "synthesis.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "files/file.h"

namespace sound {
namespace {

constexpr double kPi = 3.141592653589793;
// A sound begins within this time, so that it does not click.
constexpr double kAttack = 0.0015;

std::size_t sample_at(double seconds) {
    return static_cast<std::size_t>(seconds * kRate);
}

// Lets through what is below a frequency.
class LowPass {
  public:
    double operator()(double input, double frequency) {
        const double x = 2 * kPi * frequency / kRate;
        value_ += (input - value_) * std::min(1.0, x / (1 + x));
        return value_;
    }

  private:
    double value_ = 0;
};

void append_number(ink::tool::Bytes &to, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) to.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

}  // namespace

Samples silence(double seconds) {
    return Samples(sample_at(seconds));
}

double sine(double turns) {
    double t = turns - std::floor(turns);
    const double sign = t < 0.5 ? 1 : -1;
    if (t >= 0.5) t -= 0.5;
    if (t > 0.25) t = 0.5 - t;
    const double x = 2 * kPi * t, y = x * x;
    return sign * x * (1 - y / 6 * (1 - y / 20 * (1 - y / 42 * (1 - y / 72))));
}

double halved(double half_lives) {
    const double whole = std::floor(half_lives), x = -(half_lives - whole) * 0.6931471805599453;
    double result = 1 + x * (1 + x / 2 * (1 + x / 3 * (1 + x / 4 * (1 + x / 5))));
    for (double i = 0; i < whole && i < 60; ++i) result /= 2;
    return result;
}

void strike(Samples &samples, double at, const std::vector<Partial> &partials, double level) {
    for (const Partial &partial : partials) {
        for (std::size_t i = sample_at(at); i < samples.size(); ++i) {
            const double t = static_cast<double>(i - sample_at(at)) / kRate;
            samples[i] += level * partial.level * std::min(1.0, t / kAttack) * halved(t / partial.half_life) *
                          sine(partial.frequency * t);
        }
    }
}

void drop(Samples &samples, double at, double from, double to, double seconds, double level) {
    double turns = 0;
    const std::size_t first = sample_at(at), count = std::min(sample_at(seconds), samples.size() - first);
    for (std::size_t i = 0; i < count; ++i) {
        const double t = static_cast<double>(i) / static_cast<double>(count);
        turns += (from + (to - from) * t) / kRate;
        samples[first + i] += level * std::min(1.0, t * 12) * (1 - t) * (1 - t) * sine(turns);
    }
}

void rush(Samples &samples, double at, double seconds, const Rush &rush, std::uint32_t seed) {
    LowPass low, low_again, high;
    const std::size_t first = sample_at(at), count = std::min(sample_at(seconds), samples.size() - first);
    for (std::size_t i = 0; i < count; ++i) {
        seed = seed * 1664525u + 1013904223u;
        const double noise = (seed >> 8) / 8388608.0 - 1,
                     t = static_cast<double>(i) / static_cast<double>(count);
        const double below = low_again(low(noise, rush.high(t)), rush.high(t));
        samples[first + i] += rush.level(t) * (below - high(below, rush.low(t)));
    }
}

void write_wave(const std::filesystem::path &name, const Samples &samples, double peak) {
    double loudest = 1e-9;
    for (const double sample : samples) loudest = std::max(loudest, std::abs(sample));
    const auto size = static_cast<std::uint32_t>(samples.size() * 2);
    ink::tool::Bytes file;
    ink::tool::append(file, std::string_view("RIFF"));
    append_number(file, 36 + size, 4);
    ink::tool::append(file, std::string_view("WAVEfmt "));
    append_number(file, 16, 4);
    append_number(file, 1, 2);  // PCM
    append_number(file, 1, 2);  // mono
    append_number(file, kRate, 4);
    append_number(file, kRate * 2, 4);
    append_number(file, 2, 2);
    append_number(file, 16, 2);
    ink::tool::append(file, std::string_view("data"));
    append_number(file, size, 4);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        // It ends in silence, wherever it is cut.
        const double fade = std::min(1.0, static_cast<double>(samples.size() - i) / (kRate * 0.01));
        append_number(file,
                      static_cast<std::uint32_t>(static_cast<std::int32_t>(
                          std::floor(samples[i] / loudest * peak * fade * 32767 + 0.5))),
                      2);
    }
    ink::tool::write_bytes(name, file);
}

}  // namespace sound
