#include "picture/palette_file.h"

#include <algorithm>
#include <sstream>

#include "core/reader.h"
#include "files/source.h"
#include "picture/picture_file.h"
#include "png/png_file.h"

namespace ink::tool {
namespace {

constexpr std::string_view kGimp = "GIMP Palette", kJasc = "JASC-PAL";
constexpr int kCell = 16, kCells = 16;  // of a swatch, pixels and cells a side

// Lines of red, green and blue, 0 to 255, from one of them on; what follows in a line is a colour's name.
StoredPalette colours_of_text(const std::vector<Place> &lines, std::size_t from) {
    StoredPalette palette;
    int count = 0;
    Palette bright{};
    for (std::size_t i = from; i < lines.size(); ++i) {
        const Place &line = lines[i];
        if (line.line.find_first_not_of(" \t") == std::string::npos || line.line[0] == '#') continue;
        if (line.line.find(':') != std::string::npos) continue;  // Name: and Columns:
        std::istringstream words(line.line);
        for (int component = 0; component < 3; ++component) {
            int value = -1;
            words >> value;
            if (!words || value < 0 || value > 255)
                throw SourceError(line, "a colour is three numbers of 0 to 255");
            if (count == 256) throw SourceError(line, "there are more than 256 colours");
            bright[static_cast<std::size_t>(3 * count + component)] = static_cast<std::uint8_t>(value);
        }
        ++count;
    }
    if (count == 0) throw SourceError(lines.back(), "there is no colour");
    palette.colours = dim_palette(bright);
    palette.entries = {0, count - 1};
    return palette;
}

StoredPalette palette_of_png(const std::filesystem::path &name, const Bytes &file) {
    const PngPicture png = decode_png(file);
    StoredPalette palette;
    if (png.indices.empty()) {
        if (png.width != png.height || png.width % kCells != 0)
            throw FileError(name, "a picture without a palette must be a square of 16 x 16 cells");
        const int cell = png.width / kCells;
        for (int entry = 0; entry < 256; ++entry) {
            const int x = entry % kCells * cell + cell / 2, y = entry / kCells * cell + cell / 2;
            const auto &colour = png.colours[static_cast<std::size_t>(y * png.width + x)];
            for (std::size_t c = 0; c < 3; ++c)
                palette.colours[static_cast<std::size_t>(3 * entry) + c] =
                    static_cast<std::uint8_t>(colour[c] / 4);
        }
        return palette;
    }
    palette.entries = {0, static_cast<int>(png.palette.size()) - 1};
    for (std::size_t i = 0; i < png.palette.size(); ++i)
        for (std::size_t c = 0; c < 3; ++c)
            palette.colours[3 * i + c] = static_cast<std::uint8_t>(png.palette[i][c] / 4);
    return palette;
}

StoredPalette palette_of_library(const Bytes &file) {
    StoredPalette palette;
    Reader reader(file);
    palette.entries.first = reader.i16();
    palette.entries.last = reader.i16() - 1;
    const auto colours = reader.take(reader.left());
    std::copy(colours.begin(), colours.end(), palette.colours.begin() + 3 * palette.entries.first);
    return palette;
}

std::string text_of(const StoredPalette &palette, PaletteKind kind) {
    const Palette bright = bright_palette(palette.colours);
    std::string text = kind == PaletteKind::gimp ? std::string(kGimp) + "\nName: Inkstone\nColumns: 16\n#\n"
                                                 : std::string(kJasc) + "\r\n0100\r\n256\r\n";
    // Neither kind can begin behind entry 0, and JASC's wants them all.
    const int last = kind == PaletteKind::gimp ? palette.entries.last : 255;
    for (int entry = 0; entry <= last; ++entry) {
        const auto at = static_cast<std::size_t>(3 * entry);
        char line[48];
        if (kind == PaletteKind::gimp)
            std::snprintf(line, sizeof line, "%3d %3d %3d\tentry %d\n", bright[at], bright[at + 1],
                          bright[at + 2], entry);
        else
            std::snprintf(line, sizeof line, "%d %d %d\r\n", bright[at], bright[at + 1], bright[at + 2]);
        text += line;
    }
    return text;
}

}  // namespace

std::optional<PaletteKind> palette_kind(std::string_view name) {
    constexpr std::pair<std::string_view, PaletteKind> kKinds[] = {{"pal", PaletteKind::library},
                                                                   {"gpl", PaletteKind::gimp},
                                                                   {"jasc", PaletteKind::jasc},
                                                                   {"png", PaletteKind::png}};
    for (const auto &[text, kind] : kKinds)
        if (text == name) return kind;
    return std::nullopt;
}

bool is_palette_file(std::span<const std::uint8_t> file) {
    Reader reader(file);
    const int first = reader.i16(), end = reader.i16();
    return reader.ok() && first >= 0 && first < end && end <= 256 &&
           reader.left() == 3 * static_cast<std::size_t>(end - first) &&
           std::ranges::all_of(file.subspan(4), [](std::uint8_t component) { return component < 64; });
}

StoredPalette read_palette(const std::filesystem::path &name) {
    return palette_of(read_bytes(name), name);
}

StoredPalette palette_of(const Bytes &file, const std::filesystem::path &name) try {
    const std::string_view text = as_text(file);
    if (is_palette_file(file)) return palette_of_library(file);
    if (is_png(file)) return palette_of_png(name, file);
    if (text.starts_with(kGimp)) return colours_of_text(lines_of(name_of(name), text), 1);
    if (text.starts_with(kJasc)) return colours_of_text(lines_of(name_of(name), text), 3);
    if (const auto palette = palette_inside(file)) return {*palette, {0, 255}};
    throw FileError(name, "has no palette");
} catch (const SourceError &) {
    throw;
} catch (const FileError &) {
    throw;
} catch (const std::runtime_error &error) {
    throw FileError(name, error.what());
}

IndexedPicture swatch_of(const Palette &palette) {
    IndexedPicture swatch{kCell * kCells, kCell * kCells};
    swatch.palette = palette;
    for (int y = 0; y < swatch.height; ++y)
        for (int x = 0; x < swatch.width; ++x)
            swatch.row(y)[x] = static_cast<std::uint8_t>(y / kCell * kCells + x / kCell);
    return swatch;
}

Bytes encode_palette(const StoredPalette &palette, PaletteKind kind) {
    if (kind == PaletteKind::png) {
        return encode_picture(swatch_of(palette.colours), PictureKind::png);
    }
    if (kind == PaletteKind::library) {
        Bytes file(4);
        put_u16(&file[0], static_cast<std::uint32_t>(palette.entries.first));
        put_u16(&file[2], static_cast<std::uint32_t>(palette.entries.last + 1));
        append(file, std::span(palette.colours)
                         .subspan(static_cast<std::size_t>(3 * palette.entries.first),
                                  static_cast<std::size_t>(3 * palette.entries.count())));
        return file;
    }
    Bytes file;
    append(file, text_of(palette, kind));
    return file;
}

}  // namespace ink::tool
