// A file read at positions and lengths that nobody vouches for: whatever lies past its end is simply not
// there.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "host/file_name.h"

namespace ink::host {

class InputFile {
  public:
    InputFile() = default;
    // Opened as open_file opens it. What cannot be measured, such as a pipe, counts as empty.
    explicit InputFile(const char *name) noexcept : InputFile(open_file(name, "rb")) {}
    explicit InputFile(File file) noexcept;

    bool is_open() const { return file_ != nullptr; }
    std::uint64_t size() const { return size_; }

    // How many bytes of a stretch of the file are really there.
    std::uint64_t present(std::uint64_t offset, std::uint64_t length) const {
        return offset < size_ ? std::min(length, size_ - offset) : 0;
    }

    // Fills to with the bytes from offset on and returns how many there were; the rest of to stays as it is.
    std::size_t read(std::uint64_t offset, std::span<std::uint8_t> to) noexcept;

  private:
    File file_;
    std::uint64_t size_ = 0;
    std::uint64_t position_ = 0;  // where the system's own reading stands
};

}  // namespace ink::host
