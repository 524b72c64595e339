#include "sheet.h"

#include <inkstone/inkstone.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace moon {

Sheet::Sheet(int size, int paper)
    : size_(size),
      paper_(paper),
      pixels_(static_cast<std::size_t>(size) * static_cast<std::size_t>(size),
              static_cast<std::uint8_t>(paper)),
      before_(pixels_) {}

void Sheet::take(int colour, int radius) {
    colour_ = colour;
    radius_ = radius;
}

// A round touch of the brush, row by row.
void Sheet::dab(int x, int y) {
    for (int row = -radius_; row <= radius_; ++row) {
        int half = 0;
        while ((half + 1) * (half + 1) + row * row <= radius_ * radius_ + radius_) ++half;
        MEM_line(x - half, y + row, x + half, y + row, colour_, size_, size_, pixels_.data());
    }
}

void Sheet::line(Point from, Point to) {
    const int steps = std::max({std::abs(to.x - from.x), std::abs(to.y - from.y), 1});
    for (int i = 0; i <= steps; ++i)
        dab(from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps);
}

// With the brush, a degree after the other, so that it is as thick all round and holds a fill.
void Sheet::circle(Point middle, Point edge) {
    const int dx = edge.x - middle.x, dy = edge.y - middle.y;
    const int radius = static_cast<int>(std::lround(std::sqrt(dx * dx + dy * dy)));
    Point last{middle.x + radius, middle.y};
    for (int degrees = 1; degrees <= 360; ++degrees) {
        const Point next{middle.x + ((radius * int_cos(degrees) + 32768) >> 16),
                         middle.y + ((radius * int_sin(degrees) + 32768) >> 16)};
        line(last, next);
        last = next;
    }
}

void Sheet::fill(Point at) {
    MEM_fill(at.x, at.y, colour_, size_, size_, pixels_.data());
}

void Sheet::wipe() {
    std::fill(pixels_.begin(), pixels_.end(), static_cast<std::uint8_t>(paper_));
}

}  // namespace moon
