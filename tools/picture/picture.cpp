#include "picture/picture.h"

#include <algorithm>
#include <stdexcept>

#include "core/reader.h"
#include "draw/surface.h"
#include "inkstone/compressed_image.h"

namespace ink::tool {

Palette bright_palette(const Palette &palette) {
    Palette bright;
    std::ranges::transform(palette, bright.begin(), [](std::uint8_t component) {
        return static_cast<std::uint8_t>((component & 63) * 255 / 63);
    });
    return bright;
}

Palette dim_palette(const Palette &bright) {
    Palette palette;
    std::ranges::transform(bright, palette.begin(),
                           [](std::uint8_t component) { return static_cast<std::uint8_t>(component / 4); });
    return palette;
}

Palette grey_palette() {
    Palette palette;
    for (std::size_t i = 0; i < palette.size(); ++i) palette[i] = static_cast<std::uint8_t>(i / 3 / 4);
    return palette;
}

IndexedPicture cut(const IndexedPicture &from, int x, int y, int width, int height) {
    IndexedPicture part{width, height};
    part.palette = from.palette;
    for (int row = 0; row < height; ++row) std::copy_n(from.row(y + row) + x, width, part.row(row));
    return part;
}

void paste(IndexedPicture &onto, const IndexedPicture &picture, int x, int y) {
    for (int row = 0; row < picture.height; ++row)
        std::copy_n(picture.row(row), picture.width, onto.row(y + row) + x);
}

Bytes image_block(const IndexedPicture &picture) {
    if (picture.width > draw::kLargestImage || picture.height > draw::kLargestImage)
        throw std::runtime_error("an image can be 65535 pixels wide and high at most");
    Bytes block(draw::kImageHeader);
    draw::put_image_header(block.data(), static_cast<std::uint32_t>(picture.width),
                           static_cast<std::uint32_t>(picture.height));
    append(block, picture.pixels);
    return block;
}

Bytes compressed_image(const IndexedPicture &picture) {
    const Bytes image = image_block(picture);
    Bytes block(16 + 2 * picture.pixels.size());
    const std::int32_t size = fnCompressImage(image.data(), block.data(), 0);
    if (size < 0) throw std::runtime_error("there is no memory");
    block.resize(static_cast<std::size_t>(size));
    return block;
}

IndexedPicture picture_of_block(std::span<const std::uint8_t> block) {
    Reader reader(block);
    IndexedPicture picture;
    picture.width = reader.u16();
    picture.height = reader.u16();
    const auto pixels =
        reader.take(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
    if (!reader.ok()) throw std::runtime_error("the image has fewer pixels than its size says");
    picture.pixels.assign(pixels.begin(), pixels.end());
    picture.palette = grey_palette();
    return picture;
}

}  // namespace ink::tool
