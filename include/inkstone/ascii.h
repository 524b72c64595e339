/* ASCII text in the font that the library carries: 256 characters of code page 437, 8 pixels wide in a cell
   of 8 x 16. No file has to be loaded for it.

   Text is a zero-terminated string of bytes, one byte one character: there is no line feed, and control bytes
   draw what code page 437 shows for them. A tilde cannot be drawn: with a letter (in either case) and an
   argument it switches how the rest is drawn, which stays in force for later calls:

     ~C0 ~C1 ~C2   colour slot 0, 1 or 2 (any other argument is 2)
     ~Z1 ~Z0       double size on, off
     ~O1 ~O0       outline of one pixel in colour slot 3 on, off
     ~T1 ~T0       shadow in palette index 0 to the lower right on, off

   Other letters are skipped with their argument. A text that ends before the argument has given it as "not
   1": a ~C at the end chooses slot 2.

   A character's 16th row is the first one of the character after it in the table. So the upright line 0xB3
   joins the line of text below, but most of the box drawing does not, and a few characters (0x07, 0x09, 0xAF,
   0xC4, 0xCD, 0xF3 ...) have a trace of their neighbour below them. */
#ifndef INKSTONE_ASCII_H
#define INKSTONE_ASCII_H

#include "types.h"

INK_BEGIN

/* Draws text into buffer, 640 x 480 pixels, with the top-left corner of the first cell at (x, y). Once less
   than 8 columns are left it goes on at the left edge, 16 rows lower, or 32 after a line that has double
   size. Text that comes below row 480 goes on at the top: a line that begins at rows 465 to 480 is still
   drawn there, cut off or out of sight. What reaches beyond the screen is not drawn. mode: 1 leaves the
   background as it is (bit 0 set), background x 256 fills the cells with the palette index background.
   Nothing is drawn unless x is 0 to 624 and y is 0 to 464, nor without a text or a buffer. */
INK_API void print_ascii16(int32_t x, int32_t y, const char *text, int32_t mode, uint8_t *buffer);

/* Gives colour slot 0 to 3 the palette index in the low 8 bits of color; slot 3 is the outline's. Other slots
   are ignored. All slots are 0 at first. */
INK_API void set_ascii16_color(int32_t slot, int32_t color);

INK_END

#endif
