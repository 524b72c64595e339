// Fonts as pages, drawn by the library itself, so that they are what a game shows.
#pragma once

#include <filesystem>
#include <string>

#include "animation/animation.h"

namespace ink::tool {

inline constexpr int kPageTime = 1000;  // milliseconds

// Loads the fonts of a directory, which becomes the current one. Throws std::runtime_error when there are none.
void load_fonts(const std::filesystem::path &directory);

// With the fonts that are loaded, of 16 or 24 pixels: the characters of a lead byte (0: of the font of single
// bytes) under their codes, and a text.
IndexedPicture page_of_codes(int size, unsigned lead);
IndexedPicture page_of_text(int size, const std::string &big5);

// A font file or a pack of them: a page for each lead byte from 0xA1 to 0xF9, before them the single bytes.
Animation font_pages(const Bytes &file);

}  // namespace ink::tool
