// Where the pointer is and which cursor is selected, for the image cursors.
#pragma once

#include <cstdint>

namespace ink::mouse {

inline constexpr std::int32_t kCursors = 64;

inline bool is_cursor(std::int32_t index) {
    return index >= 0 && index < kCursors;
}

struct Position {
    std::int32_t x = 0, y = 0;
};
Position position();
std::int32_t current_cursor();

// Empties every image cursor and puts the hot spot at (0, 0).
void reset_image_cursors();

}  // namespace ink::mouse
