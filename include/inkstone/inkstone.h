/* Everything the library offers. Each family also has a header of its own. */
#ifndef INKSTONE_INKSTONE_H
#define INKSTONE_INKSTONE_H

#include "can.h"
#include "cdaudio.h"
#include "compressed_image.h"
#include "draw.h"
#include "effect.h"
#include "flic.h"
#include "ascii.h"
#include "host.h"
#include "keyboard.h"
#include "line.h"
#include "palette.h"
#include "mouse.h"
#include "pcx.h"
#include "expression.h"
#include "host.h"
#include "keyboard.h"
#include "mac.h"
#include "polling.h"
#include "runtime.h"
#include "scale.h"
#include "timer.h"
#include "utility.h"
#include "view.h"
#include "wave.h"

#endif
