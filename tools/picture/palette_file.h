// Palettes as files: of the library, of picture editors, or inside pictures.
#pragma once

#include <optional>
#include <string_view>

#include "picture/picture.h"
#include "picture/quantise.h"

namespace ink::tool {

enum class PaletteKind { library, gimp, jasc, png };

// By what an author calls it: pal, gpl, jasc or png.
std::optional<PaletteKind> palette_kind(std::string_view name);

// A palette and which of its entries the file has, the others being black.
struct StoredPalette {
    Palette colours{};
    Entries entries{0, 255};
};

// Whether this is the library's own kind of file: the first entry, one past the last, and their colours of 6
// bits, with nothing behind.
bool is_palette_file(std::span<const std::uint8_t> file);

// Reads any of the kinds above, or the palette of a PCX picture, an indexed PNG picture or a FLIC film.
// Throws FileError.
StoredPalette read_palette(const std::filesystem::path &name);
// The same of a file that has been read; the name is for messages.
StoredPalette palette_of(const Bytes &file, const std::filesystem::path &name);

// The palette as 16 x 16 cells, each in its entry.
IndexedPicture swatch_of(const Palette &palette);

// As bytes of a file: a PNG swatch has 16 x 16 cells, those of entries that are not stored black.
Bytes encode_palette(const StoredPalette &palette, PaletteKind kind);

}  // namespace ink::tool
