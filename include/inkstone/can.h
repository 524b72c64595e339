/* CAN animations: the frames of one animation, each a compressed image block with a position.

   The file, numbers little-endian:
      0  12             not interpreted
     12   4             frame count, signed
     16   2   18   2    anchor x and y, signed, added to the position of every frame
     20   4 each        frame offsets, from the start of the file
   At each frame offset:
      0   2    2   2    frame x and y, signed
      4   4             size of the compressed image block
      8                 the block */
#ifndef INKSTONE_CAN_H
#define INKSTONE_CAN_H

#include "types.h"

INK_BEGIN

/* One frame of an animation in memory. An animation is a list that begins with a head record, which is empty
   but for next; the first frame's prev is the head, the last frame's next is null. */
typedef struct ANI_DATA_STRUCT {
    int32_t x, y;   /* position, anchor included */
    uint8_t *image; /* image block, owned by the record */
    struct ANI_DATA_STRUCT *prev, *next;
} ANI_DATA_STRUCT;

/* Reads a whole file. *head receives the head record, to be freed with ANI_free_ani, or null on failure.
   work is room for the largest compressed frame by agreement; it is not written. Returns the frame count of
   the file (0 or less: the head record alone), or -1 when the file cannot be opened, when it is too short for
   its frame offsets, or when there is no memory, each with a line in the error log. A frame whose block is
   not a compressed image is logged and comes out blank, of the size the block states. */
INK_API int32_t CAN_read_file(const char *file_name, ANI_DATA_STRUCT **head, uint8_t *work);

/* Reads frame index, counted from 0, into image, which must hold what fnGetCompressImageFrameSize gives for
   its block; *x and *y receive its position. work is room for the compressed frame by agreement; it is not
   written. Returns the frame count of the file, or -1 when the file cannot be opened or is too short for its
   frame offsets, with a line in the error log, or when there is no such frame, without one. A frame whose
   block is not a compressed image is logged and comes out as an image of width and height 0. */
INK_API int32_t CAN_read_frame(const char *file_name, int32_t index, int32_t *x, int32_t *y, uint8_t *image,
                               uint8_t *work);

/* Frees the record, every record after it, and their images. Null is allowed. */
INK_API void ANI_free_ani(ANI_DATA_STRUCT *head);

INK_END

#endif
