// From script file back to a source that makes the same bytes.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "mac/language.h"

namespace ink::mac {

// Names come from declarations (of commands, variables and constants), which the source includes under the
// name include unless that is empty. Whatever is no plain instruction of the language is given as bytes.
std::string disassemble(std::span<const std::uint8_t> file, const Program &declarations,
                        const std::string &include);

}  // namespace ink::mac
