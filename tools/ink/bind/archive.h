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

// Gives an entry of an archive's directory another name, of at most that length.
void name_bind_entry(Bytes &file, std::size_t index, const std::string &name);

// What a system may call a file of that name: in UTF-8 with slashes, and a byte that is no Big5 as %XX.
std::string file_name_of_entry(const std::string &name);

}  // namespace ink::tool
