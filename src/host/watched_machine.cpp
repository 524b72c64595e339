#include "host/watched_machine.h"

#include <algorithm>
#include <charconv>
#include <concepts>
#include <cstring>
#include <type_traits>

namespace ink::host {
namespace {

// Four fields of a byte each, told with colons between them.
struct Fields {
    std::uint32_t packed;
};

// An operation as it is told: its name and its arguments, with blanks between them, cut off where there is no
// more room.
class Line {
  public:
    template <class... Arguments>
    explicit Line(const char *operation, Arguments... arguments) {
        add(operation);
        ((add(" "), add(arguments)), ...);
    }
    const char *text() {
        *end_ = '\0';
        return text_;
    }

  private:
    void add(const char *words) {
        const std::size_t length = std::min(words != nullptr ? std::strlen(words) : 0, room());
        end_ = std::copy_n(words, length, end_);
    }
    void add(Fields fields) {
        for (unsigned shift = 0; shift < 32; shift += 8) {
            if (shift > 0) add(":");
            add(fields.packed >> shift & 0xFF);
        }
    }
    void add(bool flag) { add(int{flag}); }
    template <class Handle>
    requires std::is_pointer_v<Handle> || std::is_enum_v<Handle>
    void add(Handle handle) {
        if constexpr (std::is_pointer_v<Handle>)
            add(reinterpret_cast<std::uintptr_t>(handle));
        else
            add(static_cast<std::uintptr_t>(handle));
    }
    template <std::integral Number>
    void add(Number number) {
        const auto [end, error] = std::to_chars(end_, end_ + room(), number);
        if (error == std::errc()) end_ = end;
    }
    std::size_t room() const { return static_cast<std::size_t>(text_ + sizeof text_ - 1 - end_); }

    char text_[512];
    char *end_ = text_;
};

class WatchedMachine final : public Windows,
                             public Messages,
                             public Timers,
                             public Display,
                             public Pointer,
                             public Sound,
                             public Disc,
                             public System {
  public:
    WatchedMachine(Machine &behind, const HOST_OBSERVER &observer)
        : behind_(behind), observer_(observer), machine_{behind.name, *this, behind.bench, *this, *this,
                                                         *this,       *this, *this,        *this, *this} {}

    Machine &machine() { return machine_; }

    // ---- Windows ----

    HWND open_window(const char *title, std::int32_t width, std::int32_t height,
                     HOST_WINDOW_PROCEDURE procedure) override {
        if (!allowed("open_window", width, height)) return nullptr;
        return behind_.windows.open_window(title, width, height, procedure);
    }
    void close_window(HWND window) override {
        tell("close_window", window);
        behind_.windows.close_window(window);
    }
    // Every message may come by here.
    LRESULT default_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) override {
        return behind_.windows.default_procedure(window, message, wparam, lparam);
    }

    // ---- Messages ----

    // The queue itself, of which a wait asks a thousand times, is not told of.
    bool peek(Message &message) override { return behind_.messages.peek(message); }
    std::uint32_t idle_peeks() override { return behind_.messages.idle_peeks(); }
    void skip_peeks(std::uint32_t count) override { behind_.messages.skip_peeks(count); }
    bool get(Message &message) override { return behind_.messages.get(message); }
    void translate(const Message &message) override { behind_.messages.translate(message); }
    void dispatch(const Message &message) override { behind_.messages.dispatch(message); }
    void post(const Message &message) override { behind_.messages.post(message); }
    void post_quit(std::int32_t exit_code) override { behind_.messages.post_quit(exit_code); }
    void rest(std::uint32_t milliseconds) override { behind_.messages.rest(milliseconds); }
    void message_box(HWND owner, const char *text, const char *caption, std::uint32_t style) override {
        if (allowed("message_box", owner, style, caption, text))
            behind_.messages.message_box(owner, text, caption, style);
    }

    // ---- Timers ----

    bool set_timer(HWND window, std::uint32_t id, std::uint32_t interval_ms,
                   TimerProcedure procedure) override {
        return allowed("set_timer", window, id, interval_ms) &&
               behind_.timers.set_timer(window, id, interval_ms, procedure);
    }
    bool kill_timer(HWND window, std::uint32_t id) override {
        tell("kill_timer", window, id);
        return behind_.timers.kill_timer(window, id);
    }
    std::uint32_t milliseconds() override { return behind_.timers.milliseconds(); }

    // ---- Display ----

    DeviceContext get_context(HWND window) override {
        return allowed("get_context", window) ? behind_.display.get_context(window) : DeviceContext::none;
    }
    void release_context(HWND window, DeviceContext context) override {
        tell("release_context", window);
        behind_.display.release_context(window, context);
    }
    PaletteHandle create_palette(std::span<const Color> colors) override {
        return allowed("create_palette", colors.size()) ? behind_.display.create_palette(colors)
                                                        : PaletteHandle::system;
    }
    void delete_palette(PaletteHandle palette) override {
        tell("delete_palette", palette);
        behind_.display.delete_palette(palette);
    }
    PaletteHandle select_palette(DeviceContext context, PaletteHandle palette) override {
        tell("select_palette", palette);
        return behind_.display.select_palette(context, palette);
    }
    std::uint32_t realize_palette(DeviceContext context) override {
        return allowed("realize_palette") ? behind_.display.realize_palette(context) : 0;
    }
    void update_colors(DeviceContext context) override {
        tell("update_colors");
        behind_.display.update_colors(context);
    }
    void animate_palette(PaletteHandle palette, std::int32_t start, std::span<const Color> colors) override {
        tell("animate_palette", palette, start, colors.size());
        behind_.display.animate_palette(palette, start, colors);
    }
    void copy_bitmap(DeviceContext context, std::int32_t x, std::int32_t y, const Bitmap &bitmap) override {
        if (allowed("copy_bitmap", context, x, y, bitmap.width, bitmap.height, bitmap.stride))
            behind_.display.copy_bitmap(context, x, y, bitmap);
    }

    // ---- Pointer ----

    HCURSOR load_arrow() override { return allowed("load_arrow") ? behind_.pointer.load_arrow() : nullptr; }
    HCURSOR load_cursor(std::int32_t shape) override {
        return allowed("load_cursor", shape) ? behind_.pointer.load_cursor(shape) : nullptr;
    }
    void set_cursor(HCURSOR cursor) override {
        tell("set_cursor", cursor);
        behind_.pointer.set_cursor(cursor);
    }
    void show_cursor(bool show) override {
        tell("show_cursor", show);
        behind_.pointer.show_cursor(show);
    }
    Point client_to_screen(HWND window, Point point) override {
        tell("client_to_screen", window, point.x, point.y);
        return behind_.pointer.client_to_screen(window, point);
    }
    void set_cursor_position(Point screen) override {
        if (allowed("set_cursor_position", screen.x, screen.y)) behind_.pointer.set_cursor_position(screen);
    }

    // ---- Sound ----

    bool create() override { return allowed("create_sound") && behind_.sound.create(); }
    bool set_cooperative_level(HWND window) override {
        return allowed("set_cooperative_level", window) && behind_.sound.set_cooperative_level(window);
    }
    void release() override {
        tell("release_sound");
        behind_.sound.release();
    }
    SoundBuffer create_buffer(const WaveFormat &format, std::uint32_t bytes) override {
        if (!allowed("create_buffer", format.channels, format.samples_per_second, format.bits_per_sample,
                     bytes))
            return SoundBuffer::none;
        return behind_.sound.create_buffer(format, bytes);
    }
    void release_buffer(SoundBuffer buffer) override {
        tell("release_buffer", buffer);
        behind_.sound.release_buffer(buffer);
    }
    LockResult lock(SoundBuffer buffer, Locked &whole) override {
        constexpr std::int32_t kLostMemory = 2;
        const std::int32_t refusal = tell("lock_buffer", buffer);
        if (refusal != 0) return refusal == kLostMemory ? LockResult::lost : LockResult::failed;
        return behind_.sound.lock(buffer, whole);
    }
    bool unlock(SoundBuffer buffer, const Locked &whole) override {
        return allowed("unlock_buffer", buffer) && behind_.sound.unlock(buffer, whole);
    }
    bool restore(SoundBuffer buffer) override {
        return allowed("restore_buffer", buffer) && behind_.sound.restore(buffer);
    }
    std::optional<bool> playing(SoundBuffer buffer) override {
        return allowed("buffer_status", buffer) ? behind_.sound.playing(buffer) : std::nullopt;
    }
    bool play(SoundBuffer buffer, bool looping) override {
        return allowed("play_buffer", buffer, looping) && behind_.sound.play(buffer, looping);
    }
    bool stop(SoundBuffer buffer) override {
        return allowed("stop_buffer", buffer) && behind_.sound.stop(buffer);
    }
    bool set_position(SoundBuffer buffer, std::uint32_t byte) override {
        return allowed("set_buffer_position", buffer, byte) && behind_.sound.set_position(buffer, byte);
    }
    bool set_volume(SoundBuffer buffer, std::int32_t volume) override {
        return allowed("set_buffer_volume", buffer, volume) && behind_.sound.set_volume(buffer, volume);
    }

    // ---- Disc ----

    bool open() override { return allowed("open_disc") && behind_.disc.open(); }
    bool close() override { return allowed("close_disc") && behind_.disc.close(); }
    bool stop() override { return allowed("stop_disc") && behind_.disc.stop(); }
    bool set_time_format(DiscTime format) override {
        return allowed("set_disc_time_format", format == DiscTime::msf ? "msf" : "tmsf") &&
               behind_.disc.set_time_format(format);
    }
    bool track_count(std::int32_t &count) override {
        return allowed("disc_track_count") && behind_.disc.track_count(count);
    }
    bool track_length(std::int32_t track, std::uint32_t &packed_msf) override {
        return allowed("disc_track_length", track) && behind_.disc.track_length(track, packed_msf);
    }
    bool mode(DiscMode &mode) override { return allowed("disc_mode") && behind_.disc.mode(mode); }
    bool play(std::uint32_t from, std::uint32_t to) override {
        return allowed("play_disc", Fields{from}, Fields{to}) && behind_.disc.play(from, to);
    }

    // ---- System ----

    std::tm local_time() override { return behind_.system.local_time(); }
    std::optional<std::string> setting(const char *name) override {
        return allowed("setting", name) ? behind_.system.setting(name) : std::nullopt;
    }
    bool is_cdrom(std::int32_t drive) override {
        return allowed("is_cdrom", drive) && behind_.system.is_cdrom(drive);
    }

  private:
    // The observer's answer to an operation: 0 when it may happen.
    template <class... Arguments>
    std::int32_t tell(const char *operation, Arguments... arguments) {
        return observer_ != nullptr ? observer_(Line(operation, arguments...).text()) : 0;
    }
    template <class... Arguments>
    bool allowed(const char *operation, Arguments... arguments) {
        return tell(operation, arguments...) == 0;
    }

    Machine &behind_;
    const HOST_OBSERVER &observer_;
    Machine machine_;
};

}  // namespace

Machine &watch(Machine &machine, const HOST_OBSERVER &observer) {
    return (new WatchedMachine(machine, observer))->machine();
}

}  // namespace ink::host
