#include "pointer.h"

#include <inkstone/inkstone.h>

#include "layout.h"

namespace moon {
namespace {

constexpr const char *kNames[] = {"c_arrow", "c_walk", "c_hand", "c_talk"};
constexpr int kShapes = 4, kNone = 63;

}  // namespace

void load_pointers() {
    for (int i = 0; i < kShapes; ++i)
        MOUSE_load_image_cursor(i, (std::string(kNames[i]) + ".can").c_str(), nullptr);
    MOUSE_show(0);
    show_pointer(Pointer::kArrow);
}

void show_pointer(Pointer shape) {
    static Point spots[kShapes];
    static bool known = false;
    for (int i = 0; i < kShapes && !known; ++i) spots[i] = layout_point("cursor", kNames[i], {1, 1});
    known = true;
    const int index = static_cast<int>(shape);
    MOUSE_set_cursor(index);
    MOUSE_set_spot(spots[index].x, spots[index].y);
}

void hide_pointer() {
    MOUSE_set_cursor(kNone);
}

}  // namespace moon
