// From source to script file. docs/script.md has the language.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "mac/language.h"

namespace ink::mac {

// The text of a file that a source includes; empty when it cannot be read.
using ReadSource = std::function<std::optional<std::string>(const std::string &name)>;

// Throws SourceErrors for what is wrong, up to twenty places.
Program assemble(const std::string &name, const std::string &text, const ReadSource &read);

}  // namespace ink::mac
