// ink can: animations made of pictures, and taken apart.
#include <memory>

#include "animation_options.h"
#include "can/reader.h"
#include "film/can_file.h"

namespace ink::tool {
namespace {

struct Arguments : AnimationArguments {
    std::pair<int, int> anchor{0, 0};
    bool trimmed = false;
};

void build(const Arguments &arguments) {
    Animation animation = arguments.read(true);
    if (arguments.trimmed) trim(animation);
    std::vector<IndexedPicture> frames;
    for (const Frame &frame : animation.frames) frames.push_back(frame.picture);
    const Bytes file = can_file(frames, animation.anchor_x + arguments.anchor.first,
                                animation.anchor_y + arguments.anchor.second);
    arguments.write(file, animation);
    tell(arguments.output, counted(frames.size(), "frame") + ", " + counted(file.size(), "byte"));
}

void extract(const Arguments &arguments) {
    const auto name = path_of(arguments.input);
    const Bytes file = read_bytes(name);
    try {
        Animation animation = read_can(file);
        if (!arguments.palette.empty()) {
            const Palette palette = read_palette(path_of(arguments.palette)).colours;
            for (Frame &frame : animation.frames) frame.picture.palette = palette;
        }
        arguments.extract(animation);
    } catch (const FileError &) {
        throw;
    } catch (const std::runtime_error &error) {
        throw FileError(name, error.what());
    }
}

}  // namespace

void add_can(CLI::App &app) {
    CLI::App *group = add_group(app, "can", "Animations of image blocks (CAN)");
    const auto arguments = std::make_shared<Arguments>();

    CLI::App *builder = add_command(
        *group, "build", "Make an animation of pictures, each placed where it says",
        {"ink can build walk.can walk-*.png --palette game.pal --trim", "ink can build walk.can walk.sheet"},
        kSheetLanguage);
    arguments->add_building(*builder);
    builder->add_option("--anchor", arguments->anchor, "What is added to every frame's place")
        ->type_name("X Y");
    builder->add_flag("--trim", arguments->trimmed, "Cut colour 0 off the edges of every frame");
    builder->callback([arguments] { build(*arguments); });

    CLI::App *extractor = add_command(*group, "extract", "Take an animation apart",
                                      {"ink can extract walk.can -o walk.sheet --palette game.pal",
                                       "ink can extract walk.can -o walk.gif --transparent"});
    arguments->add_extracting(*extractor, "The CAN file");
    extractor->add_option("--palette", arguments->palette,
                          "Its colours, which the file does not hold (greys)");
    extractor->callback([arguments] { extract(*arguments); });
}

}  // namespace ink::tool
