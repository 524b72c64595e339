// The library's one pseudo-random generator, one per thread: the linear congruential generator that the C
// runtimes of Windows made common, so that a game replayed with the same draws behaves the same everywhere.
#pragma once

#include <cstdint>

namespace ink {

// The next number, 0 to 32767: the state starts at 1, becomes state * 214013 + 2531011 modulo 2^32 at each
// draw, and bits 16 to 30 of the new state are the number drawn.
std::int32_t random_number();

}  // namespace ink
