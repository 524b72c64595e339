#include "game.h"

#include <algorithm>
#include <cstdio>

namespace demo {
namespace {

bool closed = false;

// Forwards what the window is told to the families, which know nothing of windows.
LRESULT window_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
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
            fnMouseInterrupt(message, static_cast<std::uint32_t>(wparam), static_cast<std::int32_t>(lparam));
            return 0;
        // A quit request would be lost in the waits of the library, so the end is noted here.
        case WM_CLOSE: closed = true; return 0;
        case WM_DESTROY: closed = true; return 0;
        default: return HOST_default_procedure(window, message, wparam, lparam);
    }
}

struct Shade {
    int red, green, blue;  // 0 to 63
};

void ramp(Palette &palette, std::int32_t start, std::int32_t count, Shade from, Shade to) {
    const auto between = [&](int a, int b, std::int32_t i) {
        return static_cast<std::uint8_t>(a + (b - a) * i / std::max(1, count - 1));
    };
    for (std::int32_t i = 0; i < count; ++i) {
        auto *entry = &palette[static_cast<std::size_t>(start + i) * 3];
        entry[0] = between(from.red, to.red, i);
        entry[1] = between(from.green, to.green, i);
        entry[2] = between(from.blue, to.blue, i);
    }
}

}  // namespace

Palette make_palette() {
    Palette palette{};
    PAL_make_system_color(palette.data());
    ramp(palette, kSky, 20, {3, 5, 18}, {30, 18, 34});
    ramp(palette, kSky + 20, 12, {32, 19, 34}, {60, 40, 26});
    ramp(palette, kWater, 8, {6, 10, 24}, {30, 27, 38});
    ramp(palette, kWater + 8, 8, {27, 25, 37}, {7, 11, 25});
    ramp(palette, kMountain, 16, {3, 6, 14}, {38, 32, 42});
    ramp(palette, kPaper, 16, {30, 25, 17}, {63, 61, 54});
    ramp(palette, kVermilion, 16, {14, 2, 2}, {63, 24, 16});
    ramp(palette, kJade, 16, {2, 10, 8}, {40, 60, 48});
    ramp(palette, kGold, 16, {18, 9, 2}, {63, 57, 30});
    ramp(palette, kInk, 16, {2, 2, 3}, {44, 44, 48});
    ramp(palette, kWood, 16, {10, 5, 3}, {46, 30, 18});
    return palette;
}

Game::Game() : screen_(INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT), palette_(make_palette()) {}

bool Game::start() {
    window_ = HOST_open_window("Inkstone", INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, window_procedure);
    if (window_ == nullptr) return false;
    WViewInit(window_, 0, 0, INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, screen());
    WViewEnable();
    SCR_set_palette(target_.data());
    SetupTimerProc(window_);
    fnMouseInit(window_, nullptr, 0, 0, fnCheckMessage);
    start_sound();
    start_music();
    return true;
}

// Without a sound device the game goes on in silence.
void Game::start_sound() {
    DS_init(window_);
    DS_load_wave_channel("click.wav", kClick);
    DS_load_wave_channel("chime.wav", kChime);
    DS_set_volume(kClick, -600);
}

// The disc's tracks one after the other, again and again.
void Game::start_music() {
    HOST_insert_disc("music.cue");
    if (CDROM_open() != 0) return;
    const std::int32_t tracks = CDROM_total();
    CDROM_clear_task();
    for (std::int32_t track = 0; track < tracks; ++track) CDROM_push_task(track);
    CDROM_task_type(1);
    CDROM_exec_task(1);
}

void Game::stop() {
    ExecQuitProc();
    HOST_close_window(window_);
}

bool Game::running() const {
    return !closed;
}

void Game::fade_in(const Palette &palette) {
    target_ = palette;
    // Less than half a second in 64 steps. A step of one tick would make it more than three.
    PAL_fade_init(target_.data(), [] {
        clear_time_delay();
        wait_time_delay(6);
    });
    PAL_fade_effect(0);
}

void Game::fade_out() {
    fade_in({});
}

void Game::turn_water() {
    const auto first = palette_.begin() + kWater * 3;
    std::rotate(first, first + 15 * 3, first + 16 * 3);
    std::array<std::uint8_t, 16 * 3> eight_bit;
    std::transform(first, first + 16 * 3, eight_bit.begin(),
                   [](std::uint8_t value) { return static_cast<std::uint8_t>(value * 4); });
    WViewSetPartPalette(kWater, 16, eight_bit.data());
}

void Game::play(int sound) {
    DS_start(sound, 0);
}

}  // namespace demo
