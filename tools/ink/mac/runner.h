// Trying a script out: a procedure is run with a trace of the commands it gives the game.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "mac/language.h"

namespace ink::mac {

struct RunOptions {
    std::string procedure = "0";        // number or name
    std::vector<std::string> settings;  // NAME=VALUE or NUMBER=VALUE, variables set before
    std::uint32_t variables = 100;      // at least; every variable that has a name has its place anyway
    std::uint32_t limit = 10'000'000;   // instructions, roughly, after which the run is broken off
};

// Runs the program's procedure on the headless machine and writes what happens to out. Throws
// std::runtime_error when there is nothing to run.
void run(const Program &program, const RunOptions &options, std::ostream &out);

}  // namespace ink::mac
