#include "files/workshop.h"

#include <fstream>
#include <iterator>
#include <random>
#include <system_error>

namespace ink::tool {

namespace fs = std::filesystem;

Workshop::Workshop() : before_(fs::current_path()) {
    std::random_device random;
    do path_ = fs::temp_directory_path() / ("ink-" + std::to_string(random()));
    while (!fs::create_directory(path_));
    fs::current_path(path_);
}

Workshop::~Workshop() {
    std::error_code ignored;
    fs::current_path(before_, ignored);
    fs::remove_all(path_, ignored);
}

void Workshop::put(const std::string &name, std::span<const std::uint8_t> bytes) const {
    std::ofstream file(path_ / name, std::ios::binary);
    file.write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw FileError(path_ / name, "cannot be written");
}

Bytes Workshop::take(const std::string &name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), {});
}

std::string Workshop::log() const {
    const Bytes bytes = take("ERROR.MSG");
    std::string text(as_text(bytes));
    std::erase(text, '\r');  // on Windows every line ends in one
    while (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
}

}  // namespace ink::tool
