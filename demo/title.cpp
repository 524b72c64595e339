#include "title.h"

#include <inkstone/inkstone.h>

#include <algorithm>

#include "frame.h"
#include "language.h"
#include "layout.h"
#include "light.h"
#include "menu.h"
#include "picture.h"
#include "save.h"
#include "sound.h"
#include "words.h"

namespace moon {
namespace {

std::vector<std::uint8_t> picture;

}  // namespace

void draw_title() {
    std::copy(picture.begin(), picture.end(), screen());
    move_water();
}

TitleResult title_page() {
    picture = read_screen("title.pcx");
    const Point menu = layout_point("title", "menu", {320, 280});
    prepare(Light::kNight);
    draw_title();
    WViewBuffer2Screen();
    fade_to(Light::kNight);
    play_music(kNightMusic);
    // Without a saved game there is nothing to go on with.
    while (!window_closed()) {
        std::vector<std::string> lines{in_language(NEW_GAME_ZH, NEW_GAME_EN)};
        if (has_saved_game()) lines.push_back(in_language(GO_ON_ZH, GO_ON_EN));
        lines.push_back(in_language(LANGUAGE_ZH, LANGUAGE_EN));
        lines.push_back(in_language(LEAVE_ZH, LEAVE_EN));
        const int count = static_cast<int>(lines.size());
        const int line = choose_line(lines, menu.x, menu.y, Waiting::kTitle, draw_title);
        if (line == 0) return TitleResult::kNewGame;
        if (line == 1 && count == 4) return TitleResult::kGoOn;
        if (line == count - 2) turn_language();
        if (line == count - 1) break;
    }
    return TitleResult::kLeave;
}

}  // namespace moon
