/* Everything the library offers. Each family also has a header of its own. */
#ifndef INKSTONE_INKSTONE_H
#define INKSTONE_INKSTONE_H

#include "draw.h"
#include "effect.h"
#include "expression.h"
#include "host.h"
#include "keyboard.h"
#include "mac.h"
#include "polling.h"
#include "runtime.h"
#include "timer.h"
#include "utility.h"
#include "view.h"

#endif
