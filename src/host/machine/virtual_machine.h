// A machine made in software: queue, timers, screen, pointer, keyboard and settings, with the ends a host
// gives it. The hosts share all of it; they differ in the clock and in their ends.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "host/host.h"
#include "host/machine/clock.h"
#include "host/machine/ends.h"
#include "host/machine/input.h"
#include "host/machine/message_queue.h"
#include "host/machine/pointer.h"
#include "host/machine/screen.h"
#include "host/machine/window_timers.h"
#include "host/sound/loudspeaker.h"

namespace ink::host {

class VirtualMachine final : public Windows, public Bench, public Messages, public Timers, public System {
  public:
    // disc is what lies in the drive from the start: null for nothing.
    VirtualMachine(const char *name, Clock clock, std::unique_ptr<Ends> ends,
                   const char *disc = std::getenv("INKSTONE_DISC"));
    VirtualMachine(const VirtualMachine &) = delete;
    VirtualMachine &operator=(const VirtualMachine &) = delete;

    Machine &machine() { return machine_; }
    Screen &screen() { return screen_; }
    VirtualPointer &pointer() { return pointer_; }
    Input &input() { return input_; }
    // The host's events, for the window with the focus unless another is named.
    void post_key(HWND window, std::int32_t scan_code, bool down);
    void post_move(HWND window, Point client);
    void post_button(HWND window, std::int32_t button, std::int32_t down);
    // Releases every held key, for a window that loses the focus and will not see the user release them.
    void post_releases(HWND window);

    HWND open_window(const char *title, std::int32_t width, std::int32_t height,
                     HOST_WINDOW_PROCEDURE procedure) override;
    void close_window(HWND window) override;

    // The script interpreter pumps before every instruction, so a queue in which nothing waits is told by two
    // comparisons.
    bool peek(Message &message) override {
        const std::uint64_t now = clock_.tick();
        return (now >= wake_ || !queue_.empty()) && take(message, now);
    }
    std::uint32_t idle_peeks() override;
    void skip_peeks(std::uint32_t count) override { clock_.advance(count); }
    bool get(Message &message) override;
    void dispatch(const Message &message) override;
    void post(const Message &message) override { queue_.post(message); }
    void post_quit(std::int32_t exit_code) override { queue_.post_quit(exit_code); }
    void rest(std::uint32_t milliseconds) override;
    void message_box(HWND owner, const char *text, const char *caption, std::uint32_t style) override;

    bool set_timer(HWND window, std::uint32_t id, std::uint32_t interval_ms,
                   TimerProcedure procedure) override;
    bool kill_timer(HWND window, std::uint32_t id) override;
    std::uint32_t milliseconds() override;

    std::tm local_time() override;
    std::optional<std::string> setting(const char *name) override;
    bool is_cdrom(std::int32_t drive) override;

    std::uint64_t clock() override { return clock_.tick(); }
    std::uint64_t now() override { return clock_.now(); }
    bool has_simulated_clock() override { return clock_.simulated(); }
    void advance_clock(std::uint64_t microseconds) override;
    void set_timer_resolution(std::uint32_t milliseconds) override;
    void key(std::int32_t scan_code, bool down) override;
    void pointer_move(std::int32_t x, std::int32_t y) override;
    void pointer_button(std::int32_t button, std::int32_t down) override;
    void set_local_time(const DateTime &time) override;
    void set_setting(const char *name, const char *value) override;
    bool window_size(HWND window, std::int32_t &width, std::int32_t &height) override;
    bool read_indices(HWND window, std::uint8_t *indices) override;
    bool read_picture(HWND window, std::uint8_t *rgb) override;
    void read_palette(std::uint8_t *palette) override;
    void capture_sound(bool on) override { loudspeaker_.capture(on); }
    std::size_t read_sound(std::int16_t *stereo, std::size_t frames) override {
        return loudspeaker_.read(stereo, frames);
    }
    bool insert_disc(const char *name) override { return loudspeaker_.drive().insert(name); }
    void eject_disc() override { loudspeaker_.drive().eject(); }

  private:
    bool take(Message &message, std::uint64_t now);
    void reckon_wake() { wake_ = std::min(service_due_, timers_.next_due()); }

    Clock clock_;
    Loudspeaker loudspeaker_;  // outlives the ends, whose sound device draws on it
    std::unique_ptr<Ends> ends_;
    MessageQueue queue_;
    WindowTimers timers_;
    Screen screen_;
    VirtualPointer pointer_;
    Input input_;
    std::map<std::string, std::string, std::less<>> settings_;
    // The time of day that was set, in seconds, and what the clock stood at then.
    std::optional<std::int64_t> time_of_day_;
    std::uint64_t time_set_ = 0;
    std::uint64_t timer_resolution_;  // microseconds
    std::uint64_t service_due_ = 0;
    std::uint64_t wake_ = 0;  // before this time nothing but a posted message can come
    Machine machine_;
};

}  // namespace ink::host
