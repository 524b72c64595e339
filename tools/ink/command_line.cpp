#include "command_line.h"

#include <cstdio>
#include <sstream>

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace ink::tool {
namespace {

constexpr std::size_t kColumns = 80;

// In lines that fit a terminal.
std::string wrapped(const std::string &text) {
    std::istringstream words(text);
    std::string made, line;
    for (std::string word; words >> word; line += word) {
        if (!line.empty() && line.size() + 1 + word.size() > kColumns) {
            made += line + '\n';
            line.clear();
        }
        if (!line.empty()) line += ' ';
    }
    return made + line + '\n';
}

}  // namespace

CLI::App *add_group(CLI::App &app, const std::string &name, const std::string &description) {
    CLI::App *group = app.add_subcommand(name, description);
    group->require_subcommand(1);
    return group;
}

CLI::App *add_command(CLI::App &parent, const std::string &name, const std::string &description,
                      const std::vector<std::string> &examples, const std::string &more) {
    CLI::App *command = parent.add_subcommand(name, description);
    std::string footer = more.empty() ? "" : wrapped(more) + "\n";
    footer += examples.size() > 1 ? "Examples:" : "Example:";
    for (const std::string &example : examples) footer += "\n  " + example;
    command->footer(footer);
    return command;
}

bool is_watched() {
#if defined(_WIN32)
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

void Progress::done(std::size_t steps) {
    if (!is_watched() || std::chrono::steady_clock::now() - start_ < std::chrono::seconds(1)) return;
    std::fprintf(stderr, "\r%s %3zu%%", work_.c_str(), 100 * steps / std::max<std::size_t>(steps_, 1));
    shown_ = true;
}

Progress::~Progress() {
    if (shown_) std::fprintf(stderr, "\r%*s\r", static_cast<int>(work_.size() + 5), "");
}

}  // namespace ink::tool
