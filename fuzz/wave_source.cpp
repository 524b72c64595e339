// Any bytes as a wave file for a disc: a track of no more than they can hold, or refused.
#include "disc/wave_source.h"

#include <cstdlib>
#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    try {
        const auto track = ink::tool::decode_wave({data, size});
        // No sample takes less than a byte, and none is stretched more than from 200 frames a second.
        if (track.size() > size * 221 + 1) std::abort();
    } catch (const std::runtime_error &) {
    }
    return 0;
}
