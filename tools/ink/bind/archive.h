// BIND archives as the tool reads them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "files/file.h"

namespace ink::tool {

struct BindEntry {
    std::string name;  // as it stands there
    std::uint32_t offset, size;
};

// Whether the file begins as an archive does.
bool is_bind(const Bytes &file);

// The directory, as far as the file has it.
std::vector<BindEntry> bind_entries(const Bytes &file);

// The longest name an archive holds.
inline constexpr std::size_t kLongestBindName = 15;

}  // namespace ink::tool
