// The title page.
#pragma once

namespace moon {

// Shows the page until a play begins or the game ends.
enum class TitleResult { kNewGame, kGoOn, kLeave };
TitleResult title_page();

// The page itself, without its menu.
void draw_title();

}  // namespace moon
