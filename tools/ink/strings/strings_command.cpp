// `ink strings`: texts are written in UTF-8 in a table and compiled into a game as Big5.
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

#include "charset/big5.h"
#include "commands.h"

namespace ink::tool {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

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

std::string read_text(const std::string &name) {
    std::ifstream file(name, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(file), {});
    if (!file) throw std::runtime_error(name + ": cannot be read");
    if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
    return text;
}

std::string make_header(const std::string &source) {
    const std::string text = read_text(source);
    std::string header = "/* Made by ink strings: texts in Big5. */\n";
    int number = 0;
    for (std::size_t start = 0; start < text.size();) {
        ++number;
        const std::size_t end = std::min(text.find('\n', start), text.size());
        std::string_view line = std::string_view(text).substr(start, end - start);
        start = end + 1;
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (line.empty() || line[0] == ';') continue;
        const auto fail = [&](const std::string &why) {
            throw std::runtime_error(source + ":" + std::to_string(number) + ": " + why);
        };
        const std::size_t equals = line.find(" = ");
        if (equals == std::string_view::npos || !is_identifier(line.substr(0, equals)))
            fail("a line is NAME = text, NAME a name of the C language");
        try {
            header += "static const char " + std::string(line.substr(0, equals)) +
                      "[] = " + literal(to_big5(line.substr(equals + 3))) + ";\n";
        } catch (const std::runtime_error &error) {
            fail(error.what());
        }
    }
    return header;
}

}  // namespace

void add_strings(CLI::App &app) {
    static std::string source, header;
    CLI::App *strings = app.add_subcommand(
        "strings",
        "Makes a C header of Big5 strings out of a table in UTF-8: lines NAME = text, comments begin with ;");
    strings->add_option("source", source, "The table")->required();
    strings->add_option("header", header, "The header to write")->required();
    strings->callback([] {
        const std::string text = make_header(source);
        std::ofstream file(header, std::ios::binary);
        file << text;
        file.close();
        if (!file) throw std::runtime_error(header + ": cannot be written");
    });
}

}  // namespace ink::tool
