// The simulated machine: everything in process, no threads, a clock of its own. Tests, servers and recordings
// run on it, and it is the template for a new host: give the machine a clock and the ends that are real.
#include <memory>

#include "host/machine/virtual_machine.h"

namespace ink::host {

extern const Host headless_host;
const Host headless_host{"headless", "a simulated machine in memory with a clock of its own", [] {
                             static auto &machine =
                                 *new VirtualMachine("headless", Clock(nullptr), std::make_unique<Ends>());
                             return &machine.machine();
                         }};

}  // namespace ink::host
