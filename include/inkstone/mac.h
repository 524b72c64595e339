/* Scripts: compiled byte code of numbered procedures that share one array of 32-bit variables. The library
   runs the procedures one at a time; the game's own commands are opcodes 24 to 255, which are handed to its
   callback.

   Calling order: MAC_init once, MAC_load of the first script, MAC_driver for each procedure to run. When
   MAC_driver returns 8 the script has named its successor, which MAC_reload loads. To keep the state:
   MAC_info_size, then MAC_export_info. To bring it back: MAC_inport_info, then MAC_reload. MAC_free at the
   end.

   One script is loaded at a time. The language in which scripts are written, and the tool that compiles them,
   stand in docs/script.md, the byte code in docs/bytecode.md.

   Variables are numbered from 0; there are as many as MAC_init is told. Operands of instructions read 0
   from variable 16,000 on; only MAC_get_variable and the instructions that change or compare a variable
   reach those. Procedures are numbered from 0; scripts can call 0 to 1023, the game can run all. Calls go
   32 deep.

   Messages go to ERROR.MSG in the log directory given to MAC_init, or in the current directory:

     LOAD MAC <name>(<code size>) OK!                 every load that succeeds
     ERROR : mac system have not been initialized !   loading before MAC_init
     ERROR : error open file <name>(MAC_load)         MAC_load
     ERROR : error open file <name>                   MAC_reload
     ERROR : memory alloc error(MAC_load)             MAC_load: no memory, or impossible sizes
     ERROR : memory alloc error                       the same, elsewhere
     ERROR : mac filename lost !                      MAC_reload without a name to load
     ERROR : pmac_info is null                        loading without a record
     ERROR : mac inport info is null                  MAC_inport_info of null
     PROC address not define !!!                      a run or a call of a procedure that is not defined
     MAC call proc no out of range                    a call outside 0 to 1023; it is not made
     MAC stack overflow                               a call or a run 33 deep; it is not made
     MAC address <offset> outside code                a run that leaves the code

   A script file, all numbers 32-bit little-endian: three words that are not read, the code size, a word
   that is not read, the number of procedures N, the start of each procedure within the code (negative: not
   defined), the code. */
#ifndef INKSTONE_MAC_H
#define INKSTONE_MAC_H

#include "types.h"

INK_BEGIN

/* The game's commands: carries out opcode (24 to 255), whose operands it reads with MAC_get_number,
   MAC_get_string, MAC_get_long and MAC_get_char in the order in which they stand. Returns 0 to go on with
   the script, or any other value to make MAC_driver return it at once; take positive values but 8, since
   MAC_driver gives the others a meaning. It must return: a game that leaves it by longjmp leaves the run
   half done.

   It may run further procedures with MAC_driver (32 deep at most); when it frees or replaces the script, or
   sets the system up anew, the run that called it ends once it returns. */
typedef int32_t (*MAC_CALLBACK)(uint8_t opcode);

/* The saved state as MAC_export_info hands it out: this, then variable_count signed 32-bit variables. The
   bytes are the same on every machine (numbers little-endian, nothing between them), so they can be saved as
   they are. */
typedef struct MAC_INFO_STRUCT {
    char name[80];           /* of the script file, zero-terminated; "NONAME" when none was loaded */
    uint32_t size;           /* of the code */
    int32_t position;        /* within the code: while a procedure runs that of the next instruction, then
                                where its last operand ended; 0 after a load. No run goes on there. */
    uint32_t variable_count; /* of the variables that follow */
} MAC_INFO_STRUCT;

/* Sets the script system up with variable_count variables, all 0, and no script. Scripts are loaded from
   script_dir, messages logged to ERROR.MSG in log_dir; an empty one or null keeps what was set before (the
   current directory at first). callback may be null: every opcode of the game's then stops the script with
   -1. Returns 0, or -1 when memory is exhausted; the variables and the rest of their record can take 2
   GiB. */
INK_API int32_t MAC_init(const char *script_dir, const char *log_dir, uint32_t variable_count,
                         MAC_CALLBACK callback);

/* Loads the script file_name of the script directory. The variables keep their values. Returns 0, or -1 when
   the system is not set up, the file cannot be opened, its name has more than 79 characters or its sizes are
   impossible; nothing is loaded then. A file that ends early, or cannot be read further, is filled up with zeros,
   and with them what has not been read of its sizes. */
INK_API int32_t MAC_load(const char *file_name);

/* Loads the script named by the record: after a return of 8 or after MAC_inport_info. Returns as MAC_load
   does. */
INK_API int32_t MAC_reload(void);

/* Releases the script and the record. MAC_init starts anew. */
INK_API void MAC_free(void);

/* The bytes MAC_export_info writes: 92 + 4 for each variable, or 0 when there is no record. */
INK_API int32_t MAC_info_size(void);

/* The size of the loaded script's header and table of procedures, 24 + 4 for each procedure, or 0 without
   one. */
INK_API int32_t MAC_head_size(void);

/* Writes the saved state to destination, MAC_info_size() bytes. Returns their number, or 0 without a
   record or a destination. */
INK_API int32_t MAC_export_info(void *destination);

/* Takes a saved state of 92 + 4 x variable_count bytes, as MAC_export_info wrote it. A game that read it from
   a file compares that size with what it read first. Returns the number of bytes, or 0 when source is null or
   memory is exhausted; in the latter case there is no record any more. */
INK_API int32_t MAC_inport_info(const void *source);

/* Writes the script's name to destination, 80 bytes. Returns a buffer of the library's with the same text,
   which the next call overwrites, or null (and nothing is written) without a record or a destination. */
INK_API char *MAC_export_filename(char *destination);

/* Runs procedure proc, 0 to the number of procedures - 1, from its start. Pumps messages before each
   instruction, so the game's window stays alive; a procedure called from there may end the run with MAC_free.
   The position in the record is then that of the instruction to come. Returns

     0    the procedure ended, or could not be run, or the script was freed or replaced meanwhile
     -1   the script stopped itself
     -2   the script left its code: a jump, call, instruction or operand lies outside; a line is logged
     8    the script named its successor: MAC_reload loads it
     or what the callback returned, when it is not 0. */
INK_API int32_t MAC_driver(int32_t proc);

/* The next operand of the instruction at hand, to be called from the callback. Past the end of the code
   numbers are 0, strings null, and the run ends once the callback returns. */

/* A number, written into the script as such or as the value of a variable. */
INK_API int32_t MAC_get_number(void);

/* A text, zero-terminated, in a buffer of 255 bytes that the next call overwrites; null when none stands
   there. */
INK_API char *MAC_get_string(void);

/* A plain 32-bit number. */
INK_API int32_t MAC_get_long(void);

/* A byte. */
INK_API uint8_t MAC_get_char(void);

/* Sets a variable; ignored without a record and for an index outside 0 to the variable count - 1. */
INK_API void MAC_set_variable(int32_t index, int32_t value);

/* The value of a variable, or 0 without a record and for an index outside 0 to the variable count - 1. */
INK_API int32_t MAC_get_variable(int32_t index);

INK_END

#endif
