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
        if (position.part == 0 && from_ <= to_) return read(frame);
        const std::int32_t *weights = row(position.part);
        std::int64_t sum = kOne / 2;
        for (std::int64_t i = 0; i < taps_; ++i) sum += std::int64_t{weights[i]} * read(frame + first_ + i);
        return static_cast<std::int32_t>(sum >> kOneBits);
    }

  private:
    static constexpr int kOneBits = 22;
    static constexpr std::int64_t kOne = std::int64_t{1}
                                         << kOneBits;  // what the weights of a place add up to

    // The weights of the input frames around a place that lies this part of a frame after one.
    const std::int32_t *row(std::uint32_t part) const;
    void weigh(std::uint32_t part, std::int32_t *weights) const;

    std::uint32_t from_, to_;
    std::uint32_t part_step_;    // every part that occurs is a multiple of this
    std::int64_t taps_, first_;  // input frames that have a weight, and where they begin
    // The weights of every part that occurs, one row each, where they are few; otherwise room for one row.
    mutable std::vector<std::int32_t> weights_;
    bool all_rows_;
};

}  // namespace ink::host
