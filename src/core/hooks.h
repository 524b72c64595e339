// The hooks a game installs in the library's waits and key readers.
#pragma once

namespace ink {

// One turn of a wait: the game's idle function if it has set one, else one pass of the message pump.
void idle();

// The game's tab function, if it has set one.
void tab_pressed();

}  // namespace ink
