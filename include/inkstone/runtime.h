/* Runtime services: the error log, the quit procedures, the fatal exit and the message pump. */
#ifndef INKSTONE_RUNTIME_H
#define INKSTONE_RUNTIME_H

#include "types.h"

INK_BEGIN

/* Appends message and a line end to the text file file_name, which is created when missing. The file is
   opened and closed on every call, so the line is on disk when the call returns. A file that cannot be opened
   is passed over. */
INK_API void log_error_to_file(const char *message, const char *file_name);

/* Registers proc to run in ExecQuitProc. The same procedure may be registered more than once and then runs as
   often. Returns 0, or -1 when the 64 places are taken; nothing is registered then. */
INK_API int32_t PushQuitProc(INK_PROCEDURE proc);

/* Runs the registered procedures, the last registered first. They stay registered: a second call runs them
   again. */
INK_API void ExecQuitProc(void);

/* Ends the process after an unrecoverable failure: shows message in a box captioned "SystemError" owned by
   window (which may be null) and waits until it is closed, delivers the messages that are waiting, runs the
   quit procedures and exits with code 1. Does not return.

   Called again by a window procedure that one of those messages reaches, it shows its box and goes on with the
   quit procedures; called by a quit procedure, with those registered before it. */
INK_API void fnErrorExit(HWND window, const char *message);

/* Dispatches every message that waits in the thread's queue, and returns at once when there is none. A quit
   request is taken out like any other message and has no further effect, so a game whose waits pump messages
   notes WM_CLOSE or WM_DESTROY in its window procedure. */
INK_API void fnCheckMessage(void);

INK_END

#endif
