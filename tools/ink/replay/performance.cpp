#include "replay/performance.h"

#include <cstdlib>
#include <stdexcept>

#include "files/file.h"

#if !defined(_WIN32)
#include <sys/wait.h>
#endif

namespace ink::tool {
namespace {

void set_environment(const char *name, const std::string &value) {
#if defined(_WIN32)
    _putenv_s(name, value.c_str());
#else
    setenv(name, value.c_str(), 1);
#endif
}

int exit_code_of(const std::string &command_line) {
#if defined(_WIN32)
    // The command interpreter takes away the outer quotes.
    return std::system(('"' + command_line + '"').c_str());
#else
    const int status = std::system(command_line.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
}

}  // namespace

std::string command_line_of(const std::vector<std::string> &words) {
    std::string line;
    for (const std::string &word : words) {
        if (!line.empty()) line += ' ';
#if defined(_WIN32)
        line += '"' + word + '"';
#else
        line += '\'';
        for (const char letter : word) line += letter == '\'' ? "'\\''" : std::string(1, letter);
        line += '\'';
#endif
    }
    return line;
}

void perform(const std::vector<std::string> &program, const std::filesystem::path &record,
             const Capture *capture) {
    constexpr int kDiffers = 3;
    // A program may go to a directory of its own before it opens the record.
    set_environment("INKSTONE_HOST", "headless");
    set_environment("INKSTONE_REPLAY", name_of(std::filesystem::absolute(record)));
    set_environment("INKSTONE_RECORD",
                    capture != nullptr ? name_of(std::filesystem::absolute(capture->file)) : "");
    set_environment("INKSTONE_RECORD_SOUND", "1");
    set_environment("INKSTONE_RECORD_PICTURES",
                    std::to_string(capture != nullptr ? capture->pictures_per_second : 1));
    const int exit_code = exit_code_of(command_line_of(program));
    if (exit_code == kDiffers) throw std::runtime_error("the program did not do what was recorded");
    if (exit_code != 0)
        throw std::runtime_error(program.front() + " ended with exit code " + std::to_string(exit_code));
}

}  // namespace ink::tool
