/* Everything the library offers. Each family also has a header of its own. */
#ifndef INKSTONE_INKSTONE_H
#define INKSTONE_INKSTONE_H

#include "bitio.h"
#include "can.h"
#include "compressed_image.h"
#include "draw.h"
#include "effect.h"
#include "flic.h"
#include "host.h"
#include "keyboard.h"
#include "lzss.h"
#include "pcx.h"
#include "polling.h"
#include "runtime.h"
#include "timer.h"
#include "view.h"

#endif
