/* Eight polling lists, numbered 0 to 7: ordered lists of procedures that the game builds and runs on demand.
   Every function returns 0, or -2 for a list number outside 0 to 7 and where it says so. */
#ifndef INKSTONE_POLLING_H
#define INKSTONE_POLLING_H

#include "types.h"

INK_BEGIN

/* Makes list an empty list. A list that existed is replaced without being freed: clear it first. Returns -2
   and logs "PollingInit(%d) error" when memory is exhausted. */
INK_API int32_t PollingInit(int32_t list);

/* Adds procedure at the end. Returns -2 when the list does not exist or memory is exhausted. */
INK_API int32_t PollingAppend(int32_t list, INK_PROCEDURE procedure);

/* Adds procedure right after the first entry of anchor. Returns -2 when anchor is not in the list. */
INK_API int32_t PollingInsert(int32_t list, INK_PROCEDURE procedure, INK_PROCEDURE anchor);

/* Removes the first entry of procedure. Returns -2 when there is none. */
INK_API int32_t PollingDelete(int32_t list, INK_PROCEDURE procedure);

/* Frees the list, which then does not exist. Returns -2 when it did not exist. */
INK_API int32_t PollingClear(int32_t list);

/* Calls the procedures in order. A list that does not exist calls nothing. A procedure may change the list it
   runs from: entries it removes are not called any more, entries it adds behind itself are. */
INK_API int32_t PollingExecute(int32_t list);

INK_END

#endif
