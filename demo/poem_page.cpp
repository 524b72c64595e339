#include "poem_page.h"

#include "chinese_page.h"

namespace demo {
namespace {

constexpr std::int32_t kFourFiles = 0;  // fonts as separate files, not as a pack

}  // namespace

PoemPage::PoemPage() : has_fonts_(CHINE_init(kFourFiles) == 0) {}

PoemPage::~PoemPage() {
    CHINE_free();
}

Palette PoemPage::palette(const Game &game) const {
    return has_fonts_ ? chinese_text::make_palette() : game.palette();
}

void PoemPage::draw(Game &game) {
    if (has_fonts_) {
        chinese_text::draw_page(game.screen());
        return;
    }
    BUF_bar(0, 0, INK_SCREEN_WIDTH - 1, INK_SCREEN_HEIGHT - 1, kPaper + 13, game.screen());
    set_ascii16_color(0, kInk);
    print_ascii16(64, 220, "There are no fonts of Chinese text here: ink font build makes them.", 1,
                  game.screen());
}

}  // namespace demo
