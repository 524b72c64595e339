#include "host/machine/pointer.h"

#include <algorithm>
#include <limits>

namespace ink::host {

HCURSOR VirtualPointer::load_arrow() {
    return load_cursor(HOST_CURSOR_ARROW);
}

HCURSOR VirtualPointer::load_cursor(std::int32_t shape) {
    return reinterpret_cast<HICON>(static_cast<std::uintptr_t>(static_cast<std::uint32_t>(shape)));
}

void VirtualPointer::set_cursor(HCURSOR cursor) {
    if (cursor_ == cursor) return;
    cursor_ = cursor;
    if (changed_) changed_();
}

void VirtualPointer::show_cursor(bool show) {
    show_count_ += show ? 1 : -1;
    if (changed_) changed_();
}

// Positions at the ends of the number range stay there.
Point VirtualPointer::moved(Point point, std::int64_t times) {
    using Limits = std::numeric_limits<std::int32_t>;
    const auto axis = [times](std::int64_t at, std::int64_t by) {
        return static_cast<std::int32_t>(
            std::clamp<std::int64_t>(at + times * by, Limits::min(), Limits::max()));
    };
    return {axis(point.x, kClientArea.x), axis(point.y, kClientArea.y)};
}

Point VirtualPointer::client_to_screen(HWND window, Point point) {
    return window != nullptr ? moved(point, 1) : point;
}

void VirtualPointer::set_cursor_position(Point screen) {
    position_ = moved(screen, -1);
    if (warped_) warped_();
}

}  // namespace ink::host
