// A machine that stands in front of another one and tells an observer of each operation before it is carried
// out, so that the order of a program's calls can be seen, and each can be made to fail, whatever the machine
// is: one that only passes calls on to the system, too.
#pragma once

#include "host/host.h"

namespace ink::host {

// Both live as long as the process, like every machine. The observer may change, and may be null.
Machine &watch(Machine &machine, const HOST_OBSERVER &observer);

}  // namespace ink::host
