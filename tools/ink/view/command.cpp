// ink view: shows what is in a file.
#include <memory>

#include "can/reader.h"
#include "command_line.h"
#include "files/source.h"
#include "flic/reader.h"
#include "font/pages.h"
#include "info/report.h"
#include "lzss/stream.h"
#include "mac/declarations.h"
#include "mac/disassembler.h"
#include "picture/palette_file.h"
#include "picture/picture_file.h"
#include "view/window.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;

struct Arguments {
    std::string file, palette, picture, declarations;
    std::size_t frame = 1;
};

// What a file looks like, and whether that moves by itself; a font's pages are turned by hand.
struct Look {
    Animation animation;
    bool moves = true;
};

Look still(IndexedPicture picture) {
    Look look;
    picture.x = picture.y = 0;
    look.animation.frames.push_back({std::move(picture), kUsualMilliseconds});
    return look;
}

// Nothing when there is nothing to see in it.
std::optional<Look> look_of(const fs::path &name, const Bytes &file) {
    if (describe_can(file)) return Look{read_can(file)};
    if (describe_flic(file)) return Look{read_flic(file)};
    if (is_palette_file(file)) return still(swatch_of(palette_of(file, name).colours));
    if (recognise_picture(file)) return still(coloured(any_picture_of(file, name)));
    if (describe_font(file, name)) return Look{font_pages(file), false};
    if (is_gif(file)) return Look{coloured(decode_gif(file), {})};
    if (ending_of(name) == "sheet") return Look{coloured(read_raw_animation({name_of(name)}), {})};
    return std::nullopt;
}

// What there is to read about a file that shows nothing.
std::string text_of(const Arguments &arguments, const fs::path &name, const Bytes &file) {
    if (describe_script(file))
        return mac::disassemble(file, mac::read_declarations(arguments.declarations), "");
    const auto report = describe(file, name);
    if (!report) throw FileError(name, "is of no format that is known here");
    return page_of(arguments.file, *report);
}

void view(const Arguments &arguments) {
    const fs::path name = path_of(arguments.file);
    const Bytes file = read_bytes(name);
    try {
        auto look = look_of(name, file);
        // What is packed is shown as it will be.
        if (!look && lzss_stream_length(file).value_or(0) > 0) look = look_of(name, expand_lzss(file));
        if (!look && !arguments.picture.empty()) throw FileError(name, "has nothing to see in it");
        if (!look) return write_text(kStream, text_of(arguments, name, file));
        Animation &animation = look->animation;
        if (!arguments.palette.empty()) {
            const Palette palette = read_palette(path_of(arguments.palette)).colours;
            for (Frame &frame : animation.frames) frame.picture.palette = palette;
        }
        if (arguments.picture.empty()) return show_in_window(arguments.file, animation, look->moves);
        if (arguments.frame > animation.frames.size())
            throw FileError(name, "has " + counted(animation.frames.size(), "frame"));
        const IndexedPicture picture = on_field(animation, animation.frames[arguments.frame - 1]);
        write_bytes(path_of(arguments.picture), encode_picture(picture, PictureKind::png));
    } catch (const FileError &) {
        throw;
    } catch (const SourceError &) {
        throw;
    } catch (const SourceErrors &) {
        throw;
    } catch (const std::runtime_error &error) {
        throw FileError(name, error.what());
    }
}

}  // namespace

void add_view(CLI::App &app) {
    const auto arguments = std::make_shared<Arguments>();
    CLI::App *command =
        add_command(app, "view",
                    "Show a picture, palette, animation, film or font in a window, and anything else as text",
                    {"ink view walk.can --palette game.pal", "ink view intro.flc --png shot.png --frame 12"},
                    "In the window Space stops an animation and lets it go on, Left and Right step through "
                    "its frames or turn a font's pages, C turns the palette round, and Esc ends it. What is "
                    "small is enlarged by a whole factor. Scripts are listed, archives and settings "
                    "described.");
    command->add_option("file", arguments->file, "The file")->required();
    command->add_option("--palette", arguments->palette, "Colours for what has none of its own");
    command->add_option("--png", arguments->picture, "Write a picture instead of opening a window");
    command->add_option("--frame", arguments->frame, "Which frame or page that is, counted from 1 (1)")
        ->check(CLI::PositiveNumber);
    command->add_option("-d,--declarations", arguments->declarations,
                        "For a script: a source that declares the game's commands and variables");
    command->callback([arguments] { view(*arguments); });
}

}  // namespace ink::tool
