/* Scaled copies into the screen buffer, and the zoom of a whole screen.

   buf is the screen buffer: 640 x 480 palette indices, rows top to bottom. An image is an image block, a
   bitmap sw x sh bare pixels. Enlarging repeats source pixels, shrinking drops them: destination column i
   shows source column i x sw / dw rounded down, rows likewise. What falls outside the screen is not drawn and
   costs nothing, whatever the destination size. A picture that lies in the buffer it is drawn on is drawn as it
   was before, from a copy. */
#ifndef INKSTONE_SCALE_H
#define INKSTONE_SCALE_H

#include "types.h"

INK_BEGIN

/* Draws the picture scaled to dw x dh pixels with its top-left corner at (x, y): put every pixel, pest those
   that are not 0. A destination or source size below 1 draws nothing. */
INK_API void BUF_scale_put_image(int32_t x, int32_t y, int32_t dw, int32_t dh, const uint8_t *image,
                                 uint8_t *buf);
INK_API void BUF_scale_pest_image(int32_t x, int32_t y, int32_t dw, int32_t dh, const uint8_t *image,
                                  uint8_t *buf);
INK_API void BUF_scale_put_bitmap(int32_t x, int32_t y, int32_t dw, int32_t dh, int32_t sw, int32_t sh,
                                  const uint8_t *bitmap, uint8_t *buf);
INK_API void BUF_scale_pest_bitmap(int32_t x, int32_t y, int32_t dw, int32_t dh, int32_t sw, int32_t sh,
                                   const uint8_t *bitmap, uint8_t *buf);

/* Sets the zoom window: 2 hw x 2 hh pixels around (cx, cy), moved to begin on the screen and cut at its right
   and bottom edges. Half sizes below 0 count as 0. Until the first call it is the whole screen. */
INK_API void MEM_zoom_control(int32_t hw, int32_t hh, int32_t cx, int32_t cy);

/* Fills the 640 x 480 buffer dst with the zoom window of the 640 x 480 buffer src, magnified. Different buffers
   need no copy of the window. */
INK_API void MEM_scale_bitmap(uint8_t *dst, const uint8_t *src);

INK_END

#endif
