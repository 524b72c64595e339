#include "host/input_file.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <utility>

namespace ink::host {
namespace {

// The C library's own positions are 32 bits wide on some systems.
#if defined(_WIN32)
bool seek(std::FILE *file, std::uint64_t offset, int origin) {
    return _fseeki64(file, static_cast<long long>(offset), origin) == 0;
}
std::int64_t tell(std::FILE *file) {
    return _ftelli64(file);
}
#else
bool seek(std::FILE *file, std::uint64_t offset, int origin) {
    return fseeko(file, static_cast<off_t>(offset), origin) == 0;
}
std::int64_t tell(std::FILE *file) {
    return ftello(file);
}
#endif

// A position that no file has, so that the next reading seeks.
constexpr std::uint64_t kNowhere = std::numeric_limits<std::uint64_t>::max();

}  // namespace

InputFile::InputFile(File file) noexcept : file_(std::move(file)) {
    if (!file_ || !seek(file_.get(), 0, SEEK_END)) return;
    size_ = static_cast<std::uint64_t>(std::max<std::int64_t>(tell(file_.get()), 0));
    position_ = kNowhere;
}

std::size_t InputFile::read(std::uint64_t offset, std::span<std::uint8_t> to) noexcept {
    const auto length = static_cast<std::size_t>(present(offset, to.size()));
    if (length == 0 || (offset != position_ && !seek(file_.get(), offset, SEEK_SET))) return 0;
    const std::size_t count = std::fread(to.data(), 1, length, file_.get());
    position_ = count == length ? offset + length : kNowhere;
    return count;
}

}  // namespace ink::host
