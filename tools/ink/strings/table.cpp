#include "strings/table.h"

#include <cctype>
#include <cstdint>
#include <stdexcept>
#include <string_view>

#include "charset/big5.h"
#include "files/file.h"
#include "files/source.h"

namespace ink::tool {
namespace {

bool is_identifier(std::string_view name) {
    if (name.empty() || std::isdigit(static_cast<unsigned char>(name[0]))) return false;
    for (const char letter : name)
        if (letter != '_' &&
            (static_cast<unsigned char>(letter) >= 0x80 || !std::isalnum(static_cast<unsigned char>(letter))))
            return false;
    return true;
}

// As a C string literal. Every byte that is not a plain character becomes three octal digits, which, unlike
// hexadecimal ones, end where they should; the second byte of a Big5 character may look like any character.
std::string literal(std::string_view big5) {
    std::string result = "\"";
    for (std::size_t i = 0; i < big5.size(); ++i) {
        const auto byte = static_cast<std::uint8_t>(big5[i]);
        const auto octal = [&result](std::uint8_t value) {
            for (const int shift : {6, 3, 0}) result += static_cast<char>('0' + (value >> shift & 7));
        };
        if (byte >= 0x20 && byte < 0x7F && byte != '"' && byte != '\\' && byte != '?') {
            result += big5[i];
            continue;
        }
        result += '\\';
        octal(byte);
        if (byte >= 0x80 && i + 1 < big5.size()) {
            result += '\\';
            octal(static_cast<std::uint8_t>(big5[++i]));
        }
    }
    return result + '"';
}

}  // namespace

std::string header_of_table(const std::string &source) {
    std::string header = "/* Made by ink strings: texts in Big5. */\n";
    const std::vector<Place> lines = lines_of(source, read_text(path_of(source)));
    require_utf8(lines);
    for (Place line : lines) {
        if (line.line.empty() || line.line[0] == ';') continue;
        const std::size_t equals = line.line.find(" = ");
        const std::string name = line.line.substr(0, equals);
        if (equals == std::string::npos || !is_identifier(name))
            throw SourceError(line, "a line is NAME = text, NAME a name of the C language");
        line.column = equals + 3;
        try {
            header += "static const char " + name +
                      "[] = " + literal(to_big5(line.line.substr(line.column))) + ";\n";
        } catch (const std::runtime_error &error) {
            throw SourceError(line, error.what());
        }
    }
    return header;
}

}  // namespace ink::tool
