// The sound that a record may keep: stereo frames of 16-bit samples, each written as the difference to where
// the two before it lead.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "host/replay/range_coder.h"

namespace ink::host {

class SoundModel {
  public:
    // How many frames follow, then their samples. A decoder fills what it is given. Throws std::bad_alloc.
    template <class Coder>
    void code(Coder &coder, std::vector<std::int16_t> &stereo) {
        constexpr std::uint64_t kMostFrames = 1 << 24;
        const std::uint64_t frames = code_number(coder, frames_, stereo.size() / 2);
        if (frames > kMostFrames) coder.fail();
        if (!coder.ok()) return;
        stereo.resize(2 * static_cast<std::size_t>(frames));
        for (std::size_t i = 0; i < stereo.size() && coder.ok(); ++i)
            stereo[i] = code_sample(coder, ears_[i % 2], stereo[i]);
    }

  private:
    struct Ear {
        std::int32_t last = 0, before = 0;
        std::uint32_t size = 0;  // in bits, of the last difference
        std::array<NumberModel, 20> differences;
    };

    template <class Coder>
    static std::int16_t code_sample(Coder &coder, Ear &ear, std::int32_t sample) {
        const std::int32_t expected = 2 * ear.last - ear.before;
        const std::int64_t difference =
            code_signed(coder, ear.differences[ear.size], std::int64_t{sample} - expected);
        const auto coded = static_cast<std::int16_t>(static_cast<std::uint64_t>(expected) +
                                                     static_cast<std::uint64_t>(difference));
        const auto size = static_cast<std::uint64_t>(std::llabs(difference % (1 << 18)));
        ear.size = std::min(static_cast<std::uint32_t>(std::bit_width(size)), 19U);
        ear.before = ear.last;
        ear.last = coded;
        return coded;
    }

    NumberModel frames_;
    std::array<Ear, 2> ears_;
};

}  // namespace ink::host
