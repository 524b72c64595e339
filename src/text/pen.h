// Where the next character goes: text runs to the right, from line to line, and from the bottom of its area
// on at the top.
#pragma once

#include <cstdint>

namespace ink::text {

struct TextArea {
    std::int32_t left, top, right, bottom;
};

class Pen {
  public:
    Pen(std::int64_t x, std::int64_t y) : x_(x), y_(y) {}

    std::int64_t x() const { return x_; }
    std::int64_t y() const { return y_; }

    void advance(std::int32_t columns, bool zoom) {
        x_ += zoom ? 2 * columns : columns;
        line_was_zoomed_ |= zoom;
    }
    // Begins a new line once fewer than line_end columns are left; a line is twice as high when it has text
    // of double size. Returns whether that led below the area, so that the text goes on at its top.
    bool wrap(const TextArea &area, std::int32_t line_end, std::int32_t line_height) {
        if (x_ > std::int64_t{area.right} - line_end) {
            x_ = area.left;
            y_ += line_was_zoomed_ ? 2 * line_height : line_height;
            line_was_zoomed_ = false;
        }
        if (y_ <= area.bottom) return false;
        y_ = area.top;
        return true;
    }

  private:
    std::int64_t x_, y_;
    bool line_was_zoomed_ = false;
};

}  // namespace ink::text
