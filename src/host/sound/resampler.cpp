#include "host/sound/resampler.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <numeric>

namespace ink::host {
namespace {

constexpr int kZeroCrossings = 16;  // of the sinc, on each side
// The shape of the Kaiser window: 9 leaves less than the step of a 16-bit sample outside the band.
constexpr double kKaiser = 9.0;

// The filter at the distances 0 to kZeroCrossings, kSteps of them from one crossing to the next. In between
// it is linear.
constexpr int kSteps = 512, kUnitBits = 20;  // a crossing's distance is 1 << kUnitBits
constexpr int kStepBits = kUnitBits - 9;
static_assert(kSteps == 1 << (kUnitBits - kStepBits));
using Filter = std::array<std::int32_t, kZeroCrossings * kSteps + 2>;

// More rows of weights than this many numbers take are made one at a time, when they are needed.
constexpr std::uint64_t kMostWeights = 1 << 16;

// The modified Bessel function of the first kind and order zero, by its series.
double bessel(double x) {
    double sum = 1, term = 1;
    for (int k = 1; term > sum * 1e-16; ++k) {
        term *= (x / (2 * k)) * (x / (2 * k));
        sum += term;
    }
    return sum;
}

const Filter &filter() {
    static const Filter values = [] {
        Filter made{};
        for (std::size_t i = 0; i < made.size() - 2; ++i) {
            const double x = static_cast<double>(i) / kSteps;
            const double angle = std::numbers::pi * x, edge = x / kZeroCrossings;
            const double sinc = i == 0 ? 1 : std::sin(angle) / angle;
            made[i] = static_cast<std::int32_t>(std::lround(
                (1 << 22) * sinc * bessel(kKaiser * std::sqrt(1 - edge * edge)) / bessel(kKaiser)));
        }
        return made;
    }();
    return values;
}

std::int64_t filter_at(std::int64_t distance) {
    distance = std::abs(distance);
    if (distance >= std::int64_t{kZeroCrossings} << kUnitBits) return 0;
    const Filter &values = filter();
    const auto index = static_cast<std::size_t>(distance >> kStepBits);
    const std::int64_t part = distance & ((1 << kStepBits) - 1);
    return values[index] + (((values[index + 1] - values[index]) * part) >> kStepBits);
}

}  // namespace

Resampler::Resampler(std::uint32_t from, std::uint32_t to)
    : from_(from), to_(to), part_step_(std::gcd(from, to)) {
    // When the rate sinks the filter is wider, so that it keeps out what the output cannot carry.
    const std::int64_t reach = kZeroCrossings * std::int64_t{std::max(from, to)} / to + 1;
    taps_ = 2 * reach;
    first_ = 1 - reach;
    const std::uint32_t rows = to / part_step_;
    const auto row_size = static_cast<std::size_t>(taps_);
    all_rows_ = std::uint64_t{rows} * row_size <= kMostWeights;
    weights_.resize(all_rows_ ? rows * row_size : row_size);
    for (std::uint32_t i = 0; all_rows_ && i < rows; ++i) weigh(i * part_step_, &weights_[i * row_size]);
}

const std::int32_t *Resampler::row(std::uint32_t part) const {
    if (all_rows_) return &weights_[part / part_step_ * static_cast<std::size_t>(taps_)];
    weigh(part, weights_.data());
    return weights_.data();
}

void Resampler::weigh(std::uint32_t part, std::int32_t *weights) const {
    const std::int64_t step =
        (std::int64_t{std::min(from_, to_)} << kUnitBits) / from_;  // an input frame's distance
    const std::int64_t offset = std::int64_t{part} * step / to_;
    std::int64_t sum = 0, left = kOne;
    for (std::int64_t i = 0; i < taps_; ++i) sum += filter_at((first_ + i) * step - offset);
    for (std::int64_t i = 0; i < taps_; ++i) {
        weights[i] = static_cast<std::int32_t>(filter_at((first_ + i) * step - offset) * kOne / sum);
        left -= weights[i];
    }
    weights[-first_] +=
        static_cast<std::int32_t>(left);  // what the division cut off: a constant stays constant
}

}  // namespace ink::host
