// A page that shows what Chinese text can look like.
#pragma once

#include <array>
#include <cstdint>

namespace chinese_text {

// The colours of the page: 256 x 3 components, 0 to 63.
std::array<std::uint8_t, 768> make_palette();

// Draws the page into a screen buffer. The fonts must be loaded; their colour slots, text window and styles
// are the page's own afterwards.
void draw_page(std::uint8_t *screen);

}  // namespace chinese_text
