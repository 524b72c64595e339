/* Small services a game uses beside the families: letter case, files and directories, whole paths, numbers in
   byte buffers, file names, tokens of text lines, sine and cosine, and a few facts about the machine.

   Paths use backslash or slash, and names are found without regard to letter case where they do not exist as
   written. None of these functions writes to ERROR.MSG. */
#ifndef INKSTONE_UTILITY_H
#define INKSTONE_UTILITY_H

#include "types.h"

INK_BEGIN

/* c with a to z turned into A to Z; every other byte unchanged. */
INK_API uint8_t char_upper(uint8_t c);

/* c with A to Z turned into a to z; every other byte unchanged. */
INK_API uint8_t char_lower(uint8_t c);

/* Returns 0 when the file can be opened for reading, else -2. */
INK_API int32_t check_file_exist(const char *name);

/* Returns 0 when a file can be created in the directory, else -2. Tries it with a file named by seven bytes
   of 0xFF, which is removed again. */
INK_API int32_t check_directory_exist(const char *name);

/* Creates every directory named along the path that does not exist yet. Returns 0 when the last attempt, which
   is the whole path, created one, -2 when it did not, because it was there already or, in "SAVE\", was created
   in the attempt before. */
INK_API int32_t make_directory(const char *path);

/* Removes the last directory of the path, then each one named before it, as far as they are empty. path is
   cut at its first separator. Returns 0 when the last attempt, which is the first directory of the path,
   succeeded, else -2: also for "SAVE\", whose only directory goes in the attempt before. */
INK_API int32_t remove_directory(char *path);

/* Writes the full form of path to whole, which must have room for 257 bytes more than path has characters:
   the current directory takes at most 255. path is turned into capitals where it is copied.

     \NAME    the current drive's letter and a colon (nothing where drives have no letters), then path
     D:\NAME  path; D:\ alone gives D:
     D:NAME   the drive's current directory, a backslash, NAME; D: and D:. give the directory alone, and
              D: with any other name that begins with a dot prints "Input path error" and gives it alone
     NAME     the current directory, a backslash, then path

   Where drives have no letters the current directory of every drive is the current directory. One of more
   than 255 characters goes by ".". Memory that runs out leaves whole empty. */
INK_API void oper_whole_path(char *path, char *whole);

/* The byte at *position of the buffer; *position grows by 1. */
INK_API uint8_t get_byte_from_buffer(int32_t *position, const uint8_t *buffer);

/* The little-endian 16-bit number at *position of the buffer; *position grows by 2. */
INK_API uint16_t get_int_from_buffer(int32_t *position, const uint8_t *buffer);

/* The little-endian 32-bit number at *position of the buffer; *position grows by 4. */
INK_API int32_t get_long_from_buffer(int32_t *position, const uint8_t *buffer);

/* Writes name cut before its first dot to result, or "FORMERR!" when name is longer than 13 characters;
   result must have room for 14 bytes. Returns a buffer of the library's with the same text, which the next
   call overwrites. */
INK_API char *get_only_filename(char *result, const char *name);

/* Writes name to result with everything after its first dot replaced by extension, which is given without a
   dot. A name without a dot gets one. result may be name itself, and must have room for name, a dot, extension
   and a zero. */
INK_API void change_ext(char *result, const char *name, const char *extension);

/* Moves *position past the spaces, tabs, commas and equals signs of the text that stand there. */
INK_API void skip_space(const char *text, int32_t *position);

/* Copies at most max characters from *position of the text on to result, which must have room for max + 1
   bytes, and moves *position behind them. With stop non-zero a space, a comma or an equals sign (not a tab)
   ends the token too; *position then stays on it. */
INK_API void get_str(char *result, const char *text, int32_t *position, uint8_t stop, int32_t max);

/* The sine and the cosine of an angle in degrees times 65536. Angles outside 0 to 359 are taken round the
   circle. Nineteen values are one off the truncated product, as paths of games count on. */
INK_API int32_t int_sin(int32_t angle);
INK_API int32_t int_cos(int32_t angle);

/* Returns 0 when the machine can show Big5 text, that is when its setting "CHINESBIG5(88)" is "yes" in any
   letter case, else -2. Machines made in software can, until HOST_set_setting says otherwise. */
INK_API int32_t check_big5(void);

/* Writes the local time to text in 26 bytes, for example "Mon Nov 02 09:05:07 2026\n". */
INK_API void get_time(char *text);

/* Draws 100 numbers from the random generator for each second of the current minute, so that games which
   start at different moments play differently. */
INK_API void run_random_init(void);

/* The first CD-ROM drive, 0 for A to 25 for Z, or -1 when there is none. On machines made in software it is 3,
   with or without a disc in it. */
INK_API int32_t get_cdrom_drive(void);

INK_END

#endif
