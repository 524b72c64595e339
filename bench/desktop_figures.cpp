// How the desktop machine behaves, as lines of Markdown: how long after a present and after a change of the palette
// the window shows it, which another client of the display sees, and what an idle game costs.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "inkstone/inkstone.h"

namespace {

using Clock = std::chrono::steady_clock;
constexpr const char *kTitle = "Inkstone, figures of the desktop";
constexpr int kTimes = 60, kIdleMilliseconds = 5000;

std::uint8_t screen[INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT];

double milliseconds(Clock::time_point since) {
    return std::chrono::duration<double, std::milli>(Clock::now() - since).count();
}

// Another client of the same display, which looks at one pixel in the middle of our window.
class Onlooker {
  public:
    Onlooker() : display_(XOpenDisplay(nullptr)) {
        if (display_ != nullptr) find(DefaultRootWindow(display_));
    }
    Onlooker(const Onlooker &) = delete;
    ~Onlooker() {
        if (display_ != nullptr) XCloseDisplay(display_);
    }

    bool sees_window() const { return window_ != 0; }
    unsigned long pixel() const {
        XImage *image = XGetImage(display_, window_, INK_SCREEN_WIDTH / 2, INK_SCREEN_HEIGHT / 2, 1, 1,
                                  AllPlanes, ZPixmap);
        if (image == nullptr) return 0;
        const unsigned long seen = XGetPixel(image, 0, 0);
        XDestroyImage(image);
        return seen;
    }

  private:
    void find(Window window) {
        char *name = nullptr;
        if (XFetchName(display_, window, &name) != 0) {
            if (std::strcmp(name, kTitle) == 0) window_ = window;
            XFree(name);
        }
        Window root = 0, parent = 0, *children = nullptr;
        unsigned count = 0;
        if (XQueryTree(display_, window, &root, &parent, &children, &count) == 0) return;
        for (unsigned i = 0; i < count; ++i) find(children[i]);
        if (children != nullptr) XFree(children);
    }

    Display *display_;
    Window window_ = 0;
};

void pump(int how_long) {
    for (const auto start = Clock::now(); milliseconds(start) < how_long;) HOST_run_messages();
}

struct Times {
    double median, worst, pixel_look;
    int count;
};

// Makes the change again and again, at any moment of the display's rate, and waits until the window shows it.
template <class Change>
std::optional<Times> until_shown(const Onlooker &onlooker, Change change) {
    std::mt19937 random(1);
    std::vector<double> times, looks;
    for (int i = 0; i < kTimes; ++i) {
        pump(30 + static_cast<int>(random() % 17));
        const unsigned long before = onlooker.pixel();
        const auto start = Clock::now();
        change(i);
        while (onlooker.pixel() == before) {
            fnCheckMessage();
            if (milliseconds(start) > 2000) return std::nullopt;
        }
        times.push_back(milliseconds(start));
        const auto look = Clock::now();
        onlooker.pixel();
        looks.push_back(milliseconds(look));
    }
    std::sort(times.begin(), times.end());
    std::sort(looks.begin(), looks.end());
    return Times{times[kTimes / 2], times.back(), looks[kTimes / 2], kTimes};
}

bool report(const char *what, const std::optional<Times> &times) {
    if (!times) return std::fprintf(stderr, "%s: the window never showed it\n", what), false;
    std::printf(
        "| %s, until the window shows it | %.1f ms median, %.1f ms at worst of %d (a look takes %.1f ms) |\n",
        what, times->median, times->worst, times->count, times->pixel_look);
    return true;
}

// The part of a core that a game's idle loop takes.
template <class Loop>
void report_idle(const char *what, Loop loop) {
    const std::clock_t used = std::clock();
    const auto start = Clock::now();
    loop(start);
    const double seconds = static_cast<double>(std::clock() - used) / CLOCKS_PER_SEC;
    std::printf("| %s | %.2f %% of a core |\n", what, 100 * seconds / (milliseconds(start) / 1000));
}

}  // namespace

int main() {
    if (HOST_choose("sdl") != 0) return std::fputs("there is no desktop machine\n", stderr), 1;
    HWND window = HOST_open_window(kTitle, INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, HOST_default_procedure);
    WViewInit(window, 0, 0, INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, screen);
    WViewEnable();
    std::memset(screen, 17, sizeof screen);
    WViewBuffer2Screen();
    pump(500);
    const Onlooker onlooker;
    if (!onlooker.sees_window()) return std::fputs("the display does not show the window\n", stderr), 1;

    std::puts("| Desktop | |\n|---|---|");
    WViewSet1Palette(18, 60, 10, 10), WViewSet1Palette(19, 10, 60, 10);
    const bool presented = report("a present of 640 x 480", until_shown(onlooker, [](int i) {
                                      std::memset(screen, 18 + i % 2, sizeof screen);
                                      WViewBuffer2Screen();
                                  }));
    const bool coloured = report("a palette change", until_shown(onlooker, [](int i) {
                                     WViewSet1Palette(static_cast<std::int16_t>(screen[0]),
                                                      static_cast<std::uint8_t>(10 + i % 50), 63, 5);
                                 }));
    report_idle("an idle program that waits for messages, timers running", [](Clock::time_point start) {
        SetupTimerProc(nullptr);
        while (milliseconds(start) < kIdleMilliseconds) HOST_wait_messages();
        ClearTimerProc(nullptr);
    });
    report_idle("an idle game that looks for input 60 times a second", [](Clock::time_point start) {
        while (milliseconds(start) < kIdleMilliseconds) {
            clear_time_delay();
            HOST_run_messages();
            wait_time_delay(16);
        }
    });
    report_idle("the same, presenting its unchanged picture each time", [](Clock::time_point start) {
        while (milliseconds(start) < kIdleMilliseconds) {
            clear_time_delay();
            HOST_run_messages();
            WViewBuffer2Screen();
            wait_time_delay(16);
        }
    });
    ExecQuitProc();
    return presented && coloured ? 0 : 1;
}
