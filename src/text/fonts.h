// The loaded fonts of Chinese text.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "text/font_layout.h"
#include "text/glyph.h"

namespace ink::text {

class Fonts {
  public:
    // From four files or from the pack. False after logging why a load failed; some fonts may be loaded then.
    bool load_files();
    bool load_pack();

    // Character number index of a font. What lies beyond the end of the font is blank.
    Glyph glyph(Font font, std::size_t index) const;

  private:
    // Null when there is not that much memory.
    std::uint8_t *allocate(Font owner, std::size_t size);

    std::array<std::unique_ptr<std::uint8_t[]>, kFontCount> blocks_;
    std::array<std::span<const std::uint8_t>, kFontCount> bitmaps_;
};

}  // namespace ink::text
