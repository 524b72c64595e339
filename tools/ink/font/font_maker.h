// Makes the bitmaps of one of the game's fonts out of the fonts of a system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "text/font_layout.h"

namespace ink::tool {

struct Coverage {
    std::size_t level1 = 0, level2 = 0;  // of the 5,401 frequent and the 7,652 rarer characters of Big5
    std::size_t others = 0;              // other double-byte codes; all codes of a single-byte font
};
inline constexpr std::size_t kLevel1 = 5401, kLevel2 = 7652;

struct MadeFont {
    std::vector<std::uint8_t> bitmaps;
    Coverage inked;
};

// Each character is taken from the first of the sources that has it. progress is called now and then with how
// many of how many characters have been looked up. Throws std::runtime_error when a source cannot be used, or
// draws a character of Big5's two levels or of ASCII too large for its cell.
MadeFont make_font(text::Font font, const std::vector<std::string> &sources,
                   const std::function<void(std::size_t done, std::size_t all)> &progress);

}  // namespace ink::tool
