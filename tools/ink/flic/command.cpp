// ink flic: makes films of pictures and shows their frames.
#include <algorithm>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include "command_line.h"
#include "core/reader.h"
#include "draw/surface.h"
#include "files/workshop.h"
#include "film/flic_film.h"
#include "inkstone/flic.h"
#include "picture/picture_file.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;

struct Arguments {
    std::string output, input;
    std::vector<std::string> frames;
    int milliseconds = 70, frame = 1;
};

void build(const Arguments &arguments) {
    std::vector<IndexedPicture> pictures;
    for (const std::string &name : expand_patterns(arguments.frames))
        pictures.push_back(read_picture(path_of(name)));
    const Bytes file = flic::film(pictures, arguments.milliseconds);
    write_bytes(path_of(arguments.output), file);
    std::cout << arguments.output << ": " << pictures.size() << " frames, " << file.size() << " bytes\n";
}

// The picture after the chosen frame, as a game sees it on its screen.
IndexedPicture picture_after(const fs::path &name, int frame) {
    const Bytes file = read_bytes(name);
    Reader header(file);
    header.seek(8);
    const int width = std::min<int>(header.i16(), draw::kScreenWidth);
    const int height = std::min<int>(header.i16(), draw::kScreenHeight);
    const Workshop workshop;
    workshop.put("input", file);
    IndexedPicture screen{draw::kScreenWidth, draw::kScreenHeight};
    const int frames = FLIC_open_flic_file("input", 0, screen.pixels.data());
    if (frames < 1 || width < 1 || height < 1) throw FileError(name, "is not a film");
    std::cout << width << " x " << height << ", " << frames << " frames\n";
    for (int i = 0; i < frame; ++i) {
        if (FLIC_read_flic_data() != 0) throw FileError(name, "has no frame " + std::to_string(i + 1));
        FLIC_play_flic_frame();
    }
    FLIC_export_palette(screen.palette.data());
    FLIC_close_flic_file();
    return cut(screen, 0, 0, width, height);
}

void show(const Arguments &arguments) {
    const IndexedPicture picture = picture_after(path_of(arguments.input), arguments.frame);
    write_bytes(path_of(arguments.output), encode_picture(picture, PictureKind::png));
}

}  // namespace

void add_flic(CLI::App &app) {
    const auto arguments = std::make_shared<Arguments>();
    CLI::App *flic = add_group(app, "flic", "Films (FLIC)");

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
