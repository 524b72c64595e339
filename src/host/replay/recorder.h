// A machine that writes down everything that comes into the program from outside, so that the program can be
// run from it again.
#pragma once

#include "host/host.h"

namespace ink::host {

// The machine to use in the place of that one, which must not have been used yet. What INKSTONE_RECORD_PICTURES
// and INKSTONE_RECORD_SOUND say is kept with the record. Null when the file cannot be written, or when a
// record has been begun in this process before.
Machine *record(Machine &machine, const char *file);

// Ends the record; the machine goes on without. False when none is under way. It is done when the process
// ends, too.
bool end_record();

}  // namespace ink::host
