// Conversion between sampling rates by bandlimited interpolation: every output sample is a weighted sum of
// the input samples around its place, with the weights of a windowed sinc. Where an output sample falls on an
// input sample and the rate does not sink, it is that sample exactly; a constant stays that constant. All
// arithmetic on samples is in integers, so the result is the same on every machine.
#pragma once

#include <cstdint>
#include <vector>

namespace ink::host {

// A place in the input: a whole frame and a part of the next, counted in steps of the output rate.
struct SamplePosition {
    std::uint64_t frame = 0;
    std::uint32_t part = 0;
};

class Resampler {
  public:
    // Rates in frames per second, 1 or more.
    Resampler(std::uint32_t from, std::uint32_t to);

    // Moves the position on by count output frames.
    void advance(SamplePosition &position, std::uint64_t count) const {
        const std::uint64_t parts = position.part + count * from_;
        const std::uint64_t one = to_, two = 2 * one;
        if (parts < two + one) {  // mostly, and a division takes long
            const std::uint64_t passed = (parts >= one ? 1U : 0U) + (parts >= two ? 1U : 0U);
            position.frame += passed;
            position.part = static_cast<std::uint32_t>(parts - passed * one);
            return;
        }
        position.frame += parts / to_;
        position.part = static_cast<std::uint32_t>(parts % to_);
    }

    // How many frames before and after its place a sample is made of.
    std::int64_t reach() const { return taps_ / 2; }

    // The sample of the input at that position. read(frame) gives the input's sample (24 bits at most), also
    // for frames before the first and after the last.
    template <class Read>
    std::int32_t at(SamplePosition position, Read read) const {
        const auto frame = static_cast<std::int64_t>(position.frame);
        if (!between(position)) return read(frame);
        const std::int16_t *upper = row(position.part), *lower = upper + taps_;
        std::int64_t upper_sum = 0, lower_sum = 0;
        for (std::int64_t i = 0; i < taps_; ++i) {
            const std::int64_t sample = read(frame + first_ + i);
            upper_sum += upper[i] * sample;
            lower_sum += lower[i] * sample;
        }
        return rounded(upper_sum, lower_sum);
    }

    // Whether the output is the input, frame by frame.
    bool keeps_rate() const { return from_ == to_; }

    // Whether that takes a sum of many samples.
    bool between(SamplePosition position) const { return position.part != 0 || from_ > to_; }

    // The same where the samples lie side by side, two bytes each with the lower first: from the first frame on they
    // are multiplied and added up many at once where the processor can.
    std::int32_t between_shorts(SamplePosition position, const std::uint8_t *samples) const;

  private:
    static constexpr int kOneBits = 22;
    static constexpr std::int64_t kOne = std::int64_t{1}
                                         << kOneBits;  // what the weights of a place add up to

    // A weight is kept in two parts, the lower one of kLowerBits with its sign. Of the most taps there are, 152, and
    // samples of 16 bits, the lower parts add up to less than 1 << 31, and so do the upper ones, which without regard
    // to their signs are no more than four times their sum.
    static constexpr int kLowerBits = 9;
    static constexpr std::int64_t kTogether = 8;  // taps are a multiple of this

    static std::int32_t rounded(std::int64_t upper_sum, std::int64_t lower_sum) {
        return static_cast<std::int32_t>((upper_sum * (1 << kLowerBits) + lower_sum + kOne / 2) >> kOneBits);
    }

    // The weights of the input frames around a place that lies this part of a frame after one: the upper parts of
    // all, then the lower.
    const std::int16_t *row(std::uint32_t part) const;
    void weigh(std::uint32_t part, std::int16_t *weights) const;

    std::uint32_t from_, to_;
    std::uint32_t part_step_;  // every part that occurs is a multiple of this
    std::uint64_t
        step_inverse_;  // 1 << 32 divided by it, rounded up: their product is a part's row, times that
    std::int64_t taps_, first_;  // input frames that have a weight, and where they begin
    // The weights of every part that occurs, one row each, where they are few; otherwise room for one row.
    mutable std::vector<std::int16_t> weights_;
    bool all_rows_;
};

}  // namespace ink::host
