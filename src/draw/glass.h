// The eight glass tables: what each colour turns into when it is seen through coloured glass.
#pragma once

#include <cstdint>

namespace ink::draw {

inline constexpr int kGlassTables = 8;

// Table number to be read or filled: 256 colours, all 0 until they are filled. Null for a number outside 0
// to 7.
std::uint8_t *glass_table(std::int32_t number);

}  // namespace ink::draw
