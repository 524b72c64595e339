// ink palette: palettes from one kind to another, and out of pictures.
#include <algorithm>
#include <memory>
#include <string>

#include "command_line.h"
#include "picture/options.h"
#include "picture/palette_file.h"
#include "picture/picture_file.h"

namespace ink::tool {
namespace {

struct Arguments {
    std::vector<std::string> inputs;
    std::string input, output, kind;
    ColouringOptions colouring;
};

void write(const Arguments &arguments, const StoredPalette &palette) {
    const auto kind =
        palette_kind(!arguments.kind.empty() ? arguments.kind : ending_of(path_of(arguments.output)));
    if (!kind) throw CLI::ValidationError("--as", "say what to make with --as pal, gpl, jasc or png");
    write_bytes(path_of(arguments.output), encode_palette(palette, *kind));
}

void convert(const Arguments &arguments) {
    StoredPalette palette = read_palette(path_of(arguments.input));
    if (!arguments.colouring.entries.empty()) palette.entries = arguments.colouring.read().entries;
    write(arguments, palette);
}

// One palette for several pictures, in the entries that are given to them; the others are what they were.
void join(const Arguments &arguments) {
    const Colouring colouring = arguments.colouring.read();
    std::vector<ColourPicture> pictures;
    const auto names = expand_patterns(arguments.inputs);
    Progress progress("reading pictures", names.size());
    for (const std::string &name : names) {
        pictures.push_back(colours_of(read_any_picture(path_of(name))));
        progress.done(pictures.size());
    }
    const Palette before = colouring.palette.value_or(Palette{});
    write(arguments, {make_palette(pictures, before, colouring.entries), {0, 255}});
}

void add_output(CLI::App &command, Arguments &arguments) {
    command.add_option("-o,--output", arguments.output, "The palette to write")->required();
    command
        .add_option(
            "--as", arguments.kind,
            "What to make: pal (the library's), gpl (GIMP's), jasc or png (a swatch); otherwise what the "
            "output's name ends in")
        ->check(CLI::IsMember({"pal", "gpl", "jasc", "png"}));
    arguments.colouring.add_entries(command);
}

}  // namespace

void add_palette(CLI::App &app) {
    CLI::App *group = add_group(app, "palette", "Palettes: converted, and made for pictures");
    const auto arguments = std::make_shared<Arguments>();

    CLI::App *converter = add_command(*group, "convert", "Turn a palette into another kind",
                                      {"ink palette convert game.pal -o game.gpl",
                                       "ink palette convert title.pcx -o hero.pal --entries 16-31"});
    converter->add_option("input", arguments->input, "A palette, or a picture or film that has one")
        ->required();
    add_output(*converter, *arguments);
    converter->callback([arguments] { convert(*arguments); });

    CLI::App *joiner =
        add_command(*group, "join",
                    "Make one palette for several pictures: their very colours where the entries suffice, "
                    "else those with "
                    "which all of them look best",
                    {"ink palette join art/*.png -o game.pal --entries 16-255 --palette system.pal"});
    joiner->add_option("pictures", arguments->inputs, "Pictures, or patterns of names")->required();
    joiner->add_option("--palette", arguments->colouring.palette,
                       "Where the other entries come from (black)");
    add_output(*joiner, *arguments);
    joiner->callback([arguments] { join(*arguments); });
}

}  // namespace ink::tool
