#include "png/png_file.h"

#include <png.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <string>

namespace ink::tool {
namespace {

constexpr std::int64_t kMostPixels = 1 << 26;

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

// What libpng reads with: the file in memory, and where it has got to.
struct Source {
    std::span<const std::uint8_t> left;

    static void read(png_structp png, png_bytep to, std::size_t count) {
        auto &source = *static_cast<Source *>(png_get_io_ptr(png));
        if (count > source.left.size()) png_error(png, "the file is cut short");
        std::memcpy(to, source.left.data(), count);
        source.left = source.left.subspan(count);
    }
};

[[noreturn]] void fail(png_structp, png_const_charp message) {
    throw std::runtime_error(message);
}
void ignore(png_structp, png_const_charp) {}

// libpng's own cleaning up, for when it throws.
struct PngReader {
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, fail, ignore);
    png_infop info = png != nullptr ? png_create_info_struct(png) : nullptr;

    PngReader() {
        if (info == nullptr) throw std::runtime_error("there is no memory");
    }
    ~PngReader() { png_destroy_read_struct(&png, &info, nullptr); }
    PngReader(const PngReader &) = delete;
    PngReader &operator=(const PngReader &) = delete;
};

std::vector<PngPicture::Colour> palette_of(const PngReader &reader) {
    png_colorp colours = nullptr;
    int count = 0, opacities = 0;
    png_bytep opacity = nullptr;
    png_get_PLTE(reader.png, reader.info, &colours, &count);
    png_get_tRNS(reader.png, reader.info, &opacity, &opacities, nullptr);
    std::vector<PngPicture::Colour> palette;
    for (int i = 0; i < count; ++i)
        palette.push_back({colours[i].red, colours[i].green, colours[i].blue,
                           i < opacities ? opacity[i] : std::uint8_t{255}});
    return palette;
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

std::vector<std::uint8_t> encode_png(int width, int height, std::span<const std::uint8_t> indices,
                                     std::span<const std::uint8_t, 768> palette, bool transparent) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = transparent ? PNG_FORMAT_RGBA_COLORMAP : PNG_FORMAT_RGB_COLORMAP;
    image.colormap_entries = 256;
    std::vector<std::uint8_t> colours;
    for (std::size_t i = 0; i < 256; ++i) {
        colours.insert(colours.end(), &palette[3 * i], &palette[3 * i] + 3);
        if (transparent) colours.push_back(i == 0 ? 0 : 255);
    }
    png_alloc_size_t size = 0;
    std::vector<std::uint8_t> file;
    const auto encode = [&](void *to) {
        if (!png_image_write_to_memory(&image, to, &size, 0, indices.data(), 0, colours.data()))
            throw std::runtime_error(image.message);
    };
    if (width < 1 || height < 1 || indices.size() < PNG_IMAGE_SIZE(image))
        throw std::runtime_error("a PNG picture has at least one pixel");
    encode(nullptr);
    file.resize(size);
    encode(file.data());
    return file;
}

bool is_png(std::span<const std::uint8_t> file) {
    return file.size() >= 8 && png_sig_cmp(file.data(), 0, 8) == 0;
}

PngPicture decode_png(std::span<const std::uint8_t> file) {
    if (!is_png(file)) throw std::runtime_error("is no PNG file");
    const PngReader reader;
    Source source{file};
    png_set_read_fn(reader.png, &source, Source::read);
    png_read_info(reader.png, reader.info);
    PngPicture picture;
    picture.width = static_cast<int>(png_get_image_width(reader.png, reader.info));
    picture.height = static_cast<int>(png_get_image_height(reader.png, reader.info));
    if (std::int64_t{picture.width} * picture.height > kMostPixels)
        throw std::runtime_error("the picture is too large");
    const bool indexed = png_get_color_type(reader.png, reader.info) == PNG_COLOR_TYPE_PALETTE;
    if (indexed) {
        picture.palette = palette_of(reader);
        png_set_packing(reader.png);
    } else {
        png_set_expand(reader.png);
        png_set_strip_16(reader.png);
        png_set_gray_to_rgb(reader.png);
        png_set_add_alpha(reader.png, 255, PNG_FILLER_AFTER);
    }
    png_set_interlace_handling(reader.png);
    png_read_update_info(reader.png, reader.info);

    const auto width = static_cast<std::size_t>(picture.width);
    const auto height = static_cast<std::size_t>(picture.height);
    std::vector<png_bytep> rows;
    if (indexed) {
        picture.indices.resize(width * height);
        for (std::size_t y = 0; y < height; ++y) rows.push_back(picture.indices.data() + y * width);
    } else {
        picture.colours.resize(width * height);
        for (std::size_t y = 0; y < height; ++y) rows.push_back(picture.colours[y * width].data());
    }
    png_read_image(reader.png, rows.data());
    png_read_end(reader.png, nullptr);
    return picture;
}

}  // namespace ink::tool
