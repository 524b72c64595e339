/* Lines, arcs and fills, on the screen buffer (BUF_) and on memory buffers of any size (MEM_).

   buf is the screen buffer: 640 x 480 palette indices, rows top to bottom. mem is a memory buffer of bw x bh
   palette indices; a null mem is passed over. Coordinates may lie anywhere in the 32-bit range: what falls
   outside the buffer is not drawn, the rest is. Of a colour the low byte counts. */
#ifndef INKSTONE_LINE_H
#define INKSTONE_LINE_H

#include "types.h"

INK_BEGIN

/* Draws the straight line between two points, both included. Sloped lines are walked from their right-hand
   end, and the coordinate that changes less changes late, at the end of each run. */
INK_API void BUF_line(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, uint8_t *buf);
INK_API void MEM_line(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, int32_t bw, int32_t bh,
                      uint8_t *mem);

/* Draws the pixels of the same line in runs: length - 1 pixels off, then length on and length off in turn.
   Vertical lines are walked from the top, horizontal ones from the left, sloped ones from the right-hand end.
   A length of 1 draws every other pixel, the first included; a length below 1 draws nothing. */
INK_API void BUF_dash_line(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, int32_t length,
                           uint8_t *buf);
INK_API void MEM_dash_line(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, int32_t length,
                           int32_t bw, int32_t bh, uint8_t *mem);

/* Draws an arc of the ellipse with the centre (cx, cy), the vertical radius rv and the horizontal radius rh,
   from the angle start to the angle end in degrees: 0 lies straight below the centre, 90 to its left, and an
   end beyond the start turns clockwise. Equal angles draw the whole ellipse.

   The figure is a walk of single steps that begins half a pixel off the centre lines and is not closed:

   - A whole ellipse reaches one pixel further at the top and on the right than at the bottom and on the left,
   and has a gap a few pixels wide where it ends, straight right of the bottom, through which a fill leaks.

   - Arcs keep to the ellipse for certain that start at 0, 90, 180 or 270 degrees and turn clockwise, or start
   at 90 or 180 and turn anticlockwise. Anticlockwise from 0 and 270 the walk sets out in the wrong direction;
   from angles between the quarters it may pass a centre line without turning there. Both leave the ellipse.

   - A radius below 1 makes no ellipse but a pixel or a stroke near the centre.

   Of a walk of more than 16,777,216 steps (a whole circle has 8 to a pixel of radius) nothing is drawn. */
INK_API void BUF_circle(int32_t cx, int32_t cy, int32_t rv, int32_t rh, int32_t start, int32_t end,
                        int32_t colour, uint8_t *buf);
INK_API void MEM_circle(int32_t cx, int32_t cy, int32_t rv, int32_t rh, int32_t start, int32_t end,
                        int32_t colour, int32_t bw, int32_t bh, uint8_t *mem);

/* Fills the area of one colour around (x, y) with colour. Pixels connect along rows and columns, not
   diagonally. An area so ragged that more than 1,000 row segments are pending at once stays unfilled in
   places. */
INK_API void BUF_fill(int32_t x, int32_t y, int32_t colour, uint8_t *buf);
INK_API void MEM_fill(int32_t x, int32_t y, int32_t colour, int32_t bw, int32_t bh, uint8_t *mem);

INK_END

#endif
