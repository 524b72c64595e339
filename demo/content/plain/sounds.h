// The sounds of the game, as wave files.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "picture/picture.h"

namespace plain {

std::vector<std::pair<std::string, ink::tool::Bytes>> sounds();

}  // namespace plain
