#include "view/window.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "files/workshop.h"
#include "inkstone/host.h"
#include "inkstone/runtime.h"
#include "inkstone/timer.h"
#include "inkstone/view.h"

namespace ink::tool {
namespace {

constexpr int kWidest = 640, kHighest = 480;
constexpr std::uint32_t kLook = 10;                  // milliseconds between two looks at the keys
constexpr std::uint64_t kCycle = 60, kMilli = 1000;  // milliseconds, and microseconds in one
constexpr int kEscape = 0x01, kC = 0x2E, kSpace = 0x39, kLeft = 0x4B, kRight = 0x4D;

bool closed = false;
// The keys that went down since the last look: a stroke may be over before there is one.
std::vector<int> strokes;

LRESULT procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_CLOSE) {
        closed = true;  // the window goes when the loop has ended
        return 0;
    }
    if (message != WM_KEYDOWN) return HOST_default_procedure(window, message, wparam, lparam);
    const int key = static_cast<int>(lparam >> 16 & 0xFF);
    // A key that is held steps on, but does not switch to and fro.
    const bool held = (lparam >> 30 & 1) != 0;
    if (!held || key == kLeft || key == kRight) strokes.push_back(key);
    return 0;
}

// A window as large as the pictures, each pixel enlarged by the greatest whole factor that the screen has room
// for: icons are to be seen, too.
class Show {
  public:
    Show(const std::string &title, int width, int height)
        : factor_(std::max(1, std::min(kWidest / width, kHighest / height))),
          width_(std::min(width * factor_, kWidest)),
          height_(std::min(height * factor_, kHighest)),
          pitch_((width_ + 3) / 4 * 4),
          screen_(static_cast<std::size_t>(pitch_) * static_cast<std::size_t>(height_)),
          window_(HOST_open_window(title.c_str(), width_, height_, procedure)) {
        if (window_ == nullptr) throw std::runtime_error("no window can be opened");
        WViewInit(window_, 0, 0, pitch_, height_, screen_.data());
        WViewEnable();
    }
    Show(const Show &) = delete;
    ~Show() {
        ExecQuitProc();
        HOST_close_window(window_);
    }

    // turned says by how many entries the colours have moved on; colour 0 stays.
    void present(const IndexedPicture &picture, std::size_t turned) {
        Palette palette = bright_palette(picture.palette);
        std::rotate(palette.begin() + 3,
                    palette.begin() + 3 + static_cast<std::ptrdiff_t>(3 * (turned % 255)), palette.end());
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x)
                screen_[static_cast<std::size_t>(y * pitch_ + x)] = picture.row(y / factor_)[x / factor_];
        WViewSetPalette(palette.data());
        WViewBuffer2Screen();
    }

  private:
    const int factor_, width_, height_, pitch_;
    Bytes screen_;
    const HWND window_;
};

}  // namespace

void show_in_window(const std::string &title, const Animation &animation, bool moving) {
    if (std::string(HOST_name()) == "headless")
        throw std::runtime_error("there is no display here; write a picture with --png");
    const Workshop workshop;  // for the library's error log
    const Box box = box_of(animation);
    const std::size_t count = animation.frames.size();
    std::size_t at = 0, turned = 0;
    IndexedPicture field = on_field(animation, animation.frames[at]);
    Show show(title, box.width(), box.height());
    show.present(field, turned);
    bool cycling = false;
    moving = moving && count > 1;
    const auto time_of = [&animation](std::size_t frame) {
        return kMilli * static_cast<std::uint64_t>(animation.frames[frame].milliseconds);
    };
    std::uint64_t next_frame = HOST_clock() + time_of(at), next_turn = 0;
    while (!closed) {
        clear_time_delay();
        wait_time_delay(kLook);
        const std::uint64_t now = HOST_clock();
        const std::size_t before = at;
        for (const int key : std::exchange(strokes, {})) {
            closed = closed || key == kEscape;
            if (key == kC) cycling = !cycling;
            if (key == kSpace) moving = !moving && count > 1, next_frame = now + time_of(at);
            if (key == kLeft) moving = false, at = (at + count - 1) % count;
            if (key == kRight) moving = false, at = (at + 1) % count;
        }
        const bool turn = cycling && now >= next_turn;
        if (turn) ++turned, next_turn = now + kMilli * kCycle;
        if (moving && now >= next_frame) {
            at = (at + 1) % count;
            // The pace is kept on the whole, but what was missed is not made up for.
            next_frame = std::max(next_frame + time_of(at), now);
        }
        if (at != before) field = on_field(animation, animation.frames[at]);
        if (turn || at != before) show.present(field, turned);
    }
}

}  // namespace ink::tool
