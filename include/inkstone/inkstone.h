/* Everything the library offers. Each family also has a header of its own. */
#ifndef INKSTONE_INKSTONE_H
#define INKSTONE_INKSTONE_H

#include "host.h"
#include "runtime.h"

#endif
