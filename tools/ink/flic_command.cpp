// ink flic: makes films of pictures and shows their frames.
#include <algorithm>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include "commands.h"
#include "core/reader.h"
#include "draw/surface.h"
#include "film/flic_film.h"
#include "inkstone/flic.h"
#include "png/png_file.h"

namespace ink::tool {
namespace {

struct Arguments {
    std::string output, input;
    std::vector<std::string> frames;
    int milliseconds = 70, frame = 1;
};

void build(const Arguments &arguments) {
    std::vector<IndexedPicture> pictures;
    for (const std::string &name : arguments.frames) pictures.push_back(read_picture(name));
    const Bytes file = flic::film(pictures, arguments.milliseconds);
    write_bytes(arguments.output, file);
    std::cout << arguments.output << ": " << pictures.size() << " frames, " << file.size() << " bytes\n";
}

// The picture after the chosen frame, as a game sees it on its screen.
void show(const Arguments &arguments) {
    const Bytes file = read_bytes(arguments.input);
    Reader header(file);
    header.seek(8);
    const int width = std::min<int>(header.i16(), draw::kScreenWidth);
    const int height = std::min<int>(header.i16(), draw::kScreenHeight);
    IndexedPicture screen{draw::kScreenWidth, draw::kScreenHeight};
    const int frames = FLIC_open_flic_file(arguments.input.c_str(), 0, screen.pixels.data());
    if (frames < 1 || width < 1 || height < 1) throw std::runtime_error(arguments.input + " is not a film");
    std::cout << width << " x " << height << ", " << frames << " frames\n";
    for (int i = 0; i < arguments.frame; ++i) {
        if (FLIC_read_flic_data() != 0)
            throw std::runtime_error(arguments.input + " has no frame " + std::to_string(i + 1));
        FLIC_play_flic_frame();
    }
    FLIC_export_palette(screen.palette.data());
    FLIC_close_flic_file();
    Bytes shown;
    for (int y = 0; y < height; ++y) shown.insert(shown.end(), screen.row(y), screen.row(y) + width);
    write_png(arguments.output, width, height, shown, bright_palette(screen.palette));
}

}  // namespace

void add_flic(CLI::App &app) {
    const auto arguments = std::make_shared<Arguments>();
    CLI::App *flic = app.add_subcommand("flic", "Films (FLIC)");
    flic->require_subcommand(1);

    CLI::App *make = flic->add_subcommand("build", "Make a film of PCX pictures of one size");
    make->add_option("output", arguments->output, "The FLC file to write")->required();
    make->add_option("frames", arguments->frames, "PCX pictures, one a frame")->required();
    make->add_option("--speed", arguments->milliseconds, "Milliseconds a frame is shown")
        ->capture_default_str();
    make->callback([arguments] { build(*arguments); });

    CLI::App *draw = flic->add_subcommand("show", "Write the picture after a frame of a film");
    draw->add_option("input", arguments->input, "The FLI or FLC file")->required();
    draw->add_option("-o,--output", arguments->output, "The PNG file to write")->required();
    draw->add_option("--frame", arguments->frame, "The frame, counted from 1")
        ->capture_default_str()
        ->check(CLI::PositiveNumber);
    draw->callback([arguments] { show(*arguments); });
}

}  // namespace ink::tool
