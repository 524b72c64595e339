// Whole files in and out, and the error log, for the tests.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string>
#include <vector>

namespace test {

using Bytes = std::vector<std::uint8_t>;

// Appends a number, lowest byte first, or a block of bytes.
template <class Number>
void put(Bytes &to, Number number, int bytes) {
    for (auto left = static_cast<std::uint64_t>(number); bytes > 0; --bytes, left >>= 8)
        to.push_back(static_cast<std::uint8_t>(left));
}
inline void put(Bytes &to, const Bytes &bytes) {
    for (const std::uint8_t byte : bytes) to.push_back(byte);
}

inline void write_file(const std::string &name, const Bytes &bytes) {
    std::ofstream(name, std::ios::binary)
        .write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}
inline void write_text(const std::string &name, const std::string &text) {
    write_file(name, Bytes(text.begin(), text.end()));
}
inline Bytes read_file(const std::string &name) {
    std::ifstream file(name, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), {});
}
inline std::string read_text(const std::string &name) {
    const Bytes bytes = read_file(name);
    return std::string(bytes.begin(), bytes.end());
}
inline bool exists(const std::string &name) {
    return std::filesystem::exists(name);
}

// What has been logged since the last call.
inline std::string take_log(const std::string &name = "ERROR.MSG") {
    std::string text = read_text(name);
    std::filesystem::remove(name);
    return text;
}

}  // namespace test
