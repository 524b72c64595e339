// A directory that is removed at the end, for the files that a benchmark makes.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <string>

namespace bench {

class ScratchDirectory {
  public:
    ScratchDirectory() : before_(std::filesystem::current_path()) {
        std::string name = std::filesystem::temp_directory_path() / "ink-bench-XXXXXX";
        if (mkdtemp(name.data()) != nullptr) std::filesystem::current_path(name);
    }
    ScratchDirectory(const ScratchDirectory &) = delete;
    ~ScratchDirectory() {
        const std::filesystem::path place = std::filesystem::current_path();
        std::filesystem::current_path(before_);
        std::filesystem::remove_all(place);
    }

  private:
    std::filesystem::path before_;
};

}  // namespace bench
