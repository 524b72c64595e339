// ink can: makes animations of pictures and shows their frames.
#include <algorithm>
#include <array>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include "commands.h"
#include "core/reader.h"
#include "draw/surface.h"
#include "film/can_file.h"
#include "inkstone/can.h"
#include "png/png_file.h"

namespace ink::tool {
namespace {

struct Arguments {
    std::string output, palette, input;
    std::vector<std::string> frames;
    std::pair<int, int> anchor{0, 0};
};

void build(const Arguments &arguments) {
    std::vector<IndexedPicture> frames;
    for (const std::string &name : arguments.frames) frames.push_back(read_picture(name));
    const Bytes file = can_file(frames, arguments.anchor.first, arguments.anchor.second);
    write_bytes(arguments.output, file);
    std::cout << arguments.output << ": " << frames.size() << " frames, " << file.size() << " bytes\n";
}

struct FreeAnimation {
    void operator()(ANI_DATA_STRUCT *head) const { ANI_free_ani(head); }
};

// All frames side by side, each in a cell that holds the places of all of them.
void show(const Arguments &arguments) {
    Bytes work(read_bytes(arguments.input).size());
    ANI_DATA_STRUCT *head = nullptr;
    const int count = CAN_read_file(arguments.input.c_str(), &head, work.data());
    const std::unique_ptr<ANI_DATA_STRUCT, FreeAnimation> animation(head);
    if (count < 1) throw std::runtime_error(arguments.input + " has no frames that can be read");

    std::int64_t left = head->next->x, top = head->next->y, right = left, bottom = top;
    for (const ANI_DATA_STRUCT *frame = head->next; frame != nullptr; frame = frame->next) {
        const draw::Sprite sprite = draw::image(frame->image);
        std::cout << sprite.width << " x " << sprite.height << " at (" << frame->x << ", " << frame->y
                  << ")\n";
        left = std::min<std::int64_t>(left, frame->x);
        top = std::min<std::int64_t>(top, frame->y);
        right = std::max(right, frame->x + sprite.width);
        bottom = std::max(bottom, frame->y + sprite.height);
    }
    const std::int64_t width = (right - left + 1) * count, height = bottom - top;
    if (height < 1 || width * height > 1 << 28)
        throw std::runtime_error("the frames do not fit into a picture");
    Bytes sheet(static_cast<std::size_t>(width * height));
    std::int64_t cell = 0;
    for (const ANI_DATA_STRUCT *frame = head->next; frame != nullptr; frame = frame->next) {
        const draw::Sprite sprite = draw::image(frame->image);
        const std::int64_t x = cell + frame->x - left, y = frame->y - top;
        for (std::int64_t row = 0; row < sprite.height; ++row)
            std::copy_n(sprite.at(0, row), sprite.width,
                        &sheet[static_cast<std::size_t>((y + row) * width + x)]);
        cell += right - left + 1;
    }
    std::array<std::uint8_t, 768> colours;
    for (std::size_t i = 0; i < colours.size(); ++i) colours[i] = static_cast<std::uint8_t>(i / 3);
    if (!arguments.palette.empty()) colours = bright_palette(read_picture(arguments.palette).palette);
    write_png(arguments.output, static_cast<int>(width), static_cast<int>(height), sheet, colours);
}

}  // namespace

void add_can(CLI::App &app) {
    const auto arguments = std::make_shared<Arguments>();
    CLI::App *can = app.add_subcommand("can", "Animations of image blocks (CAN)");
    can->require_subcommand(1);

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
