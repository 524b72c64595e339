// A line of a source as tokens.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "files/source.h"

namespace ink::mac {

using tool::begins_character;
using tool::Place;
using tool::SourceError;

struct Token {
    enum class Kind {
        end,     // of the line
        word,    // a name; one that begins with a dot is local to its procedure
        number,  // decimal, 0x hexadecimal, or a character in single quotes
        string,  // in double quotes; bytes holds its Big5 text
        bytes,   // hexadecimal pairs in braces
        symbol,  // an operator or a mark of punctuation
    } kind = Kind::end;
    std::string text;  // as written, strings without their quotes
    std::int64_t value = 0;
    std::string bytes;
    std::size_t column = 0;
};

// The tokens of one line, which end with Kind::end. Throws SourceError.
std::vector<Token> tokenise(const Place &line);

}  // namespace ink::mac
