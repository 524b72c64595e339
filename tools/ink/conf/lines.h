// The lines of a configuration file.
#pragma once

#include <string>
#include <vector>

#include "files/file.h"

namespace ink::tool {

struct ConfLine {
    enum class Kind { other, section, value } kind = Kind::other;
    std::string key, value;      // of a section its name
    std::size_t start = 0, end;  // in the file, the line's end not included
    bool ended = true;           // with a line feed, without which games do not see it
};

// Whether there is nothing in it that no text has.
bool is_text(const Bytes &file);

std::vector<ConfLine> conf_lines(const Bytes &file);

// The file with that value: in the line where a game finds it, or in a new one at the end of its section.
// What else stands there stays, but a last line without a line feed gets one.
Bytes with_value(const Bytes &file, const std::string &section, const std::string &key,
                 const std::string &value);

}  // namespace ink::tool
