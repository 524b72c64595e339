// The mouse as its messages tell of it, and the platform's pointer.
#include <array>

#include "core/hooks.h"
#include "host/host.h"
#include "inkstone/host.h"
#include "inkstone/mouse.h"
#include "platform/mouse/pointer_state.h"

namespace {

using ink::host::Pointer;
using ink::mouse::is_cursor;

constexpr std::int32_t kScreenWidth = 640, kScreenHeight = 480;

HWND window = nullptr;
HINSTANCE instance = nullptr;
std::int16_t origin_x = 0, origin_y = 0;
INK_PROCEDURE pump_messages = nullptr;
ink::mouse::Position at;
std::uint8_t visible = 0, key = 0;
bool shift = false, control = false;
std::int32_t current = 0;
HCURSOR current_shape = nullptr;
std::array<HCURSOR, ink::mouse::kCursors> shapes;

Pointer &pointer() {
    return ink::host::machine().pointer;
}

void pump() {
    if (pump_messages != nullptr) pump_messages();
}

std::uint8_t key_of_move(std::uint32_t held) {
    if ((held & MK_LBUTTON) != 0) return MOUSE_LEFT_DRAG;
    return (held & MK_RBUTTON) != 0 ? MOUSE_RIGHT_DRAG : MOUSE_MOVE;
}

// The codes of the buttons' events stand in the order of their messages.
std::uint8_t key_of_button(std::uint32_t message) {
    return static_cast<std::uint8_t>(MOUSE_LEFT_DOWN + (message - WM_LBUTTONDOWN));
}

}  // namespace

ink::mouse::Position ink::mouse::position() {
    return at;
}
std::int32_t ink::mouse::current_cursor() {
    return current;
}

void fnMouseInit(HWND game_window, HINSTANCE game, int16_t x, int16_t y, INK_PROCEDURE game_pump) {
    window = game_window;
    instance = game;
    origin_x = x;
    origin_y = y;
    pump_messages = game_pump;
    at = {};
    visible = 1;
    key = 0;
    shift = control = false;
    current = 0;
    current_shape = pointer().load_arrow();
    shapes.fill(current_shape);
    ink::mouse::reset_image_cursors();
}

void fnMouseInterrupt(uint32_t message, uint32_t wparam, int32_t lparam) {
    if (message >= WM_MOUSEMOVE && message <= WM_MBUTTONDBLCLK) {
        at = {(lparam & 0xFFFF) - origin_x, (lparam >> 16 & 0xFFFF) - origin_y};
        shift = (wparam & MK_SHIFT) != 0;
        control = (wparam & MK_CONTROL) != 0;
        key = message == WM_MOUSEMOVE ? key_of_move(wparam) : key_of_button(message);
    }
    pointer().set_cursor(current_shape);
}

void fnMouseInitCursor(int32_t index, HICON cursor) {
    MOUSE_load_cursor(index, cursor);
}

int32_t MOUSE_load_cursor(int32_t index, HICON cursor) {
    if (!is_cursor(index)) return -2;
    shapes[static_cast<std::size_t>(index)] = cursor;
    return 0;
}

void MOUSE_set_cursor(int32_t index) {
    if (!is_cursor(index) || index == current) return;
    current_shape = shapes[static_cast<std::size_t>(index)];
    pointer().set_cursor(current_shape);
    current = index;
}

void MOUSE_show(int32_t show) {
    const auto wanted = static_cast<std::uint8_t>(show);
    if (wanted == visible) return;
    pointer().show_cursor(show != 0);
    visible = wanted;
}

void MOUSE_set_position(int32_t x, int32_t y) {
    const auto from = [](std::int32_t position, std::int16_t origin) {
        return static_cast<std::int32_t>(std::int64_t{position} + origin);
    };
    pointer().set_cursor_position(pointer().client_to_screen(window, {from(x, origin_x), from(y, origin_y)}));
    at = {static_cast<std::int16_t>(x), static_cast<std::int16_t>(y)};
}

void MOUSE_get_position(int32_t *x, int32_t *y) {
    if (x != nullptr) *x = at.x;
    if (y != nullptr) *y = at.y;
}

uint8_t MOUSE_get_key(void) {
    pump();
    return key;
}

void MOUSE_wait_any_key(void) {
    ink::Wait wait;
    do {
        wait.rest(pump_messages);
        pump();
    } while ((key & 0x80) == 0);
}

void MOUSE_wait_key(uint8_t wanted) {
    ink::Wait wait;
    do {
        wait.rest(pump_messages);
        pump();
    } while (key != wanted);
}

int32_t MOUSE_check_shift(void) {
    return shift ? 1 : 0;
}
int32_t MOUSE_check_control(void) {
    return control ? 1 : 0;
}

void MOUSE_reset(void) {
    key = 0;
}

int32_t MOUSE_get_mask_key(const uint8_t *mask) {
    if (at.x < 0 || at.x >= kScreenWidth || at.y < 0 || at.y >= kScreenHeight) return 0;
    return mask[at.y * kScreenWidth + at.x];
}
