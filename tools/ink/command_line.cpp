#include "command_line.h"

#include <cstdio>
#include <iostream>
#include <sstream>

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

#include "files/source.h"

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
    // A format's help has one example of each of its commands.
    if (parent.get_parent() != nullptr)
        parent.footer((parent.get_footer().empty() ? "Examples:" : parent.get_footer()) + "\n  " +
                      examples.front());
    return command;
}

void require_known(const CLI::App &app, const std::vector<std::string> &words) {
    const CLI::App *known = &app;
    for (const std::string &word : words) {
        const auto below = known->get_subcommands([](const CLI::App *) { return true; });
        if (below.empty() || word.starts_with('-')) return;
        const auto found = std::ranges::find(below, word, &CLI::App::get_name);
        if (found == below.end()) {
            std::vector<std::string> names;
            for (const CLI::App *command : below) names.push_back(command->get_name());
            throw CLI::ExtrasError('"' + word + "\" is no command of " +
                                       (known == &app ? "ink" : "ink " + known->get_name()) +
                                       suggestion(word, names),
                                   CLI::ExitCodes::ExtrasError);
        }
        known = *found;
    }
}

std::string counted(std::size_t count, const std::string &what) {
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

void tell(const std::string &output, const std::string &text) {
    if (output != kStream) std::cout << output << ": " << text << '\n';
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
