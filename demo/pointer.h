// The image cursors of the pointer.
#pragma once

namespace moon {

enum class Pointer { kArrow, kWalk, kHand, kTalk };

void load_pointers();
void show_pointer(Pointer shape);

// Whether the picture shows one at all: films do not.
void hide_pointer();

}  // namespace moon
