// A name typed on the keyboard.
#pragma once

#include <string>

namespace moon {

// Lets the player type a name, over what behind draws. Empty when none was typed.
std::string enter_name(void (*behind)());

}  // namespace moon
