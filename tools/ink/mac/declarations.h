// Sources as files of the author's.
#pragma once

#include <string>

#include "mac/language.h"

namespace ink::mac {

// Assembles a source and what it includes, and prints its warnings. Throws as assemble does, and FileError.
Program assemble_file(const std::string &name);

// A source that only declares names; nothing is declared by an empty name. Throws std::runtime_error for one
// that does more.
Program read_declarations(const std::string &name);

}  // namespace ink::mac
