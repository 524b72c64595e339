// One row for each exported function that draws or sets colours, at one size: 64 x 64 pixels at changing places.
// What has a limit or a peer to stand beside is measured at more sizes in the other files.
#include "inkstone/inkstone.h"
#include "stage.h"

using bench::kHeight;
using bench::kWidth;
using bench::Stage;

namespace {

constexpr int kSize = 64;
std::uint8_t palette[768];

struct Row {
    const char *name;
    void (*call)(Stage &s, int x, int y);
};

#define ROW(function, ...)                                                                           \
    {                                                                                                \
#function, [](Stage & s, int x, int y) { (void)s, (void)x, (void)y, function(__VA_ARGS__); } \
    }
#define RECTANGLE x, y, x + s.w - 1, y + s.h - 1
#define MEMORY kWidth, kHeight, s.screen
#define BITMAP x, y, s.w, s.h, s.pixels

int corners[4];

const Row kRows[] = {
    ROW(BUF_put_pixel, x, y, 3, s.screen),
    ROW(BUF_get_pixel, x, y, s.screen),
    ROW(BUF_bar, RECTANGLE, 3, s.screen),
    ROW(BUF_mesh_bar, RECTANGLE, 3, s.screen),
    ROW(BUF_box, RECTANGLE, 3, s.screen),
    ROW(BUF_dash_box, RECTANGLE, 3, 4, s.screen),
    ROW(BUF_put_image, x, y, s.image, s.screen),
    ROW(BUF_pest_image, x, y, s.image, s.screen),
    ROW(BUF_put_bitmap, BITMAP, s.screen),
    ROW(BUF_pest_bitmap, BITMAP, s.screen),
    ROW(BUF_get_image, x, y, s.w, s.h, s.work, s.screen),
    ROW(BUF_get_bitmap, x, y, s.w, s.h, s.work, s.screen),
    ROW(BUF_change_color, RECTANGLE, 1, 1, s.screen),
    ROW(MEM_put_pixel, x, y, 3, MEMORY),
    ROW(MEM_get_pixel, x, y, MEMORY),
    ROW(MEM_box, RECTANGLE, 3, MEMORY),
    ROW(MEM_put_image, x, y, s.image, s.screen, kWidth, kHeight),
    ROW(MEM_pest_image, x, y, s.image, s.screen, kWidth, kHeight),
    ROW(MEM_put_bitmap, BITMAP, s.screen, kWidth, kHeight),
    ROW(MEM_pest_bitmap, BITMAP, s.screen, kWidth, kHeight),
    ROW(MEM_get_image, x, y, s.w, s.h, s.work, s.screen, kWidth, kHeight),
    ROW(MEM_draw_point_cross, x, y, 3, MEMORY),
    {"MEM_operate_image_size",
     [](Stage &s, int, int) {
         corners[0] = corners[1] = 0, corners[2] = s.w, corners[3] = s.h;
         MEM_operate_image_size(&corners[0], &corners[1], &corners[2], &corners[3], s.w, s.h, s.pixels);
     }},
    ROW(IMG_put_image, x, y, s.image, s.work),
    ROW(IMG_pest_image, x, y, s.image, s.work),
    ROW(IMG_get_image_size, s.image, &corners[0], &corners[1]),
    ROW(BUF_mask_pest_image, x, y, s.image, s.screen, 3),
    ROW(BUF_outline_pest_image, x, y, s.image, 3, 1, s.screen, s.work),
    ROW(BUF_outline_pest_bitmap, BITMAP, 3, 1, s.screen, s.work),
    ROW(BUF_mesh_pest_image, x, y, s.image, 255, s.screen),
    ROW(BUF_mesh_pest_bitmap, BITMAP, 255, s.screen),
    ROW(BUF_glass_bar, RECTANGLE, 0, s.screen),
    ROW(BUF_glass_box, RECTANGLE, 0, s.screen),
    ROW(BUF_glass_mask_pest_image, x, y, s.image, s.screen, 0),
    ROW(BUF_glass_mask_pest_bitmap, BITMAP, s.screen, 0),
    ROW(BUF_key_put_image, x, y, s.image, s.screen, 3, s.keys),
    ROW(BUF_key_pest_image, x, y, s.image, s.screen, 3, s.keys),
    ROW(MEM_reverse_pest_image, x, y, s.image, MEMORY),
    ROW(MEM_reverse_pest_bitmap, BITMAP, MEMORY),
    ROW(MEM_turn_pest_image, x, y, s.image, MEMORY),
    ROW(MEM_turn_pest_bitmap, BITMAP, MEMORY),
    ROW(MEM_shadow_mask_pest_image, 3, x, y, s.image, MEMORY),
    ROW(MEM_shadow_mask_pest_bitmap, 3, BITMAP, MEMORY),
    ROW(BUF_shadow_pest_bitmap, BITMAP, s.screen, s.work),
    ROW(BUF_scale_put_image, x, y, 100, 100, s.image, s.screen),
    ROW(BUF_scale_pest_image, x, y, 100, 100, s.image, s.screen),
    ROW(BUF_scale_put_bitmap, x, y, 100, 100, s.w, s.h, s.pixels, s.screen),
    ROW(BUF_scale_pest_bitmap, x, y, 100, 100, s.w, s.h, s.pixels, s.screen),
    ROW(MEM_zoom_control, 160, 120, x, y),
    ROW(MEM_scale_bitmap, s.keys, s.screen),
    ROW(BUF_line, x, y, x + s.w - 1, y + s.h / 3, 3, s.screen),
    ROW(BUF_dash_line, x, y, x + s.w - 1, y + s.h / 3, 3, 2, s.screen),
    ROW(BUF_circle, x + 40, y + 40, s.h / 2, s.w / 2, 0, 0, 3, s.screen),
    ROW(MEM_line, x, y, x + s.w - 1, y + s.h / 3, 3, MEMORY),
    ROW(MEM_dash_line, x, y, x + s.w - 1, y + s.h / 3, 3, 2, MEMORY),
    ROW(MEM_circle, x + 40, y + 40, s.h / 2, s.w / 2, 0, 0, 3, MEMORY),
    ROW(BUF_fill, x, y, BUF_get_pixel(x, y, s.screen) ^ 1, s.screen),
    ROW(MEM_fill, x, y, BUF_get_pixel(x, y, s.screen) ^ 1, MEMORY),
    ROW(PAL_find_color, 0, 256, x % 64, y % 64, 63, palette),
    ROW(PAL_make_glass_table, 0, 256, 1, x % 128, palette),
    ROW(PAL_make_system_color, palette),
    ROW(PAL_step_fade_effect, x % 64),
    ROW(SCR_set_palette, palette),
    ROW(SCR_get_palette, palette),
    ROW(SCR_memory_to_screen, s.screen),
    ROW(WViewBuffer2Screen, ),
    ROW(WViewMoveBuffer2Screen, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), kSize, kSize),
    ROW(WViewSetPalette, palette),
    ROW(WViewSet1Palette, static_cast<std::int16_t>(x % 256), 1, 2, 3),
    ROW(WViewSetPartPalette, 16, 16, palette),
    ROW(WViewGetPalette, palette),
};

// An image block of the screen's size to draw into, the view in front of the screen, and somewhere to fade to.
void prepare(Stage &s) {
    s.work[0] = kWidth & 0xFF, s.work[1] = kWidth >> 8;
    s.work[2] = kHeight & 0xFF, s.work[3] = kHeight >> 8;
    WViewInit(nullptr, 0, 0, kWidth, kHeight, s.screen);
    static const bool enabled = (WViewEnable(), true);
    (void)enabled;
    PAL_fade_init(palette, nullptr);
}

[[maybe_unused]] const bool registered = [] {
    for (const Row &row : kRows) bench::add_one(row.name, "inkstone", kSize, row.call, prepare);
    return true;
}();

}  // namespace
