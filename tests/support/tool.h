// The authoring tool, run as a user runs it.
#pragma once

#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include "support/files.h"

namespace test {

// Its exit code, -1 when it was killed. What it says goes to the files out and err.
inline int ink(const std::string &arguments) {
    const int status = std::system((std::string(INK_TOOL) + " " + arguments + " > out 2> err").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace test
