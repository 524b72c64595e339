// What the task list asks of the drive beyond the exported functions.
#pragma once

namespace ink::cdaudio {

bool opened();

}  // namespace ink::cdaudio
