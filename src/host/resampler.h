// Conversion between sampling rates by bandlimited interpolation: every output sample is a weighted sum of
// the input samples around its place, with the weights of a windowed sinc. Where an output sample falls on an
// input sample and the rate does not sink, it is that sample exactly; a constant stays that constant. All
// arithmetic on samples is in integers, so the result is the same on every machine.
#pragma once

#include <array>
#include <cstdint>

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
        position.frame += parts / to_;
        position.part = static_cast<std::uint32_t>(parts % to_);
    }

    // The sample of the input at that position. read(frame) gives the input's sample (24 bits at most), also
    // for frames before the first and after the last.
    template <class Read>
    std::int32_t at(SamplePosition position, Read read) const {
        const auto frame = static_cast<std::int64_t>(position.frame);
        if (position.part == 0 && from_ <= to_) return read(frame);
        const std::int64_t offset = static_cast<std::int64_t>(position.part) * step_ / to_;
        std::int64_t sum = 0, weights = 0;
        for (std::int64_t i = 1 - reach_; i <= reach_; ++i) {
            const std::int64_t weight = weight_at(i * step_ - offset);
            sum += weight * read(frame + i);
            weights += weight;
        }
        return static_cast<std::int32_t>((sum + (sum < 0 ? -weights : weights) / 2) / weights);
    }

  private:
    static constexpr int kZeroCrossings = 16;             // of the sinc, on each side
    static constexpr int kTableBits = 9, kUnitBits = 20;  // steps per crossing in the table; in a distance
    using Table = std::array<std::int32_t, (kZeroCrossings << kTableBits) + 2>;
    static const Table &table();

    // The weight at a distance from the centre, linear between the entries of the table.
    std::int64_t weight_at(std::int64_t distance) const {
        constexpr int kBelow = kUnitBits - kTableBits;
        if (distance < 0) distance = -distance;
        if (distance >= std::int64_t{kZeroCrossings} << kUnitBits) return 0;
        const auto index = static_cast<std::size_t>(distance >> kBelow);
        const std::int64_t part = distance & ((1 << kBelow) - 1);
        return table_[index] + (((table_[index + 1] - table_[index]) * part) >> kBelow);
    }

    std::uint32_t from_, to_;
    std::int64_t step_;   // an input frame in units of distance: when the rate sinks the sinc is wider
    std::int64_t reach_;  // input frames on each side that have a weight
    const Table &table_;
};

}  // namespace ink::host
