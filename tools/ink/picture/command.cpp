// ink picture: pictures from one kind to another.
#include <iostream>
#include <memory>
#include <string>

#include "command_line.h"
#include "picture/options.h"
#include "picture/palette_file.h"
#include "picture/picture_file.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;

struct Arguments {
    std::vector<std::string> inputs;
    std::string output, kind;
    ColouringOptions colouring;
    bool transparent = false;
};

// Where a picture goes: to the file that is named, or into the folder that is under its own name.
fs::path place_of(const Arguments &arguments, const fs::path &input, const char *extension) {
    const fs::path output = path_of(arguments.output);
    if (output != kStream && (arguments.kind.empty() || arguments.inputs.size() == 1) &&
        !fs::is_directory(output))
        return output;
    if (output == kStream) return output;
    return output / fs::path(input.filename()).replace_extension(extension);
}

PictureKind kind_of(const Arguments &arguments) {
    const auto kind =
        picture_kind(!arguments.kind.empty() ? arguments.kind : ending_of(path_of(arguments.output)));
    if (!kind) throw CLI::ValidationError("--as", "say what to make with --as png, pcx, img or cim");
    return *kind;
}

void convert(Arguments arguments) {
    arguments.inputs = expand_patterns(arguments.inputs);
    const PictureKind kind = kind_of(arguments);
    if (arguments.inputs.size() > 1 && !fs::is_directory(path_of(arguments.output)))
        throw FileError(path_of(arguments.output), "is no directory; several pictures need one");
    const Colouring colouring = arguments.colouring.read();
    NewFiles files;
    Progress progress("converting", arguments.inputs.size());
    std::size_t done = 0;
    for (const std::string &name : arguments.inputs) {
        const fs::path input = path_of(name);
        const IndexedPicture picture = read_picture(input, colouring);
        try {
            files.add(place_of(arguments, input, extension_of(kind)),
                      encode_picture(picture, kind, arguments.transparent));
        } catch (const FileError &) {
            throw;
        } catch (const std::runtime_error &error) {
            throw FileError(input, error.what());
        }
        progress.done(++done);
    }
    files.commit();
}

}  // namespace

void add_picture(CLI::App &app) {
    const auto arguments = std::make_shared<Arguments>();
    CLI::App *command = add_command(
        app, "picture",
        "Turn pictures into another kind: PNG, PCX, image block (img) or compressed image (cim)",
        {"ink picture hero.png -o hero.pcx", "ink picture art/*.png -o content --as cim --palette game.pal"},
        "Indices of pictures that have a palette stay as they are; other pictures are given one, or are "
        "mapped to yours. Pixels that are transparent become colour 0, and no other ones do.");
    command->add_option("pictures", arguments->inputs, "Pictures of any of these kinds, or patterns of names")
        ->required();
    command->add_option("-o,--output", arguments->output, "The picture to write, or a directory for several")
        ->required();
    command
        ->add_option("--as", arguments->kind,
                     "What to make: png, pcx, img or cim (what the output's name ends in)")
        ->check(CLI::IsMember({"png", "pcx", "img", "cim"}));
    arguments->colouring.add(*command);
    command->add_flag("--transparent", arguments->transparent, "In PNG, let colour 0 be transparent");
    command->callback([arguments] { convert(*arguments); });
}

}  // namespace ink::tool
