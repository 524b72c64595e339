// Keyboard and mouse of a machine made in software: turns keys, movements and clicks into the messages a
// window gets.
#pragma once

#include <array>
#include <cstdint>

#include "host/host.h"

namespace ink::host {

// The flag of an extended key (the cursor block, right Ctrl and Alt, keypad Enter) beside a set-1 scan code.
inline constexpr std::int32_t kExtendedKey = 0x100;

class Input {
  public:
    // The message of a key's press or release: WM_KEYDOWN or WM_KEYUP with the virtual-key code in wParam.
    Message key(HWND window, std::int32_t scan_code, bool down);
    // The message of a movement to the client position.
    Message move(HWND window, Point client) const;
    // The message of a button at the client position: 0 left, 1 right, 2 middle; down 1, up 0, double
    // click 2.
    Message button(HWND window, Point client, std::int32_t button, std::int32_t down);
    // Whether a key is held: its scan code, with kExtendedKey where it has it.
    static constexpr std::int32_t kCodes = 0x200;
    bool held(std::int32_t code) const { return held_[static_cast<std::size_t>(code) % kCodes]; }

  private:
    WPARAM mouse_flags() const;

    std::array<bool, kCodes> held_{};
    std::array<bool, 3> buttons_{};
};

}  // namespace ink::host
