/* ASCII text in the font that the library carries: 256 characters of code page 437, 8 pixels wide in a cell
   of 8 x 16. No file has to be loaded for it.

   Text is a zero-terminated string of bytes, one byte one character. A tilde, a letter (in either case) and
   an argument switch how the rest is drawn, and stay in force for later calls:

     ~C0 ~C1 ~C2   colour slot 0, 1 or 2 (any other argument is 2)
     ~Z1 ~Z0       double size on, off
     ~O1 ~O0       outline of one pixel in colour slot 3 on, off
     ~T1 ~T0       shadow in palette index 0 to the lower right on, off

   Other letters are skipped with their argument. */
#ifndef INKSTONE_ASCII_H
#define INKSTONE_ASCII_H

#include "types.h"

INK_BEGIN

/* Draws text into buffer, 640 x 480 pixels, with the top-left corner of the first cell at (x, y). At the
   right edge it goes on at the left edge one line (16 rows, 32 after double size) lower, and below the bottom
   edge at the top. mode: 1 leaves the background as it is (bit 0 set), background x 256 fills the cells with
   the palette index background. Nothing is drawn unless x is 0 to 624 and y is 0 to 464. */
INK_API void print_ascii16(int32_t x, int32_t y, const char *text, int32_t mode, uint8_t *buffer);

/* Gives colour slot 0 to 3 the palette index in the low 8 bits of color; slot 3 is the outline's. Other slots
   are ignored. All slots are 0 at first. */
INK_API void set_ascii16_color(int32_t slot, int32_t color);

INK_END

#endif
