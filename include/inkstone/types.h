/* The types that cross the boundary of the library, and the marks of its exported functions.

   What holds for every function of the library:

   - A null file name behaves as the name of a file that cannot be opened. A null pointer to a result or a
     record is passed over: the function does nothing, or gives its failure result. Screen buffers, memory
     buffers, pictures and texts must be there.

   - No function throws. Memory that runs out has the result that the function states for it, or for a
     failure. What a procedure of the game's own throws passes through the function that called it.

   - Names of files use backslash or slash, and are found whatever the case of their letters. */
#ifndef INKSTONE_TYPES_H
#define INKSTONE_TYPES_H

#include <stdint.h>

#if defined(_WIN32)

/* The macros min and max would stand in the way of C++. */
#if !defined(NOMINMAX)
#define NOMINMAX
#endif
#include <windows.h>
#if defined(INKSTONE_BUILDING)
#define INK_API __declspec(dllexport)
#else
#define INK_API __declspec(dllimport)
#endif

#else

#define INK_API __attribute__((visibility("default")))

/* Handles of the machine, under the names a Windows game already uses. They are opaque: a handle is only ever
   handed back to the function families, and null is a valid "no window". */
typedef struct ink_window *HWND;
typedef struct ink_instance *HINSTANCE;
typedef struct ink_icon *HICON;
typedef HICON HCURSOR;

#endif

#if defined(__cplusplus)
#define INK_BEGIN extern "C" {
#define INK_END }
#else
#define INK_BEGIN
#define INK_END
#endif

INK_BEGIN

/* A procedure of the game's: quit procedures, polling entries, idle, tab and pump hooks. */
typedef void (*INK_PROCEDURE)(void);

INK_END

#endif
