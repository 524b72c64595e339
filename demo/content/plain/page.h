// A page of 640 x 480 palette indices and the strokes that the plain pictures are made of.
#pragma once

#include <cstdint>
#include <vector>

namespace plain {

// Where the ramps of the palette begin.
enum Ramp : int {
    kSky = 16,
    kWater = 48,
    kStone = 64,
    kWood = 80,
    kPaper = 96,
    kVermilion = 112,
    kJade = 128,
    kGold = 144,
    kInk = 160,
    kSkin = 176,
    kIndigo = 184,
    kPlum = 192,
    kStraw = 200,
    kTeal = 208,
    kMountain = 216,
    kWindow = 232,
    kMoon = 240,
};

class Page {
  public:
    Page();
    std::uint8_t *pixels() { return pixels_.data(); }
    const std::vector<std::uint8_t> &all() const { return pixels_; }

    // Bands from one tone of a ramp to another, which melt into each other over a checkerboard.
    void shade(int left, int top, int right, int bottom, int first, int last);
    void bar(int left, int top, int right, int bottom, int colour);
    void ellipse(int x, int y, int half_width, int half_height, int colour);
    // A shape between two slanted sides.
    void trapeze(int top, int top_left, int top_right, int bottom, int bottom_left, int bottom_right,
                 int colour);
    // A mountain ridge down to foot, its line made of few random points.
    void ridge(unsigned seed, int top, int foot, int roughness, int colour);
    // Water whose tones go round with the ring.
    void water(int left, int top, int right, int bottom);
    // Boards seen from above, wider towards the front.
    void boards(int top, int bottom, int first, int last);

  private:
    std::vector<std::uint8_t> pixels_;
};

}  // namespace plain
