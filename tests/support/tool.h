// The authoring tool, run as a user runs it.
#pragma once

#include <cstdlib>
#include <string>

#include "support/files.h"

#if !defined(_WIN32)
#include <sys/wait.h>
#endif

namespace test {

// Its exit code, -1 when it was killed. What it says goes to the files out and err.
inline int ink(const std::string &arguments) {
    const int status = std::system((std::string(INK_TOOL) + " " + arguments + " > out 2> err").c_str());
#if defined(_WIN32)
    return status;
#else
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
}

}  // namespace test
