// The fuzzed bytes as a file, for the readers that take a name.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace fuzz {

// The input written to a file, in a directory of its own that lies in memory where the system has such a
// place. The error log leads nowhere there: a directory has its name.
inline const char *as_file(const std::uint8_t *data, std::size_t size) {
    namespace fs = std::filesystem;
    static const std::string place = [] {
        const fs::path memory = "/dev/shm";
        std::string name =
            (fs::is_directory(memory) ? memory : fs::temp_directory_path()) / "ink-fuzz-XXXXXX";
        if (mkdtemp(name.data()) == nullptr || chdir(name.c_str()) != 0) std::abort();
        fs::create_directory("ERROR.MSG");
        return name;
    }();
    [[maybe_unused]] static const int registered = std::atexit([] { fs::remove_all(place); });
    std::FILE *file = std::fopen("input", "wb");
    if (file == nullptr || std::fwrite(data, 1, size, file) != size) std::abort();
    std::fclose(file);
    return "input";
}

}  // namespace fuzz
