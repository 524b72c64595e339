// A disc whose sectors are fetched on a thread of their own before they are wanted, so that neither the sound
// device's thread nor the game's, which hold one lock, ever waits for a drive to start up or for a disk.
#pragma once

#include <memory>

#include "host/disc/disc.h"

namespace ink::host {

// Gives the disc itself where there can be no thread. Throws std::bad_alloc.
std::unique_ptr<DiscContents> read_ahead(std::unique_ptr<DiscContents> disc);

}  // namespace ink::host
