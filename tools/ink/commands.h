// The commands of ink, one function each: it adds its subcommands, options and callbacks to the command line.
// A command that fails throws std::runtime_error with a message for the user; nothing is written then.
#pragma once

#include <CLI/CLI.hpp>

namespace ink::tool {

void add_mac(CLI::App &app);
void add_disc(CLI::App &app);
void add_font(CLI::App &app);
void add_can(CLI::App &app);
void add_flic(CLI::App &app);
void add_strings(CLI::App &app);

}  // namespace ink::tool
