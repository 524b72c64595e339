// The files of a new game.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "files/file.h"

namespace ink::tool {

// The texts, by their names below the game's directory. game is its name.
std::vector<std::pair<std::string, std::string>> texts_of_game(const std::string &game);

// The pictures, as PNG files: a lake under the moon, a lantern, and somebody walking with one.
std::vector<std::pair<std::string, Bytes>> art_of_game();

}  // namespace ink::tool
