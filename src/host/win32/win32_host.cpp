// Windows itself: the library's calls are the system's, handles and all, and the window, its queue and its
// loop are the game's own.
#include <windows.h>

#include <mmsystem.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <new>
#include <string>
#include <vector>

#include "host/host.h"
#include "host/machine/clock.h"
#include "host/machine/input.h"
#include "host/machine/window_timers.h"
#include "host/sound/loudspeaker.h"
#include "host/win32/win32_disc.h"
#include "host/win32/win32_display.h"
#include "host/win32/win32_sound.h"
#include "host/win32/win32_speaker.h"

namespace ink::host {
namespace {

MSG system_message(const Message &message) {
    MSG made{};
    made.hwnd = message.window;
    made.message = message.id;
    made.wParam = message.wparam;
    made.lParam = message.lparam;
    return made;
}

Message library_message(const MSG &message) {
    return {message.hwnd, message.message, message.wParam, message.lParam};
}

// The same procedure: the system's name for a 32-bit number is another type.
TIMERPROC system_procedure(TimerProcedure procedure) {
    return reinterpret_cast<TIMERPROC>(procedure);
}

class Win32Messages final : public Messages {
  public:
    bool peek(Message &message) override {
        MSG taken;
        if (PeekMessageA(&taken, nullptr, 0, 0, PM_REMOVE) == FALSE) return false;
        message = library_message(taken);
        return true;
    }
    bool get(Message &message) override {
        MSG taken{};
        const BOOL more = GetMessageA(&taken, nullptr, 0, 0);
        message = library_message(taken);
        return more > 0;
    }
    void translate(const Message &message) override {
        const MSG given = system_message(message);
        TranslateMessage(&given);
    }
    void dispatch(const Message &message) override {
        const MSG given = system_message(message);
        DispatchMessageA(&given);
    }
    void post(const Message &message) override {
        PostMessageA(message.window, message.id, message.wparam, message.lparam);
    }
    void post_quit(std::int32_t exit_code) override { PostQuitMessage(exit_code); }
    void rest(std::uint32_t milliseconds) override {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds, QS_ALLINPUT);
    }
    void message_box(HWND owner, const char *text, const char *caption, std::uint32_t style) override {
        MessageBoxA(owner, text, caption, style);
    }
};

class Win32Timers final : public Timers {
  public:
    bool set_timer(HWND window, std::uint32_t id, std::uint32_t interval_ms,
                   TimerProcedure procedure) override {
        const UINT interval = std::max(interval_ms, resolution_);
        if (window != nullptr) return SetTimer(window, id, interval, system_procedure(procedure)) != 0;
        return set_thread_timer(id, interval, procedure);
    }
    bool kill_timer(HWND window, std::uint32_t id) override {
        if (window != nullptr) return KillTimer(window, id) != FALSE;
        const auto found = thread_timers_.find(id);
        if (found == thread_timers_.end()) return false;
        const UINT_PTR timer = found->second;
        thread_timers_.erase(found);
        return KillTimer(nullptr, timer) != FALSE;
    }
    std::uint32_t milliseconds() override { return timeGetTime(); }

    void set_resolution(std::uint32_t milliseconds) { resolution_ = std::clamp(milliseconds, 1U, 1000U); }

  private:
    // The system numbers timers without a window itself.
    bool set_thread_timer(std::uint32_t id, UINT interval, TimerProcedure procedure) try {
        UINT_PTR &timer = thread_timers_[id];
        timer = SetTimer(nullptr, timer, interval, system_procedure(procedure));
        return timer != 0;
    } catch (const std::bad_alloc &) {
        return false;
    }

    std::uint32_t resolution_ = usual_timer_resolution();
    std::map<std::uint32_t, UINT_PTR> thread_timers_;
};

class Win32Pointer final : public Pointer {
  public:
    HCURSOR load_arrow() override { return LoadCursorA(nullptr, IDC_ARROW); }
    HCURSOR load_cursor(std::int32_t shape) override {
        const HCURSOR cursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(shape & 0xFFFF));
        return cursor != nullptr ? cursor : load_arrow();
    }
    void set_cursor(HCURSOR cursor) override { SetCursor(cursor); }
    void show_cursor(bool show) override { ShowCursor(show); }
    Point client_to_screen(HWND window, Point point) override {
        POINT converted{point.x, point.y};
        ClientToScreen(window, &converted);
        return {converted.x, converted.y};
    }
    void set_cursor_position(Point screen) override { SetCursorPos(screen.x, screen.y); }
};

class Win32System final : public System {
  public:
    // Out of the key in which Windows keeps the character sets that go with its fonts.
    std::optional<std::string> setting(const char *name) override {
        const auto set = settings_.find(name);
        if (set != settings_.end()) return set->second;
        HKEY key = nullptr;
        if (RegOpenKeyExA(HKEY_LOCAL_MACHINE,
                          "System\\CurrentControlSet\\control\\fontassoc\\Associated CharSet", 0, KEY_READ,
                          &key) != ERROR_SUCCESS)
            return std::nullopt;
        char value[100] = {};
        DWORD bytes = sizeof value - 1;
        const LONG result =
            RegQueryValueExA(key, name, nullptr, nullptr, reinterpret_cast<BYTE *>(value), &bytes);
        RegCloseKey(key);
        return result == ERROR_SUCCESS ? std::optional<std::string>(value) : std::nullopt;
    }
    bool is_cdrom(std::int32_t drive) override {
        const char root[] = {static_cast<char>('A' + drive), ':', '\\', '\0'};
        return GetDriveTypeA(root) == DRIVE_CDROM;
    }
    // Stands before the registry, which belongs to the whole system.
    void set(const char *name, const char *value) try {
        settings_[name] = value != nullptr ? std::optional<std::string>(value) : std::nullopt;
    } catch (const std::bad_alloc &) {
    }

  private:
    std::map<std::string, std::optional<std::string>, std::less<>> settings_;
};

// Windows for games that leave theirs to the library.
class Win32Windows final : public Windows {
  public:
    HWND open_window(const char *title, std::int32_t width, std::int32_t height,
                     HOST_WINDOW_PROCEDURE procedure) override {
        constexpr std::int32_t kLargest = 4096;
        constexpr DWORD kStyle = WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;
        if (width < 1 || height < 1 || width > kLargest || height > kLargest || !has_class()) return nullptr;
        RECT frame{0, 0, width, height};
        AdjustWindowRect(&frame, kStyle, FALSE);
        wchar_t wide_title[256] = L"";
        if (title != nullptr) MultiByteToWideChar(CP_UTF8, 0, title, -1, wide_title, 255);
        const HWND window = CreateWindowExW(0, kClass, wide_title, kStyle, CW_USEDEFAULT, CW_USEDEFAULT,
                                            frame.right - frame.left, frame.bottom - frame.top, nullptr,
                                            nullptr, GetModuleHandleW(nullptr), nullptr);
        if (window == nullptr) return nullptr;
        // The game hears of its window from here on.
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(procedure));
        ShowWindow(window, SW_SHOW);
        return window;
    }
    void close_window(HWND window) override { DestroyWindow(window); }
    LRESULT default_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) override {
        return DefWindowProcW(window, message, wparam, lparam);
    }

  private:
    static constexpr const wchar_t *kClass = L"InkstoneWindow";

    static LRESULT CALLBACK receive(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
        const auto procedure =
            reinterpret_cast<HOST_WINDOW_PROCEDURE>(GetWindowLongPtrW(window, GWLP_USERDATA));
        return procedure != nullptr ? procedure(window, message, wparam, lparam)
                                    : DefWindowProcW(window, message, wparam, lparam);
    }
    static bool has_class() {
        static const bool registered = [] {
            WNDCLASSW made{};
            made.style = CS_DBLCLKS;
            made.lpfnWndProc = receive;
            made.hInstance = GetModuleHandleW(nullptr);
            made.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
            made.lpszClassName = kClass;
            return RegisterClassW(&made) != 0;
        }();
        return registered;
    }
};

std::uint64_t microseconds() {
    static const auto read = [] {
        LARGE_INTEGER now;
        QueryPerformanceCounter(&now);
        return static_cast<std::uint64_t>(now.QuadPart);
    };
    static const std::uint64_t start = read();
    static const std::uint64_t frequency = [] {
        LARGE_INTEGER per_second;
        QueryPerformanceFrequency(&per_second);
        return static_cast<std::uint64_t>(per_second.QuadPart);
    }();
    const std::uint64_t passed = read() - start;
    return passed / frequency * 1000000 + passed % frequency * 1000000 / frequency;
}

class Win32Machine final : public Bench {
  public:
    Win32Machine() {
        // The system's clock and its timers otherwise move in steps of some 15 milliseconds.
        timeBeginPeriod(1);
        const char *disc = std::getenv("INKSTONE_DISC");
        if (disc != nullptr && *disc != '\0' && !disc_.insert(disc))
            std::fprintf(stderr, "INKSTONE_DISC: there is no disc %s\n", disc);
    }

    Machine &machine() { return machine_; }

    std::uint64_t clock() override { return clock_.tick(); }
    void advance_clock(std::uint64_t microseconds) override {
        Sleep(static_cast<DWORD>(microseconds / 1000));
    }
    void set_timer_resolution(std::uint32_t milliseconds) override { timers_.set_resolution(milliseconds); }
    void set_setting(const char *name, const char *value) override { system_.set(name, value); }

    // Messages as the keyboard and the mouse send them, for the window of this program that has the focus.
    void key(std::int32_t scan_code, bool down) override {
        if (scan_code < 1 || scan_code >= Input::kCodes) return;
        messages_.post(input_.key(GetActiveWindow(), scan_code, down));
    }
    void pointer_move(std::int32_t x, std::int32_t y) override {
        const HWND window = GetActiveWindow();
        pointed_at_ = {x, y};
        messages_.post(
            {window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)});
        messages_.post(input_.move(window, pointed_at_));
    }
    void pointer_button(std::int32_t button, std::int32_t down) override {
        if (button < 0 || button > 2) return;
        messages_.post(input_.button(GetActiveWindow(), pointed_at_, button, down));
    }

    bool window_size(HWND window, std::int32_t &width, std::int32_t &height) override {
        RECT client;
        if (window == nullptr || GetClientRect(window, &client) == FALSE) return false;
        width = client.right;
        height = client.bottom;
        return true;
    }
    bool read_indices(HWND window, std::uint8_t *indices) override {
        std::int32_t width = 0, height = 0;
        if (!window_size(window, width, height)) return false;
        display_.read_indices(window, width, height, indices);
        return true;
    }
    // The indices are read into the last third of the picture, out of which the colours then grow from the
    // front.
    bool read_picture(HWND window, std::uint8_t *rgb) override {
        std::int32_t width = 0, height = 0;
        if (!window_size(window, width, height)) return false;
        const std::size_t pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
        const std::uint8_t *index = rgb + 2 * pixels;
        display_.read_indices(window, width, height, rgb + 2 * pixels);
        for (std::size_t i = 0; i < pixels; ++i, rgb += 3) store(display_.colors()[index[i]], rgb);
        return true;
    }
    void read_palette(std::uint8_t *palette) override {
        for (const Color color : display_.colors()) {
            store(color, palette);
            palette += 3;
        }
    }

    // Of the sound only that of disc images passes through here.
    void capture_sound(bool on) override { loudspeaker_.capture(on); }
    std::size_t read_sound(std::int16_t *stereo, std::size_t frames) override {
        return loudspeaker_.read(stereo, frames);
    }
    bool insert_disc(const char *name) override { return disc_.insert(name); }
    void eject_disc() override { disc_.eject(); }

  private:
    static void store(Color color, std::uint8_t *rgb) {
        rgb[0] = color.red;
        rgb[1] = color.green;
        rgb[2] = color.blue;
    }

    Clock clock_{microseconds};
    Loudspeaker loudspeaker_{clock_, [this] { return open_speaker(loudspeaker_); }};
    Input input_;
    Point pointed_at_;
    Win32Windows windows_;
    Win32Messages messages_;
    Win32Timers timers_;
    Win32Display display_;
    Win32Pointer pointer_;
    Win32Sound sound_;
    Win32Disc disc_{loudspeaker_.drive()};
    Win32System system_;
    Machine machine_{"win32",  windows_, *this,  messages_, timers_,
                     display_, pointer_, sound_, disc_,     system_};
};

}  // namespace

extern const Host win32_host;
const Host win32_host{"win32", "Windows itself: the game's own window, its queue and its sound", [] {
                          static auto &machine = *new Win32Machine;
                          return &machine.machine();
                      }};

}  // namespace ink::host
