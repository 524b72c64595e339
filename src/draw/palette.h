// Palettes as the drawing family passes them around.
#pragma once

#include <cstddef>

namespace ink::draw {

inline constexpr int kPaletteEntries = 256;
inline constexpr std::size_t kComponents = 3;  // of an entry: red, green, blue, 0 to 63 each
inline constexpr std::size_t kPaletteSize = kPaletteEntries * kComponents;

}  // namespace ink::draw
