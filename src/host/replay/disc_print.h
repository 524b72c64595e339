// By what a disc is known again: the name of its sheet and for each track where it starts, how long it is and
// a check value of samples of its sound.
#pragma once

#include <string>

namespace ink::host {

// As a line of text; of a disc in a real drive, whose sectors are slow to come by, without the check values.
// Empty when there is no such disc. Throws std::bad_alloc.
std::string disc_print(const char *name);

}  // namespace ink::host
