#include "program.h"

#include <algorithm>

#include "command_line.h"

namespace ink::tool {

void run_program(std::vector<std::string> words) {
    CLI::App app("Makes, converts and inspects the files of Inkstone games", "ink");
    app.require_subcommand(1);
    app.set_version_flag("--version", "ink " INK_VERSION, "Print the version of this program and exit");
    add_new(app);
    add_build(app);
    add_info(app);
    add_view(app);
    add_picture(app);
    add_palette(app);
    add_can(app);
    add_flic(app);
    add_bind(app);
    add_lzss(app);
    add_conf(app);
    add_font(app);
    add_strings(app);
    add_mac(app);
    add_save(app);
    add_expr(app);
    add_disc(app);
    add_replay(app);
    add_manual(app);
    try {
        require_known(app, words);
        // The parser takes the last word first.
        std::ranges::reverse(words);
        app.parse(std::move(words));
    } catch (const CLI::ParseError &error) {
        // Help, and what was wrong, are told while there is somebody who knows them.
        if (app.exit(error) != 0) throw Misused{};
    }
}

}  // namespace ink::tool
