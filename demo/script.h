// The story: a script whose procedures are run when the hero does something, and the commands it gives the
// game (content/script/commands.mas).
#pragma once

namespace moon {

// The script as it is named in saved games. The procedure of a thing has the number of its key.
constexpr const char *kScriptFile = "story.mac";
enum Procedure : int { kBeginning = 0, kNames = 1, kArrival = 50 };

// Sets the script system up with a fresh state; false when there is no script.
bool begin_script();

// Runs a procedure.
void run(int procedure);

}  // namespace moon
