// The last page: the player's painting, the names, and who made it.
#pragma once

namespace moon {

void show_ending();

}  // namespace moon
