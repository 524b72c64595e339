#include "host/machine/virtual_machine.h"

#include <cstdio>
#include <cstdlib>
#include <limits>
#include <utility>

#include "host/observer.h"

namespace ink::host {
namespace {

constexpr std::uint64_t kMillisecond = 1000, kSecond = 1000000;
constexpr std::time_t kFirstOfJanuary2000 = 946684800;
constexpr std::int32_t kLargestWindow = 4096;

unsigned number(HWND window) {
    return static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(window));
}

// Window timers of the early machines ticked at 55 milliseconds whatever was asked of them, and games were
// tuned by that. INKSTONE_TIMER_RESOLUTION gives the shortest interval in milliseconds; it is 1 unless set.
std::uint64_t timer_resolution() {
    const char *text = std::getenv("INKSTONE_TIMER_RESOLUTION");
    const long milliseconds = text != nullptr ? std::strtol(text, nullptr, 10) : 1;
    return static_cast<std::uint64_t>(std::clamp(milliseconds, 1L, 1000L)) * kMillisecond;
}

// Days since 1 January 1970 in the proleptic Gregorian calendar and back are the C library's affair, but
// without a time zone: the machine's time of day is local wherever it runs.
std::time_t seconds_of(std::tm time) {
#if defined(_WIN32)
    return _mkgmtime(&time);
#else
    return timegm(&time);
#endif
}
std::tm time_of(std::time_t seconds) {
    std::tm time{};
#if defined(_WIN32)
    gmtime_s(&time, &seconds);
#else
    gmtime_r(&seconds, &time);
#endif
    return time;
}

}  // namespace

VirtualMachine::VirtualMachine(const char *name, Clock clock, std::unique_ptr<Ends> ends)
    : clock_(clock),
      loudspeaker_(clock_, [this] { return ends_->sound_wanted(loudspeaker_); }),
      ends_(std::move(ends)),
      time_of_day_(kFirstOfJanuary2000),
      timer_resolution_(timer_resolution()),
      machine_{
          name, *this, *this, *this, *this, screen_, pointer_, loudspeaker_.mixer(), loudspeaker_.drive(),
          *this} {
    settings_["CHINESBIG5(88)"] = "yes";
    pointer_.on_change([this] { ends_->pointer_changed(*this); });
    pointer_.on_warp([this] { ends_->pointer_warped(*this); });
    const char *disc = std::getenv("INKSTONE_DISC");
    if (disc != nullptr && *disc != '\0' && !insert_disc(disc))
        std::fprintf(stderr, "INKSTONE_DISC: there is no disc %s\n", disc);
}

// ---- Windows ----

HWND VirtualMachine::open_window(const char *title, std::int32_t width, std::int32_t height,
                                 HOST_WINDOW_PROCEDURE procedure) {
    if (width < 1 || height < 1 || width > kLargestWindow || height > kLargestWindow) return nullptr;
    if (!allowed("open_window %d %d", width, height)) return nullptr;
    Window &window = screen_.open(width, height, procedure);
    if (!ends_->window_opened(window, title != nullptr ? title : "")) {
        screen_.close(window.handle);
        return nullptr;
    }
    return window.handle;
}

void VirtualMachine::close_window(HWND handle) {
    Window *window = screen_.find(handle);
    if (window == nullptr) return;
    allowed("close_window %u", number(handle));
    if (window->procedure != nullptr) std::exchange(window->procedure, nullptr)(handle, WM_DESTROY, 0, 0);
    ends_->window_closing(*window);
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

// Games read keys by their scan codes, so no character messages are made of them.
void VirtualMachine::translate(const Message &) {}

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
    if (allowed("message_box %u %u %s %s", number(owner), style, caption, text))
        ends_->message_box(owner, text, caption);
}

// ---- Timers and the clock ----

bool VirtualMachine::set_timer(HWND window, std::uint32_t id, std::uint32_t interval_ms,
                               TimerProcedure procedure) {
    if (!allowed("set_timer %u %u %u", number(window), id, interval_ms)) return false;
    timers_.set(window, id, std::max(interval_ms * kMillisecond, timer_resolution_), clock_.now(), procedure);
    reckon_wake();
    return true;
}

bool VirtualMachine::kill_timer(HWND window, std::uint32_t id) {
    allowed("kill_timer %u %u", number(window), id);
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

// ---- Settings ----

std::tm VirtualMachine::local_time() {
    std::tm time{};
    if (ends_->local_time(time)) return time;
    return time_of(time_of_day_ + static_cast<std::time_t>((clock_.tick() - time_set_) / kSecond));
}

void VirtualMachine::set_local_time(const std::tm &time) {
    time_of_day_ = seconds_of(time);
    time_set_ = clock_.now();
}

std::optional<std::string> VirtualMachine::setting(const char *name) {
    if (!allowed("setting %s", name)) return std::nullopt;
    const auto found = settings_.find(name);
    return found != settings_.end() ? std::optional(found->second) : std::nullopt;
}

void VirtualMachine::set_setting(const char *name, const char *value) {
    if (value != nullptr)
        settings_[name] = value;
    else
        settings_.erase(name);
}

// The drive for audio discs stands where the first CD-ROM drive of a machine with one hard disk does.
bool VirtualMachine::is_cdrom(std::int32_t drive) {
    return allowed("is_cdrom %d", drive) && drive == 'D' - 'A';
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
    queue_.post(input_.button(window, button, down));
}

void VirtualMachine::post_releases(HWND window) {
    for (std::int32_t code = 0; code < Input::kCodes; ++code)
        if (input_.held(code)) post_key(window, code, false);
}

void VirtualMachine::key(std::int32_t scan_code, bool down) {
    if (const Window *focus = screen_.focus()) post_key(focus->handle, scan_code, down);
}

void VirtualMachine::pointer_move(std::int32_t x, std::int32_t y) {
    if (const Window *focus = screen_.focus()) post_move(focus->handle, {x, y});
}

void VirtualMachine::pointer_button(std::int32_t button, std::int32_t down) {
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
