#include "host/machine/pointer.h"

#include "host/observer.h"

namespace ink::host {
HCURSOR VirtualPointer::load_arrow() {
    allowed("load_arrow");
    return HOST_load_cursor(HOST_CURSOR_ARROW);
}

void VirtualPointer::set_cursor(HCURSOR cursor) {
    allowed("set_cursor %llu", static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(cursor)));
    if (cursor_ == cursor) return;
    cursor_ = cursor;
    if (changed_) changed_();
}

void VirtualPointer::show_cursor(bool show) {
    allowed("show_cursor %d", show);
    show_count_ += show ? 1 : -1;
    if (changed_) changed_();
}

Point VirtualPointer::client_to_screen(HWND window, Point point) {
    allowed("client_to_screen %u %d %d", static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(window)),
            point.x, point.y);
    return point;
}

void VirtualPointer::set_cursor_position(Point screen) {
    allowed("set_cursor_position %d %d", screen.x, screen.y);
    position_ = screen;
    if (warped_) warped_();
}

}  // namespace ink::host
