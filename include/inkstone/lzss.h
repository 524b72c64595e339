/* Compression with a sliding window of 4096 bytes and matches of 2 to 17 bytes, in two forms that cannot read
   each other. Neither has a header: nothing in the data tells its form or the length it expands to.

   A match names the place in the window, 0 to 4095, where the bytes begin that it repeats; they may overlap
   those it produces. The first byte of the data goes to place 1, and after place 4095 comes place 0.

   File form, a stream of bits, most significant first:
     literal  1, byte (8)
     match    0, place (12), length - 2 (4)
     end      0, 0 (12); the last byte is filled with 0 bits

   Memory form, groups of a flag byte and up to eight tokens; bit 0 of the flags is for the first token, a 1
   marks a literal:
     literal  byte
     match    (length - 2) * 16 + place / 256, place % 256

   One operation at a time: all four functions share one window. What a call leaves in it can decide between
   matches that are equally good where the next data ends, so the same data may give different code after
   another call; either expands to that data. */
#ifndef INKSTONE_LZSS_H
#define INKSTONE_LZSS_H

#include "types.h"

INK_BEGIN

/* Compresses the file input_name into the file form as output_name, which is created or replaced. Returns 0,
   or -1 when a file cannot be opened, with "ERROR : file <name> open error(LZSS_compress_file)" logged; an
   output that is the input counts as one that cannot. The result is -1, too, when the input cannot be read to
   its end: the output then holds what was read. An output that cannot be written is logged as
   BITIO_output_bits and BITIO_close_output_bit_file do. */
INK_API int32_t LZSS_compress_file(const char *input_name, const char *output_name);

/* Expands the file form. The output is created first, so a missing input leaves it empty. Returns 0, or -1
   when a file cannot be opened, with "ERROR : file <name> open error(LZSS_expand_file)" logged; an output that
   is the input counts as one that cannot. An input that ends before its end code is expanded as far as it goes,
   with "BITIO_input_bit error" or "BITIO_input_bits error" logged once. An output that cannot be written is not
   told. */
INK_API int32_t LZSS_expand_file(const char *input_name, const char *output_name);

/* Compresses *source_length bytes into the memory form and stores its length in *compressed_length. n bytes
   need room for up to n + (n + 7) / 8. The two buffers may not overlap. Always returns 0. */
INK_API int32_t LZSS_compress_data(const uint8_t *source, uint8_t *destination, const uint32_t *source_length,
                                   uint32_t *compressed_length);

/* Expands the memory form, *compressed_length bytes, into *expanded_length bytes. Neither is a byte read
   behind the one nor written behind the other, whatever the data says: what does not fit is cut off, and
   where the data ends early the rest of destination stays as it is. *expanded_length keeps its value. Always
   returns 0.

   The two buffers may overlap: the code is then read byte by byte as the output is written. In a buffer of 9 / 8
   of *expanded_length and 2 bytes more, code at its end is expanded to its start without being overtaken. */
INK_API int32_t LZSS_expand_data(const uint8_t *source, uint8_t *destination,
                                 const uint32_t *compressed_length, uint32_t *expanded_length);

INK_END

#endif
