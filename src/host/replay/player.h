// A machine that answers what a record says, so that the recorded program does again what it did.
#pragma once

#include <memory>
#include <string>

#include "host/host.h"

namespace ink::host {

// The machine to use in the place of that one, which shows the replay at its pace when its clock is a real
// one, and is not asked anything otherwise. When the record cannot be read, or a replay has been begun in
// this process before, it is null and the reason is given.
Machine *replay(Machine &machine, const char *file, std::string &reason);

// How the replay goes.
struct ReplayState {
    std::int32_t seconds = 0;  // since its beginning
    std::int32_t first_difference =
        0;  // the second in which it first differed, counted from 1; 0 when it did not
};
// False when there is none.
bool replay_state(ReplayState &state);

}  // namespace ink::host
