// The simulated machine: everything in process, no threads, a clock of its own. Tests, servers and recordings
// run on it, and it is the template for a new host: give the machine a clock and the ends that are real.
#pragma once

#include "host/host.h"

namespace ink::host {

Machine *open_headless();

}  // namespace ink::host
