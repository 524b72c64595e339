// The state of the keys, as the scan codes the game forwards leave it.
#pragma once

#include <array>
#include <cstdint>

namespace ink::keyboard {

// Scan codes of set 1.
enum Scan : std::uint8_t {
    kEsc = 0x01,
    kBackspace = 0x0E,
    kTab = 0x0F,
    kP = 0x19,
    kEnter = 0x1C,
    kCtrl = 0x1D,
    kLeftShift = 0x2A,
    kRightShift = 0x36,
    kAlt = 0x38,
    kSpace = 0x39,
    kF1 = 0x3B,
    kF10 = 0x44,
    kPause = 0x45,
    kHome = 0x47,
    kUp = 0x48,
    kPgUp = 0x49,
    kLeft = 0x4B,
    kRight = 0x4D,
    kEnd = 0x4F,
    kDown = 0x50,
    kPgDn = 0x51,
    kInsert = 0x52,
    kDelete = 0x53,
    kF11 = 0x57,
    kF12 = 0x58
};

inline constexpr std::size_t kKeys = 0x59;

// Per key, how many make codes came since it went down; a byte that wraps.
using KeyTable = std::array<std::uint8_t, kKeys>;

struct KeyState {
    KeyTable normal{}, extended{};
    std::uint8_t prefix = 0;
    bool esc_latch = false;

    void take(std::uint8_t code);
    bool any() const;
    bool either(std::uint8_t scan) const { return normal[scan] != 0 || extended[scan] != 0; }
};

extern KeyState keys;

}  // namespace ink::keyboard
