// The saved game: the state of the script, as the script system writes it.
#pragma once

namespace moon {

bool has_saved_game();
void save_game();

// Takes the saved game up; false, and nothing is changed, when there is none or it is not one of this game.
bool load_game();

}  // namespace moon
