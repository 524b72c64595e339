// ink font: makes and shows the fonts of Chinese text.
#include <memory>

#include "command_line.h"
#include "font/commands.h"

namespace ink::tool {

void add_font(CLI::App &app) {
    CLI::App *font = add_group(app, "font", "Fonts of Chinese text: made of a system's fonts, and shown");

    const auto build = std::make_shared<FontBuild>();
    CLI::App *builder = add_command(
        *font, "build", "Make ASCII16.FON, CHINE16.FON, ASCII24.FON, CHINE24.FON and the pack FONT.LZF",
        {"ink font build -o content",
         "ink font build --chinese24 taipei24.pcf.gz --chinese24 /usr/share/fonts/wqy.ttc#1@22"},
        "A font is made of one that covers Big5, by itself or through Unicode, bitmap (PCF, BDF) or outline. "
        "Put "
        "#FACE behind the name of a collection to choose a face, and @PIXELS behind an outline font's to "
        "draw it at "
        "another size than the cell's. Of several, each character is taken from the first that has it. "
        "Without a "
        "name the bitmap fonts 8x16, 12x24, taipei16 and taipei24 are looked for where systems keep fonts.");
    const auto source = [&](const char *name, text::Font which, const char *description) {
        builder->add_option(name, build->sources[which], description);
    };
    source("--ascii16", text::kAscii16, "For single bytes, cells of 8 x 16");
    source("--chinese16", text::kChinese16, "For Big5, cells of 16 x 16");
    source("--ascii24", text::kAscii24, "For single bytes, cells of 12 x 24");
    source("--chinese24", text::kChinese24, "For Big5, cells of 24 x 24");
    const auto directory = std::make_shared<std::string>(".");
    builder->add_option("-o,--output", *directory, "The directory to write to (the current one)");
    builder->add_flag("-q,--quiet", build->quiet, "Report nothing but errors");
    builder->callback([build, directory] {
        build->directory = path_of(*directory);
        build_fonts(*build);
    });

    const auto show = std::make_shared<FontShow>();
    const auto names = std::make_shared<std::pair<std::string, std::string>>("", ".");
    CLI::App *shower =
        add_command(*font, "show", "Draw a page of the fonts, or a text, as a PNG file",
                    {"ink font show page.png -d content -p B9", "ink font show text.png -t 筆墨"});
    shower->add_option("picture", names->first, "The PNG file to write")->required();
    shower->add_option("-d,--directory", names->second,
                       "Where the fonts or their pack are (the current one)");
    shower->add_option("-s,--size", show->size, "16 or 24 pixels (24)")->check(CLI::IsMember({16, 24}));
    CLI::Option *page = shower->add_option(
        "-p,--page", show->page,
        "The characters of a lead byte, 81 to FE, or 00 for the font of single bytes (A4)");
    shower->add_option("-t,--text", show->text, "A text in UTF-8, with control sequences")->excludes(page);
    shower->callback([show, names] {
        show->picture = path_of(names->first);
        show->directory = path_of(names->second);
        show_font(*show);
    });
}

}  // namespace ink::tool
