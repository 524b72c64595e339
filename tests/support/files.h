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
// Lines end in a line feed alone, whatever they do in the text files of this system.
inline std::string read_text(const std::string &name) {
    const Bytes bytes = read_file(name);
    std::string text(bytes.begin(), bytes.end());
#if defined(_WIN32)
    for (std::size_t at = 0; (at = text.find("\r\n", at)) != text.npos;) text.erase(at, 1);
#endif
    return text;
}
// Whether there is a device that takes nothing, to write to.
#if defined(_WIN32)
inline constexpr bool kHasFullDevice = false;
#else
inline constexpr bool kHasFullDevice = true;
#endif

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
