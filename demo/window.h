// The window of the game, and the order in which the families are started and stopped.
#pragma once

#include <inkstone/host.h>

namespace moon {

// Opens the window and starts the families; false when there is no window to be had.
bool open_window();

// Its handle.
HWND window();

// Runs the quit procedures, the newest first, and closes the window.
void close_window();

// Whether somebody has closed the window, or the game was told to end.
bool window_closed();
void end_game();

}  // namespace moon
