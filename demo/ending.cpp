#include "ending.h"

#include <inkstone/inkstone.h>

#include <algorithm>

#include "frame.h"
#include "language.h"
#include "layout.h"
#include "light.h"
#include "painting.h"
#include "picture.h"
#include "pointer.h"
#include "sound.h"
#include "text.h"
#include "words.h"

namespace moon {
namespace {

// Into the moon, until it fills the screen.
void zoom_into_moon() {
    const std::vector<std::uint8_t> lake(screen(), screen() + INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT);
    const Point sky = layout_point("lake", "moon", {420, 90});
    for_milliseconds(2400, [&](int progress) {
        const int left = 1000 - progress * 9 / 10;
        const int x = 320 + (sky.x - 320) * progress / 1000, y = 240 + (sky.y - 240) * progress / 1000;
        MEM_zoom_control(320 * left / 1000, 240 * left / 1000, x, y);
        MEM_scale_bitmap(screen(), lake.data());
    });
    fade_out();
}

}  // namespace

void show_ending() {
    hide_pointer();
    zoom_into_moon();
    const std::vector<std::uint8_t> page = read_screen("end.pcx"), painting = read_painting();
    const std::vector<int> frame = layout("end", "picture", {360, 90, 216, 216});
    const Point text = layout_point("end", "text", {180, 110});
    const Both lines[] = {{END_1_ZH, END_1_EN},
                          {END_2_ZH, END_2_EN},
                          {END_3_ZH, END_3_EN},
                          {END_4_ZH, END_4_EN},
                          {END_5_ZH, END_5_EN}};
    const auto draw = [&] {
        std::copy(page.begin(), page.end(), screen());
        BUF_scale_put_bitmap(frame[0], frame[1], frame[2], frame[3], kSheetSize, kSheetSize, painting.data(),
                             screen());
        int y = text.y;
        for (const Both &line : lines) {
            print_centred(text.x, y, in_language(line), {kInkBlack, -1, kVermilion, false});
            y += kLineHeight + 12;
        }
    };
    prepare(Light::kDay);
    draw();
    WViewBuffer2Screen();
    fade_to(Light::kDay);
    while (!window_closed()) {
        const Input input = begin_frame(Waiting::kClick);
        draw();
        end_frame();
        if (input.click || input.key != 0) break;
    }
    fade_out();
}

}  // namespace moon
