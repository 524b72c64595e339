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
   the file (0 or less: the head record alone), or -1 with one line in the error log:

   - "CAN file <name> open error:CAN_read_file"
   - "ERROR : memory alloc error:CAN_read_file": no memory for the frame offsets, or the file is too short for them
   - "Memory alloc error:CAN_read_file": no memory for the frames, or they would take more of it than 256 MiB
     and 64 times the size of the file

   A frame whose block is not a compressed image is logged as "Compress image format error" and comes out blank
   (colour 0), of the size the block states; one whose record is empty, so that it states none, is 0 x 0. */
INK_API int32_t CAN_read_file(const char *file_name, ANI_DATA_STRUCT **head, uint8_t *work);

/* Reads frame index, counted from 0, into image, which must hold what fnGetCompressImageFrameSize gives for
   its block; *x and *y receive its position. work is room for the compressed frame by agreement; it is not
   written. Returns the frame count of the file, or -1: without a line in the error log when there is no such
   frame; with "CAN file <name> open error:CAN_read_frame"; or with "ERROR : memory alloc error(CAN_read_frame)"
   when there is no memory, or the file is too short for its frame offsets. When the frame's block is not a
   compressed image, "Compress image format error" is logged and image stays as it is. */
INK_API int32_t CAN_read_frame(const char *file_name, int32_t index, int32_t *x, int32_t *y, uint8_t *image,
                               uint8_t *work);

/* Frees the record, every record after it, and their images. Null is allowed. */
INK_API void ANI_free_ani(ANI_DATA_STRUCT *head);

INK_END

#endif
