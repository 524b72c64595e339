// Pictures of the content.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace moon {

// A whole screen or a mask of one, 640 x 480 pixels, from a PCX file; all 0 when there is no such file.
std::vector<std::uint8_t> read_screen(const std::string &name);

// An image block from its file; a single transparent pixel when there is none.
std::vector<std::uint8_t> read_image(const std::string &name);

}  // namespace moon
