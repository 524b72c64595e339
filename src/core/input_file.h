// A file read at positions and lengths that nobody vouches for: whatever lies past its end is simply not
// there.
#pragma once

#include <cstdint>
#include <span>

#include "host/file_name.h"

namespace ink {

class InputFile {
  public:
    InputFile() = default;
    explicit InputFile(const char *name);

    bool is_open() const { return file_ != nullptr; }
    std::uint64_t size() const { return size_; }

    // How many bytes of a stretch of the file are really there.
    std::uint64_t present(std::uint64_t offset, std::uint64_t length) const;

    // Fills to with the bytes from offset on and returns how many there were; the rest of to stays as it is.
    std::size_t read(std::uint64_t offset, std::span<std::uint8_t> to);

  private:
    host::File file_;
    std::uint64_t size_ = 0;
};

}  // namespace ink
