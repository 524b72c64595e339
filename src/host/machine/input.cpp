#include "host/machine/input.h"

namespace ink::host {
namespace {

// Windows' virtual-key codes of the set-1 scan codes 0x00 to 0x58, as on a US keyboard.
constexpr std::uint8_t kVirtualKeys[0x59] = {
    0x00, 0x1B, 0x31, 0x32, 0x33, 0x34, 0x35, 0x36, 0x37, 0x38, 0x39, 0x30, 0xBD, 0xBB, 0x08,
    0x09, 0x51, 0x57, 0x45, 0x52, 0x54, 0x59, 0x55, 0x49, 0x4F, 0x50, 0xDB, 0xDD, 0x0D, 0x11,
    0x41, 0x53, 0x44, 0x46, 0x47, 0x48, 0x4A, 0x4B, 0x4C, 0xBA, 0xDE, 0xC0, 0x10, 0xDC, 0x5A,
    0x58, 0x43, 0x56, 0x42, 0x4E, 0x4D, 0xBC, 0xBE, 0xBF, 0x10, 0x6A, 0x12, 0x20, 0x14, 0x70,
    0x71, 0x72, 0x73, 0x74, 0x75, 0x76, 0x77, 0x78, 0x79, 0x90, 0x91, 0x24, 0x26, 0x21, 0x6D,
    0x25, 0x0C, 0x27, 0x6B, 0x23, 0x28, 0x22, 0x2D, 0x2E, 0x00, 0x00, 0xE2, 0x7A, 0x7B};

constexpr std::int32_t kLeftShift = 0x2A, kRightShift = 0x36, kCtrl = 0x1D, kKeypadSlash = 0x135;

LPARAM client_lparam(Point client) {
    return static_cast<LPARAM>((client.x & 0xFFFF) | (static_cast<std::int64_t>(client.y & 0xFFFF) << 16));
}

}  // namespace

Message Input::key(HWND window, std::int32_t scan_code, bool down) {
    const auto code = static_cast<std::uint32_t>(scan_code) & 0xFF;
    const bool extended = (scan_code & kExtendedKey) != 0;
    bool &held = held_[code | (extended ? 0x100U : 0U)];
    WPARAM virtual_key = code < sizeof kVirtualKeys ? kVirtualKeys[code] : 0;
    if (scan_code == kKeypadSlash) virtual_key = 0x6F;
    // Repeat count 1, the scan code, the extended flag, the state before, and whether this is a release.
    std::uint32_t lparam = 1 | code << 16 | (extended ? 1U << 24 : 0);
    if (held || !down) lparam |= 1U << 30;
    if (!down) lparam |= 1U << 31;
    held = down;
    return {window, static_cast<UINT>(down ? WM_KEYDOWN : WM_KEYUP), virtual_key,
            static_cast<LPARAM>(static_cast<std::int32_t>(lparam))};
}

Message Input::move(HWND window, Point client) const {
    return {window, WM_MOUSEMOVE, mouse_flags(), client_lparam(client)};
}

Message Input::button(HWND window, Point client, std::int32_t button, std::int32_t down) {
    buttons_[static_cast<std::size_t>(button)] = down != 0;
    // Each button's messages follow each other: down, up, double click.
    const auto first = static_cast<UINT>(WM_LBUTTONDOWN + 3 * button);
    const UINT id = down == 2 ? first + 2 : down == 0 ? first + 1 : first;
    return {window, id, mouse_flags(), client_lparam(client)};
}

WPARAM Input::mouse_flags() const {
    WPARAM flags = 0;
    if (buttons_[0]) flags |= MK_LBUTTON;
    if (buttons_[1]) flags |= MK_RBUTTON;
    if (buttons_[2]) flags |= MK_MBUTTON;
    if (held(kLeftShift) || held(kRightShift)) flags |= MK_SHIFT;
    if (held(kCtrl) || held(kCtrl | kExtendedKey)) flags |= MK_CONTROL;
    return flags;
}

}  // namespace ink::host
