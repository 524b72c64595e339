// Image cursors: animations drawn into the screen buffer where the pointer is.
#include <algorithm>
#include <array>
#include <limits>

#include "core/counters.h"
#include "inkstone/can.h"
#include "inkstone/draw.h"
#include "inkstone/mouse.h"
#include "inkstone/timer.h"
#include "platform/mouse/pointer_state.h"

namespace {

using ink::mouse::is_cursor;

struct ImageCursor {
    ANI_DATA_STRUCT *head = nullptr;  // null while there is none
    ANI_DATA_STRUCT *next = nullptr;  // the frame shown next

    void free() {
        ANI_free_ani(head);
        head = next = nullptr;
    }
};

std::array<ImageCursor, ink::mouse::kCursors> cursors;
ink::mouse::Position spot;

// Where a frame is drawn along one axis. A sum that no position holds is far outside on the same side.
std::int32_t place(std::int64_t pointer, std::int64_t hot, std::int64_t frame, std::int64_t first) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t sum = pointer - hot + (frame - first);
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(sum, Limits::min(), Limits::max()));
}

}  // namespace

void ink::mouse::reset_image_cursors() {
    for (ImageCursor &cursor : cursors) cursor.free();
    spot = {};
}

int32_t MOUSE_load_image_cursor(int32_t index, const char *file_name, uint8_t *work) {
    if (!is_cursor(index)) return -2;
    ImageCursor &cursor = cursors[static_cast<std::size_t>(index)];
    cursor.free();
    if (CAN_read_file(file_name, &cursor.head, work) < 0) {
        cursor.free();
        return -2;
    }
    cursor.next = cursor.head->next;
    return 0;
}

void MOUSE_show_image_cursor(uint8_t *buffer) {
    ImageCursor &cursor = cursors[static_cast<std::size_t>(ink::mouse::current_cursor())];
    if (cursor.head == nullptr || cursor.next == nullptr) return;
    const ANI_DATA_STRUCT &first = *cursor.head->next, &frame = *cursor.next;
    const auto [x, y] = ink::mouse::position();
    BUF_pest_image(place(x, spot.x, frame.x, first.x), place(y, spot.y, frame.y, first.y), frame.image,
                   buffer);
    if (GetTimerTick(ink::kCursorCounter) <= 1) return;
    cursor.next = frame.next != nullptr ? frame.next : cursor.head->next;
    SetTimerTick(ink::kCursorCounter, 0);
}

void MOUSE_set_spot(int32_t x, int32_t y) {
    spot = {x, y};
}
