#include "host/sound/resampler.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <numeric>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "core/reader.h"

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

// More rows than this many parts of weights take are made one at a time, when they are needed.
constexpr std::uint64_t kMostWeights = 1 << 17;

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
    : from_(from),
      to_(to),
      part_step_(std::gcd(from, to)),
      step_inverse_(((std::uint64_t{1} << 32) + part_step_ - 1) / part_step_) {
    // When the rate sinks the filter is wider, so that it keeps out what the output cannot carry.
    const std::int64_t needed = kZeroCrossings * std::int64_t{std::max(from, to)} / to + 1;
    const std::int64_t reach = (needed + kTogether / 2 - 1) / (kTogether / 2) * (kTogether / 2);
    taps_ = 2 * reach;
    first_ = 1 - reach;
    const std::uint32_t rows = to / part_step_;
    const auto row_size = static_cast<std::size_t>(2 * taps_);
    all_rows_ = std::uint64_t{rows} * row_size <= kMostWeights;
    weights_.resize(all_rows_ ? rows * row_size : row_size);
    for (std::uint32_t i = 0; all_rows_ && i < rows; ++i) weigh(i * part_step_, &weights_[i * row_size]);
}

std::int32_t Resampler::between_shorts(SamplePosition position, const std::uint8_t *samples) const {
    const std::uint8_t *first = samples + 2 * (static_cast<std::int64_t>(position.frame) + first_);
    const std::int16_t *upper = row(position.part), *lower = upper + taps_;
    std::int64_t upper_sum = 0, lower_sum = 0;
#if defined(__SSE2__)
    // No compiler finds the instruction that multiplies eight and adds up pairs; without it this takes twice as long.
    const auto eight = [](const void *from) { return _mm_loadu_si128(static_cast<const __m128i *>(from)); };
    __m128i upper_sums{}, lower_sums{};
    for (std::int64_t i = 0; i < taps_; i += kTogether) {
        const __m128i here = eight(first + 2 * i);
        upper_sums = _mm_add_epi32(upper_sums, _mm_madd_epi16(eight(upper + i), here));
        lower_sums = _mm_add_epi32(lower_sums, _mm_madd_epi16(eight(lower + i), here));
    }
    const auto total = [](__m128i four) {
        const __m128i two = _mm_add_epi32(four, _mm_srli_si128(four, 8));
        return _mm_cvtsi128_si32(_mm_add_epi32(two, _mm_srli_si128(two, 4)));
    };
    upper_sum = total(upper_sums), lower_sum = total(lower_sums);
#else
    for (std::int64_t i = 0; i < taps_; ++i) {
        const auto sample = static_cast<std::int16_t>(get_u16(first + 2 * i));
        upper_sum += upper[i] * sample;
        lower_sum += lower[i] * sample;
    }
#endif
    return rounded(upper_sum, lower_sum);
}

const std::int16_t *Resampler::row(std::uint32_t part) const {
    if (all_rows_)
        return &weights_[static_cast<std::size_t>(part * step_inverse_ >> 32) *
                         static_cast<std::size_t>(2 * taps_)];
    weigh(part, weights_.data());
    return weights_.data();
}

void Resampler::weigh(std::uint32_t part, std::int16_t *weights) const {
    const std::int64_t step =
        (std::int64_t{std::min(from_, to_)} << kUnitBits) / from_;  // an input frame's distance
    const std::int64_t offset = std::int64_t{part} * step / to_;
    std::int64_t sum = 0, left = kOne;
    for (std::int64_t i = 0; i < taps_; ++i) sum += filter_at((first_ + i) * step - offset);
    const auto put = [&](std::int64_t i, std::int64_t weight) {
        constexpr std::int64_t kLower = 1 << kLowerBits;
        const std::int64_t upper = (weight + kLower / 2) >> kLowerBits;
        weights[i] = static_cast<std::int16_t>(upper);
        weights[taps_ + i] = static_cast<std::int16_t>(weight - upper * kLower);
    };
    std::int64_t nearest = 0;
    for (std::int64_t i = 0; i < taps_; ++i) {
        const std::int64_t weight = filter_at((first_ + i) * step - offset) * kOne / sum;
        left -= weight;
        if (i == -first_) nearest = weight;
        put(i, weight);
    }
    put(-first_, nearest + left);  // what the division cut off: a constant stays constant
}

}  // namespace ink::host
