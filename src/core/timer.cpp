#include "inkstone/timer.h"

#include <array>
#include <utility>

#include "core/counters.h"
#include "core/hooks.h"
#include "host/host.h"
#include "inkstone/runtime.h"

namespace {

constexpr std::uint32_t kTickMilliseconds = 5;

std::array<std::uint32_t, 16> ticks_passed;
HWND timer_window = nullptr;
std::uint32_t delay_start = 0, delay_mark = 0;
INK_PROCEDURE idle_function = nullptr, tab_function = nullptr;

template <std::size_t counter>
void INK_TIMER_CALL count(HWND, UINT, std::uintptr_t, std::uint32_t) {
    ++ticks_passed[counter];
}

// One procedure for each counter.
constexpr auto kTimerProcedures = []<std::size_t... counter>(std::index_sequence<counter...>) {
    return std::array<ink::host::TimerProcedure, sizeof...(counter)>{count<counter>...};
}
(std::make_index_sequence<ticks_passed.size()>());

// Counter i is driven by the timer with the identifier i + 1.
void kill_timers(HWND window, std::uint32_t count_of_timers) {
    for (std::uint32_t id = 1; id <= count_of_timers; ++id)
        ink::host::machine().timers.kill_timer(window, id);
}

bool is_counter(std::int32_t counter) {
    return counter >= 0 && counter < static_cast<std::int32_t>(ticks_passed.size());
}

}  // namespace

namespace ink {

INK_PROCEDURE idle_procedure() {
    return idle_function != nullptr ? idle_function : fnCheckMessage;
}

void idle() {
    idle_procedure()();
}

void Wait::rest(INK_PROCEDURE pump, std::uint32_t milliseconds) {
    if (std::exchange(began_, true) && pump == fnCheckMessage) host::machine().messages.rest(milliseconds);
}

void tab_pressed() {
    if (tab_function != nullptr) tab_function();
}

}  // namespace ink

int32_t SetupTimerProc(HWND window) {
    ticks_passed.fill(0);
    timer_window = window;
    for (std::uint32_t i = 0; i < kTimerProcedures.size(); ++i) {
        if (ink::host::machine().timers.set_timer(window, i + 1, kTickMilliseconds, kTimerProcedures[i]))
            continue;
        kill_timers(window, i);
        return -2;
    }
    if (PushQuitProc([] { ClearTimerProc(timer_window); }) != 0) fnErrorExit(window, "PUSHQUIT ERROR!!!");
    return 0;
}

void ClearTimerProc(HWND window) {
    kill_timers(window, static_cast<std::uint32_t>(kTimerProcedures.size()));
}

uint32_t GetTimerTick(int32_t counter) {
    return is_counter(counter) ? ticks_passed[static_cast<std::size_t>(counter)] : 0;
}

void SetTimerTick(int32_t counter, uint32_t value) {
    if (is_counter(counter)) ticks_passed[static_cast<std::size_t>(counter)] = value;
}

void tick_wait(uint32_t ticks) {
    SetTimerTick(ink::kWaitCounter, 0);
    for (ink::Wait wait; GetTimerTick(ink::kWaitCounter) < ticks; ink::idle()) wait.rest();
}

void clear_time_delay(void) {
    delay_start = delay_mark = ink::host::machine().timers.milliseconds();
}

uint32_t get_time_delay(void) {
    return ink::host::machine().timers.milliseconds() - delay_mark;
}

// The comparisons are of the clock's values as they stand, so a wait across the clock's wrap at 2^32 ends at
// once.
void wait_time_delay(uint32_t milliseconds) {
    for (ink::Wait wait; delay_mark < delay_start + milliseconds;) {
        wait.rest(ink::idle_procedure(), delay_start + milliseconds - delay_mark);
        delay_mark = ink::host::machine().timers.milliseconds();
        ink::idle();
    }
}

void set_system_idle_function(INK_PROCEDURE procedure) {
    idle_function = procedure;
}

void set_system_tab_function(INK_PROCEDURE procedure) {
    tab_function = procedure;
}
