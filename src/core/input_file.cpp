#include "core/input_file.h"

#include <algorithm>

namespace ink {

InputFile::InputFile(const char *name) : file_(host::open_file(name, "rb")) {
    if (!file_ || std::fseek(file_.get(), 0, SEEK_END) != 0) return;
    // What cannot be measured, such as a pipe, counts as empty.
    size_ = static_cast<std::uint64_t>(std::max(std::ftell(file_.get()), 0L));
}

std::uint64_t InputFile::present(std::uint64_t offset, std::uint64_t length) const {
    return offset < size_ ? std::min(length, size_ - offset) : 0;
}

std::size_t InputFile::read(std::uint64_t offset, std::span<std::uint8_t> to) {
    const auto length = static_cast<std::size_t>(present(offset, to.size()));
    if (length == 0 || std::fseek(file_.get(), static_cast<long>(offset), SEEK_SET) != 0) return 0;
    return std::fread(to.data(), 1, length, file_.get());
}

}  // namespace ink
