// The chunks of a FLIC frame: each paints some of the picture or sets some of the palette.
#pragma once

#include <array>
#include <cstdint>

#include "core/reader.h"
#include "draw/surface.h"

namespace ink::formats {

// What the chunks of a film change. The film lies in the top-left corner of the destination. Whole pictures
// have its width and height; deltas paint where they say, whatever size the film states. What lies outside
// the destination is cut off.
struct FlicScreen {
    draw::Surface destination;
    std::int64_t film_width = 0, film_height = 0;
    std::array<std::uint8_t, 768> palette{};
};

// Decodes one chunk, as far as its data goes.
void decode_flic_chunk(std::uint16_t type, Reader data, FlicScreen &screen);

}  // namespace ink::formats
