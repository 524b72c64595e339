// The options with which an author says how colours become entries of a palette.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "picture/palette_file.h"
#include "picture/picture_file.h"

namespace ink::tool {

struct ColouringOptions {
    std::string palette;
    std::string entries;
    bool plain = false, again = false;

    void add(CLI::App &command) {
        command.add_option("--palette", palette,
                           "The palette to use: a file of ink palette, or a picture that has one");
        add_entries(command);
        command.add_flag("--no-dither", plain, "Take the nearest colour, without dithering");
        command.add_flag("--recolour", again,
                         "Map pictures that have a palette to yours too, colour for colour");
    }
    void add_entries(CLI::App &command) {
        command
            .add_option("--entries", entries,
                        "The entries of the palette that colours may be among, FIRST-LAST (1-255)")
            ->check([](const std::string &text) {
                Entries ignored;
                return parse(text, ignored) ? std::string() : text + " is not FIRST-LAST, both 0 to 255";
            });
    }

    Colouring read() const {
        Colouring colouring;
        if (!palette.empty()) colouring.palette = read_palette(path_of(palette)).colours;
        parse(entries, colouring.entries);
        colouring.dither = !plain;
        colouring.again = again;
        return colouring;
    }

  private:
    static bool parse(const std::string &text, Entries &parsed) {
        int first = 0, last = 0, used = 0;
        if (std::sscanf(text.c_str(), "%3d-%3d%n", &first, &last, &used) != 2 ||
            static_cast<std::size_t>(used) != text.size() || first < 0 || first > last || last > 255)
            return false;
        parsed = {first, last};
        return true;
    }
};

}  // namespace ink::tool
