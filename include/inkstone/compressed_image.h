/* Compressed image blocks: an image block (16-bit width, 16-bit height, pixels) behind a 16-byte header, its
   pixels run-length coded row by row.

     0  4  "Cimg", read in any letter case      10  2            height
     4  4  compression type                     12  4            data length: the code bytes that follow
     8  2  width                                16  data length  code bytes

   Numbers are little-endian. Compression type 0 has its pixels coded; type 1 is a header alone; any other
   type is coded as 0 is, but only type 0 is expanded. A code byte of 0x00 to 0xBF is one pixel; 0xC0 + n is
   followed by the pixel that is written n times, n up to 63. No run reaches into the next row. */
#ifndef INKSTONE_COMPRESSED_IMAGE_H
#define INKSTONE_COMPRESSED_IMAGE_H

#include "types.h"

INK_BEGIN

/* Compresses the image block at image into block, which must hold 16 + 2 * width * height bytes: the worst
   case is two code bytes a pixel. The two may not overlap. With type 1 only the header is written and no
   pixel is read. Returns the size of the compressed block, 16 + data length. */
INK_API int32_t fnCompressImage(const uint8_t *image, uint8_t *block, uint32_t type);

/* Expands block into image, which must hold fnGetCompressImageFrameSize(block) bytes. Whatever the code bytes
   say, none behind the stated data length is read, none that no pixel asks for, and no more than width *
   height pixels are written. Pixels for which the code has nothing stay as they are, and so do all of them
   when the type is not 0. A block that does not begin with "Cimg" is logged as "Compress image format
   error" and nothing is written. */
INK_API void fnUncompressImage(const uint8_t *block, uint8_t *image);

/* The size of the whole block, 16 + data length; 0 for a null pointer. Only the header is read, its magic is
   not checked. */
INK_API int32_t fnGetCompressImageSize(const uint8_t *block);

/* The size of the image block that expanding gives, width * height + 4; 0 for a null pointer. Only the header
   is read, its magic is not checked. */
INK_API int32_t fnGetCompressImageFrameSize(const uint8_t *block);

INK_END

#endif
