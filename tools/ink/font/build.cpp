// `ink font build`: makes all four fonts before anything is written, so that an error leaves the directory as
// it was.
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "command_line.h"
#include "core/reader.h"
#include "files/workshop.h"
#include "font/commands.h"
#include "font/font_maker.h"
#include "inkstone/lzss.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;
using Fonts = std::array<MadeFont, text::kFontCount>;

// The bitmap fonts that fill the cells exactly, and Debian's packages of them.
struct Usual {
    const char *option, *name, *package;
};
constexpr std::array<Usual, text::kFontCount> kUsual{{
    {"--ascii16", "8x16", "xfonts-base"},
    {"--chinese16", "taipei16", "xfonts-intl-chinese"},
    {"--ascii24", "12x24", "xfonts-base"},
    {"--chinese24", "taipei24", "xfonts-intl-chinese"},
}};

// Where systems and their users keep fonts.
std::vector<fs::path> font_folders() {
    std::vector<fs::path> folders{"/usr/share/fonts", "/usr/local/share/fonts", "/usr/share/X11/fonts",
                                  "/usr/X11R6/lib/X11/fonts", "/opt/X11/share/fonts"};
    if (const char *data = std::getenv("XDG_DATA_HOME")) folders.push_back(fs::path(data) / "fonts");
    if (const char *home = std::getenv("HOME")) {
        folders.push_back(fs::path(home) / ".local/share/fonts");
        folders.push_back(fs::path(home) / ".fonts");
    }
    return folders;
}

// The first bitmap font of that name in any of them.
std::string find_font(const std::string &name) {
    std::error_code ignored;
    for (const fs::path &folder : font_folders())
        for (const auto &entry : fs::recursive_directory_iterator(
                 folder, fs::directory_options::skip_permission_denied, ignored)) {
            const std::string file = name_of(entry.path().filename());
            for (const char *ending : {".pcf.gz", ".pcf", ".bdf.gz", ".bdf"})
                if (file == name + ending) return name_of(entry.path());
        }
    return {};
}

std::vector<std::string> sources_of(const FontBuild &build, std::size_t font) {
    if (!build.sources[font].empty()) return expand_patterns(build.sources[font]);
    const Usual &usual = kUsual[font];
    const std::string found = find_font(usual.name);
    if (found.empty())
        throw std::runtime_error(std::string(text::kFontLayouts[font].file_name) +
                                 ": there is no bitmap font " + usual.name +
                                 " on this system; install the Debian package " + usual.package +
                                 " or name a font with " + usual.option);
    return {found};
}

void report(std::size_t font, const std::vector<std::string> &sources, const Coverage &inked) {
    const text::FontLayout &layout = text::kFontLayouts[font];
    std::string from;
    for (const std::string &source : sources)
        from += (from.empty() ? "" : ", ") + name_of(path_of(source).filename());
    std::printf("%s  %zu x %zu  from %s\n", layout.file_name, layout.width, layout.height, from.c_str());
    if (layout.glyphs == text::kBig5Glyphs)
        std::printf(
            "             %zu of %zu standard Big5 characters have ink (level 1: %zu of %zu, level 2: %zu of "
            "%zu), and %zu others\n",
            inked.level1 + inked.level2, kLevel1 + kLevel2, inked.level1, kLevel1, inked.level2, kLevel2,
            inked.others);
    else
        std::printf("             %zu of %zu codes have ink\n", inked.others, layout.glyphs);
}

Fonts make_all(const FontBuild &build) {
    Fonts fonts;
    for (std::size_t font = 0; font < text::kFontCount; ++font) {
        const std::vector<std::string> sources = sources_of(build, font);
        Progress progress(text::kFontLayouts[font].file_name, 100);
        fonts[font] =
            make_font(static_cast<text::Font>(font), sources, [&](std::size_t done, std::size_t all) {
                if (!build.quiet) progress.done(100 * done / all);
            });
        if (!build.quiet) report(font, sources, fonts[font].inked);
    }
    return fonts;
}

Bytes make_pack(const Fonts &fonts) {
    Bytes pack(text::kPackDataOffset);
    constexpr std::string_view kMark = "Font pack";  // nobody reads it, nor the names in the directory
    std::copy(kMark.begin(), kMark.end(), pack.begin());
    put_u32(pack.data() + text::kPackCountOffset, text::kFontCount);
    for (std::size_t font = 0; font < text::kFontCount; ++font) {
        std::uint8_t *const entry = pack.data() + text::kPackHeaderBytes + font * text::kPackEntryBytes;
        const std::string_view name = text::kFontLayouts[font].file_name;
        std::copy(name.begin(), name.end(), entry);
        put_u32(entry + text::kPackSizeOffset, static_cast<std::uint32_t>(fonts[font].bitmaps.size()));
    }
    for (const MadeFont &font : fonts) pack.insert(pack.end(), font.bitmaps.begin(), font.bitmaps.end());
    return pack;
}

}  // namespace

void build_fonts(const FontBuild &build) {
    const Fonts fonts = make_all(build);
    const Bytes pack = make_pack(fonts);
    Bytes compressed;
    {
        const Workshop workshop;
        workshop.put(text::kPackFile, pack);
        if (LZSS_compress_file(text::kPackFile, text::kCompressedPackFile) != 0)
            throw FileError(text::kCompressedPackFile, "cannot be made (" + workshop.log() + ")");
        compressed = workshop.take(text::kCompressedPackFile);
    }
    fs::create_directories(build.directory);
    NewFiles files;
    for (std::size_t font = 0; font < text::kFontCount; ++font)
        files.add(build.directory / text::kFontLayouts[font].file_name, fonts[font].bitmaps);
    files.add(build.directory / text::kCompressedPackFile, compressed);
    files.commit();
    if (!build.quiet)
        std::printf("%s      %zu bytes, %zu%% of the %zu of its fonts\n", text::kCompressedPackFile,
                    compressed.size(), 100 * compressed.size() / pack.size(), pack.size());
}

}  // namespace ink::tool
