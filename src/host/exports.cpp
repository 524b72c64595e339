// The machine as games, tools and tests see it: the exported functions of host.h but the choice of the
// machine.
#include "host/host.h"

namespace host = ink::host;

namespace {

std::int32_t last_exit_code = 0;

// 0 when the quit request was taken.
std::int32_t dispatch(const host::Message &message) {
    if (message.id == WM_QUIT) {
        last_exit_code = static_cast<std::int32_t>(message.wparam);
        return 0;
    }
    host::Messages &messages = host::machine().messages;
    messages.translate(message);
    messages.dispatch(message);
    return 1;
}

}  // namespace

HWND HOST_open_window(const char *title, int32_t width, int32_t height, HOST_WINDOW_PROCEDURE procedure) {
    return host::machine().windows.open_window(title, width, height, procedure);
}

void HOST_close_window(HWND window) {
    host::machine().windows.close_window(window);
}

LRESULT HOST_default_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_CLOSE: HOST_close_window(window); return 0;
        case WM_DESTROY: HOST_post_quit(0); return 0;
        default: return host::machine().windows.default_procedure(window, message, wparam, lparam);
    }
}

void HOST_post_message(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    host::machine().messages.post({window, message, wparam, lparam});
}

int32_t HOST_set_timer(HWND window, uint32_t id, uint32_t milliseconds) {
    return host::machine().timers.set_timer(window, id, milliseconds, nullptr) ? 0 : -2;
}

void HOST_kill_timer(HWND window, uint32_t id) {
    host::machine().timers.kill_timer(window, id);
}

void HOST_post_quit(int32_t exit_code) {
    host::machine().messages.post_quit(exit_code);
}

int32_t HOST_run_messages(void) {
    host::Message message;
    while (host::machine().messages.peek(message))
        if (dispatch(message) == 0) return 0;
    return 1;
}

int32_t HOST_wait_messages(void) {
    host::Message message;
    if (!host::machine().messages.get(message)) return dispatch({nullptr, WM_QUIT, message.wparam, 0});
    return dispatch(message) != 0 ? HOST_run_messages() : 0;
}

int32_t HOST_exit_code(void) {
    return last_exit_code;
}

HICON HOST_load_cursor(int32_t shape) {
    return host::machine().pointer.load_cursor(shape);
}

uint64_t HOST_clock(void) {
    return host::machine().bench.clock();
}
void HOST_advance_clock(uint64_t microseconds) {
    host::machine().bench.advance_clock(microseconds);
}

void HOST_set_timer_resolution(uint32_t milliseconds) {
    host::machine().bench.set_timer_resolution(milliseconds);
}

void HOST_set_local_time(int32_t year, int32_t month, int32_t day, int32_t hour, int32_t minute,
                         int32_t second) {
    host::machine().bench.set_local_time({year, month, day, hour, minute, second});
}

void HOST_set_setting(const char *name, const char *value) {
    if (name != nullptr) host::machine().bench.set_setting(name, value);
}

void HOST_key(int32_t scan_code, int32_t down) {
    host::machine().bench.key(scan_code, down != 0);
}
void HOST_pointer_move(int32_t x, int32_t y) {
    host::machine().bench.pointer_move(x, y);
}
void HOST_pointer_button(int32_t button, int32_t down) {
    host::machine().bench.pointer_button(button, down);
}

int32_t HOST_window_size(HWND window, int32_t *width, int32_t *height) {
    std::int32_t columns = 0, rows = 0;
    if (!host::machine().bench.window_size(window, columns, rows)) return -2;
    if (width != nullptr) *width = columns;
    if (height != nullptr) *height = rows;
    return 0;
}
int32_t HOST_read_indices(HWND window, uint8_t *indices) {
    return indices != nullptr && host::machine().bench.read_indices(window, indices) ? 0 : -2;
}
int32_t HOST_read_picture(HWND window, uint8_t *rgb) {
    return rgb != nullptr && host::machine().bench.read_picture(window, rgb) ? 0 : -2;
}
void HOST_read_palette(uint8_t *palette) {
    if (palette != nullptr) host::machine().bench.read_palette(palette);
}

void HOST_capture_sound(int32_t on) {
    host::machine().bench.capture_sound(on != 0);
}
int32_t HOST_read_sound(int16_t *stereo, int32_t frames) {
    if (frames <= 0 || stereo == nullptr) return 0;
    return static_cast<std::int32_t>(
        host::machine().bench.read_sound(stereo, static_cast<std::size_t>(frames)));
}

int32_t HOST_insert_disc(const char *name) {
    return host::machine().bench.insert_disc(name) ? 0 : -2;
}
void HOST_eject_disc(void) {
    host::machine().bench.eject_disc();
}
