/* Copies with an effect: in one colour, outlined, on a checkerboard, as coloured glass, with a key, mirrored,
   as a shadow. Buffers, pictures, colours and clipping are those of draw.h; a source pixel of 0 draws nothing
   but in BUF_key_put_image. The places of the arguments differ from function to function. */
#ifndef INKSTONE_EFFECT_H
#define INKSTONE_EFFECT_H

#include "types.h"

INK_BEGIN

/* ---- In one colour ---- */

/* Draws the picture's silhouette: colour at every pixel that is not 0. */
INK_API void BUF_mask_pest_image(int32_t x, int32_t y, const uint8_t *image, uint8_t *buf, int32_t colour);

/* ---- Outlined ---- */

/* Draws the picture at (x, y) with an outline: copies of its silhouette in colour, distance pixels to the
   left, to the right, above and below, lie under it. work, the last argument after buf, receives the picture
   so enlarged, W = w + 2 * distance by H = h + 2 * distance: as an image block of W x H + 4 bytes, or as a
   bitmap of W x H bytes. A distance or size below 0, a W x H of 2^31 pixels or more, or for an image block a W
   or H above 65,535, draws nothing and leaves work alone. */
INK_API void BUF_outline_pest_image(int32_t x, int32_t y, const uint8_t *image, int32_t colour,
                                    int32_t distance, uint8_t *buf, uint8_t *work);
INK_API void BUF_outline_pest_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *bitmap,
                                     int32_t colour, int32_t distance, uint8_t *buf, uint8_t *work);

/* ---- On a checkerboard ---- */

/* Draws only where the screen's x + y is even: the picture's pixels that are not 0, each ANDed with mask. */
INK_API void BUF_mesh_pest_image(int32_t x, int32_t y, const uint8_t *image, int32_t mask, uint8_t *buf);
INK_API void BUF_mesh_pest_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *bitmap,
                                  int32_t mask, uint8_t *buf);

/* ---- As coloured glass ---- */

/* Each screen pixel p underneath becomes entry p of glass table n (0 to 7; another n draws nothing): in a
   rectangle, on the outline of one, or under the picture's pixels that are not 0. Bar and box are clamped as
   BUF_bar and BUF_box; a box of a single row goes through the table twice. Tables are made by
   PAL_make_glass_table; before that all their entries are 0. */
INK_API void BUF_glass_bar(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t n, uint8_t *buf);
INK_API void BUF_glass_box(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t n, uint8_t *buf);
INK_API void BUF_glass_mask_pest_image(int32_t x, int32_t y, const uint8_t *image, uint8_t *buf, int32_t n);
INK_API void BUF_glass_mask_pest_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *bitmap,
                                        uint8_t *buf, int32_t n);

/* ---- With a key ---- */

/* Draws the picture and notes where: keybuf, a second buffer of the screen's size, gets the low byte of key
   at every position drawn, so that it tells which picture was drawn there last. put draws its whole
   rectangle, pest the pixels that are not 0. */
INK_API void BUF_key_put_image(int32_t x, int32_t y, const uint8_t *image, uint8_t *buf, int32_t key,
                               uint8_t *keybuf);
INK_API void BUF_key_pest_image(int32_t x, int32_t y, const uint8_t *image, uint8_t *buf, int32_t key,
                                uint8_t *keybuf);

/* ---- Mirrored, into a memory buffer ---- */

/* reverse draws the picture upside down, turn mirrors it left to right. */
INK_API void MEM_reverse_pest_image(int32_t x, int32_t y, const uint8_t *image, int32_t bw, int32_t bh,
                                    uint8_t *mem);
INK_API void MEM_reverse_pest_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *bitmap,
                                     int32_t bw, int32_t bh, uint8_t *mem);
INK_API void MEM_turn_pest_image(int32_t x, int32_t y, const uint8_t *image, int32_t bw, int32_t bh,
                                 uint8_t *mem);
INK_API void MEM_turn_pest_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *bitmap,
                                  int32_t bw, int32_t bh, uint8_t *mem);

/* ---- As a shadow ---- */

/* Draws the silhouette of the picture upside down: colour at every pixel that is not 0. */
INK_API void MEM_shadow_mask_pest_image(int32_t colour, int32_t x, int32_t y, const uint8_t *image,
                                        int32_t bw, int32_t bh, uint8_t *mem);
INK_API void MEM_shadow_mask_pest_bitmap(int32_t colour, int32_t x, int32_t y, int32_t w, int32_t h,
                                         const uint8_t *bitmap, int32_t bw, int32_t bh, uint8_t *mem);

/* Draws the shadow of the picture at (x, y), which the caller draws afterwards: the picture flattened to
   H = 3 * h / 4 rows and sheared to W = w + w / 4 columns, lower rows further right, is drawn at
   (x - w / 4, y + h / 4) in colour 0 on the checkerboard. work receives it, a bitmap of W x H bytes. */
INK_API void BUF_shadow_pest_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *bitmap,
                                    uint8_t *buf, uint8_t *work);

INK_END

#endif
