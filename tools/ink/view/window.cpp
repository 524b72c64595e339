#include "view/window.h"

#include <algorithm>
#include <stdexcept>

#include "draw/surface.h"
#include "files/workshop.h"
#include "inkstone/draw.h"
#include "inkstone/host.h"
#include "inkstone/keyboard.h"
#include "inkstone/runtime.h"
#include "inkstone/timer.h"
#include "inkstone/view.h"

namespace ink::tool {
namespace {

constexpr std::uint32_t kStill = 40, kCycle = 60;  // milliseconds

bool closed = false;

LRESULT procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const bool down = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
    if (down || message == WM_KEYUP || message == WM_SYSKEYUP) {
        if ((lparam >> 24 & 1) != 0) fnKeyBoardInterrupt(0xE0);
        fnKeyBoardInterrupt(static_cast<std::uint8_t>((lparam >> 16 & 0x7F) | (down ? 0 : 0x80)));
        return 0;
    }
    closed = closed || message == WM_CLOSE;
    return message == WM_CLOSE ? 0 : HOST_default_procedure(window, message, wparam, lparam);
}

// Keys as they go down, not while they are held.
class Keys {
  public:
    // The code of read_system_key, 0 for none that is new.
    std::uint8_t take() {
        const std::uint8_t key = read_system_key();
        return key == std::exchange(held_, key) ? std::uint8_t{0} : key;
    }
    bool take_letter(char letter) {
        const bool down = fnCheckAlphaNumberKey() == static_cast<std::uint8_t>(letter);
        return down && !std::exchange(letter_, down) ? true : (letter_ = down, false);
    }

  private:
    std::uint8_t held_ = 0;
    bool letter_ = false;
};

}  // namespace

void show_in_window(const std::string &title, const Animation &animation) {
    constexpr std::uint8_t kLeft = 75, kRight = 77, kSpace = 32, kEscape = 27;
    if (std::string(HOST_name()) == "headless")
        throw std::runtime_error("there is no display here; write a picture with --png");
    const Workshop workshop;  // for the library's error log
    Bytes screen(std::size_t{draw::kScreenWidth} * draw::kScreenHeight);
    const HWND window = HOST_open_window(title.c_str(), draw::kScreenWidth, draw::kScreenHeight, procedure);
    WViewInit(window, 0, 0, draw::kScreenWidth, draw::kScreenHeight, screen.data());
    WViewEnable();
    Keys keys;
    bool moving = animation.frames.size() > 1, cycling = false;
    std::size_t at = 0, turned = 0;
    while (!closed) {
        clear_time_delay();
        const Frame &frame = animation.frames[at];
        const IndexedPicture field = on_field(animation, frame);
        std::ranges::fill(screen, std::uint8_t{0});
        BUF_put_bitmap((draw::kScreenWidth - std::min(field.width, draw::kScreenWidth)) / 2,
                       (draw::kScreenHeight - std::min(field.height, draw::kScreenHeight)) / 2, field.width,
                       field.height, field.pixels.data(), screen.data());
        Palette palette = field.palette;
        std::rotate(palette.begin() + 3,
                    palette.begin() + 3 + static_cast<std::ptrdiff_t>(3 * (turned % 255)), palette.end());
        SCR_set_palette(palette.data());
        WViewBuffer2Screen();
        wait_time_delay(moving ? static_cast<std::uint32_t>(frame.milliseconds) : cycling ? kCycle : kStill);
        const std::uint8_t key = keys.take();
        if (keys.take_letter('C')) cycling = !cycling;
        if (key == kSpace) moving = !moving;
        const std::size_t count = animation.frames.size();
        if (key == kLeft) moving = false, at = (at + count - 1) % count;
        if (key == kRight || moving) moving = moving && key != kRight, at = (at + 1) % count;
        if (cycling) ++turned;
        if (key == kEscape) closed = true;
    }
    ExecQuitProc();
    HOST_close_window(window);
}

}  // namespace ink::tool
