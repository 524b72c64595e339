// ink: makes, converts and inspects every file the library reads.
#include <cstdio>
#include <exception>

#include "commands.h"

int main(int argc, char **argv) {
    CLI::App app("ink makes, converts and inspects the files of Inkstone games.", "ink");
    app.require_subcommand(1);
    ink::tool::add_mac(app);
    ink::tool::add_disc(app);
    ink::tool::add_font(app);
    ink::tool::add_can(app);
    ink::tool::add_flic(app);
    ink::tool::add_strings(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return app.exit(error);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "ink: %s\n", error.what());
        return 1;
    }
    return 0;
}
