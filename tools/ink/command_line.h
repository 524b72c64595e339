// What the commands of ink have in common on the command line.
//
// Each format has a folder here with a function that adds its commands: add_group for the format, below it
// add_command for what can be done with it. A command does its work in its callback and throws when it
// cannot: FileError or another std::runtime_error with a message for the user, SourceError for a place in a
// text. Nothing is written then. ink ends with 0, with 1 when a command failed, and with 2 when it was called
// wrongly.
#pragma once

#include <CLI/CLI.hpp>
#include <chrono>
#include <string>
#include <vector>

#include "files/file.h"

namespace ink::tool {

// A format, with commands below it.
CLI::App *add_group(CLI::App &app, const std::string &name, const std::string &description);

// A command, with lines that show how it is called and a paragraph of what else there is to know.
CLI::App *add_command(CLI::App &parent, const std::string &name, const std::string &description,
                      const std::vector<std::string> &examples, const std::string &more = {});

// Throws CLI::ParseError where the words name no command, and says which one was probably meant.
void require_known(const CLI::App &app, const std::vector<std::string> &words);

// "1 frame", "4 frames".
std::string counted(std::size_t count, const std::string &what);

// Tells what has been written, where the standard output is not what was written to.
void tell(const std::string &output, const std::string &text);

// Whether somebody watches the standard error.
bool is_watched();

// Tells how far a work has come that takes longer than a second, where somebody watches.
class Progress {
  public:
    Progress(std::string work, std::size_t steps) : work_(std::move(work)), steps_(steps) {}
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    void done(std::size_t steps);

  private:
    const std::string work_;
    const std::size_t steps_;
    const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    bool shown_ = false;
};

// The commands as a manual page (man) and as completions of a shell (bash), made of their descriptions.
void add_manual(CLI::App &app);

void add_bind(CLI::App &app);
void add_build(CLI::App &app);
void add_can(CLI::App &app);
void add_conf(CLI::App &app);
void add_disc(CLI::App &app);
void add_expr(CLI::App &app);
void add_flic(CLI::App &app);
void add_font(CLI::App &app);
void add_info(CLI::App &app);
void add_lzss(CLI::App &app);
void add_mac(CLI::App &app);
void add_new(CLI::App &app);
void add_palette(CLI::App &app);
void add_picture(CLI::App &app);
void add_replay(CLI::App &app);
void add_save(CLI::App &app);
void add_strings(CLI::App &app);
void add_view(CLI::App &app);

}  // namespace ink::tool
