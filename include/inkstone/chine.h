/* Chinese text: Big5 and single-byte characters, mixed, from bitmap fonts of 16 and 24 pixels that are loaded
   from files. `ink font build` makes the files.

   Text is a zero-terminated string. A byte of 0x80 or more that is not the last one forms a Big5 character
   with the byte after it; every other byte but a tilde is a character of the single-byte font: there is no
   line feed, and control bytes draw what the font has for them. A tilde cannot be drawn: with a letter (in
   either case) it switches how the rest is drawn, which stays in force for later calls of both sizes:

     ~C0 ~C1 ~C2   colour slot 0, 1 or 2 (any other argument is 2)
     ~Z1 ~Z0       double size on, off
     ~D1 ~D0       bold on, off, of Big5 characters
     ~O1 ~O0       outline of one pixel in colour slot 3 on, off
     ~T1 ~T0       shadow in palette index 0 to the lower right on, off
     ~W?           nothing; one argument byte is skipped
     ~P            nothing; there is no argument

   After any other letter, which is skipped with its argument, "Control Code error" is logged. A text that
   ends before the argument has given it as "not 1": a ~C at the end chooses slot 2.

   Bold gives each ink pixel a second one to its right, in every row whose second column from the right has no
   ink. Characters closed on the right by an upright stroke in that column stay thin where it stands: in the
   usual fonts 國 and 問, at 24 pixels also 開 門 面 四 圖 閣 圓. */
#ifndef INKSTONE_CHINE_H
#define INKSTONE_CHINE_H

#include "types.h"

INK_BEGIN

/* Loads the fonts from the current directory: with mode 0 from ASCII16.FON, CHINE16.FON, ASCII24.FON and
   CHINE24.FON, with any other mode from the pack FONT.LZF. The pack is expanded into FONT.SCF, in the current
   directory too, which must be writable; mode 1 deletes FONT.SCF afterwards, whatever came of it. When there
   is no FONT.LZF, which is logged ("ERROR : file FONT.LZF open error(LZSS_expand_file)"), a FONT.SCF that is
   there is loaded.

   Fonts that were loaded before are released, also when the load fails. The slot, double size, bold and
   shadow go back to 0 and off, every colour pattern to 0, so text is drawn in colour 0 until colours are set;
   the outline and the text window stay. Whatever a file is too short to hold, or cannot be read of it, is blank,
   and so is what a full disk keeps out of FONT.SCF, which nothing tells of.

   Returns 0, or -2 when a load fails, which is logged; no text is drawn then until a load succeeds:

     "File <name> open error"                a file cannot be opened
     "memory alloc error in CHINE_init"      mode 0: memory runs out
     "ERROR : open file FONT.SCF error"      the pack cannot be opened
     "ERROR : total files <n> error"         the pack does not hold four fonts
     "ERROR : memory alloc error"            memory runs out for the pack */
INK_API int32_t CHINE_init(int32_t mode);

/* Releases the fonts. Nothing is drawn until they are loaded again. */
INK_API void CHINE_free(void);

/* Draws text into buffer, 640 x 480 pixels, with the top-left corner of the first character at (x, y).
   Characters of the single-byte font take 8 columns, Big5 ones 16, lines 16 rows; in double size twice that.
   Once less than 8 columns are left in the text window the text goes on at the window's left edge, one line
   lower (two after a line that has double size), and below the window's bottom edge at its top ("TEXT out of
   range" is logged): a line that begins on the bottom edge itself is still drawn there, out of sight at the
   screen's.

   mode: 1 leaves the background as it is (bit 0 set), background x 256 fills the cells with the palette index
   background.
   Nothing is drawn unless x is left to right - 16 and y is top to bottom - 16 of the text window. Characters
   that no font holds come out blank. Without a text or a buffer nothing happens. Before a load "CHINE not
   init" is logged. */
INK_API void CHINE_print16(int32_t x, int32_t y, const char *text, int32_t mode, uint8_t *buffer);

/* The same with the fonts of 24 pixels: characters of the single-byte font take 12 columns, Big5 ones 24,
   lines 24 rows, and a line ends once less than 24 columns are left; x may be left to right - 24, y top to
   bottom - 24. Before a load "Chine not enable" is logged. */
INK_API void CHINE_print24(int32_t x, int32_t y, const char *text, int32_t mode, uint8_t *buffer);

/* Gives slot 0 to 3 one colour, the palette index in the low 8 bits of color; slot 3 is the outline's. Other
   slots are ignored. Before a load "Chine not enable" is logged and nothing changes. */
INK_API void CHINE_set_color(int32_t slot, int32_t color);

/* Gives slot 0 to 3 a pattern of 24 x 24 palette indices, row by row: pixel (column, row) of a Big5 character
   of 24 pixels takes the colour at row x 24 + column. Characters of the single-byte fonts take the first
   colours in the order of their own pixels. Characters of 16 pixels use a pattern of 16 x 16 taken out of the
   same one, the 16 colours from 68 + 24 x row on for each row. Other slots are ignored. Before a load "Chine
   not enable" is logged and nothing changes. */
INK_API void CHINE_set_color_pattern(int32_t slot, const uint8_t *pattern);

/* Sets the window that text is laid out in, at any time; right and bottom are the first column and row beyond
   it. It is 0, 0, 640, 480 at first. Characters that reach beyond its edges are drawn whole. */
INK_API void CHINE_set_text_window(int32_t left, int32_t top, int32_t right, int32_t bottom);

INK_END

#endif
