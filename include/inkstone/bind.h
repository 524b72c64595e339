/* BIND archives: many files in one. Numbers are little-endian.

     0  14  "Murn Bind file"            24  24 * count  directory, an entry a file:
    14   1  0x1A                              0  16  name, at most 15 characters and a zero
    15   1  0x10                             16   4  offset of the contents from the start of the archive
    16   4  count of files                   20   4  size of the contents
    20   4  750411                                      contents, in the order of the directory

   An archive is made of the files that a list names, a text file with a name a line. Names are taken exactly
   as they stand there, with any relative path. A line that begins with ";" is a comment, one that begins with
   the character 0x1A ends the list. A line of more than 127 characters counts as several. */
#ifndef INKSTONE_BIND_H
#define INKSTONE_BIND_H

#include "types.h"

INK_BEGIN

/* Binds the files that list_name lists into archive_name, which is created or replaced. Returns 0, or -1 with
   one line logged; the archive is not touched while the list is read:

   - "LIST file <list> open error": also when it cannot be read to its end
   - "BIND element file <name> open error": a listed file cannot be opened, or is the archive itself
   - "BIND element file <name> name too long": its name has more than 15 characters
   - "BIND file <archive> too large": the archive would have 2^31 bytes or more
   - "memory alloc error"
   - "file <name> open error": the archive, or then a listed file again, cannot be opened, or that file has
     another size now or cannot be read whole; the archive is left as far as it was written
   - "file <archive> write error": the archive is left as far as it was written
*/
INK_API int32_t BIND_bind_file(const char *archive_name, const char *list_name);

/* Finds the first file of that name, whatever the case of its letters a to z, and stores its offset and size
   as they stand in the directory; check them before you rely on an archive you did not make. name is turned
   into capitals where it stands. Returns 0, or -2 with nothing stored and one line logged: "File <archive>
   open error" or "File <name> not in BIND file <archive> " (with a space at its end). */
INK_API int32_t BIND_open(const char *archive_name, char *name, int32_t *offset, int32_t *size);

/* Reads size bytes at offset into destination; what the archive does not have, or what cannot be read of
   it, is left as it is there. Returns 0, or -2 with "File <archive> open error" logged. */
INK_API int32_t BIND_read(const char *archive_name, int32_t offset, int32_t size, uint8_t *destination);

/* Writes every file of the archive again under its name, below the current directory; a file of that name is
   replaced, a directory that the name leads into must be there. Contents the archive does not have are left
   out. Names that lead out of the current directory (from a drive, from the root or upwards), which BIND_bind_file
   binds and BIND_open finds, are passed over, and so is the archive's own, each with "file <name> open error"
   logged. A file that cannot be created ends the extraction with the same line, and so does one with which the
   files would be more than 64 times as large as the archive; one that cannot be written ends it with "file
   <name> write error". What was written stays. Other lines are "file <archive> open error" and "memory alloc
   error". Always returns 0. unused is for compatibility. */
INK_API int32_t BIND_chop_file(const char *archive_name, const char *unused);

INK_END

#endif
