// Errors in a source, which name the place, show the line and point at it.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ink::mac {

// One line of a source. The column is a byte of it.
struct Place {
    std::string file, line;
    std::size_t number = 0, column = 0;
};

class SourceError : public std::runtime_error {
  public:
    // what() is the whole report: file:line:column, the message, the line, a caret. Columns count characters
    // from 1.
    SourceError(const Place &place, const std::string &message);
};

// "file:line", to mention a place in a message about another.
std::string brief(const Place &place);

// Characters of UTF-8 text begin with any byte but a continuation.
inline bool begins_character(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

}  // namespace ink::mac
