// The pointer of a machine made in software: its position, its shape, and whether it shows.
#pragma once

#include <functional>

#include "host/host.h"

namespace ink::host {

class VirtualPointer final : public Pointer {
  public:
    Point position() const { return position_; }  // in the client area of the window with the focus
    HCURSOR cursor() const { return cursor_; }
    bool shown() const { return show_count_ >= 0; }
    void move_to(Point position) { position_ = position; }
    // What to do when the shape or the showing changed, and when the library moved the pointer.
    void on_change(std::function<void()> action) { changed_ = std::move(action); }
    void on_warp(std::function<void()> action) { warped_ = std::move(action); }

    HCURSOR load_arrow() override;
    // A shape's handle is its number.
    HCURSOR load_cursor(std::int32_t shape) override;
    void set_cursor(HCURSOR cursor) override;
    void show_cursor(bool show) override;
    Point client_to_screen(HWND window, Point point) override;
    void set_cursor_position(Point screen) override;

  private:
    // Where on the screen the client area of every window begins, inside its frame.
    static constexpr Point kClientArea{4, 30};
    static Point moved(Point point, std::int64_t times);

    Point position_;
    HCURSOR cursor_ = nullptr;
    std::int32_t show_count_ = 0;
    std::function<void()> changed_, warped_;
};

}  // namespace ink::host
