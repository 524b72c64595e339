// The only door to the machine. The library asks for nothing of the system outside these small interfaces,
// whose operations stand one for one for the calls of a Windows machine, so that the same families run on
// every host and the order of their platform calls can be observed. Any window handle may be given, null
// included. What a machine does not offer it leaves to the answer given here, which refuses. No operation
// ends in an exception: what there is no memory for is refused.
#pragma once

#include <cstdint>
#include <cstring>
#include <ctime>
#include <optional>
#include <span>
#include <string>

#include "inkstone/host.h"

namespace ink::host {

struct Message {
    HWND window = nullptr;
    UINT id = 0;
    WPARAM wparam = 0;
    LPARAM lparam = 0;
};

// not covered from here: the machines that run where this is counted answer for themselves; Windows' own does not

// The thread's message queue.
class Messages {
  public:
    // Takes the next message out of the queue; false when there is none. Never waits. A quit request is a
    // message with the number WM_QUIT that comes when every message posted before it is taken.
    virtual bool peek(Message &message) = 0;
    // How many of the next calls of peek are certain to find nothing, if nothing else is asked of the machine
    // between them and they come within a microsecond of each other. Up to that many may be left out, if
    // skip_peeks is told their number before anything else is asked: nobody can then see a difference. A
    // machine that cannot tell says 0.
    virtual std::uint32_t idle_peeks() { return 0; }
    virtual void skip_peeks(std::uint32_t /*count*/) {}
    // Waits for the next message and takes it; false when it is the quit request, or when nothing can ever
    // come.
    virtual bool get(Message &message) = 0;
    virtual void translate(const Message &);
    virtual void dispatch(const Message &message) = 0;
    virtual void post(const Message &message) = 0;
    virtual void post_quit(std::int32_t exit_code) = 0;
    // Lets the processor rest until something may have changed for one who waits: until a message comes, a
    // timer falls due or milliseconds() has gone on by so many. A machine whose time is simulated has nothing to
    // wait for.
    virtual void rest(std::uint32_t /*milliseconds*/) {}
    // Shows a box with one button and waits until it is closed. Where there are no boxes its text goes to
    // the standard error output.
    virtual void message_box(HWND owner, const char *text, const char *caption, std::uint32_t style);

  protected:
    ~Messages() = default;
};

inline constexpr std::uint32_t kMessageBoxExclamation = 0x30;
inline constexpr std::uint32_t kMessageBoxTaskModal = 0x2000;

// On Windows it is the system that calls it.
#if defined(_WIN32)
#define INK_TIMER_CALL CALLBACK
#else
#define INK_TIMER_CALL
#endif
using TimerProcedure = void(INK_TIMER_CALL *)(HWND window, UINT message, std::uintptr_t id,
                                              std::uint32_t milliseconds);

// Window timers, which fire inside message dispatch with at most one event pending each, and the clock.
class Timers {
  public:
    virtual bool set_timer(HWND, std::uint32_t /*id*/, std::uint32_t /*interval_ms*/, TimerProcedure) {
        return false;
    }
    virtual bool kill_timer(HWND, std::uint32_t /*id*/) { return false; }
    // Milliseconds since an arbitrary origin, wrapping at 2^32.
    virtual std::uint32_t milliseconds() = 0;

  protected:
    ~Timers() = default;
};

struct Color {
    std::uint8_t red = 0, green = 0, blue = 0;
    bool operator==(const Color &) const = default;
};

enum class DeviceContext : std::uintptr_t { none = 0 };
enum class PaletteHandle : std::uintptr_t { system = 0 };

// A top-down 8-bit bitmap of palette indices, whose rows begin stride bytes apart.
struct Bitmap {
    std::int32_t width = 0, height = 0, stride = 0;
    const std::uint8_t *pixels = nullptr;
    std::span<const Color> colors;  // 256
};

// The window's picture and the 256-entry hardware palette.
class Display {
  public:
    virtual DeviceContext get_context(HWND) { return DeviceContext::none; }
    virtual void release_context(HWND, DeviceContext) {}
    virtual PaletteHandle create_palette(std::span<const Color>) { return PaletteHandle::system; }
    // A palette that is selected stays, and so does the system's.
    virtual void delete_palette(PaletteHandle) {}
    // Returns the palette that was selected before.
    virtual PaletteHandle select_palette(DeviceContext, PaletteHandle) { return PaletteHandle::system; }
    // Puts the selected palette into the hardware; the number of entries that changed.
    virtual std::uint32_t realize_palette(DeviceContext) { return 0; }
    virtual void update_colors(DeviceContext) {}
    // Replaces entries start and on of the palette; when it is the realized one the change shows at once.
    virtual void animate_palette(PaletteHandle, std::int32_t /*start*/, std::span<const Color>) {}
    // Copies the bitmap, unscaled, so that its first pixel lands on the client position (x, y).
    virtual void copy_bitmap(DeviceContext, std::int32_t /*x*/, std::int32_t /*y*/, const Bitmap &) {}

  protected:
    ~Display() = default;
};

struct Point {
    std::int32_t x = 0, y = 0;
    bool operator==(const Point &) const = default;
};

class Pointer {
  public:
    virtual HCURSOR load_arrow() { return nullptr; }
    // The shape of that HOST_CURSOR_ number; the arrow where the machine does not have it.
    virtual HCURSOR load_cursor(std::int32_t /*shape*/) { return load_arrow(); }
    virtual void set_cursor(HCURSOR) {}
    // Counted: the cursor shows while the count is not negative. It starts at 0.
    virtual void show_cursor(bool) {}
    virtual Point client_to_screen(HWND, Point point) { return point; }
    virtual void set_cursor_position(Point /*screen*/) {}

  protected:
    ~Pointer() = default;
};

struct WaveFormat {
    std::uint16_t tag = 1;  // PCM
    std::uint16_t channels = 0;
    std::uint32_t samples_per_second = 0;
    std::uint32_t average_bytes_per_second = 0;
    std::uint16_t block_align = 0;
    std::uint16_t bits_per_sample = 0;
};

// A sound held by the device, with a format of its own.
enum class SoundBuffer : std::uintptr_t { none = 0 };

// The sound device and its buffers. A buffer that is not the device's is refused.
class Sound {
  public:
    virtual bool create() { return false; }
    virtual bool set_cooperative_level(HWND) { return false; }
    virtual void release() {}

    // None when the machine refuses the format or the size.
    virtual SoundBuffer create_buffer(const WaveFormat &, std::uint32_t /*bytes*/) {
        return SoundBuffer::none;
    }
    virtual void release_buffer(SoundBuffer) {}

    // The memory of a whole buffer, from lock to unlock. It comes in two parts where the machine's memory
    // wraps.
    struct Locked {
        std::span<std::uint8_t> first, second;
    };
    enum class LockResult { ok, lost, failed };
    virtual LockResult lock(SoundBuffer, Locked &) { return LockResult::failed; }
    virtual bool unlock(SoundBuffer, const Locked &) { return false; }
    // Gets back the memory of a buffer that was lost.
    virtual bool restore(SoundBuffer) { return false; }

    virtual std::optional<bool> playing(SoundBuffer) {  // empty when the status cannot be read
        return std::nullopt;
    }
    virtual bool play(SoundBuffer, bool /*looping*/) { return false; }
    virtual bool stop(SoundBuffer) { return false; }  // keeps the position
    virtual bool set_position(SoundBuffer, std::uint32_t /*byte*/) { return false; }
    virtual bool set_volume(SoundBuffer, std::int32_t /*hundredths_of_decibel*/) {
        return false;
    }  // -10000 to 0

  protected:
    ~Sound() = default;
};

enum class DiscTime {
    msf,   // minutes, seconds, frames (1/75 second) from the low byte up
    tmsf,  // track, minutes, seconds, frames from the low byte up
};
enum class DiscMode : std::uint32_t { not_ready = 524, stopped = 525, playing = 526 };

// The drive for audio discs. Tracks count from 1. Every operation says whether the machine carried it out.
class Disc {
  public:
    virtual bool open() { return false; }
    virtual bool close() { return false; }
    virtual bool stop() { return false; }
    virtual bool set_time_format(DiscTime) { return false; }
    virtual bool track_count(std::int32_t & /*count*/) { return false; }
    virtual bool track_length(std::int32_t /*track*/, std::uint32_t & /*packed_msf*/) { return false; }
    virtual bool mode(DiscMode &) { return false; }
    // Plays from one position to another, given in the time format set last.
    virtual bool play(std::uint32_t /*from*/, std::uint32_t /*to*/) { return false; }

  protected:
    ~Disc() = default;
};

// A time of day, of which any field may lie beyond its range and then carries into the next larger one.
struct DateTime {
    std::int32_t year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
};

// Settings, time of day and drives.
class System {
  public:
    // The standard library's.
    virtual std::tm local_time();
    // A setting of the machine's by name, empty when it is not set.
    virtual std::optional<std::string> setting(const char * /*name*/) { return std::nullopt; }
    // Whether drive 0 (A) to 25 (Z) is a CD-ROM drive.
    virtual bool is_cdrom(std::int32_t /*drive*/) { return false; }

  protected:
    ~System() = default;
};

// The windows of the machine.
class Windows {
  public:
    virtual HWND open_window(const char * /*title*/, std::int32_t /*width*/, std::int32_t /*height*/,
                             HOST_WINDOW_PROCEDURE) {
        return nullptr;
    }
    virtual void close_window(HWND) {}
    // What the machine itself does with a message that the game does not handle.
    virtual LRESULT default_procedure(HWND, UINT, WPARAM, LPARAM) { return 0; }

  protected:
    ~Windows() = default;
};

// What tools and tests do to a machine from outside: move its clock, use its keyboard and mouse, look at its
// screen. Pointers to results are not null.
class Bench {
  public:
    virtual std::uint64_t clock() { return 0; }
    // The same time without moving a simulated clock on, and whether the clock is such a one.
    virtual std::uint64_t now() { return clock(); }
    virtual bool has_simulated_clock() { return false; }
    virtual void advance_clock(std::uint64_t /*microseconds*/) {}
    virtual void set_timer_resolution(std::uint32_t /*milliseconds*/) {}
    virtual void set_local_time(const DateTime &) {}
    virtual void set_setting(const char * /*name*/, const char * /*value*/) {}
    virtual void key(std::int32_t /*scan_code*/, bool /*down*/) {}
    virtual void pointer_move(std::int32_t /*x*/, std::int32_t /*y*/) {}
    virtual void pointer_button(std::int32_t /*button*/, std::int32_t /*down*/) {}
    virtual bool window_size(HWND, std::int32_t & /*width*/, std::int32_t & /*height*/) { return false; }
    virtual bool read_indices(HWND, std::uint8_t * /*indices*/) { return false; }
    virtual bool read_picture(HWND, std::uint8_t * /*rgb*/) { return false; }
    virtual void read_palette(std::uint8_t *palette) { std::memset(palette, 0, 3 * 256); }
    virtual void capture_sound(bool /*on*/) {}
    virtual std::size_t read_sound(std::int16_t * /*stereo*/, std::size_t /*frames*/) { return 0; }
    virtual bool insert_disc(const char * /*name*/) { return false; }
    virtual void eject_disc() {}

  protected:
    ~Bench() = default;
};

// covered again

// A running machine. It is never destroyed: a game's exit handlers, which run last of all, may still use it.
struct Machine {
    const char *name;
    Windows &windows;
    Bench &bench;
    Messages &messages;
    Timers &timers;
    Display &display;
    Pointer &pointer;
    Sound &sound;
    Disc &disc;
    System &system;
};

// A host that is built into the library: opens its machine, or gives null when it cannot be had here. Each
// host defines one, called <name>_host after its folder.
struct Host {
    const char *name, *description;
    Machine *(*open)();
};

// The machine of this process, which the first call starts. While an observer is set it stands behind the one
// that tells the observer of each operation, so the result is not to be kept.
Machine &machine();

}  // namespace ink::host
