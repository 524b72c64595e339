#include "host/resampler.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ink::host {
namespace {

// The shape of the Kaiser window: 9 leaves less than the step of a 16-bit sample outside the band.
constexpr double kKaiser = 9.0;
constexpr double kOne = 1 << 22;

// The modified Bessel function of the first kind and order zero, by its series.
double bessel(double x) {
    double sum = 1, term = 1;
    for (int k = 1; term > sum * 1e-16; ++k) {
        term *= (x / (2 * k)) * (x / (2 * k));
        sum += term;
    }
    return sum;
}

}  // namespace

const Resampler::Table &Resampler::table() {
    static const Table weights = [] {
        Table made{};
        for (std::size_t i = 0; i < made.size() - 2; ++i) {
            const double x = static_cast<double>(i) / (1 << kTableBits);
            const double angle = std::numbers::pi * x, edge = x / kZeroCrossings;
            const double sinc = i == 0 ? 1 : std::sin(angle) / angle;
            made[i] = static_cast<std::int32_t>(
                std::lround(kOne * sinc * bessel(kKaiser * std::sqrt(1 - edge * edge)) / bessel(kKaiser)));
        }
        return made;
    }();
    return weights;
}

Resampler::Resampler(std::uint32_t from, std::uint32_t to)
    : from_(from),
      to_(to),
      step_((std::int64_t{std::min(from, to)} << kUnitBits) / from),
      reach_(kZeroCrossings * std::int64_t{std::max(from, to)} / to + 1),
      table_(table()) {}

}  // namespace ink::host
