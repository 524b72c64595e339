// What the commands for animations and for films share.
#pragma once

#include <string>
#include <vector>

#include "animation/animation.h"
#include "command_line.h"
#include "picture/options.h"

namespace ink::tool {

struct AnimationArguments {
    std::vector<std::string> frames;
    std::string input, output, palette, palette_output;
    ColouringOptions colouring;
    bool transparent = false;

    void add_building(CLI::App &command) {
        command.add_option("output", output, "The file to write")->required();
        command
            .add_option(
                "frames", frames,
                "Pictures (or patterns of names), animated GIFs, or a description .sheet of parts of a "
                "picture")
            ->required();
        colouring.add(command);
        command.add_option("--save-palette", palette_output,
                           "Where to write the palette that the frames have");
    }
    void add_extracting(CLI::App &command, const char *what) {
        command.add_option("input", input, what)->required();
        command
            .add_option("-o,--output", output,
                        "Where to: a folder for a PNG a frame, or a name that ends in .sheet, .gif or .apng")
            ->required();
        command.add_flag("--transparent", transparent, "Let colour 0 be transparent");
    }

    Animation read(bool placed) const {
        const RawAnimation raw = read_raw_animation(frames, placed);
        Progress progress("colouring frames", raw.frames.size());
        return coloured(raw, colouring.read(), [&](std::size_t frame) { progress.done(frame); });
    }

    // Writes what was built, and the palette where it is wanted.
    void write(const Bytes &file, const Animation &animation) const {
        NewFiles files;
        files.add(path_of(output), file);
        if (!palette_output.empty())
            files.add(
                path_of(palette_output),
                encode_palette({animation.frames.front().picture.palette, {0, 255}}, PaletteKind::library));
        files.commit();
    }

    void extract(const Animation &animation) const {
        const auto place = path_of(output);
        const auto made = files_of(animation, place, transparent);
        if (place.extension().empty()) std::filesystem::create_directories(place);
        NewFiles files;
        for (const auto &[name, bytes] : made) files.add(name, bytes);
        files.commit();
    }
};

inline constexpr const char *kSheetLanguage =
    "A description .sheet has lines: anchor X Y; sheet FILE; frame X Y W H; grid W H [COUNT]; picture FILE. "
    "Behind the last three may stand at X Y, the frame's place, and for MILLISECONDS. Frames that all have "
    "palettes keep their indices; otherwise all of them get one palette together.";

}  // namespace ink::tool
