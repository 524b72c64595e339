/* Files as streams of bits: the first bit of a byte is its bit 7, and a code of several bits has its most
   significant bit first. A file holds exactly the bits written, filled up to a whole byte with 0 bits; it has
   no header, length or end mark. A file opened for input is closed as input, one opened for output as output.
   A null record, or a count outside 1 to 32, does nothing and reads 0. */
#ifndef INKSTONE_BITIO_H
#define INKSTONE_BITIO_H

#include <stdio.h>

#include "types.h"

INK_BEGIN

/* An open bit file, made by the open functions and freed by the close functions. */
typedef struct BIT_FILE_STRUCT {
    FILE *stream;       /* the file, in binary mode */
    uint8_t bit_mask;   /* the bit of bit_buffer that is next; 0x80 while no byte is partly used */
    int16_t bit_buffer; /* the byte in work; all ones after a read at the end of the file */
    int32_t byte_count; /* bytes written, or fetched, since the file was opened */
} BIT_FILE_STRUCT;

/* Opens a file for reading bits. Null when it cannot be opened or there is no memory; nothing is logged. */
INK_API BIT_FILE_STRUCT *BITIO_open_input_bit_file(const char *file_name);

/* Closes the file and frees the record. */
INK_API void BITIO_close_input_bit_file(BIT_FILE_STRUCT *file);

/* Creates a file, or empties an existing one, for writing bits. Null when it cannot be created or there is no
   memory; nothing is logged. */
INK_API BIT_FILE_STRUCT *BITIO_open_output_bit_file(const char *file_name);

/* Writes the last byte when it is partly filled, closes the file and frees the record. When that byte, or any
   that was still buffered, cannot be written, "BITIO_close_output_bit_file error" is logged. */
INK_API void BITIO_close_output_bit_file(BIT_FILE_STRUCT *file);

/* Writes one bit, a 1 for any bit but 0. A full byte that cannot be written is logged as "BITIO_output_bit
   error"; it stays, and from then on each bit tries to write that byte again instead of adding to it. */
INK_API void BITIO_output_bit(BIT_FILE_STRUCT *file, int32_t bit);

/* Writes the count low bits of code, 1 to 32. Failures are those of BITIO_output_bit. */
INK_API void BITIO_output_bits(BIT_FILE_STRUCT *file, uint32_t code, int32_t count);

/* Reads one bit, 0 or 1. Past the end of the file bits are 1, and each byte missed is logged as
   "BITIO_input_bit error". */
INK_API int32_t BITIO_input_bit(BIT_FILE_STRUCT *file);

/* Reads count bits, 1 to 32, the first as the most significant. Past the end of the file bits are 1, and each
   byte missed is logged as "BITIO_input_bits error". */
INK_API uint32_t BITIO_input_bits(BIT_FILE_STRUCT *file, int32_t count);

/* Prints the count low bits of code, 1 to 32, to an open text stream as the characters 0 and 1. */
INK_API void BITIO_file_print_binary(FILE *stream, uint32_t code, int32_t count);

INK_END

#endif
