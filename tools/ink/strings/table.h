// Tables of texts.
#pragma once

#include <string>

namespace ink::tool {

// The C header of the Big5 strings that the table in that file has: lines NAME = text, in UTF-8; comments begin
// with ;. Throws FileError, and SourceError for a line that is none of these and for characters that Big5 lacks.
std::string header_of_table(const std::string &source);

}  // namespace ink::tool
