// A place for the library to work in.
#pragma once

#include <filesystem>
#include <span>
#include <string>

#include "files/file.h"

namespace ink::tool {

// A temporary directory that is the current one for as long as this lives, and is removed with all that is in
// it. The library finds its files there under plain names whatever the author's are called, and its error log
// falls there instead of beside the author's work. Names the author gave are not to be used meanwhile.
class Workshop {
  public:
    Workshop();
    ~Workshop();
    Workshop(const Workshop &) = delete;
    Workshop &operator=(const Workshop &) = delete;

    void put(const std::string &name, std::span<const std::uint8_t> bytes) const;
    Bytes take(const std::string &name) const;
    const std::filesystem::path &path() const { return path_; }

    // What the library has logged, without the last line's end.
    std::string log() const;

  private:
    std::filesystem::path path_, before_;
};

}  // namespace ink::tool
