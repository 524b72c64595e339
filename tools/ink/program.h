// The whole program, as main runs it and as ink build runs it for each of its lines.
#pragma once

#include <string>
#include <vector>

namespace ink::tool {

// A command line that is none; what is wrong with it has been told.
struct Misused {};

// Carries out a command line, given without the program's name. Throws Misused, and whatever the command
// throws.
void run_program(std::vector<std::string> words);

}  // namespace ink::tool
