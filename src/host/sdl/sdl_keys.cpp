#include "host/sdl/sdl_keys.h"

#include "host/machine/input.h"

namespace ink::host {
namespace {

constexpr std::int32_t E = kExtendedKey;

// Indexed by USB usage number 0x04 (A) to 0x64 (the key left of Z on European keyboards).
constexpr std::int32_t kPositions[] = {
    0x1E,     0x30,     0x2E,     0x20,     0x12,     0x21,     0x22, 0x23, 0x17, 0x24,
    0x25,     0x26,     0x32,  // A to M
    0x31,     0x18,     0x19,     0x10,     0x13,     0x1F,     0x14, 0x16, 0x2F, 0x11,
    0x2D,     0x15,     0x2C,                                                            // N to Z
    0x02,     0x03,     0x04,     0x05,     0x06,     0x07,     0x08, 0x09, 0x0A, 0x0B,  // 1 to 9, 0
    0x1C,     0x01,     0x0E,     0x0F,     0x39,            // Enter, Esc, Backspace, Tab, Space
    0x0C,     0x0D,     0x1A,     0x1B,     0x2B,     0x2B,  // - = [ ] backslash, and its European twin
    0x27,     0x28,     0x29,     0x33,     0x34,     0x35,     0x3A,  // ; ' ` , . / Caps Lock
    0x3B,     0x3C,     0x3D,     0x3E,     0x3F,     0x40,     0x41, 0x42, 0x43, 0x44,
    0x57,     0x58,                                              // F1 to F12
    E | 0x37, 0x46,     0x45,                                    // Print, Scroll Lock, Pause
    E | 0x52, E | 0x47, E | 0x49, E | 0x53, E | 0x4F, E | 0x51,  // Insert, Home, PgUp, Delete, End, PgDn
    E | 0x4D, E | 0x4B, E | 0x50, E | 0x48,                      // Right, Left, Down, Up
    E | 0x45, E | 0x35, 0x37,     0x4A,     0x4E,     E | 0x1C,  // Num Lock, keypad / * - + Enter
    0x4F,     0x50,     0x51,     0x4B,     0x4C,     0x4D,     0x47, 0x48, 0x49, 0x52,
    0x53,  // keypad 1 to 9, 0, point
    0x56,  // the key left of Z
};
constexpr int kFirstPosition = SDL_SCANCODE_A;
static_assert(SDL_SCANCODE_NONUSBACKSLASH == kFirstPosition + static_cast<int>(std::size(kPositions)) - 1);

}  // namespace

std::int32_t set1_scan_code(SDL_Scancode code) {
    switch (code) {
        case SDL_SCANCODE_LCTRL: return 0x1D;
        case SDL_SCANCODE_RCTRL: return E | 0x1D;
        case SDL_SCANCODE_LSHIFT: return 0x2A;
        case SDL_SCANCODE_RSHIFT: return 0x36;
        case SDL_SCANCODE_LALT: return 0x38;
        case SDL_SCANCODE_RALT: return E | 0x38;
        default: break;
    }
    if (code < kFirstPosition || code > SDL_SCANCODE_NONUSBACKSLASH) return 0;
    return kPositions[code - kFirstPosition];
}

}  // namespace ink::host
