#include "opening.h"

#include <inkstone/inkstone.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include "frame.h"
#include "language.h"
#include "light.h"
#include "pointer.h"
#include "text.h"
#include "words.h"

namespace moon {
namespace {

constexpr int kFrameTime = 100;  // milliseconds of a picture of the film

// The prologue has a line for each part of the film.
std::string line_at(int frame, int frames) {
    const Both lines[] = {{PROLOGUE_1_ZH, PROLOGUE_1_EN},
                          {PROLOGUE_2_ZH, PROLOGUE_2_EN},
                          {PROLOGUE_3_ZH, PROLOGUE_3_EN},
                          {PROLOGUE_4_ZH, PROLOGUE_4_EN}};
    const int count = static_cast<int>(std::size(lines));
    return in_language(lines[std::clamp(frame * count / std::max(1, frames), 0, count - 1)]);
}

// The film has a palette of its own, of which the text takes what is nearest to paper and ink.
TextStyle style_in(const std::uint8_t *colours) {
    TextStyle style;
    style.colour = PAL_find_color(1, 256, 62, 60, 54, colours);
    style.outline = PAL_find_color(1, 256, 4, 5, 8, colours);
    return style;
}

// On a band of dark glass: the film is bright in some places and dark in others.
void draw_caption(const std::vector<std::string> &lines, const TextStyle &style) {
    constexpr int kMiddle = INK_SCREEN_WIDTH / 2, kBottom = 456;
    int half = 0, y = kBottom - kLineHeight * static_cast<int>(lines.size());
    for (const std::string &line : lines) half = std::max(half, text_width(line) / 2 + 24);
    BUF_glass_bar(kMiddle - half, y - 10, kMiddle + half, kBottom + 6, kDarkGlass, screen());
    for (const std::string &line : lines) {
        print_centred(kMiddle, y, line, style);
        y += kLineHeight;
    }
}

}  // namespace

void show_opening() {
    // The film paints what changed upon its last picture, so it has a screen of its own for that.
    std::vector<std::uint8_t> film(INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT), colours(768);
    const int frames = FLIC_open_flic_file("opening.flc", 0, film.data());
    hide_pointer();
    bool left = false;
    for (int i = 0; i < frames && !left && !window_closed() && FLIC_read_flic_data() == 0; ++i) {
        FLIC_play_flic_frame();
        FLIC_export_palette(colours.data());
        SCR_set_palette(colours.data());
        PAL_make_glass_table(1, 256, kDarkGlass, 20, colours.data());
        const TextStyle style = style_in(colours.data());
        for (int shown = 0; shown < kFrameTime && !left; shown += kFrameMilliseconds) {
            const Input input = begin_frame(Waiting::kTime);
            left = input.click || input.key == kKeyEsc || input.key == kKeySpace || input.key == kKeyEnter;
            std::copy(film.begin(), film.end(), screen());
            draw_caption(wrap(line_at(i, frames), 560), style);
            end_frame();
        }
    }
    FLIC_close_flic_file();
    fade_out();
}

}  // namespace moon
