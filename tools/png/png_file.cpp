#include "png/png_file.h"

#include <png.h>

#include <stdexcept>
#include <string>

namespace ink::tool {
namespace {

void write(const std::filesystem::path &name, int width, int height, png_uint_32 format,
           std::span<const std::uint8_t> pixels, const std::uint8_t *palette) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = format;
    image.colormap_entries = palette ? 256 : 0;
    if (width < 1 || height < 1 || pixels.size() < PNG_IMAGE_SIZE(image))
        throw std::runtime_error(name.string() + ": the picture has fewer pixels than its size says");
    if (!png_image_write_to_file(&image, name.c_str(), 0, pixels.data(), 0, palette))
        throw std::runtime_error(name.string() + ": " + image.message);
}

}  // namespace

void write_png(const std::filesystem::path &name, int width, int height,
               std::span<const std::uint8_t> indices, std::span<const std::uint8_t, 768> palette) {
    write(name, width, height, PNG_FORMAT_RGB_COLORMAP, indices, palette.data());
}

void write_png_rgb(const std::filesystem::path &name, int width, int height,
                   std::span<const std::uint8_t> rgb) {
    write(name, width, height, PNG_FORMAT_RGB, rgb, nullptr);
}

RgbPicture read_png_rgb(const std::filesystem::path &name) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    RgbPicture picture;
    bool read = png_image_begin_read_from_file(&image, name.c_str()) != 0;
    if (read) {
        image.format = PNG_FORMAT_RGB;
        picture.width = static_cast<int>(image.width);
        picture.height = static_cast<int>(image.height);
        picture.rgb.resize(PNG_IMAGE_SIZE(image));
        read = png_image_finish_read(&image, nullptr, picture.rgb.data(), 0, nullptr) != 0;
    }
    if (!read) throw std::runtime_error(name.string() + ": " + image.message);
    return picture;
}

}  // namespace ink::tool
