// The machine parts of the demo game: its window, its screen buffer and palette, and the order in which the
// families are started and stopped.
#pragma once

#include <inkstone/inkstone.h>

#include <array>
#include <cstdint>
#include <vector>

namespace demo {

// A palette of 256 entries, components 0 to 63.
using Palette = std::array<std::uint8_t, 768>;

// Where the colours of the demo's palette begin, 16 of each kind.
enum Ramp : std::int32_t {
    kSky = 16,        // 32 of them, from the zenith to the horizon
    kWater = 48,      // these go round in a ring
    kMountain = 64,   // dark to pale
    kPaper = 80,      // shade to light
    kVermilion = 96,  // dark to bright, as all that follow
    kJade = 112,
    kGold = 128,
    kInk = 144,
    kWood = 160,
};
// The fixed colours of PAL_make_system_color that the demo uses.
enum SystemColour : std::int32_t { kWhite = 7, kBlack = 8 };

Palette make_palette();

class Game {
  public:
    Game();
    Game(const Game &) = delete;
    Game &operator=(const Game &) = delete;

    // Starts all families; false when there is no window to be had.
    bool start();
    // Runs the quit procedures, newest first.
    void stop();

    bool running() const;
    HWND window() const { return window_; }
    std::uint8_t *screen() { return screen_.data(); }
    const Palette &palette() const { return palette_; }

    // Fades the displayed palette to the given one, or to black.
    void fade_in(const Palette &palette);
    void fade_out();
    // The ring of water colours one step further; the screen changes at once, without a present.
    void turn_water();
    void play(int sound);

    enum Sound { kClick, kChime, kSounds };

  private:
    void start_sound();
    void start_music();

    HWND window_ = nullptr;
    std::vector<std::uint8_t> screen_;
    Palette palette_;
    Palette target_{};  // of the fade
};

}  // namespace demo
