// The tick counters that the library itself uses; 0 to 11 are the game's.
#pragma once

#include <cstdint>

namespace ink {

enum Counter : std::int32_t {
    kCursorCounter = 12,    // steps the image cursor
    kPlayTimeCounter = 13,  // measures the play time of the disc
    kWaitCounter = 14,      // ends tick_wait and wait_key_time
    kFadeCounter = 15,      // paces the fades
};

}  // namespace ink
