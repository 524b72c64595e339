/* Playback of FLIC animations: FLI files (320 x 200) and FLC files (any size), after the format's publication
   by Jim Kent, "The Flic File Format", Dr. Dobb's Journal, March 1993.

   One file is open at a time, and the game sets the pace: open, then for each frame read, play, and take the
   palette where it may have changed; then close.

     int32_t frames = FLIC_open_flic_file("INTRO.FLC", 0, screen);
     while (frames-- > 0 && FLIC_read_flic_data() == 0) {
         FLIC_play_flic_frame();
         FLIC_export_palette(palette);
         ...
     }
     FLIC_close_flic_file(); */
#ifndef INKSTONE_FLIC_H
#define INKSTONE_FLIC_H

#include "types.h"

INK_BEGIN

/* Opens a file for playing from its first frame into destination, a buffer of 640 x 480 pixels, or of 320 x
   200 when small_mode is not 0, which must be there until the file is closed or another is opened. A film
   smaller than the buffer stands in its top-left corner, a larger one is cut at its edges. Returns the frame count the file states, or -1 when it cannot be opened: "File <name>
   open error" is logged, and a file that was open stays so. */
INK_API int32_t FLIC_open_flic_file(const char *file_name, int32_t small_mode, uint8_t *destination);

/* Reads the next frame, passing over prefix chunks. Returns 0, or -1 when there is no file, no memory, no
   further frame, what comes next is not one, or it is too large; the file is then closed. A frame may have
   width * height * depth / 8 + 496 bytes with its header: 64,496 for 320 x 200, 307,696 for 640 x 480. A frame
   that would be larger, as a first one of noise with its palette is, has to be made two. */
INK_API int16_t FLIC_read_flic_data(void);

/* Decodes the frame last read into the destination and the palette. Nothing is painted outside the destination;
   deltas paint where they say, also beyond the width and height of the film. A count of -128 in DELTA_FLC is
   128 words, 256 pixels. A chunk of unknown type is passed over
   with five bell characters and a line feed on standard output. Always returns 0. */
INK_API int16_t FLIC_play_flic_frame(void);

/* Closes the file, if one is open, and frees what it holds. The palette stays. */
INK_API void FLIC_close_flic_file(void);

/* Copies out the palette: 256 times red, green, blue, each 0 to 63. It is kept from file to file, since a
   film need not set every colour. */
INK_API void FLIC_export_palette(uint8_t *palette);

/* Makes the 768 bytes at palette the palette that the next frame changes. */
INK_API void FLIC_inport_palette(const uint8_t *palette);

INK_END

#endif
