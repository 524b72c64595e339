// From SDL's key positions, which are those of USB keyboards, to the scan codes of set 1.
#pragma once

#include <SDL_scancode.h>

#include <cstdint>

namespace ink::host {

// The set-1 scan code, with kExtendedKey for extended keys; 0 for a key that set 1 does not have.
std::int32_t set1_scan_code(SDL_Scancode code);

}  // namespace ink::host
