#include "command_line.h"
#include "font/commands.h"

namespace ink::tool {

void add_font(CLI::App &app) {
    CLI::App *font = app.add_subcommand("font", "Makes and shows the fonts of Chinese text.");
    font->require_subcommand(1);

    static FontBuild build;
    CLI::App *build_command = font->add_subcommand(
        "build",
        "Makes ASCII16.FON, CHINE16.FON, ASCII24.FON, CHINE24.FON and the pack FONT.LZF.\n"
        "Sources are PCF, BDF or outline fonts that cover Big5, by themselves or through Unicode: FILE, "
        "FILE#FACE "
        "for a face of a collection, FILE@PIXELS for an outline font drawn at another size than the cell's. "
        "With "
        "more than one source, each character is taken from the first that has it.");
    build_command->add_option("--ascii16", build.sources[text::kAscii16],
                              "Single-byte font, cells of 8 x 16");
    build_command->add_option("--chinese16", build.sources[text::kChinese16], "Big5 font, cells of 16 x 16");
    build_command->add_option("--ascii24", build.sources[text::kAscii24],
                              "Single-byte font, cells of 12 x 24");
    build_command->add_option("--chinese24", build.sources[text::kChinese24], "Big5 font, cells of 24 x 24");
    build_command->add_option("-o,--output", build.directory, "Directory to write to")->capture_default_str();
    build_command->add_flag("-q,--quiet", build.quiet, "Report nothing but errors");
    build_command->callback([] { build_fonts(build); });

    static FontShow show;
    CLI::App *show_command =
        font->add_subcommand("show", "Draws a page of the fonts, or a text, as a PNG file.");
    show_command->add_option("picture", show.picture, "The PNG file to write")->required();
    show_command->add_option("-d,--directory", show.directory, "Where the fonts or their pack are")
        ->capture_default_str();
    show_command->add_option("-s,--size", show.size, "16 or 24")
        ->check(CLI::IsMember({16, 24}))
        ->capture_default_str();
    CLI::Option *page = show_command->add_option(
        "-p,--page", show.page, "The characters of a lead byte, 81 to FE, or 00 for the single-byte font");
    show_command->add_option("-t,--text", show.text, "A text in UTF-8, with control sequences")
        ->excludes(page);
    show_command->callback([] { show_font(show); });
}

}  // namespace ink::tool
