// The disc in a real drive, whose sound is read digitally. On Linux; elsewhere there is none.
#pragma once

#include <memory>

#include "host/disc/disc.h"

namespace ink::host {

// Whether the name is a device of the system's, such as /dev/sr0.
bool is_disc_device(const char *name);

// Null when it is not a drive with a disc in it.
std::unique_ptr<DiscContents> open_disc_device(const char *name);

}  // namespace ink::host
