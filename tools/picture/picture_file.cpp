#include "picture/picture_file.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "core/reader.h"
#include "files/workshop.h"
#include "inkstone/compressed_image.h"
#include "inkstone/flic.h"
#include "inkstone/pcx.h"
#include "png/png_file.h"

namespace ink::tool {
namespace {

constexpr std::pair<const char *, PictureKind> kKinds[] = {{"png", PictureKind::png},
                                                           {"pcx", PictureKind::pcx},
                                                           {"img", PictureKind::image_block},
                                                           {"cim", PictureKind::compressed_image}};
constexpr std::size_t kCompressedHeader = 16, kFilmHeader = 128;
constexpr std::uint8_t kPcxMark = 10;
constexpr const char *kInput = "input";

bool is_film(std::span<const std::uint8_t> file) {
    Reader reader(file);
    reader.seek(4);
    const std::uint16_t mark = reader.u16();
    return file.size() >= kFilmHeader && (mark == 0xAF11 || mark == 0xAF12);
}

bool is_pcx(std::span<const std::uint8_t> file) {
    return file.size() > 128 && file[0] == kPcxMark && file[1] <= 5 && file[2] <= 1;
}

bool is_compressed(std::span<const std::uint8_t> file) {
    constexpr std::string_view kMagic = "cimg";
    return file.size() >= kCompressedHeader &&
           std::equal(kMagic.begin(), kMagic.end(), file.begin(),
                      [](char lower, std::uint8_t byte) { return (byte | 0x20) == lower; });
}

// How many pixels a header may state before they are looked for: both kinds of run-length code have at most 63 of them in
// two bytes.
bool can_hold(std::size_t code_bytes, std::int64_t width, std::int64_t height) {
    return width * height <= std::int64_t{32} * static_cast<std::int64_t>(code_bytes);
}

IndexedPicture read_pcx(const Bytes &file) {
    const Workshop workshop;
    workshop.put(kInput, file);
    IndexedPicture picture;
    Reader header(file);
    header.seek(4);
    picture.x = header.i16();
    picture.y = header.i16();
    if (PCX_get_image_size(kInput, &picture.width, &picture.height) < 0)
        throw std::runtime_error("is not a PCX picture of 256 colours (" + workshop.log() + ")");
    if (!can_hold(file.size(), picture.width, picture.height))
        throw std::runtime_error("is a PCX picture that is cut short");
    picture.pixels.resize(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
    if (PCX_read_file(kInput, picture.pixels.data()) != 0)
        throw std::runtime_error("is a PCX picture that cannot be read (" + workshop.log() + ")");
    PCX_export_palette(picture.palette.data());
    return picture;
}

Bytes write_pcx(const IndexedPicture &picture) {
    if (picture.x < -0x8000 || picture.x + picture.width > 0x8000 || picture.y < -0x8000 ||
        picture.y + picture.height > 0x8000)
        throw std::runtime_error("a PCX picture lies within -32768 and 32767");
    const Workshop workshop;
    // The library cuts a rectangle out of a larger picture and places it where it was; the header alone says
    // so, and is made to say where this one lies.
    PCX_inport_palette(picture.palette.data());
    if (PCX_save_file(kInput, 0, 0, picture.width, picture.height, picture.pixels.data(), picture.width, 0) !=
        0)
        throw std::runtime_error("a PCX picture cannot be made");
    Bytes file = workshop.take(kInput);
    if (file.size() < 128) throw std::runtime_error("a PCX picture cannot be made");
    put_u16(&file[4], static_cast<std::uint32_t>(picture.x));
    put_u16(&file[6], static_cast<std::uint32_t>(picture.y));
    put_u16(&file[8], static_cast<std::uint32_t>(picture.x + picture.width - 1));
    put_u16(&file[10], static_cast<std::uint32_t>(picture.y + picture.height - 1));
    return file;
}

IndexedPicture read_compressed(const Bytes &file) {
    if (fnGetCompressImageSize(file.data()) < 16 ||
        static_cast<std::size_t>(fnGetCompressImageSize(file.data())) > file.size())
        throw std::runtime_error("the compressed image is cut short");
    if (get_u32(&file[4]) != 0)
        throw std::runtime_error("the compressed image is of a type that has no pixels");
    const std::size_t width = get_u16(&file[8]), height = get_u16(&file[10]);
    if (!can_hold(file.size(), static_cast<std::int64_t>(width), static_cast<std::int64_t>(height)))
        throw std::runtime_error("the compressed image is cut short");
    Bytes image(width * height + 4);
    fnUncompressImage(file.data(), image.data());
    return picture_of_block(image);
}

AnyPicture read_png(const Bytes &file) {
    PngPicture png = decode_png(file);
    AnyPicture picture;
    if (png.indices.empty()) {
        picture.colours = ColourPicture{png.width, png.height, std::move(png.colours)};
        return picture;
    }
    IndexedPicture indexed;
    indexed.width = png.width;
    indexed.height = png.height;
    indexed.pixels = std::move(png.indices);
    png.palette.resize(256, {0, 0, 0, 255});
    // Where entries other than 0 are transparent, the first of them changes places with 0.
    const auto transparent = [&](std::uint8_t index) { return png.palette[index][3] < kOpaque; };
    const auto first =
        std::ranges::find_if(png.palette, [](const auto &colour) { return colour[3] < kOpaque; });
    const auto moved =
        static_cast<std::uint8_t>(first == png.palette.end() ? 0 : first - png.palette.begin());
    for (std::uint8_t &pixel : indexed.pixels)
        pixel = transparent(pixel) ? std::uint8_t{0} : pixel == 0 ? moved : pixel;
    std::swap(png.palette[0], png.palette[moved]);
    for (std::size_t i = 0; i < 256; ++i)
        for (std::size_t c = 0; c < 3; ++c)
            indexed.palette[3 * i + c] = static_cast<std::uint8_t>(png.palette[i][c] / 4);
    picture.indexed = std::move(indexed);
    return picture;
}

bool has_transparent(const ColourPicture &picture) {
    return std::ranges::any_of(picture.pixels, [](const auto &pixel) { return pixel[3] < kOpaque; });
}

}  // namespace

std::optional<PictureKind> picture_kind(std::string_view name) {
    for (const auto &[text, kind] : kKinds)
        if (text == name) return kind;
    return std::nullopt;
}
const char *extension_of(PictureKind kind) {
    return std::ranges::find(kKinds, kind, &std::pair<const char *, PictureKind>::second)->first;
}

std::optional<PictureKind> recognise_picture(std::span<const std::uint8_t> file) {
    if (is_png(file)) return PictureKind::png;
    if (is_compressed(file)) return PictureKind::compressed_image;
    if (is_pcx(file)) return PictureKind::pcx;
    const bool block =
        file.size() >= 4 && file.size() == 4 + std::size_t{get_u16(&file[0])} * get_u16(&file[2]);
    return block ? std::optional(PictureKind::image_block) : std::nullopt;
}

AnyPicture read_any_picture(const std::filesystem::path &name) {
    return any_picture_of(read_bytes(name), name);
}

AnyPicture any_picture_of(const Bytes &file, const std::filesystem::path &name) try {
    const auto kind = recognise_picture(file);
    if (!kind) throw FileError(name, "is no picture: neither PNG nor PCX, image block nor compressed image");
    AnyPicture picture;
    switch (*kind) {
        case PictureKind::png: picture = read_png(file); break;
        case PictureKind::pcx: picture.indexed = read_pcx(file); break;
        case PictureKind::image_block: picture.indexed = picture_of_block(file); break;
        case PictureKind::compressed_image: picture.indexed = read_compressed(file); break;
    }
    picture.kind = *kind;
    return picture;
} catch (const FileError &) {
    throw;
} catch (const std::runtime_error &error) {
    throw FileError(name, error.what());
}

ColourPicture colours_of(const AnyPicture &picture) {
    if (picture.colours) return *picture.colours;
    const IndexedPicture &indexed = *picture.indexed;
    const Palette bright = bright_palette(indexed.palette);
    ColourPicture colours{indexed.width, indexed.height, {}};
    for (const std::uint8_t pixel : indexed.pixels) {
        const std::uint8_t *at = bright.data() + 3 * pixel;
        colours.pixels.push_back({at[0], at[1], at[2], static_cast<std::uint8_t>(pixel == 0 ? 0 : 255)});
    }
    return colours;
}

IndexedPicture coloured(AnyPicture picture, const Colouring &colouring) {
    const bool bare =
        picture.kind == PictureKind::image_block || picture.kind == PictureKind::compressed_image;
    if (picture.indexed && (bare || !colouring.again)) {
        // Pixels that are indices already stay so; the palette only says what they look like.
        if (colouring.palette) picture.indexed->palette = *colouring.palette;
        return std::move(*picture.indexed);
    }
    const ColourPicture colours = colours_of(picture);
    if (colouring.palette) return quantise(colours, *colouring.palette, colouring.entries, colouring.dither);
    // All entries serve a picture that has nothing transparent.
    Entries entries = colouring.entries;
    if (!has_transparent(colours) && entries.first == 1 && entries.last == 255) entries.first = 0;
    return quantise(colours, make_palette({colours}, {}, entries), entries, colouring.dither);
}

IndexedPicture read_picture(const std::filesystem::path &name, const Colouring &colouring) try {
    return coloured(read_any_picture(name), colouring);
} catch (const FileError &) {
    throw;
} catch (const std::runtime_error &error) {
    throw FileError(name, error.what());
}

std::optional<Palette> palette_inside(std::span<const std::uint8_t> file) {
    if (is_pcx(file)) return read_pcx(Bytes(file.begin(), file.end())).palette;
    if (!is_film(file)) return std::nullopt;
    const Workshop workshop;
    workshop.put(kInput, file);
    Bytes screen(640 * 480);
    Palette palette{};
    FLIC_inport_palette(palette.data());
    if (FLIC_open_flic_file(kInput, 0, screen.data()) < 0) return std::nullopt;
    if (FLIC_read_flic_data() == 0) FLIC_play_flic_frame();
    FLIC_close_flic_file();
    FLIC_export_palette(palette.data());
    return palette;
}

Bytes encode_picture(const IndexedPicture &picture, PictureKind kind, bool transparent) {
    switch (kind) {
        case PictureKind::pcx: return write_pcx(picture);
        case PictureKind::image_block: return image_block(picture);
        case PictureKind::compressed_image: return compressed_image(picture);
        default: break;
    }
    return encode_png(picture.width, picture.height, picture.pixels, bright_palette(picture.palette),
                      transparent);
}

}  // namespace ink::tool
