/* INFO files: configuration in sections of keys and values, as text.

     [Sound]
     Volume = 80      ; this comment is part of the value

   Space, tab, comma and "=" separate a key from its value, and are skipped before a key; the value is the
   whole rest of the line. A line that begins with "[" opens a section, named by what follows up to "]"; one
   that begins with ";" is a comment. A line ends with a line feed; what follows a carriage return or a zero in
   it is ignored, so a file whose lines end with carriage returns alone is one line. A line of more than 1022
   characters counts as several. A last line without a line feed is not read. The case of the letters a
   to z does not matter in names of sections and keys. One file is loaded at a time. */
#ifndef INKSTONE_INFO_H
#define INKSTONE_INFO_H

#include "types.h"

INK_BEGIN

/* Loads a file. Returns 0, or -2 with one line logged: "INFO file reopen error !!!" while one is loaded,
   "Memory alloc error!!!", "INFO file <name> open error!!!" (also when it cannot be read to its end) or
   "INFO_open_file: Memory alloc error!!!". After the last two, too, INFO_close_file comes before the next
   INFO_open_file; after the last, the lines read before can be looked up. */
INK_API int32_t INFO_open_file(const char *file_name);

/* Looks a key up in the first section of that name: the first line of it that gives the key a value. Copies
   the value, at most 254 characters, into value, which must hold 255 bytes, and returns the same text in a
   buffer that stays until the next call. It is empty when the section or the key is not there, no file is
   loaded, or a name has more than 79 characters. */
INK_API char *INFO_read_config(const char *section, const char *key, char *value);

/* Frees what was loaded; another file can be loaded then. */
INK_API void INFO_close_file(void);

INK_END

#endif
