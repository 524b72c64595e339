// Texts that an author writes, line by line, and what is wrong with them.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace ink::tool {

// One line of a source. The column is a byte of it.
struct Place {
    std::string file, line;
    std::size_t number = 0, column = 0;
};

// "file:line", to mention a place in a message about another.
std::string brief(const Place &place);

class SourceError : public std::runtime_error {
  public:
    // what() is the whole report, as compilers give it, so that editors find the place: file:line:column, the
    // message, the line, a caret. Columns count characters from 1.
    SourceError(const Place &place, const std::string &message);
};

// Several of them as one, a report below the other.
class SourceErrors : public std::runtime_error {
  public:
    explicit SourceErrors(const std::vector<SourceError> &errors);
};

// The lines of a text, without their ends, of either kind.
std::vector<Place> lines_of(const std::string &file, std::string_view text);

// Throws SourceError for the first line that is not UTF-8, and says what to do about it.
void require_utf8(const std::vector<Place> &lines);

// Characters of UTF-8 text begin with any byte but a continuation.
inline bool begins_character(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

// The one of the words that the author may have meant, as: did you mean "word"? Empty when none is near.
std::string suggestion(std::string_view wrong, const std::vector<std::string> &words);

}  // namespace ink::tool
