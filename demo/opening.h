// The film before the first scene, with the prologue under it.
#pragma once

namespace moon {

// Plays the film to its end, or until a click or a key. The screen is black before and afterwards.
void show_opening();

}  // namespace moon
