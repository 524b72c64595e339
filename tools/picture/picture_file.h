// Pictures as files, of every kind.
#pragma once

#include <optional>
#include <string_view>

#include "picture/picture.h"
#include "picture/quantise.h"

namespace ink::tool {

enum class PictureKind { png, pcx, image_block, compressed_image };

// By what an author calls it, which is also what the names of its files end in: png, pcx, img or cim.
std::optional<PictureKind> picture_kind(std::string_view name);
const char *extension_of(PictureKind kind);

// By the content of a file; nothing when it is none of these.
std::optional<PictureKind> recognise_picture(std::span<const std::uint8_t> file);

// How colours become entries of a palette.
struct Colouring {
    std::optional<Palette> palette;  // the one to use; otherwise each picture keeps its own or gets one made
    Entries entries;
    bool dither = true;
    bool again = false;  // also for pictures that have a palette: their colours count, not their indices
};

// A picture read from a file. Either one has pixels; what has no palette in its file has one of greys.
struct AnyPicture {
    PictureKind kind = PictureKind::png;
    std::optional<IndexedPicture> indexed;
    std::optional<ColourPicture> colours;
};
AnyPicture read_any_picture(const std::filesystem::path &name);
// The same of a file that has been read; the name is for messages.
AnyPicture any_picture_of(const Bytes &file, const std::filesystem::path &name);

// The same with its colours found in a palette where it has none of its own, or is to be coloured again.
// Transparent pixels are colour 0, and no other ones are, in every picture that has transparent ones. Throws
// FileError.
IndexedPicture read_picture(const std::filesystem::path &name, const Colouring &colouring = {});
IndexedPicture coloured(AnyPicture picture, const Colouring &colouring = {});

// The colours of a picture's pixels.
ColourPicture colours_of(const AnyPicture &picture);

// The palette that a PCX picture or a FLIC film brings.
std::optional<Palette> palette_inside(std::span<const std::uint8_t> file);

// As bytes of a file; transparent says that colour 0 is written as not there, where the kind can say so.
// Throws std::runtime_error where the kind cannot hold the picture.
Bytes encode_picture(const IndexedPicture &picture, PictureKind kind, bool transparent = false);

}  // namespace ink::tool
