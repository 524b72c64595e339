// ink flic: films made of pictures, and taken apart.
#include <algorithm>
#include <memory>
#include <numeric>

#include "animation_options.h"
#include "film/flic_film.h"
#include "flic/reader.h"

namespace ink::tool {
namespace {

constexpr int kShortest = 10;  // milliseconds of a frame

struct Arguments : AnimationArguments {
    int milliseconds = 0;
};

// A film shows all its frames for one time: frames that last longer are repeated, which costs next to
// nothing.
int time_of(const Animation &animation) {
    int time = 0;
    for (const Frame &frame : animation.frames) time = std::gcd(time, frame.milliseconds);
    return std::max(time, kShortest);
}

void build(const Arguments &arguments) {
    // A film fills its field: where a picture would lie on a screen does not count.
    const Animation animation = arguments.read(false);
    const int time = arguments.milliseconds > 0 ? arguments.milliseconds : time_of(animation);
    std::vector<IndexedPicture> pictures;
    for (const Frame &frame : animation.frames) {
        const int times =
            arguments.milliseconds > 0 ? 1 : std::max(1, (frame.milliseconds + time / 2) / time);
        pictures.insert(pictures.end(), static_cast<std::size_t>(times), on_field(animation, frame));
    }
    const Bytes file = flic::film(pictures, time);
    arguments.write(file, animation);
    tell(arguments.output, counted(pictures.size(), "frame") + ", " + counted(file.size(), "byte"));
}

void extract(const Arguments &arguments) {
    const auto name = path_of(arguments.input);
    const Bytes file = read_bytes(name);
    try {
        arguments.extract(read_flic(file));
    } catch (const FileError &) {
        throw;
    } catch (const std::runtime_error &error) {
        throw FileError(name, error.what());
    }
}

}  // namespace

void add_flic(CLI::App &app) {
    CLI::App *group = add_group(app, "flic", "Films (FLIC)");
    const auto arguments = std::make_shared<Arguments>();

    CLI::App *builder =
        add_command(*group, "build", "Make a film of pictures",
                    {"ink flic build intro.flc shot-*.png --speed 70", "ink flic build intro.flc intro.gif"},
                    kSheetLanguage);
    arguments->add_building(*builder);
    builder
        ->add_option("--speed", arguments->milliseconds,
                     "Milliseconds that every frame is shown (what the frames say, or 70)")
        ->check(CLI::Range(1, 60'000));
    builder->callback([arguments] { build(*arguments); });

    CLI::App *extractor =
        add_command(*group, "extract", "Take a film apart, each frame as a game sees it",
                    {"ink flic extract intro.flc -o shots", "ink flic extract intro.flc -o intro.gif"});
    arguments->add_extracting(*extractor, "The FLI or FLC file");
    extractor->callback([arguments] { extract(*arguments); });
}

}  // namespace ink::tool
