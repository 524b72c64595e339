#include "picture.h"

#include <inkstone/inkstone.h>

#include <fstream>
#include <iterator>

namespace moon {

std::vector<std::uint8_t> read_screen(const std::string &name) {
    std::vector<std::uint8_t> pixels(INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT);
    std::int32_t width = 0, height = 0;
    if (PCX_get_image_size(name.c_str(), &width, &height) >= 0 && width == INK_SCREEN_WIDTH &&
        height == INK_SCREEN_HEIGHT)
        PCX_read_file(name.c_str(), pixels.data());
    return pixels;
}

std::vector<std::uint8_t> read_image(const std::string &name) {
    std::ifstream file(name, std::ios::binary);
    std::vector<std::uint8_t> image(std::istreambuf_iterator<char>(file), {});
    // The size that the block states must be the size that it has.
    std::int32_t width = 0, height = 0;
    const bool whole = image.size() >= 4 && IMG_get_image_size(image.data(), &width, &height) ==
                                                static_cast<std::int32_t>(image.size());
    return whole ? image : std::vector<std::uint8_t>{1, 0, 1, 0, 0};
}

}  // namespace moon
