#include "poem_page.h"

namespace demo {

void PoemPage::draw(Game &game) {
    BUF_bar(0, 0, INK_SCREEN_WIDTH - 1, INK_SCREEN_HEIGHT - 1, kPaper + 13, game.screen());
}

}  // namespace demo
