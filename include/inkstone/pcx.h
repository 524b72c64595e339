/* PCX pictures of 256 colours: run-length coded rows, one plane of 8 bits, the palette at the end of the file
   (version 5 of the format, after ZSoft's "PCX File Format Technical Reference Manual"). Pixels cross as a
   bitmap without header, width * height bytes, rows from the top.

   The family keeps one palette, 256 times red, green, blue, each 0 to 63, all 0 at first: reading a picture
   sets it, writing one stores it. Files hold components of 8 bits, four times as large. */
#ifndef INKSTONE_PCX_H
#define INKSTONE_PCX_H

#include "types.h"

INK_BEGIN

/* Stores width and height of the picture and returns their product, the number of bytes PCX_read_file writes.
   On failure neither is stored and a line is logged: -1 with "File <name> open error"; -2 with "PCX Header
   check error" when it is no PCX file, or with "PCX format not support" when it is not run-length coded, not
   of one plane of 8 bits, or of a width or height below 0 or of 2^31 pixels and more. A width or height of 0
   is a picture without pixels, with the result 0. */
INK_API int32_t PCX_get_image_size(const char *file_name, int32_t *width, int32_t *height);

/* Reads the pixels into destination, width * height bytes, and the palette into the family's. Padding behind
   the rows is left out. Where the file has too little pixel data the rest of the destination stays as it is.
   Returns 0, or -2 with one line logged, those above or "Memory not enough" or "Palete check error" (no
   palette at the end); destination and palette are then unchanged. */
INK_API int32_t PCX_read_file(const char *file_name, uint8_t *destination);

/* Writes width columns and height rows at (x, y) of a pixel buffer whose rows are row_length bytes long,
   together with the family's palette; an existing file is replaced. The header places the picture at (x, y).
   unused is for compatibility. With a height of 0 or less no rows are written, and with a width of 0 or less
   empty ones; such a header is read as that of a picture without pixels, or refused when it says less than 0.
   Returns 0, also when the disk is full, or -1 when there is no memory (the file is then not touched) or the
   file cannot be created; nothing is logged. */
INK_API int32_t PCX_save_file(const char *file_name, int32_t x, int32_t y, int32_t width, int32_t height,
                              const uint8_t *source, int32_t row_length, int32_t unused);

/* Copies the family's 768 palette bytes out. Always returns 0. */
INK_API int32_t PCX_export_palette(uint8_t *palette);

/* Makes the 768 bytes at palette the family's palette. Always returns 0. */
INK_API int32_t PCX_inport_palette(const uint8_t *palette);

INK_END

#endif
