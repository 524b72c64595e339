// The only door to the machine. The library asks for nothing of the system outside these small interfaces,
// whose operations stand one for one for the calls of a Windows machine, so that the same families run on
// every host and the order of their platform calls can be observed. Any window handle may be given, null
// included.
#pragma once

#include <cstdint>
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
    virtual void translate(const Message &message) = 0;
    virtual void dispatch(const Message &message) = 0;
    virtual void post(const Message &message) = 0;
    virtual void post_quit(std::int32_t exit_code) = 0;
    // Shows a box with one button and waits until it is closed.
    virtual void message_box(HWND owner, const char *text, const char *caption, std::uint32_t style) = 0;

  protected:
    ~Messages() = default;
};

inline constexpr std::uint32_t kMessageBoxExclamation = 0x30;
inline constexpr std::uint32_t kMessageBoxTaskModal = 0x2000;

using TimerProcedure = void (*)(HWND window, UINT message, std::uintptr_t id, std::uint32_t milliseconds);

// Window timers, which fire inside message dispatch with at most one event pending each, and the clock.
class Timers {
  public:
    virtual bool set_timer(HWND window, std::uint32_t id, std::uint32_t interval_ms,
                           TimerProcedure procedure) = 0;
    virtual bool kill_timer(HWND window, std::uint32_t id) = 0;
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
enum class PaletteHandle : std::uint32_t { system = 0 };

// A top-down 8-bit bitmap of palette indices, whose rows begin stride bytes apart.
struct Bitmap {
    std::int32_t width = 0, height = 0, stride = 0;
    const std::uint8_t *pixels = nullptr;
    std::span<const Color> colors;  // 256
};

// The window's picture and the 256-entry hardware palette.
class Display {
  public:
    virtual DeviceContext get_context(HWND window) = 0;
    virtual void release_context(HWND window, DeviceContext context) = 0;
    virtual PaletteHandle create_palette(std::span<const Color> colors) = 0;
    // Returns the palette that was selected before.
    virtual PaletteHandle select_palette(DeviceContext context, PaletteHandle palette) = 0;
    // Puts the selected palette into the hardware; the number of entries that changed.
    virtual std::uint32_t realize_palette(DeviceContext context) = 0;
    virtual void update_colors(DeviceContext context) = 0;
    // Replaces entries start and on of the palette; when it is the realized one the change shows at once.
    virtual void animate_palette(PaletteHandle palette, std::int32_t start,
                                 std::span<const Color> colors) = 0;
    // Copies the bitmap, unscaled, so that its first pixel lands on the client position (x, y).
    virtual void copy_bitmap(DeviceContext context, std::int32_t x, std::int32_t y, const Bitmap &bitmap) = 0;

  protected:
    ~Display() = default;
};

struct Point {
    std::int32_t x = 0, y = 0;
    bool operator==(const Point &) const = default;
};

class Pointer {
  public:
    virtual HCURSOR load_arrow() = 0;
    virtual void set_cursor(HCURSOR cursor) = 0;
    // Counted: the cursor shows while the count is not negative. It starts at 0.
    virtual void show_cursor(bool show) = 0;
    virtual Point client_to_screen(HWND window, Point point) = 0;
    virtual void set_cursor_position(Point screen) = 0;

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
class SoundBuffer {
  public:
    struct Locked {  // the second part is empty unless the machine's memory wraps
        std::span<std::uint8_t> first, second;
    };
    enum class LockResult { ok, lost, failed };

    virtual std::optional<bool> playing() = 0;  // empty when the status cannot be read
    virtual bool play(bool looping) = 0;
    virtual bool stop() = 0;  // keeps the position
    virtual bool set_position(std::uint32_t byte) = 0;
    virtual bool set_volume(std::int32_t hundredths_of_decibel) = 0;  // -10000 to 0
    virtual LockResult lock(Locked &whole) = 0;
    virtual bool unlock(const Locked &whole) = 0;
    virtual bool restore() = 0;
    virtual void release() = 0;

  protected:
    ~SoundBuffer() = default;
};

class Sound {
  public:
    virtual bool create() = 0;
    virtual bool set_cooperative_level(HWND window) = 0;
    // Null when the machine refuses the format or the size.
    virtual SoundBuffer *create_buffer(const WaveFormat &format, std::uint32_t bytes) = 0;
    virtual void release() = 0;

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
    virtual bool open() = 0;
    virtual bool close() = 0;
    virtual bool stop() = 0;
    virtual bool set_time_format(DiscTime format) = 0;
    virtual bool track_count(std::int32_t &count) = 0;
    virtual bool track_length(std::int32_t track, std::uint32_t &packed_msf) = 0;
    virtual bool mode(DiscMode &mode) = 0;
    // Plays from one position to another, given in the time format set last.
    virtual bool play(std::uint32_t from, std::uint32_t to) = 0;

  protected:
    ~Disc() = default;
};

// Settings, time of day and drives.
class System {
  public:
    virtual std::tm local_time() = 0;
    // A setting of the machine's by name, empty when it is not set.
    virtual std::optional<std::string> setting(const char *name) = 0;
    // Whether drive 0 (A) to 25 (Z) is a CD-ROM drive.
    virtual bool is_cdrom(std::int32_t drive) = 0;

  protected:
    ~System() = default;
};

// The windows of the machine.
class Windows {
  public:
    virtual HWND open_window(const char *title, std::int32_t width, std::int32_t height,
                             HOST_WINDOW_PROCEDURE procedure) = 0;
    virtual void close_window(HWND window) = 0;

  protected:
    ~Windows() = default;
};

// What tools and tests do to a machine from outside: move its clock, use its keyboard and mouse, look at its
// screen.
class Bench {
  public:
    virtual std::uint64_t clock() = 0;
    virtual void advance_clock(std::uint64_t microseconds) = 0;
    virtual void key(std::int32_t scan_code, bool down) = 0;
    virtual void pointer_move(std::int32_t x, std::int32_t y) = 0;
    virtual void pointer_button(std::int32_t button, std::int32_t down) = 0;
    virtual void set_local_time(const std::tm &time) = 0;
    virtual void set_setting(const char *name, const char *value) = 0;
    virtual bool window_size(HWND window, std::int32_t &width, std::int32_t &height) = 0;
    virtual bool read_indices(HWND window, std::uint8_t *indices) = 0;
    virtual bool read_picture(HWND window, std::uint8_t *rgb) = 0;
    virtual void read_palette(std::uint8_t *palette) = 0;
    virtual void capture_sound(bool on) = 0;
    virtual std::size_t read_sound(std::int16_t *stereo, std::size_t frames) = 0;
    virtual bool insert_disc(const char *name) = 0;
    virtual void eject_disc() = 0;

  protected:
    ~Bench() = default;
};

// A running machine.
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

// A machine that can be had: opens it, or gives null when it cannot be had here.
struct Host {
    const char *name, *description;
    Machine *(*open)();
};

// The hosts built into the library, the preferred one first.
std::span<const Host> hosts();

// The machine of this process, which the first call starts.
Machine &machine();

}  // namespace ink::host
