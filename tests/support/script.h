// Script files put together byte by byte.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace test {

inline std::string word(std::int32_t value) {
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(static_cast<std::uint32_t>(value) >> shift & 0xFF);
    return bytes;
}
inline std::string constant(std::int32_t value) {
    return '#' + word(value);
}
inline std::string variable(std::int32_t index) {
    return '@' + word(index);
}
inline std::string text(const std::string &bytes) {
    return static_cast<char>(bytes.size()) + bytes;
}
inline std::string op(int opcode, const std::string &operands = {}) {
    return std::string{static_cast<char>(opcode), static_cast<char>(operands.size())} + operands;
}

// A file whose table has the given entries.
inline std::string script_file(const std::vector<std::int32_t> &table, const std::string &code) {
    std::string file = std::string(12, '\xEE') + word(static_cast<std::int32_t>(code.size())) +
                       std::string(4, '\xEE') + word(static_cast<std::int32_t>(table.size()));
    for (const std::int32_t entry : table) file += word(entry);
    return file + code;
}

// A file with the given procedures, one behind the other.
inline std::string script_file(const std::vector<std::string> &procedures) {
    std::vector<std::int32_t> table;
    std::string code;
    for (const std::string &procedure : procedures) {
        table.push_back(static_cast<std::int32_t>(code.size()));
        code += procedure;
    }
    return script_file(table, code);
}

}  // namespace test
