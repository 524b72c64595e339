/* Palettes: colour search, glass tables, palette files, the system colours, and fades of the displayed
   palette.

   A palette is 768 bytes: 256 entries of red, green and blue, 0 to 63 each. */
#ifndef INKSTONE_PALETTE_H
#define INKSTONE_PALETTE_H

#include "types.h"

INK_BEGIN

/* The entry among first to last - 1 that is near the colour: the first whose components differ from it by
   less than 16 in all, or the nearest when there is none, the lower one of equals. 0 when first >= last.
   Entries outside 0 to 255 are not looked at. */
INK_API int32_t PAL_find_color(int32_t first, int32_t last, int32_t red, int32_t green, int32_t blue,
                               const uint8_t *palette);

/* Makes glass table n (0 to 7, another n does nothing), which BUF_glass_bar and its family draw with: each
   colour turns into the grey of its red component, darkened (level below 64: level / 64 of it), as it is (64)
   or brightened towards white (above 64), and that into the entry PAL_find_color gives among first to last
   - 1. */
INK_API void PAL_make_glass_table(int32_t first, int32_t last, int32_t n, int32_t level,
                                  const uint8_t *palette);

/* Reads a palette file: two signed 16-bit little-endian numbers, the first entry stored and one past the
   last, then three bytes for each entry. Only the entries stored change, of a short file those present;
   entries outside 0 to 255 are passed over. When the file cannot be opened, "FILE <name> open error" is
   logged. */
INK_API void PAL_read_palette(const char *file_name, uint8_t *palette);

/* Writes entries first to end - 1 of the palette as a palette file. Does nothing unless 0 <= first <= end <=
   256 and the file can be created. */
INK_API void PAL_save_palette(int32_t first, int32_t end, const char *file_name, const uint8_t *palette);

/* Writes the fourteen system colours into entries 0 to 13: black, red, green, blue, yellow, cyan, magenta,
   white, then six greys from black to white. */
INK_API void PAL_make_system_color(uint8_t *palette);

/* Sets where the fades lead and what pumps messages during PAL_fade_effect; a null callback means
   fnCheckMessage. The target is not copied: it is kept alive, and unchanged while fading, by the caller.
   Without a target the fades do nothing, and a step of one is not counted. */
INK_API void PAL_fade_init(const uint8_t *target, INK_PROCEDURE callback);

/* Fades the displayed palette to the target in 64 steps, each of which calls the callback at least once and
   lasts until tick counter 15 has counted delay ticks (of 55 milliseconds, see SetupTimerProc), then sets the
   target. The counter moves only while messages are dispatched: a callback that dispatches none must count by
   itself. */
INK_API void PAL_fade_effect(int32_t delay);

/* The same fade at the caller's own pace. Mode 0 starts it from the palette displayed and shows nothing; each
   further call, with any other mode, shows the next of 63 steps. The last of them ends on the target itself,
   and calls after it do nothing. */
INK_API void PAL_step_fade_effect(int32_t mode);

INK_END

#endif
