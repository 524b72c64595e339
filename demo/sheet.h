// The sheet that is painted on, and what a brush can do to it.
#pragma once

#include <cstdint>
#include <vector>

#include "layout.h"

namespace moon {

class Sheet {
  public:
    Sheet(int size, int paper);

    // The brush: its colour, and its radius in pixels.
    void take(int colour, int radius);

    void line(Point from, Point to);
    void circle(Point middle, Point edge);
    void fill(Point at);
    void wipe();

    // Remembers the picture, and brings it back.
    void remember() { before_ = pixels_; }
    void undo() { pixels_.swap(before_); }
    void restore() { pixels_ = before_; }

    const std::vector<std::uint8_t> &pixels() const { return pixels_; }

  private:
    void dab(int x, int y);

    int size_, paper_, colour_ = 1, radius_ = 3;
    std::vector<std::uint8_t> pixels_, before_;
};

}  // namespace moon
