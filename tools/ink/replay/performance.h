// A recorded program, run again.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace ink::tool {

// A record of another run of it, with so many pictures a second and the sound.
struct Capture {
    std::filesystem::path file;
    int pictures_per_second = 1;
};

// Runs the program, with its arguments, from the record on the headless machine, as fast as it goes; its
// output is the tool's. Throws std::runtime_error when it does not do what was recorded.
void perform(const std::vector<std::string> &program, const std::filesystem::path &record,
             const Capture *capture = nullptr);

// A command line of which every word reaches the program as it is.
std::string command_line_of(const std::vector<std::string> &words);

}  // namespace ink::tool
