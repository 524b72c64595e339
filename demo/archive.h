// The archive GAME.BND, in which all content of the game comes.
#pragma once

#include <string>

namespace moon {

// Takes the archive apart into the current directory when that was not done yet, or with another one. False
// when there is no archive.
bool unpack(const std::string &archive);

}  // namespace moon
