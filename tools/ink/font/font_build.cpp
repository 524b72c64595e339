// `ink font build`: makes all four fonts before anything is written, so that an error leaves the directory as
// it was.
#include <cstdio>
#include <fstream>
#include <numeric>
#include <stdexcept>

#include <unistd.h>

#include "core/reader.h"
#include "font/font_commands.h"
#include "font/font_maker.h"
#include "inkstone/lzss.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;
using Fonts = std::array<MadeFont, text::kFontCount>;

// The bitmap fonts that fill the cells exactly, where Debian installs them, and its packages.
struct Usual {
    const char *option, *file, *package;
};
constexpr std::array<Usual, text::kFontCount> kUsual{{
    {"--ascii16", "/usr/share/fonts/X11/misc/8x16.pcf.gz", "xfonts-base"},
    {"--chinese16", "/usr/share/fonts/X11/misc/taipei16.pcf.gz", "xfonts-intl-chinese"},
    {"--ascii24", "/usr/share/fonts/X11/misc/12x24.pcf.gz", "xfonts-base"},
    {"--chinese24", "/usr/share/fonts/X11/misc/taipei24.pcf.gz", "xfonts-intl-chinese"},
}};

std::vector<std::string> sources_of(const FontBuild &build, std::size_t font) {
    if (!build.sources[font].empty()) return build.sources[font];
    const Usual &usual = kUsual[font];
    if (!fs::exists(usual.file))
        throw std::runtime_error(std::string(text::kFontLayouts[font].file_name) + ": there is no " +
                                 usual.file + "; install the Debian package " + usual.package +
                                 " or name a font with " + usual.option);
    return {usual.file};
}

void report(std::size_t font, const std::vector<std::string> &sources, const Coverage &inked) {
    const text::FontLayout &layout = text::kFontLayouts[font];
    std::string from;
    for (const std::string &source : sources)
        from += (from.empty() ? "" : ", ") + fs::path(source).filename().string();
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
    const bool show_progress = !build.quiet && isatty(STDERR_FILENO);
    Fonts fonts;
    for (std::size_t font = 0; font < text::kFontCount; ++font) {
        const std::vector<std::string> sources = sources_of(build, font);
        fonts[font] =
            make_font(static_cast<text::Font>(font), sources, [&](std::size_t done, std::size_t all) {
                if (show_progress)
                    std::fprintf(stderr, "\r%s %3zu%%", text::kFontLayouts[font].file_name, 100 * done / all);
            });
        if (show_progress) std::fputs("\r                 \r", stderr);
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

void write(const fs::path &name, const Bytes &bytes) {
    std::ofstream file(name, std::ios::binary);
    file.write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw std::runtime_error(name.string() + ": cannot be written");
}

// A new directory inside another one, which goes with all that is in it.
class Workshop {
  public:
    explicit Workshop(const fs::path &where) {
        std::string name = (where / "ink-font-XXXXXX").string();
        if (!mkdtemp(name.data())) throw std::runtime_error(where.string() + ": cannot be written to");
        path = name;
    }
    ~Workshop() {
        std::error_code ignored;
        fs::remove_all(path, ignored);
    }
    Workshop(const Workshop &) = delete;
    Workshop &operator=(const Workshop &) = delete;

    fs::path path;
};

}  // namespace

void build_fonts(const FontBuild &build) {
    const Fonts fonts = make_all(build);
    fs::create_directories(build.directory);
    const Workshop workshop(build.directory);
    std::vector<fs::path> finished;
    for (std::size_t font = 0; font < text::kFontCount; ++font) {
        finished.emplace_back(text::kFontLayouts[font].file_name);
        write(workshop.path / finished.back(), fonts[font].bitmaps);
    }
    const Bytes pack = make_pack(fonts);
    const fs::path expanded = workshop.path / text::kPackFile;
    const fs::path compressed = workshop.path / text::kCompressedPackFile;
    write(expanded, pack);
    if (LZSS_compress_file(expanded.c_str(), compressed.c_str()) != 0)
        throw std::runtime_error(compressed.string() + ": cannot be written");
    finished.emplace_back(text::kCompressedPackFile);
    const auto compressed_size = fs::file_size(compressed);
    for (const fs::path &name : finished) fs::rename(workshop.path / name, build.directory / name);
    if (!build.quiet)
        std::printf("%s      %ju bytes, %ju%% of the %zu of its fonts\n", text::kCompressedPackFile,
                    static_cast<std::uintmax_t>(compressed_size), 100 * compressed_size / pack.size(),
                    pack.size());
}

}  // namespace ink::tool
