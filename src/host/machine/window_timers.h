// Window timers: each fires at its interval while somebody dispatches messages, with at most one event
// pending, so expiries that nobody was there to take are not counted.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <new>
#include <vector>

#include "host/host.h"

namespace ink::host {

// The shortest interval of window timers in milliseconds, unless the program sets another one: what
// INKSTONE_TIMER_RESOLUTION says. The window timers of the early machines ticked 18 times a second whatever
// was asked of them, and all that counts their ticks is made for that: the time of a disc, cursors, the steps
// of a fade.
inline std::uint32_t usual_timer_resolution() {
    const char *text = std::getenv("INKSTONE_TIMER_RESOLUTION");
    const long milliseconds = text != nullptr ? std::strtol(text, nullptr, 10) : 55;
    return static_cast<std::uint32_t>(std::clamp(milliseconds, 0L, 1000L));
}

class WindowTimers {
  public:
    static constexpr std::uint64_t kNever = std::numeric_limits<std::uint64_t>::max();

    struct Timer {
        HWND window;
        std::uint32_t id;
        std::uint64_t interval, due;  // microseconds
        TimerProcedure procedure;
    };

    // A timer of the same window and number is replaced. False when there is no memory for another.
    bool set(HWND window, std::uint32_t id, std::uint64_t interval, std::uint64_t now,
             TimerProcedure procedure) try {
        kill(window, id);
        timers_.push_back({window, id, interval, now + interval, procedure});
        return true;
    } catch (const std::bad_alloc &) {
        return false;
    }
    bool kill(HWND window, std::uint32_t id) {
        return std::erase_if(timers_, [&](const Timer &timer) {
                   return timer.window == window && timer.id == id;
               }) != 0;
    }
    void forget(HWND window) {
        std::erase_if(timers_, [window](const Timer &timer) { return timer.window == window; });
    }
    // When the next timer fires, or kNever.
    std::uint64_t next_due() const {
        std::uint64_t due = kNever;
        for (const Timer &timer : timers_) due = std::min(due, timer.due);
        return due;
    }
    // Takes the event of the timer that has been due longest; null when none is due. Its next expiry is the
    // first of its beat that lies ahead.
    const Timer *take(std::uint64_t now) {
        Timer *first = nullptr;
        for (Timer &timer : timers_)
            if (timer.due <= now && (first == nullptr || timer.due < first->due)) first = &timer;
        if (first != nullptr) first->due += ((now - first->due) / first->interval + 1) * first->interval;
        return first;
    }
    const Timer *find(HWND window, std::uint32_t id) const {
        for (const Timer &timer : timers_)
            if (timer.window == window && timer.id == id) return &timer;
        return nullptr;
    }

  private:
    std::vector<Timer> timers_;
};

}  // namespace ink::host
