// The hooks a game installs in the library's waits and key readers, and the turns of those waits.
#pragma once

#include <cstdint>

#include "inkstone/types.h"

namespace ink {

// What pumps messages in a wait: the game's idle function if it has set one, else fnCheckMessage.
INK_PROCEDURE idle_procedure();

// One turn of it.
void idle();

// The game's tab function, if it has set one.
void tab_pressed();

// One wait. Before each turn but its first the processor rests until something can have changed, so that
// waiting costs nothing. It does not where a procedure of the game's pumps, whose work between two turns is
// not known here.
class Wait {
  public:
    // What is waited for comes with a message, or after so many milliseconds.
    void rest(INK_PROCEDURE pump = idle_procedure(), std::uint32_t milliseconds = kUntilMessage);

  private:
    static constexpr std::uint32_t kUntilMessage = 1000;
    bool began_ = false;
};

}  // namespace ink
