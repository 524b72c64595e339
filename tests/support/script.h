// Script files put together byte by byte, and commands for them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "inkstone/mac.h"

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

// The commands of an imaginary game: the opcode tells which operands it reads (two bits each: number, long,
// char, string) and whether it ends the run. What was read is added to trace.
template <class Reader>
std::int32_t command(Reader &reader, int opcode, std::string &trace) {
    trace += 'c' + std::to_string(opcode);
    for (int kinds = opcode - 24; kinds > 0; kinds /= 4) {
        if (kinds % 4 == 0) trace += 'n' + std::to_string(reader.number());
        if (kinds % 4 == 1) trace += 'l' + std::to_string(reader.read(4));
        if (kinds % 4 == 2) trace += 'b' + std::to_string(reader.read(1));
        if (kinds % 4 == 3) trace += 's' + reader.string().value_or("-");
    }
    return opcode % 16 == 15 ? opcode : 0;
}

// Operands as the library reads them.
struct Library {
    std::int32_t number() { return MAC_get_number(); }
    std::int32_t read(int count) { return count == 1 ? MAC_get_char() : MAC_get_long(); }
    std::optional<std::string> string() {
        const char *text = MAC_get_string();
        return text != nullptr ? std::optional<std::string>(text) : std::nullopt;
    }
};

}  // namespace test
