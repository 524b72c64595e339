// The pointer, the facts about the system and the bench of a machine that is recorded or replayed. What a
// program does to a recorded machine from outside comes back as what the machine answers, so on replay it
// does nothing; what it reads back is the mirror's.
#pragma once

#include "host/replay/tape.h"

namespace ink::host {

class TracedPointer final : public Pointer {
  public:
    explicit TracedPointer(Tape &tape) : tape_(tape) {}

    HCURSOR load_arrow() override { return mirror().load_arrow(); }
    HCURSOR load_cursor(std::int32_t shape) override { return mirror().load_cursor(shape); }
    void set_cursor(HCURSOR cursor) override;
    void show_cursor(bool show) override;
    Point client_to_screen(HWND window, Point point) override;
    void set_cursor_position(Point screen) override;

  private:
    Pointer &mirror() { return tape_.mirror().machine().pointer; }

    Tape &tape_;
};

class TracedSystem final : public System {
  public:
    explicit TracedSystem(Tape &tape) : tape_(tape) {}

    std::tm local_time() override;
    std::optional<std::string> setting(const char *name) override;
    bool is_cdrom(std::int32_t drive) override;

  private:
    Tape &tape_;
};

class TracedBench final : public Bench {
  public:
    explicit TracedBench(Tape &tape) : tape_(tape) {}

    std::uint64_t clock() override;
    std::uint64_t now() override { return tape_.now(); }
    bool has_simulated_clock() override { return tape_.simulated(); }
    void advance_clock(std::uint64_t microseconds) override;
    void set_timer_resolution(std::uint32_t milliseconds) override;
    void set_local_time(const DateTime &time) override;
    void set_setting(const char *name, const char *value) override;
    void key(std::int32_t scan_code, bool down) override;
    void pointer_move(std::int32_t x, std::int32_t y) override;
    void pointer_button(std::int32_t button, std::int32_t down) override;
    bool window_size(HWND window, std::int32_t &width, std::int32_t &height) override;
    bool read_indices(HWND window, std::uint8_t *indices) override;
    bool read_picture(HWND window, std::uint8_t *rgb) override;
    void read_palette(std::uint8_t *palette) override { mirror().read_palette(palette); }
    void capture_sound(bool on) override { tape_.mirror().capture(on); }
    std::size_t read_sound(std::int16_t *stereo, std::size_t frames) override {
        return tape_.mirror().read(stereo, frames);
    }
    bool insert_disc(const char *name) override;
    void eject_disc() override;

  private:
    Bench &mirror() { return tape_.mirror().machine().bench; }
    // What is done to the machine of a recorded program.
    template <class Action>
    void act(Action action) {
        if (tape_.records()) action(tape_.behind()->bench);
    }

    Tape &tape_;
};

}  // namespace ink::host
