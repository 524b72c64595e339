#include "host/replay/bitmap_file.h"

#include <cstdint>

#include "core/reader.h"
#include "host/file_name.h"

namespace ink::host {

bool write_bitmap(const char *name, const Pane &pane, const std::array<Color, 256> &palette) {
    constexpr std::uint32_t kBefore = 14 + 40 + 4 * 256;
    const auto width = static_cast<std::uint32_t>(pane.width),
               height = static_cast<std::uint32_t>(pane.height);
    const std::uint32_t stride = (width + 3) / 4 * 4;
    std::array<std::uint8_t, kBefore> before{};
    before[0] = 'B', before[1] = 'M';
    put_u32(&before[2], kBefore + stride * height);
    put_u32(&before[10], kBefore);
    put_u32(&before[14], 40);
    put_u32(&before[18], width);
    put_u32(&before[22], height);
    put_u16(&before[26], 1);
    put_u16(&before[28], 8);
    for (std::size_t i = 0; i < palette.size(); ++i) {
        std::uint8_t *entry = &before[54 + 4 * i];
        entry[0] = palette[i].blue, entry[1] = palette[i].green, entry[2] = palette[i].red;
    }
    File file = open_file(name, "wb");
    if (!file) return false;
    bool written = std::fwrite(before.data(), before.size(), 1, file.get()) == 1;
    // The rows of such files go upwards.
    for (std::uint32_t y = height; y-- > 0;) {
        constexpr std::uint8_t kPadding[4] = {};
        written &= std::fwrite(&pane.pixels[std::size_t{y} * width], 1, width, file.get()) == width;
        written &= std::fwrite(kPadding, 1, stride - width, file.get()) == stride - width;
    }
    return close_file(std::move(file)) && written;
}

}  // namespace ink::host
