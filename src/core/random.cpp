#include "core/random.h"

namespace ink {

std::int32_t random_number() {
    thread_local std::uint32_t state = 1;
    state = state * 214013U + 2531011U;
    return static_cast<std::int32_t>((state >> 16) & 0x7FFF);
}

}  // namespace ink
