/* Everything the library offers. Each family also has a header of its own. */
#ifndef INKSTONE_INKSTONE_H
#define INKSTONE_INKSTONE_H

#include "ascii.h"
#include "bind.h"
#include "bitio.h"
#include "can.h"
#include "cdaudio.h"
#include "chine.h"
#include "compressed_image.h"
#include "draw.h"
#include "effect.h"
#include "expression.h"
#include "flic.h"
#include "host.h"
#include "info.h"
#include "keyboard.h"
#include "line.h"
#include "lzss.h"
#include "mac.h"
#include "mouse.h"
#include "palette.h"
#include "pcx.h"
#include "polling.h"
#include "runtime.h"
#include "scale.h"
#include "timer.h"
#include "utility.h"
#include "view.h"
#include "wave.h"

#endif
