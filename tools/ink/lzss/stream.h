// How much LZSS data expands to, which no header says.
#pragma once

#include <cstdint>
#include <optional>

#include "files/file.h"

namespace ink::tool {

// In the form of files. Nothing unless the data is whole: every match repeats what has been written, and
// after the end code there are only the zero bits that fill a byte.
std::optional<std::int64_t> lzss_stream_length(std::span<const std::uint8_t> data);

// In the form of memory: all that the data holds.
std::int64_t lzss_memory_length(std::span<const std::uint8_t> data);

// The file form, expanded by the library.
Bytes expand_lzss(std::span<const std::uint8_t> data);

}  // namespace ink::tool
