// The desktop machine: a window, keys, a pointer and sound through SDL2.
#include <SDL.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <limits>
#include <map>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include "host/machine/virtual_machine.h"
#include "host/sdl/sdl_audio.h"
#include "host/sdl/sdl_keys.h"
#include "host/sdl/sdl_window.h"

namespace ink::host {
namespace {

// Events are collected at most once a millisecond, so that a pump costs little more than reading the clock.
constexpr std::uint64_t kEventInterval = 1000;

std::uint64_t microseconds_since_start() {
    using std::chrono::steady_clock;
    static const steady_clock::time_point start = steady_clock::now();
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::microseconds>(steady_clock::now() - start).count());
}

struct FreeCursor {
    void operator()(SDL_Cursor *cursor) const { SDL_FreeCursor(cursor); }
};

class SdlEnds : public Ends {
  public:
    bool window_opened(Window &window, const char *title) override {
        auto made = SdlWindow::open(window, title);
        if (made == nullptr) return false;
        frame_time_ = made->frame_time();
        windows_.push_back(std::move(made));
        return true;
    }
    void window_closing(HWND window) override {
        std::erase_if(windows_, [window](const auto &made) { return made->handle() == window; });
    }

    std::uint64_t service(VirtualMachine &machine, std::uint64_t now) override {
        SDL_Event event;
        while (SDL_PollEvent(&event) != 0) take(machine, event);
        scan_out(machine, now);
        return now + kEventInterval;
    }

    void screen_changed(VirtualMachine &machine) override { scan_out(machine, microseconds_since_start()); }

    bool rest(VirtualMachine &machine, std::uint64_t until) override {
        const std::uint64_t now = microseconds_since_start();
        const std::uint64_t end =
            picture_waits(machine)
                ? std::min(until, static_cast<std::uint64_t>(std::max(next_frame_, std::int64_t{0})))
                : until;
        if (end < now + kEventInterval) {
            // Nobody collects events so soon, and SDL does not wait for less than a millisecond.
            if (end > now) std::this_thread::sleep_for(std::chrono::microseconds(end - now));
            return true;
        }
        constexpr std::uint64_t kLongest = 1000000;
        SDL_WaitEventTimeout(nullptr, static_cast<int>(std::min(end - now, kLongest) / kEventInterval));
        service(machine, microseconds_since_start());
        return true;
    }

    bool sound_wanted(Loudspeaker &loudspeaker) override { return open_audio(loudspeaker); }

    void message_box(HWND owner, const char *text, const char *caption) override {
        SdlWindow *made = find(owner);
        SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_ERROR, caption, text,
                                 made != nullptr ? made->window() : nullptr);
    }

    void pointer_changed(VirtualMachine &machine) override {
        const auto shape =
            static_cast<std::int32_t>(reinterpret_cast<std::uintptr_t>(machine.pointer().cursor()));
        SDL_ShowCursor(machine.pointer().shown() && shape != 0 ? SDL_ENABLE : SDL_DISABLE);
        if (shape != 0) SDL_SetCursor(system_cursor(shape));
    }

    void pointer_warped(VirtualMachine &machine) override {
        const Window *focus = machine.screen().focus();
        SdlWindow *made = focus != nullptr ? find(focus->handle) : nullptr;
        if (made == nullptr) return;
        const Point position = made->from_client(machine.pointer().position());
        SDL_WarpMouseInWindow(made->window(), position.x, position.y);
    }

  private:
    // Shows what has changed, once in a frame's time. Frames without a change are saved up, some of them: what
    // opens a view and shows its first palette and picture before a long load all shows, though nobody pumps.
    void scan_out(VirtualMachine &machine, std::uint64_t now) {
        constexpr std::int64_t kSaved = 8;
        const auto present = static_cast<std::int64_t>(now);
        if (present < next_frame_) return;
        bool shown = false;
        for (const auto &made : windows_) {
            Window *window = machine.screen().find(made->handle());
            if (window == nullptr || !std::exchange(window->changed, false)) continue;
            made->scan_out(*window, machine.screen().hardware_palette());
            shown = true;
        }
        if (shown) next_frame_ = std::max(next_frame_ + frame_time_, present - kSaved * frame_time_);
    }
    static bool picture_waits(VirtualMachine &machine) {
        const auto &windows = machine.screen().windows();
        return std::any_of(windows.begin(), windows.end(),
                           [](const auto &window) { return window->changed; });
    }

    SdlWindow *find(HWND handle) {
        for (const auto &made : windows_)
            if (made->handle() == handle) return made.get();
        return nullptr;
    }
    SdlWindow *find(std::uint32_t id) {
        for (const auto &made : windows_)
            if (made->id() == id) return made.get();
        return nullptr;
    }

    void take(VirtualMachine &machine, const SDL_Event &event) {
        switch (event.type) {
            case SDL_QUIT:
                for (const auto &made : windows_) machine.post({made->handle(), WM_CLOSE, 0, 0});
                break;
            case SDL_WINDOWEVENT: take_window_event(machine, event.window); break;
            case SDL_KEYDOWN:
            case SDL_KEYUP: take_key(machine, event.key); break;
            case SDL_MOUSEMOTION:
                if (SdlWindow *made = find(event.motion.windowID))
                    take_position(machine, *made, {event.motion.x, event.motion.y});
                break;
            case SDL_MOUSEBUTTONDOWN:
            case SDL_MOUSEBUTTONUP: take_button(machine, event.button); break;
            default: break;
        }
    }

    void take_window_event(VirtualMachine &machine, const SDL_WindowEvent &event) {
        SdlWindow *made = find(event.windowID);
        if (made == nullptr) return;
        switch (event.event) {
            case SDL_WINDOWEVENT_CLOSE: machine.post({made->handle(), WM_CLOSE, 0, 0}); break;
            case SDL_WINDOWEVENT_FOCUS_LOST: machine.post_releases(made->handle()); break;
            case SDL_WINDOWEVENT_EXPOSED:
            case SDL_WINDOWEVENT_SIZE_CHANGED:
                if (Window *window = machine.screen().find(made->handle())) window->changed = true;
                frame_time_ = made->frame_time();
                break;
            default: break;
        }
    }

    void take_key(VirtualMachine &machine, const SDL_KeyboardEvent &event) {
        SdlWindow *made = find(event.windowID);
        if (made == nullptr) return;
        const bool down = event.type == SDL_KEYDOWN;
        // Alt+Enter is the machine's own; the game sees neither the press of Enter nor its release.
        if (event.keysym.scancode == SDL_SCANCODE_RETURN &&
            (switching_ || (down && (event.keysym.mod & KMOD_ALT) != 0))) {
            if (down && !switching_) made->toggle_fullscreen();
            switching_ = down;
            return;
        }
        const std::int32_t scan_code = set1_scan_code(event.keysym.scancode);
        if (scan_code != 0) machine.post_key(made->handle(), scan_code, down);
    }

    // The pointer's place on the desktop. A movement within a pixel of the client area is none, and neither
    // is the one by which the game itself moved the pointer.
    void take_position(VirtualMachine &machine, const SdlWindow &made, Point position) {
        const Point client = made.to_client(position);
        if (client != machine.pointer().position()) machine.post_move(made.handle(), client);
    }

    void take_button(VirtualMachine &machine, const SDL_MouseButtonEvent &event) {
        SdlWindow *made = find(event.windowID);
        const int button = event.button == SDL_BUTTON_LEFT     ? 0
                           : event.button == SDL_BUTTON_RIGHT  ? 1
                           : event.button == SDL_BUTTON_MIDDLE ? 2
                                                               : -1;
        if (made == nullptr || button < 0) return;
        // A click of a pointer that was not seen moving there, on a touch screen say, carries its own
        // position.
        take_position(machine, *made, {event.x, event.y});
        // The second press of a double click comes as such.
        const int down = event.type == SDL_MOUSEBUTTONUP ? 0 : event.clicks % 2 == 0 ? 2 : 1;
        machine.post_button(made->handle(), button, down);
    }

    SDL_Cursor *system_cursor(std::int32_t shape) {
        auto &cursor = cursors_[shape];
        if (cursor == nullptr) {
            SDL_SystemCursor id = SDL_SYSTEM_CURSOR_ARROW;
            switch (shape) {
                case HOST_CURSOR_IBEAM: id = SDL_SYSTEM_CURSOR_IBEAM; break;
                case HOST_CURSOR_WAIT: id = SDL_SYSTEM_CURSOR_WAIT; break;
                case HOST_CURSOR_CROSS: id = SDL_SYSTEM_CURSOR_CROSSHAIR; break;
                case HOST_CURSOR_SIZE_ALL: id = SDL_SYSTEM_CURSOR_SIZEALL; break;
                case HOST_CURSOR_NO: id = SDL_SYSTEM_CURSOR_NO; break;
                case HOST_CURSOR_HAND: id = SDL_SYSTEM_CURSOR_HAND; break;
                default: break;
            }
            cursor.reset(SDL_CreateSystemCursor(id));
        }
        return cursor.get();
    }

    std::vector<std::unique_ptr<SdlWindow>> windows_;
    std::map<std::int32_t, std::unique_ptr<SDL_Cursor, FreeCursor>> cursors_;
    bool switching_ = false;                                                  // Enter is held since Alt+Enter
    std::int64_t next_frame_ = std::numeric_limits<std::int64_t>::min() / 2;  // all are saved up
    std::int64_t frame_time_ = 1000000 / 60;
};

Machine *open_machine() {
#if defined(__unix__)
    // Without a desktop SDL would take over the console of a server.
    const auto set = [](const char *name) {
        const char *const value = std::getenv(name);
        return value != nullptr && *value != '\0';
    };
    if (!set("DISPLAY") && !set("WAYLAND_DISPLAY") && !set("SDL_VIDEODRIVER")) return nullptr;
#endif
    // Closing the last window is the game's affair, which gets WM_CLOSE. A signal ends the program as it ends
    // any other, also while a message box waits.
    SDL_SetHint(SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0");
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) return nullptr;
    static auto &machine =
        *new VirtualMachine("sdl", Clock(microseconds_since_start), std::make_unique<SdlEnds>());
    return &machine.machine();
}

}  // namespace

extern const Host sdl_host;
const Host sdl_host{"sdl", "a window on the desktop, through SDL2", open_machine};

}  // namespace ink::host
