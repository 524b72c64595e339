#include "menu.h"

#include <inkstone/inkstone.h>

#include <algorithm>
#include <cstdlib>

#include "language.h"
#include "light.h"
#include "panel.h"
#include "pointer.h"
#include "save.h"
#include "scene.h"
#include "settings.h"
#include "sound.h"
#include "text.h"
#include "words.h"

namespace moon {
namespace {

constexpr int kRow = 40;

void draw_dimmed_scene() {
    draw_scene();
    BUF_glass_bar(0, 0, INK_SCREEN_WIDTH - 1, INK_SCREEN_HEIGHT - 1, kDimGlass, screen());
}

std::string switch_text(const char *chinese, const char *english, bool on) {
    return in_language(chinese, english) + (on ? in_language(ON_ZH, ON_EN) : in_language(OFF_ZH, OFF_EN));
}

}  // namespace

void turn_language() {
    set_language(language() == Language::kChinese ? Language::kEnglish : Language::kChinese);
    write_settings();
}

int choose_line(const std::vector<std::string> &lines, int x, int y, Waiting waiting, void (*behind)(),
                int first) {
    const int count = static_cast<int>(lines.size());
    int half = 100, chosen = first, last_x = 0, last_y = 0;
    MOUSE_get_position(&last_x, &last_y);  // a pointer that rests chooses nothing
    for (const std::string &line : lines) half = std::max(half, text_width(line) / 2 + 32);
    show_pointer(Pointer::kArrow);
    while (!window_closed()) {
        const Input input = begin_frame(waiting);
        const bool inside = std::abs(input.x - x) < half && input.y >= y && input.y < y + kRow * count;
        if (inside && (input.x != last_x || input.y != last_y)) chosen = (input.y - y) / kRow;
        last_x = input.x;
        last_y = input.y;
        if (input.key == kKeyUp) chosen = (chosen + count - 1) % count;
        if (input.key == kKeyDown) chosen = (chosen + 1) % count;
        behind();
        draw_glass(x - half, y - 14, x + half, y + kRow * count + 10);
        for (int i = 0; i < count; ++i) {
            const TextStyle style{i == chosen ? kBrightGold : kPaperWhite, kInkBlack, kBrightGold,
                                  i == chosen};
            print_centred(x, y + i * kRow + (kRow - kTextHeight) / 2, lines[static_cast<std::size_t>(i)],
                          style);
        }
        end_frame();
        if (input.key == kKeyEsc || input.back) return -1;
        if ((input.click && inside) || input.key == kKeyEnter || input.key == kKeySpace) break;
    }
    play(Sound::kClick);
    return chosen;
}

MenuResult game_menu() {
    enum Line { kGoOn, kSave, kLoad, kLanguage, kSound, kMusic, kTitle };
    int line = kGoOn;
    while (!window_closed()) {
        line = choose_line(
            {in_language(GO_ON_ZH, GO_ON_EN), in_language(SAVE_ZH, SAVE_EN), in_language(LOAD_ZH, LOAD_EN),
             in_language(LANGUAGE_ZH, LANGUAGE_EN), switch_text(SOUND_ZH, SOUND_EN, settings().sound),
             switch_text(MUSIC_ZH, MUSIC_EN, settings().music), in_language(TITLE_ZH, TITLE_EN)},
            INK_SCREEN_WIDTH / 2, 96, Waiting::kMenu, draw_dimmed_scene, line);
        switch (line) {
            case kSave: save_game(); return MenuResult::kGoOn;
            case kLoad:
                if (load_game()) return MenuResult::kLoaded;
                break;
            case kLanguage: turn_language(); break;
            case kSound: settings().sound = !settings().sound; break;
            case kMusic: settings().music = !settings().music; break;
            case kTitle: return MenuResult::kToTitle;
            default: return MenuResult::kGoOn;
        }
        write_settings();
        adjust_sound();
    }
    return MenuResult::kGoOn;
}

}  // namespace moon
