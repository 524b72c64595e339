#include "host/machine/virtual_machine.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <limits>
#include <new>
#include <utility>

namespace ink::host {
namespace {

constexpr std::uint64_t kMillisecond = 1000, kSecond = 1000000;
constexpr std::int32_t kLargestWindow = 4096;

// Times of day are seconds since 1 January 1970 without a time zone: they are local wherever the machine
// runs. Years from 1 to 9999 can be told.
std::int64_t seconds_of(const DateTime &time) {
    using namespace std::chrono;
    const auto start_of_year = [](int number) {
        return duration_cast<seconds>(sys_days(year(number) / 1 / 1).time_since_epoch()).count();
    };
    const auto months = std::clamp<std::int64_t>(std::int64_t{time.year} * 12 + time.month - 1, 0, 119999);
    const sys_days first = year(static_cast<int>(months / 12)) / static_cast<int>(months % 12 + 1) / 1;
    const std::int64_t days = std::int64_t{first.time_since_epoch().count()} + time.day - 1;
    return std::clamp<std::int64_t>(((days * 24 + time.hour) * 60 + time.minute) * 60 + time.second,
                                    start_of_year(1), start_of_year(10000) - 1);
}

std::tm time_of(std::int64_t seconds) {
    using namespace std::chrono;
    const sys_seconds now{std::chrono::seconds(seconds)};
    const sys_days today = floor<days>(now);
    const year_month_day date(today);
    const hh_mm_ss time(now - today);
    std::tm made{};
    made.tm_year = static_cast<int>(date.year()) - 1900;
    made.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    made.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    made.tm_hour = static_cast<int>(time.hours().count());
    made.tm_min = static_cast<int>(time.minutes().count());
    made.tm_sec = static_cast<int>(time.seconds().count());
    made.tm_wday = static_cast<int>(weekday(today).c_encoding());
    made.tm_yday = static_cast<int>((today - sys_days(date.year() / 1 / 1)).count());
    return made;
}

}  // namespace

VirtualMachine::VirtualMachine(const char *name, Clock clock, std::unique_ptr<Ends> ends, const char *disc)
    : clock_(clock),
      loudspeaker_(clock_, [this] { return ends_->sound_wanted(loudspeaker_); }),
      ends_(std::move(ends)),
      machine_{
          name, *this, *this, *this, *this, screen_, pointer_, loudspeaker_.mixer(), loudspeaker_.drive(),
          *this} {
    set_timer_resolution(usual_timer_resolution());
    set_setting("CHINESBIG5(88)", "yes");
    screen_.on_change([this] { ends_->screen_changed(*this); });
    pointer_.on_change([this] { ends_->pointer_changed(*this); });
    pointer_.on_warp([this] {
        ends_->pointer_warped(*this);
        pointer_move(pointer_.position().x, pointer_.position().y);
    });
    if (disc != nullptr && *disc != '\0' && !insert_disc(disc))
        std::fprintf(stderr, "INKSTONE_DISC: there is no disc %s\n", disc);
}

// ---- Windows ----

HWND VirtualMachine::open_window(const char *title, std::int32_t width, std::int32_t height,
                                 HOST_WINDOW_PROCEDURE procedure) {
    if (width < 1 || height < 1 || width > kLargestWindow || height > kLargestWindow) return nullptr;
    Window *window = screen_.open(width, height, procedure);
    if (window == nullptr) return nullptr;
    if (ends_->window_opened(*window, title != nullptr ? title : "")) return window->handle;
    screen_.close(window->handle);
    return nullptr;
}

void VirtualMachine::close_window(HWND handle) {
    Window *window = screen_.find(handle);
    if (window == nullptr) return;
    if (window->procedure != nullptr) std::exchange(window->procedure, nullptr)(handle, WM_DESTROY, 0, 0);
    // The procedure may have closed it once more: from here on it goes by its handle.
    ends_->window_closing(handle);
    queue_.forget(handle);
    timers_.forget(handle);
    screen_.close(handle);
}

// ---- Messages ----

bool VirtualMachine::take(Message &message, std::uint64_t now) {
    if (now >= service_due_) service_due_ = ends_->service(*this, now);
    if (!queue_.take(message)) {
        const WindowTimers::Timer *timer = timers_.take(now);
        reckon_wake();
        if (timer == nullptr) return false;
        message = {timer->window, WM_TIMER, timer->id, 0};
    }
    return true;
}

std::uint32_t VirtualMachine::idle_peeks() {
    const std::uint64_t now = clock_.now();
    if (!queue_.empty() || now >= wake_) return 0;
    // A simulated clock moves on by one with each of them, a real one by less.
    constexpr std::uint64_t kMost = std::numeric_limits<std::uint32_t>::max();
    return static_cast<std::uint32_t>(std::min(wake_ - now - 1, kMost));
}

bool VirtualMachine::get(Message &message) {
    while (!peek(message)) {
        // A simulated machine has nobody who could do anything meanwhile: its clock jumps to the next timer,
        // and when there is none the wait is over for good.
        const std::uint64_t until = timers_.next_due();
        if (ends_->rest(*this, until)) continue;
        if (until == WindowTimers::kNever) return false;
        if (until > clock_.now()) clock_.advance(until - clock_.now());
    }
    return message.id != WM_QUIT;
}

void VirtualMachine::rest(std::uint32_t milliseconds) {
    if (clock_.simulated() || !queue_.empty()) return;
    // Those who wait see the time in whole milliseconds, and no timer that falls due is late.
    const std::uint64_t now = clock_.now();
    ends_->rest(*this, std::min(timers_.next_due(), (now / kMillisecond + milliseconds) * kMillisecond));
}

void VirtualMachine::dispatch(const Message &message) {
    if (message.id == WM_TIMER) {
        const WindowTimers::Timer *timer =
            timers_.find(message.window, static_cast<std::uint32_t>(message.wparam));
        if (timer != nullptr && timer->procedure != nullptr) {
            timer->procedure(message.window, WM_TIMER, message.wparam, milliseconds());
            return;
        }
    }
    const Window *window = screen_.find(message.window);
    if (window == nullptr || window->procedure == nullptr) return;
    window->procedure(message.window, message.id, message.wparam, message.lparam);
}

void VirtualMachine::message_box(HWND owner, const char *text, const char *caption, std::uint32_t style) {
    Messages::message_box(owner, text, caption, style);
    ends_->message_box(owner, text, caption);
}

// ---- Timers and the clock ----

bool VirtualMachine::set_timer(HWND window, std::uint32_t id, std::uint32_t interval_ms,
                               TimerProcedure procedure) {
    const std::uint64_t interval = std::max(interval_ms * kMillisecond, timer_resolution_);
    const bool set = timers_.set(window, id, interval, clock_.now(), procedure);
    reckon_wake();
    return set;
}

bool VirtualMachine::kill_timer(HWND window, std::uint32_t id) {
    return timers_.kill(window, id);
}

std::uint32_t VirtualMachine::milliseconds() {
    return static_cast<std::uint32_t>(clock_.tick() / kMillisecond);
}

void VirtualMachine::advance_clock(std::uint64_t microseconds) {
    if (clock_.simulated()) {
        clock_.advance(microseconds);
        return;
    }
    const std::uint64_t end = clock_.now() + microseconds;
    while (clock_.now() < end) ends_->rest(*this, end);
}

void VirtualMachine::set_timer_resolution(std::uint32_t milliseconds) {
    timer_resolution_ = std::clamp(milliseconds, 1U, 1000U) * kMillisecond;
}

// ---- Settings ----

std::tm VirtualMachine::local_time() {
    if (!time_of_day_) return System::local_time();
    return time_of(*time_of_day_ + static_cast<std::int64_t>((clock_.tick() - time_set_) / kSecond));
}

void VirtualMachine::set_local_time(const DateTime &time) {
    time_of_day_ = seconds_of(time);
    time_set_ = clock_.now();
}

std::optional<std::string> VirtualMachine::setting(const char *name) try {
    const auto found = settings_.find(name);
    return found != settings_.end() ? std::optional(found->second) : std::nullopt;
} catch (const std::bad_alloc &) {
    return std::nullopt;
}

void VirtualMachine::set_setting(const char *name, const char *value) try {
    if (value != nullptr)
        settings_[name] = value;
    else
        settings_.erase(name);
} catch (const std::bad_alloc &) {
    // It is left as it was.
}

// The drive for audio discs stands where the first CD-ROM drive of a machine with one hard disk does.
bool VirtualMachine::is_cdrom(std::int32_t drive) {
    return drive == 'D' - 'A';
}

// ---- Input ----

void VirtualMachine::post_key(HWND window, std::int32_t scan_code, bool down) {
    queue_.post(input_.key(window, scan_code, down));
}

void VirtualMachine::post_move(HWND window, Point client) {
    pointer_.move_to(client);
    const Message move = input_.move(window, client);
    // The message before each movement asks the window for the pointer's shape, with where it is (the client
    // area, 1) and what moved it.
    queue_.post({window, WM_SETCURSOR, static_cast<WPARAM>(reinterpret_cast<std::uintptr_t>(window)),
                 1 | WM_MOUSEMOVE << 16});
    queue_.post(move);
}

void VirtualMachine::post_button(HWND window, std::int32_t button, std::int32_t down) {
    queue_.post(input_.button(window, pointer_.position(), button, down));
}

void VirtualMachine::post_releases(HWND window) {
    for (std::int32_t code = 0; code < Input::kCodes; ++code)
        if (input_.held(code)) post_key(window, code, false);
}

void VirtualMachine::key(std::int32_t scan_code, bool down) {
    if (scan_code < 1 || scan_code >= Input::kCodes) return;
    if (const Window *focus = screen_.focus()) post_key(focus->handle, scan_code, down);
}

void VirtualMachine::pointer_move(std::int32_t x, std::int32_t y) {
    if (const Window *focus = screen_.focus()) post_move(focus->handle, {x, y});
}

void VirtualMachine::pointer_button(std::int32_t button, std::int32_t down) {
    if (button < 0 || button > 2 || down < 0 || down > 2) return;
    if (const Window *focus = screen_.focus()) post_button(focus->handle, button, down);
}

// ---- Reading back ----

bool VirtualMachine::window_size(HWND handle, std::int32_t &width, std::int32_t &height) {
    const Window *window = screen_.find(handle);
    if (window == nullptr) return false;
    width = window->width;
    height = window->height;
    return true;
}

bool VirtualMachine::read_indices(HWND handle, std::uint8_t *indices) {
    const Window *window = screen_.find(handle);
    if (window == nullptr) return false;
    std::copy(window->pixels.begin(), window->pixels.end(), indices);
    return true;
}

bool VirtualMachine::read_picture(HWND handle, std::uint8_t *rgb) {
    const Window *window = screen_.find(handle);
    if (window == nullptr) return false;
    screen_.read_picture(*window, rgb);
    return true;
}

void VirtualMachine::read_palette(std::uint8_t *palette) {
    for (const Color color : screen_.hardware_palette()) {
        *palette++ = color.red;
        *palette++ = color.green;
        *palette++ = color.blue;
    }
}

}  // namespace ink::host
