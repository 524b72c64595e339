// The desktop machine without a desktop: on SDL's dummy driver, to which a test tells what the user does, and whose
// operations it can refuse. What a real window shows is looked at by desktop/run.sh.
#include <SDL.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "inkstone/host.h"
#include "inkstone/mouse.h"
#include "inkstone/runtime.h"
#include "inkstone/wave.h"
#include "support/new_process.h"
#include "support/sound.h"

namespace {

std::vector<std::string> told;      // what came of it, in order
std::string refused;                // the operation of SDL that fails
SDL_SystemCursor cursors_made[64];  // by the order in which they were made
std::size_t cursors = 0;

template <class Function>
Function *system_function(const char *name) {
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

// The result of SDL's function, or nothing when it is the one that is refused.
template <class Function, class... Arguments>
auto unless_refused(const char *name, Function *, Arguments... arguments) {
    using Result = decltype(system_function<Function>(name)(arguments...));
    return refused == name ? Result{} : system_function<Function>(name)(arguments...);
}

}  // namespace

// In place of SDL's.
extern "C" {
#pragma GCC visibility push(default)
SDL_Window *SDL_CreateWindow(const char *title, int x, int y, int w, int h, Uint32 flags) {
    return unless_refused("SDL_CreateWindow", &SDL_CreateWindow, title, x, y, w, h, flags);
}
SDL_Renderer *SDL_CreateRenderer(SDL_Window *window, int index, Uint32 flags) {
    return unless_refused("SDL_CreateRenderer", &SDL_CreateRenderer, window, index, flags);
}
SDL_Texture *SDL_CreateTexture(SDL_Renderer *renderer, Uint32 format, int access, int w, int h) {
    return unless_refused("SDL_CreateTexture", &SDL_CreateTexture, renderer, format, access, w, h);
}
SDL_AudioDeviceID SDL_OpenAudioDevice(const char *device, int capture, const SDL_AudioSpec *wanted,
                                      SDL_AudioSpec *got, int changes) {
    return unless_refused("SDL_OpenAudioDevice", &SDL_OpenAudioDevice, device, capture, wanted, got, changes);
}
SDL_Cursor *SDL_CreateSystemCursor(SDL_SystemCursor id) {
    cursors_made[cursors++] = id;
    return reinterpret_cast<SDL_Cursor *>(cursors_made + cursors - 1);
}
void SDL_FreeCursor(SDL_Cursor *) {}
void SDL_SetCursor(SDL_Cursor *cursor) {
    told.push_back("shape " + std::to_string(*reinterpret_cast<SDL_SystemCursor *>(cursor)));
}
int SDL_ShowCursor(int toggle) {
    told.push_back(toggle == SDL_ENABLE ? "shown" : "hidden");
    return toggle;
}
void SDL_WarpMouseInWindow(SDL_Window *, int x, int y) {
    told.push_back("warped " + std::to_string(x) + ' ' + std::to_string(y));
}
int SDL_ShowSimpleMessageBox(Uint32, const char *title, const char *message, SDL_Window *window) {
    std::fprintf(stderr, "box of %s: %s: %s\n", window != nullptr ? SDL_GetWindowTitle(window) : "nobody",
                 title, message);
    return 0;
}
#pragma GCC visibility pop
}

namespace {

LRESULT procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    char line[64];
    const int x = static_cast<std::int16_t>(lparam), y = static_cast<std::int16_t>(lparam >> 16);
    const auto scan = static_cast<unsigned>(lparam >> 16 & 0x1FF);
    if (message == WM_KEYDOWN || message == WM_KEYUP)
        std::snprintf(line, sizeof line, "%s %03x", message == WM_KEYDOWN ? "down" : "up", scan);
    else if (message == WM_MOUSEMOVE)
        std::snprintf(line, sizeof line, "move %d %d", x, y);
    else if (message > WM_MOUSEMOVE && message <= WM_MBUTTONDBLCLK)
        std::snprintf(line, sizeof line, "button %x %d %d", message, x, y);
    else if (message == WM_CLOSE)
        std::snprintf(line, sizeof line, "close");
    else
        return message == WM_SETCURSOR ? 0 : HOST_default_procedure(window, message, wparam, lparam);
    told.emplace_back(line);
    return 0;
}

void start(const char *audio = "dummy") {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_AUDIODRIVER", audio, 1);
    ASSERT_EQ(HOST_choose("sdl"), 0);
    ASSERT_STREQ(HOST_name(), "sdl");
}

using Told = std::vector<std::string>;

// What the windows are told of it, and what SDL is.
Told after(SDL_Event event) {
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);  // what the dummy driver has told itself
    told.clear();
    SDL_PushEvent(&event);
    HOST_advance_clock(3000);  // events are collected once a millisecond
    HOST_run_messages();
    return told;
}
SDL_Event key(Uint32 window, SDL_Scancode code, bool down, Uint16 modifiers = 0) {
    SDL_Event event{};
    event.key.type = down ? SDL_KEYDOWN : SDL_KEYUP;
    event.key.windowID = window;
    event.key.keysym.scancode = code;
    event.key.keysym.mod = modifiers;
    return event;
}
SDL_Event motion(Uint32 window, int x, int y) {
    SDL_Event event{};
    event.motion.type = SDL_MOUSEMOTION;
    event.motion.windowID = window;
    event.motion.x = x;
    event.motion.y = y;
    return event;
}
SDL_Event button(Uint32 window, int number, bool down, int clicks, int x, int y) {
    SDL_Event event{};
    event.button.type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
    event.button.windowID = window;
    event.button.button = static_cast<Uint8>(number);
    event.button.clicks = static_cast<Uint8>(clicks);
    event.button.x = x;
    event.button.y = y;
    return event;
}
SDL_Event of_window(Uint32 window, int what) {
    SDL_Event event{};
    event.window.type = SDL_WINDOWEVENT;
    event.window.windowID = window;
    event.window.event = static_cast<Uint8>(what);
    return event;
}

TEST_IN_NEW_PROCESS(Desktop, HearsOfKeys) {
    start();
    HOST_open_window("w", 640, 480, procedure);
    const std::pair<SDL_Scancode, const char *> keys[] = {
        {SDL_SCANCODE_A, "01e"},         {SDL_SCANCODE_LCTRL, "01d"},          {SDL_SCANCODE_RCTRL, "11d"},
        {SDL_SCANCODE_LSHIFT, "02a"},    {SDL_SCANCODE_RSHIFT, "036"},         {SDL_SCANCODE_LALT, "038"},
        {SDL_SCANCODE_RALT, "138"},      {SDL_SCANCODE_RETURN, "01c"},         {SDL_SCANCODE_KP_ENTER, "11c"},
        {SDL_SCANCODE_PAUSE, "045"},     {SDL_SCANCODE_HOME, "147"},           {SDL_SCANCODE_KP_7, "047"},
        {SDL_SCANCODE_KP_DIVIDE, "135"}, {SDL_SCANCODE_NONUSBACKSLASH, "056"}, {SDL_SCANCODE_F12, "058"}};
    for (const auto &[code, scan] : keys) {
        EXPECT_EQ(after(key(1, code, true)), Told{std::string("down ") + scan});
        EXPECT_EQ(after(key(1, code, false)), Told{std::string("up ") + scan});
    }
    for (const SDL_Scancode none : {SDL_SCANCODE_UNKNOWN, SDL_SCANCODE_F13, SDL_SCANCODE_MUTE})
        EXPECT_EQ(after(key(1, none, true)), Told{}) << none;
    EXPECT_EQ(after(key(77, SDL_SCANCODE_A, true)), Told{});
    // Alt and Enter are the machine's own, until Enter is let go of.
    const auto full = [] {
        return (SDL_GetWindowFlags(SDL_GetWindowFromID(1)) & SDL_WINDOW_FULLSCREEN_DESKTOP) != 0;
    };
    for (const bool becomes : {true, false}) {
        EXPECT_EQ(after(key(1, SDL_SCANCODE_RETURN, true, KMOD_LALT)), Told{});
        EXPECT_EQ(full(), becomes);
        EXPECT_EQ(after(key(1, SDL_SCANCODE_RETURN, true)), Told{});
        EXPECT_EQ(full(), becomes);
        EXPECT_EQ(after(key(1, SDL_SCANCODE_RETURN, false)), Told{});
    }
    // Keys that are held when the window loses them come up.
    after(key(1, SDL_SCANCODE_A, true));
    after(key(1, SDL_SCANCODE_UP, true));
    EXPECT_EQ(after(of_window(1, SDL_WINDOWEVENT_FOCUS_LOST)), (Told{"up 01e", "up 148"}));
    EXPECT_EQ(after(of_window(1, SDL_WINDOWEVENT_FOCUS_LOST)), Told{});
    EXPECT_EQ(after(of_window(77, SDL_WINDOWEVENT_CLOSE)), Told{});
    EXPECT_EQ(after(of_window(1, SDL_WINDOWEVENT_CLOSE)), Told{"close"});
    HOST_open_window("another", 64, 48, procedure);
    SDL_Event quit{};
    quit.type = SDL_QUIT;
    EXPECT_EQ(after(quit), (Told{"close", "close"}));
}

TEST_IN_NEW_PROCESS(Desktop, HearsOfThePointer) {
    start();
    const HWND handle = HOST_open_window("w", 200, 150, procedure);
    SDL_Window *const window = SDL_GetWindowFromID(1);
    // At four times its size a pixel is four of the desktop's.
    SDL_SetWindowSize(window, 800, 600);
    EXPECT_EQ(after(motion(1, 42, 83)), Told{"move 10 20"});
    EXPECT_EQ(after(motion(1, 40, 80)), Told{}) << "within the pixel";
    EXPECT_EQ(after(motion(77, 0, 0)), Told{});
    EXPECT_EQ(after(button(1, SDL_BUTTON_LEFT, true, 1, 42, 83)), Told{"button 201 10 20"});
    EXPECT_EQ(after(button(1, SDL_BUTTON_LEFT, false, 1, 42, 83)), Told{"button 202 10 20"});
    EXPECT_EQ(after(button(1, SDL_BUTTON_LEFT, true, 2, 42, 83)), Told{"button 203 10 20"});
    EXPECT_EQ(after(button(1, SDL_BUTTON_RIGHT, true, 3, 42, 83)), Told{"button 204 10 20"});
    EXPECT_EQ(after(button(1, SDL_BUTTON_MIDDLE, false, 1, 42, 83)), Told{"button 208 10 20"});
    EXPECT_EQ(after(button(1, SDL_BUTTON_X1, true, 1, 42, 83)), Told{});
    EXPECT_EQ(after(button(77, SDL_BUTTON_LEFT, true, 1, 42, 83)), Told{});
    EXPECT_EQ(after(button(1, SDL_BUTTON_LEFT, true, 1, 799, 599)),
              (Told{"move 199 149", "button 201 199 149"}))
        << "a finger is there before it is seen moving";
    // In a window too small for it the picture is reduced: by half, with twelve or thirteen rows above and below.
    SDL_SetWindowSize(window, 100, 100);
    EXPECT_EQ(after(motion(1, 50, 12 + 30)), Told{"move 100 60"});
    EXPECT_EQ(after(motion(1, 0, 0)), Told{"move 0 0"});
    SDL_SetWindowSize(window, 1, 1);
    EXPECT_EQ(after(motion(1, 0, 0)), Told{}) << "of a window of one pixel that is the picture's first";
    // Where the game puts the pointer: in the middle of the pixel.
    SDL_SetWindowSize(window, 800, 600);
    fnMouseInit(handle, nullptr, 0, 0, nullptr);
    told.clear();
    MOUSE_set_position(10, 20);
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told.front(), "warped 42 82");
    HOST_run_messages();
}

TEST_IN_NEW_PROCESS(Desktop, ShowsThePointersShapes) {
    start();
    HOST_open_window("w", 200, 150, procedure);
    const std::pair<std::int32_t, SDL_SystemCursor> shapes[] = {
        {HOST_CURSOR_IBEAM, SDL_SYSTEM_CURSOR_IBEAM},
        {HOST_CURSOR_WAIT, SDL_SYSTEM_CURSOR_WAIT},
        {HOST_CURSOR_CROSS, SDL_SYSTEM_CURSOR_CROSSHAIR},
        {HOST_CURSOR_SIZE_ALL, SDL_SYSTEM_CURSOR_SIZEALL},
        {HOST_CURSOR_NO, SDL_SYSTEM_CURSOR_NO},
        {HOST_CURSOR_HAND, SDL_SYSTEM_CURSOR_HAND},
        {12345, SDL_SYSTEM_CURSOR_ARROW}};
    fnMouseInit(nullptr, nullptr, 0, 0, nullptr);
    for (int round = 0; round < 2; ++round)
        for (std::int32_t i = 0; i < 7; ++i) {
            MOUSE_load_cursor(1 + i, HOST_load_cursor(shapes[i].first));
            told.clear();
            MOUSE_set_cursor(1 + i);
            EXPECT_EQ(told, (Told{"shown", "shape " + std::to_string(shapes[i].second)})) << i;
        }
    EXPECT_LE(cursors, 8U) << "each is made once";
    told.clear();
    MOUSE_show(0);
    MOUSE_show(1);
    ASSERT_EQ(told.size(), 4U);
    EXPECT_EQ(told[0] + ' ' + told[2], "hidden shown");
}

TEST_IN_NEW_PROCESS(Desktop, DoesWithoutWhatSdlRefuses) {
    start();
    for (const char *operation : {"SDL_CreateWindow", "SDL_CreateRenderer", "SDL_CreateTexture"}) {
        refused = operation;
        EXPECT_EQ(HOST_open_window("w", 64, 48, procedure), nullptr) << operation;
        refused.clear();
        const HWND window = HOST_open_window("w", 64, 48, procedure);
        EXPECT_NE(window, nullptr) << operation;
        HOST_close_window(window);
    }
    // Without a device sound passes as time does: half a second of it is over after half a second.
    refused = "SDL_OpenAudioDevice";
    const HWND window = HOST_open_window("w", 64, 48, procedure);
    test::write_wave("a.wav", std::vector<int>(22050, 1000));
    DS_init(window);
    EXPECT_EQ(DS_load_wave_channel("a.wav", 0), 0);
    HOST_capture_sound(1);
    DS_start(0, 0);
    EXPECT_NE(DS_status(0), 0);
    HOST_advance_clock(600'000);
    EXPECT_EQ(DS_status(0), 0);
    test::Heard heard(22050);
    EXPECT_EQ(HOST_read_sound(heard.front().data(), 22050), 22050);
    EXPECT_EQ(heard[11025][0], heard[11025][1]);
    EXPECT_NE(heard[11025][0], 0);
    DS_destroy();
}

TEST(DesktopDeath, TellsOfAFatalExitInABox) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto end = [](bool owned) {
        start();
        fnErrorExit(owned ? HOST_open_window("the game", 64, 48, nullptr) : nullptr, "over");
    };
    EXPECT_EXIT(end(true), testing::ExitedWithCode(1), "box of the game: SystemError: over");
    EXPECT_EXIT(end(false), testing::ExitedWithCode(1), "box of nobody: SystemError: over");
}

// A replay that is shown goes at the pace of the play, and whoever has seen enough closes its window.
TEST(DesktopDeath, EndsAReplayWhoseWindowIsClosed) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    test::share_place();
    constexpr int kSteps = 100;
    const auto record = [] {
        if (HOST_record("long.rec") != 0) std::exit(1);
        HOST_open_window("w", 64, 48, procedure);
        for (int i = 0; i < kSteps; ++i) HOST_advance_clock(i < 2 ? 150'000 : 10'000'000), HOST_clock();
        std::exit(0);
    };
    const auto replay = [] {
        start();
        if (HOST_replay("long.rec") != 0) std::exit(1);
        HOST_open_window("w", 64, 48, procedure);
        HOST_clock(), HOST_clock();
        if (SDL_GetTicks() < 300) std::exit(2);
        SDL_Event close = of_window(1, SDL_WINDOWEVENT_CLOSE);
        SDL_PushEvent(&close);
        for (int i = 2; i < kSteps; ++i) HOST_clock();
        std::exit(3);
    };
    EXPECT_EXIT(record(), testing::ExitedWithCode(0), "^$");
    EXPECT_EXIT(replay(), testing::ExitedWithCode(0),
                "^replay: the window was closed\nreplay: 0\\.3 seconds, equal\n$");
}

// Where it was asked for and cannot be had another one runs.
TEST_IN_NEW_PROCESS(Desktop, GivesWayWhereItCannotBeHad) {
    setenv("INKSTONE_HOST", "sdl", 1);
    setenv("SDL_VIDEODRIVER", "no such driver", 1);
    EXPECT_EQ(HOST_choose("sdl"), -2);
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "SDL_VIDEODRIVER"}) unsetenv(name);
    EXPECT_EQ(HOST_choose("sdl"), -2);
    EXPECT_EQ(HOST_choose("no such machine"), -2);
    EXPECT_STREQ(HOST_name(), "headless");
    EXPECT_EQ(HOST_choose("headless"), 0);
    EXPECT_EQ(HOST_choose("sdl"), -2);
}

}  // namespace
