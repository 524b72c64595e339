// The painted content of the game, as the files that it is bound of.
#pragma once

#include <filesystem>

namespace paint {

// Writes all palettes, pictures and animations into a directory. Throws FileError.
void write_palettes(const std::filesystem::path &directory);
void write_people(const std::filesystem::path &directory);

}  // namespace paint
