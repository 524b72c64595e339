/* The screen buffer, memory buffers, image blocks and bitmaps, and the basic drawing on them.

   A pixel is one byte, an index into the palette. x grows to the right, y downwards, from (0, 0) at the top
   left.

   - The screen buffer is 640 x 480 bytes, row after row without gaps. The game owns it and passes it as buf.
   - A memory buffer is the same of any size: bw x bh bytes, passed as mem with its size.
   - An image block is a picture with a header, width and height as unsigned 16-bit little-endian numbers, and
   then width x height pixels row after row. It may stand at any address.
   - A bitmap is the pixels alone; its size w x h is passed with it.

   put copies every pixel, pest only the pixels that are not 0; get copies pixels out. Everything outside the
   target is clipped away without a word, whatever the coordinates. Of a colour the low byte is used.
   Rectangles given by corners include both. A size below 1 has no pixels, and so has a bitmap said to have
   2^31 pixels or more; the size of a memory buffer may be any, and mem may be null: a buffer without pixels.
   No other pointer may be null.

   A picture may lie in the buffer that it is drawn on, whole or in part, so that put scrolls a buffer in any
   direction: what is drawn is the picture as it was before. (Where both have rows of the same length nothing
   is allocated for that by put; elsewhere a copy is made, and when memory is exhausted nothing is drawn.) */
#ifndef INKSTONE_DRAW_H
#define INKSTONE_DRAW_H

#include "types.h"

INK_BEGIN

/* The size of the screen buffer. */
#define INK_SCREEN_WIDTH 640
#define INK_SCREEN_HEIGHT 480

/* ---- On the screen buffer ---- */

/* Sets the pixel at (x, y). */
INK_API void BUF_put_pixel(int32_t x, int32_t y, int32_t colour, uint8_t *buf);

/* The pixel at (x, y), 0 to 255; 0 outside the screen. */
INK_API int32_t BUF_get_pixel(int32_t x, int32_t y, const uint8_t *buf);

/* Fills the rectangle. Corners in the wrong order draw nothing. */
INK_API void BUF_bar(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, uint8_t *buf);

/* Fills the pixels of the rectangle whose x + y is even: every other one, on a checkerboard that belongs to
   the screen, so that meshes side by side join without a seam. */
INK_API void BUF_mesh_bar(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, uint8_t *buf);

/* Draws the one pixel wide outline of the rectangle. A box that reaches beyond the screen gets its edge along
   the screen's border; one whose right or bottom edge is column or row 0 is not drawn, nor are corners in the
   wrong order. */
INK_API void BUF_box(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, uint8_t *buf);

/* As BUF_box, dashed: of each period pixels the first period / 2 are set. The top and bottom rows begin at
   the left, the columns begin anew below the top row. A period below 2 draws nothing. */
INK_API void BUF_dash_box(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, int32_t period,
                          uint8_t *buf);

/* Copies a picture with its top-left corner at (x, y): every pixel, or those that are not 0. */
INK_API void BUF_put_image(int32_t x, int32_t y, const uint8_t *image, uint8_t *buf);
INK_API void BUF_pest_image(int32_t x, int32_t y, const uint8_t *image, uint8_t *buf);
INK_API void BUF_put_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *bitmap, uint8_t *buf);
INK_API void BUF_pest_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *bitmap, uint8_t *buf);

/* Copies the w x h rectangle at (x, y) into the image block, which must have room for w x h + 4 bytes. A
   rectangle that is empty or not wholly on the screen leaves a 0 x 0 image block. */
INK_API void BUF_get_image(int32_t x, int32_t y, int32_t w, int32_t h, uint8_t *image, const uint8_t *buf);

/* Copies the w x h rectangle at (x, y) into the bitmap, whose first four bytes are set to 0 beforehand in
   every case: it must have room for w x h bytes, and for four at least. A rectangle that is empty or not
   wholly on the screen copies nothing. */
INK_API void BUF_get_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, uint8_t *bitmap, const uint8_t *buf);

/* Every pixel of the rectangle that has the colour from gets the colour to. The corners may be given in
   either order as long as (x1, y1) is left of and above the screen's far edges and (x2, y2) is not left of or
   above the screen. */
INK_API void BUF_change_color(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t from, int32_t to,
                              uint8_t *buf);

/* ---- On a memory buffer ---- */

/* As BUF_put_pixel and BUF_get_pixel. */
INK_API void MEM_put_pixel(int32_t x, int32_t y, int32_t colour, int32_t bw, int32_t bh, uint8_t *mem);
INK_API int32_t MEM_get_pixel(int32_t x, int32_t y, int32_t bw, int32_t bh, const uint8_t *mem);

/* As BUF_box. */
INK_API void MEM_box(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, int32_t bw, int32_t bh,
                     uint8_t *mem);

/* As the BUF_ copies. */
INK_API void MEM_put_image(int32_t x, int32_t y, const uint8_t *image, uint8_t *mem, int32_t bw, int32_t bh);
INK_API void MEM_pest_image(int32_t x, int32_t y, const uint8_t *image, uint8_t *mem, int32_t bw, int32_t bh);
INK_API void MEM_put_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *bitmap, uint8_t *mem,
                            int32_t bw, int32_t bh);
INK_API void MEM_pest_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *bitmap, uint8_t *mem,
                             int32_t bw, int32_t bh);

/* Copies the w x h rectangle at (x, y) into the image block, which must have room for w x h + 4 bytes. A
   rectangle that is not wholly in the buffer leaves an image block that says w x h with its pixels unchanged.
   A size that no image block can have (below 0 or above 65,535) leaves a 0 x 0 one. */
INK_API void MEM_get_image(int32_t x, int32_t y, int32_t w, int32_t h, uint8_t *image, const uint8_t *mem,
                           int32_t bw, int32_t bh);

/* Draws a plus sign of nine pixels, five across and five down, centred on (x, y). */
INK_API void MEM_draw_point_cross(int32_t x, int32_t y, int32_t colour, int32_t bw, int32_t bh, uint8_t *mem);

/* Finds the pixels that are not 0 in the columns *x1 to *x2 - 1 and rows *y1 to *y2 - 1 and writes the
   smallest rectangle around them back, both corners included. *x2 and *y2 are first cut to bw and bh; when
   there is no such pixel, (*x1, *y1) and the cut (*x2, *y2) come back exchanged, so that *x1 > *x2. */
INK_API void MEM_operate_image_size(int32_t *x1, int32_t *y1, int32_t *x2, int32_t *y2, int32_t bw,
                                    int32_t bh, const uint8_t *mem);

/* ---- On an image block ---- */

/* Copies the image block src into the pixels of the image block dst with its top-left corner at (x, y): every
   pixel, or those that are not 0. */
INK_API void IMG_put_image(int32_t x, int32_t y, const uint8_t *src, uint8_t *dst);
INK_API void IMG_pest_image(int32_t x, int32_t y, const uint8_t *src, uint8_t *dst);

/* Writes the width and height through w and h and returns the image block's size in bytes, width x height
   + 4. Of the few sizes above 2^31 - 1 the result is negative; as a uint32_t it is right. */
INK_API int32_t IMG_get_image_size(const uint8_t *image, int32_t *w, int32_t *h);

INK_END

#endif
