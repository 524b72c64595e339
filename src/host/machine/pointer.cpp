#include "host/machine/pointer.h"

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

Point VirtualPointer::client_to_screen(HWND, Point point) {
    return point;
}

void VirtualPointer::set_cursor_position(Point screen) {
    position_ = screen;
    if (warped_) warped_();
}

}  // namespace ink::host
