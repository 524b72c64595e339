/* The window view: presents a buffer of palette indices in the game's window and owns the 256-entry hardware
   palette.

   The order of calls is WViewInit, WViewEnable, then any of the others, then WViewDisable (or the quit
   procedures). Palettes are 256 entries of red, green and blue bytes: 0 to 255 each in the WView functions, 0
   to 63 each in the SCR_ functions. Palette entries outside 0 to 255 and the parts of a rectangle outside the
   buffer are passed over; everything but WViewInit and the functions that only store does nothing before
   WViewEnable. */
#ifndef INKSTONE_VIEW_H
#define INKSTONE_VIEW_H

#include "types.h"

INK_BEGIN

/* Stores where the view stands: the buffer of width x height pixels, row after row without gaps, is shown
   with its first pixel at the client position (x, y) of window, which may be null (nothing is shown then). The
   width should be a multiple of 4, as some machines need. While the view is enabled the new values hold for
   the following presents, but a buffer with rows of another length is described to the machine only by the
   next WViewEnable: until then whole presents show it skewed, as far as it has bytes for. */
INK_API void WViewInit(HWND window, int16_t x, int16_t y, int32_t width, int32_t height, uint8_t *buffer);

/* Creates the platform objects, puts the default palette into the hardware and pushes a quit procedure that
   does what WViewDisable does. Enabled again it starts over with the default palette, and the palette to be
   put back stays the one that the window had before the first time. Ends the process with "MEMORY ERROR !!!"
   when memory is exhausted and with "PUSHQUIT ERROR !!!" when the quit stack is full. Where the machine gives the
   view no palette, pictures show in the colours of the window's own one, whatever the palette setters say. */
INK_API void WViewEnable(void);

/* Puts the palette back that the window had before, and releases the platform objects. A second call does
 * nothing. */
INK_API void WViewDisable(void);

/* Both present the whole buffer. */
INK_API void WViewRedrawScreen(void);
INK_API void WViewBuffer2Screen(void);

/* Presents the rectangle of the buffer whose first pixel is (x, y). A width or height below 1 presents
 * nothing. */
INK_API void WViewMoveBuffer2Screen(int16_t x, int16_t y, int16_t width, int16_t height);

/* Makes buffer, of the size given to WViewInit, the one that is presented. Nothing is presented. */
INK_API void WViewSetNowBuffer(uint8_t *buffer);

/* Sets all 256 entries. As with all palette setters, the screen changes at once, without a present. */
INK_API void WViewSetPalette(const uint8_t *palette);

/* Sets one entry. */
INK_API void WViewSet1Palette(int16_t index, uint8_t red, uint8_t green, uint8_t blue);

/* Sets count entries from start on; palette holds count x 3 bytes. */
INK_API void WViewSetPartPalette(int16_t start, int16_t count, const uint8_t *palette);

/* Reads the view's own copy of the palette: 768 bytes. Zeros while the view is not enabled. */
INK_API void WViewGetPalette(uint8_t *palette);

/* WViewSetNowBuffer, then WViewBuffer2Screen. */
INK_API void SCR_memory_to_screen(uint8_t *buffer);

/* WViewSetPalette of 6-bit components: each byte times 4, modulo 256. */
INK_API void SCR_set_palette(const uint8_t *palette);

/* WViewGetPalette in 6-bit components: each byte divided by 4. */
INK_API void SCR_get_palette(uint8_t *palette);

INK_END

#endif
