// Any bytes as a text that an author writes: a palette of GIMP's or JASC's, the description of a sheet or of a folder's
// content, a table of strings, what a build remembers, settings. The first byte says which. What is read holds
// together, what is refused is so by one of the errors that the commands report.
#include <algorithm>
#include <cstdlib>
#include <string>

#include "animation/formats.h"
#include "build/recipe.h"
#include "conf/lines.h"
#include "files/source.h"
#include "info/report.h"
#include "picture/palette_file.h"
#include "scratch.h"
#include "strings/table.h"

namespace {

using namespace ink::tool;

void require(bool holds) {
    if (!holds) std::abort();
}

// Every palette can be written, and comes back.
void palette(const char *name) {
    const StoredPalette read = read_palette(name);
    for (const char *kind : {"pal", "gpl", "jasc", "png"}) {
        const Bytes file = encode_palette(read, palette_kind(kind).value());
        require(is_palette_file(file) == (kind == std::string_view("pal")));
        const StoredPalette again = read_palette(fuzz::as_file(file.data(), file.size()));
        require(read.colours == again.colours);
    }
}

// A picture stands beside the description: the one that its frames are parts of.
void sheet(const char *name) {
    static const bool once = [] {
        const IndexedPicture picture{24, 16};
        write_bytes("s", encode_picture(picture, PictureKind::png));
        return true;
    }();
    for (const RawFrame &frame : read_sheet(name).frames) {
        const IndexedPicture &part = frame.picture.indexed.value();
        require(once && frame.milliseconds > 0 && part.width > 0 && part.height > 0 &&
                part.pixels.size() == static_cast<std::size_t>(part.width * part.height));
    }
}

void recipes(const char *name) {
    for (const Recipe &recipe : read_recipes(name, name))
        require(!recipe.words.empty() && recipe.place.column < recipe.place.line.size());
}

// Plain text, whose strings are closed in the line where they begin.
void table(const char *name) {
    const std::string header = header_of_table(name);
    require(header.ends_with('\n') &&
            std::ranges::count(header, '"') == 2 * (std::ranges::count(header, '\n') - 1));
    require(std::ranges::all_of(header, [](char c) { return c == '\n' || (c >= ' ' && c < 0x7F); }));
}

// What a build remembers is remembered again.
void made(const char *name) {
    const auto same = [](const Made &a, const Made &b) {
        return a.words == b.words && a.inputs == b.inputs && a.outputs == b.outputs;
    };
    const std::vector<Made> read = read_made(name);
    for (const Made &one : read) one.holds();
    write_made("made", read);
    require(std::ranges::equal(read, read_made("made"), same));
}

// A value that was set is the one that is set again, and no other line changes.
void settings(const Bytes &file) {
    const Bytes set = with_value(file, "a", "b", "value");
    require(with_value(set, "a", "b", "value") == set && with_value(set, "A", "B", "other") != set);
    require(conf_lines(set).size() <= conf_lines(file).size() + 3);
    if (const auto report = describe_conf(file)) require(report->rows.size() <= conf_lines(file).size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0 || size > 1 << 14) return 0;
    const char *const name = fuzz::as_file(data + 1, size - 1);
    try {
        switch (data[0]) {
            case 'p': palette(name); break;
            case 's': sheet(name); break;
            case 'r': recipes(name); break;
            case 't': table(name); break;
            case 'm': made(name); break;
            case 'c': settings(Bytes(data + 1, data + size)); break;
            default: break;
        }
    } catch (const FileError &) {
    } catch (const SourceError &) {
    }
    return 0;
}
