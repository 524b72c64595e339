// Menus: a column of lines to choose from, over whatever is on the screen.
#pragma once

#include <string>
#include <vector>

#include "frame.h"

namespace moon {

// Lets the player choose a line; the one chosen first is marked at the start. Returns its number, or -1 after
// Esc. behind draws what the menu stands on, anew for each frame.
int choose_line(const std::vector<std::string> &lines, int x, int y, Waiting waiting, void (*behind)(),
                int first = 0);

// The menu of Esc, over the scene.
enum class MenuResult { kGoOn, kLoaded, kToTitle };
MenuResult game_menu();

// Goes over to the other language, and keeps that in the settings.
void turn_language();

}  // namespace moon
