// ink can: makes animations of pictures and shows their frames.
#include <algorithm>
#include <array>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include "command_line.h"
#include "core/reader.h"
#include "files/workshop.h"
#include "film/can_file.h"
#include "inkstone/can.h"
#include "picture/palette_file.h"
#include "picture/picture_file.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;

struct Arguments {
    std::string output, palette, input;
    std::vector<std::string> frames;
    std::pair<int, int> anchor{0, 0};
};

void build(const Arguments &arguments) {
    std::vector<IndexedPicture> frames;
    for (const std::string &name : expand_patterns(arguments.frames))
        frames.push_back(read_picture(path_of(name)));
    const Bytes file = can_file(frames, arguments.anchor.first, arguments.anchor.second);
    write_bytes(path_of(arguments.output), file);
    std::cout << arguments.output << ": " << frames.size() << " frames, " << file.size() << " bytes\n";
}

struct FreeAnimation {
    void operator()(ANI_DATA_STRUCT *head) const { ANI_free_ani(head); }
};

std::vector<IndexedPicture> read_frames(const fs::path &name) {
    const Bytes file = read_bytes(name);
    const Workshop workshop;
    workshop.put("input", file);
    Bytes work(file.size());
    ANI_DATA_STRUCT *head = nullptr;
    const int count = CAN_read_file("input", &head, work.data());
    const std::unique_ptr<ANI_DATA_STRUCT, FreeAnimation> animation(head);
    if (count < 1) throw FileError(name, "has no frames that can be read");

    std::vector<IndexedPicture> frames;
    for (const ANI_DATA_STRUCT *frame = head->next; frame != nullptr; frame = frame->next) {
        const std::size_t size = 4 + std::size_t{get_u16(frame->image)} * get_u16(frame->image + 2);
        frames.push_back(picture_of_block({frame->image, size}));
        frames.back().x = frame->x;
        frames.back().y = frame->y;
    }
    return frames;
}

// All frames side by side, each in a cell that holds the places of all of them.
void show(const Arguments &arguments) {
    const std::vector<IndexedPicture> frames = read_frames(path_of(arguments.input));
    std::int64_t left = frames[0].x, top = frames[0].y, right = left, bottom = top;
    for (const IndexedPicture &frame : frames) {
        std::cout << frame.width << " x " << frame.height << " at (" << frame.x << ", " << frame.y << ")\n";
        left = std::min<std::int64_t>(left, frame.x);
        top = std::min<std::int64_t>(top, frame.y);
        right = std::max<std::int64_t>(right, frame.x + frame.width);
        bottom = std::max<std::int64_t>(bottom, frame.y + frame.height);
    }
    const std::int64_t cell = right - left + 1, width = cell * static_cast<std::int64_t>(frames.size());
    if (bottom <= top || width * (bottom - top) > 1 << 28)
        throw FileError(path_of(arguments.input), "its frames do not fit into a picture");
    IndexedPicture sheet{static_cast<int>(width), static_cast<int>(bottom - top)};
    sheet.palette =
        arguments.palette.empty() ? grey_palette() : read_palette(path_of(arguments.palette)).colours;
    for (std::size_t i = 0; i < frames.size(); ++i)
        paste(sheet, frames[i], static_cast<int>(static_cast<std::int64_t>(i) * cell + frames[i].x - left),
              static_cast<int>(frames[i].y - top));
    write_bytes(path_of(arguments.output), encode_picture(sheet, PictureKind::png));
}

}  // namespace

void add_can(CLI::App &app) {
    const auto arguments = std::make_shared<Arguments>();
    CLI::App *can = add_group(app, "can", "Animations of image blocks (CAN)");

    CLI::App *make =
        can->add_subcommand("build", "Make an animation of PCX pictures, each placed where it says");
    make->add_option("output", arguments->output, "The CAN file to write")->required();
    make->add_option("frames", arguments->frames, "PCX pictures, one a frame")->required();
    make->add_option("--anchor", arguments->anchor, "What is added to every frame's position")
        ->type_name("X Y");
    make->callback([arguments] { build(*arguments); });

    CLI::App *list =
        can->add_subcommand("show", "List the frames of an animation and draw them side by side");
    list->add_option("input", arguments->input, "The CAN file")->required();
    list->add_option("-o,--output", arguments->output, "The PNG file to write")->required();
    list->add_option("--palette", arguments->palette,
                     "A PCX picture with the colours (default: shades of grey)");
    list->callback([arguments] { show(*arguments); });
}

}  // namespace ink::tool
