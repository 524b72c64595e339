#include "window.h"

#include <inkstone/inkstone.h>

#include "frame.h"

namespace moon {
namespace {

HWND handle = nullptr;
bool closed = false;

// Forwards what the window is told to the families, which know nothing of windows.
LRESULT procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_KEYDOWN:
        case WM_KEYUP:
        case WM_SYSKEYDOWN:
        case WM_SYSKEYUP: {
            const bool up = message == WM_KEYUP || message == WM_SYSKEYUP;
            if ((lparam >> 24 & 1) != 0) fnKeyBoardInterrupt(0xE0);
            fnKeyBoardInterrupt(static_cast<std::uint8_t>((lparam >> 16 & 0x7F) | (up ? 0x80 : 0)));
            // With Alt they may be the system's, as the one that closes the window is.
            const bool alt = message == WM_SYSKEYDOWN || message == WM_SYSKEYUP;
            return alt ? HOST_default_procedure(window, message, wparam, lparam) : 0;
        }
        case WM_SETCURSOR:
        case WM_MOUSEMOVE:
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDOWN:
        case WM_RBUTTONUP:
        case WM_RBUTTONDBLCLK:
            note_button(message);
            fnMouseInterrupt(message, static_cast<std::uint32_t>(wparam), static_cast<std::int32_t>(lparam));
            return 0;
        // A quit request would be lost in the waits of the library, so the end is noted here.
        case WM_CLOSE:
        case WM_DESTROY: closed = true; return 0;
        default: return HOST_default_procedure(window, message, wparam, lparam);
    }
}

}  // namespace

bool open_window() {
    handle = HOST_open_window("The Moon in the Ink", INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, procedure);
    if (handle == nullptr) return false;
    WViewInit(handle, 0, 0, INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, screen());
    WViewEnable();
    SetupTimerProc(handle);
    fnMouseInit(handle, nullptr, 0, 0, fnCheckMessage);
    DS_init(handle);
    if (CDROM_open() == 0) CDROM_total();
    return true;
}

void close_window() {
    ExecQuitProc();
    HOST_close_window(handle);
}

HWND window() {
    return handle;
}

bool window_closed() {
    return closed;
}

void end_game() {
    closed = true;
}

}  // namespace moon
