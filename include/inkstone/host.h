/* The machine a game runs on, as far as the game sees it beyond the function families: windows and messages,
   and for tools and tests the choice of the machine, its clock, its input, and what it shows and plays.

   On Windows the types, message numbers and flags are the system's own. Elsewhere they carry the same names
   and values, so that one game source compiles everywhere. Messages carry what they carry there: key messages
   have the set-1 scan code in bits 16 to 23 of lParam and the extended flag in bit 24, mouse messages have
   the client position in the halves of lParam and the held buttons and keys in wParam. */
#ifndef INKSTONE_HOST_H
#define INKSTONE_HOST_H

#include "types.h"

#if !defined(_WIN32)

typedef uint32_t UINT;
typedef uintptr_t WPARAM;
typedef intptr_t LPARAM;
typedef intptr_t LRESULT;

#define WM_DESTROY 0x0002
#define WM_CLOSE 0x0010
#define WM_QUIT 0x0012
#define WM_SETCURSOR 0x0020
#define WM_KEYDOWN 0x0100
#define WM_KEYUP 0x0101
#define WM_SYSKEYDOWN 0x0104
#define WM_SYSKEYUP 0x0105
#define WM_TIMER 0x0113
#define WM_MOUSEMOVE 0x0200
#define WM_LBUTTONDOWN 0x0201
#define WM_LBUTTONUP 0x0202
#define WM_LBUTTONDBLCLK 0x0203
#define WM_RBUTTONDOWN 0x0204
#define WM_RBUTTONUP 0x0205
#define WM_RBUTTONDBLCLK 0x0206
#define WM_MBUTTONDOWN 0x0207
#define WM_MBUTTONUP 0x0208
#define WM_MBUTTONDBLCLK 0x0209
#define WM_USER 0x0400

#define MK_LBUTTON 0x0001
#define MK_RBUTTON 0x0002
#define MK_SHIFT 0x0004
#define MK_CONTROL 0x0008
#define MK_MBUTTON 0x0010

#endif

INK_BEGIN

/* ---- Windows and messages: what every game needs ---- */

/* A game's window procedure: receives every message dispatched to its window. Messages it has no use for go
   to HOST_default_procedure, whose result it returns. */
typedef LRESULT (*HOST_WINDOW_PROCEDURE)(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

/* Opens a window whose client area is width x height pixels (1 to 4096 each) and returns its handle, or null
   when the machine refuses. title is UTF-8. title and procedure may be null. The window opened last has the
   focus. */
INK_API HWND HOST_open_window(const char *title, int32_t width, int32_t height,
                              HOST_WINDOW_PROCEDURE procedure);

/* Closes the window after its procedure has received WM_DESTROY, its last message. Unknown handles are ignored.
 */
INK_API void HOST_close_window(HWND window);

/* What happens to a message the game does not handle: WM_CLOSE closes the window, WM_DESTROY asks the message
   loop to end with exit code 0, everything else does nothing. */
INK_API LRESULT HOST_default_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

/* Puts a message at the end of the queue, which holds 10000; what does not fit is lost. */
INK_API void HOST_post_message(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

/* Sends the window a WM_TIMER message with the number id in wParam every milliseconds, for as long as
   messages are dispatched; at most one is pending. A timer of the same number is replaced. Numbers 1 to 16 of
   the window given to SetupTimerProc are the library's. Returns 0, or -2 when the machine refuses. */
INK_API int32_t HOST_set_timer(HWND window, uint32_t id, uint32_t milliseconds);

/* Ends the timer. */
INK_API void HOST_kill_timer(HWND window, uint32_t id);

/* Asks the loop to end: once the messages already waiting are taken, HOST_run_messages returns 0. */
INK_API void HOST_post_quit(int32_t exit_code);

/* Dispatches every waiting message. Returns 1, or 0 as soon as a quit request is taken: while
   (HOST_run_messages()) is a game's frame loop. A quit request that arrives while a wait of the library pumps
   is consumed there, so a game that waits also notes WM_CLOSE or WM_DESTROY in its window procedure. */
INK_API int32_t HOST_run_messages(void);

/* Waits until there is a message (or a timer due), then does as HOST_run_messages. */
INK_API int32_t HOST_wait_messages(void);

/* The exit code of the last quit request taken by HOST_run_messages or HOST_wait_messages. */
INK_API int32_t HOST_exit_code(void);

/* The pointer shapes every machine has, by Windows' numbers of them. */
#define HOST_CURSOR_ARROW 32512
#define HOST_CURSOR_IBEAM 32513
#define HOST_CURSOR_WAIT 32514
#define HOST_CURSOR_CROSS 32515
#define HOST_CURSOR_SIZE_ALL 32646
#define HOST_CURSOR_NO 32648
#define HOST_CURSOR_HAND 32649

/* The handle of one of the pointer shapes above, for the cursor table of the mouse family. A shape that the
   machine does not have looks like the arrow. */
INK_API HICON HOST_load_cursor(int32_t shape);

/* ---- Choosing and observing the machine: for tools and tests ---- */

/* Chooses the machine by name before anything else uses it: "win32" (Windows itself), "sdl" or "headless". Returns 0, or -2 when the
   name is unknown, that machine cannot be had here, or another one is already running. Without a choice the
   environment variable INKSTONE_HOST decides, else the desktop where there is a display, else headless. */
INK_API int32_t HOST_choose(const char *name);

/* The name of the running machine, which is started by the call if none is running. */
INK_API const char *HOST_name(void);

/* The machines built into the library: writes the name and one line of description of machine index through
   the pointers (either may be null). Returns 0, or -2 when there is no machine of that index. */
INK_API int32_t HOST_list(int32_t index, const char **name, const char **description);

/* What is called with each operation that the library asks of the machine, before it is carried out: one line
   of text, its name and its arguments separated by spaces. The queue and the clock are not reported. Return 0 to
   let it happen, anything else to make it fail as the real machine can fail; 2 makes lock_buffer fail because the
   buffer's memory was lost. What no machine can refuse happens whatever is returned: what is given back, and
   close_window, kill_timer, select_palette, update_colors, animate_palette, set_cursor, show_cursor and
   client_to_screen. */
typedef int32_t (*HOST_OBSERVER)(const char *call);

/* Sets the observer of the machine's operations; null removes it. */
INK_API void HOST_observe(HOST_OBSERVER observer);

/* ---- Recording and replaying ---- */

/* Writes everything that comes into the program from outside (messages, clocks, the time of day, settings, the
   disc, what the machine refuses) to the file from now on, so that the program can be run from it again on any
   machine, picture for picture and sound for sound. It comes before the first window and the first timer, once
   in a process; INKSTONE_RECORD of the environment names a file that is recorded from the start. The record
   ends with the process, or with null for file. While it is written HOST_read_indices and its like give what
   the program showed and played by the record's time, which on a machine with a real clock is heard a moment
   earlier or later. Returns 0, or -2 when the file cannot be written, a record was begun before, or there is
   none to end. */
INK_API int32_t HOST_record(const char *file);

/* Answers everything from now on out of a recorded file, as fast as the program asks on the headless machine,
   and in a window, whose input does not count, at the pace of the record. It comes where HOST_record came;
   INKSTONE_REPLAY of the environment names a file that is replayed from the start. What HOST_key and its like
   do is part of the record, so here they do nothing. HOST_name is the recorded machine's. A program that asks
   something else than was recorded is ended. When the program has ended, a line on the standard error output
   says whether picture and sound were equal; if not, its exit code becomes 3. Returns 0, or -2 when the file is
   no record, is broken or of another version, which a line on the standard error output says, or a replay was
   begun before. */
INK_API int32_t HOST_replay(const char *file);

/* How the replay goes: how many seconds of it are past, and the second in which picture or sound first
   differed, counted from 1, or 0 as long as all is equal. Either pointer may be null. Returns 0, or -2 when
   there is no replay. */
INK_API int32_t HOST_replay_state(int32_t *seconds, int32_t *first_difference);

/* ---- The simulated clock ---- */

/* The machine's time in microseconds since it started. Reading the headless machine's moves it on by one. */
INK_API uint64_t HOST_clock(void);

/* Moves the headless machine's clock on. Timers that fall due become pending, at most one event each, and the
   sound and the disc move on too. The desktop machine sleeps for that time instead. */
INK_API void HOST_advance_clock(uint64_t microseconds);

/* Sets the shortest interval of the machine's window timers in milliseconds, 1 to 1000; a shorter one that is
   asked for becomes this one. It holds for timers that are set from then on, so it comes before
   SetupTimerProc. Until it is set it is INKSTONE_TIMER_RESOLUTION of the environment, else 55: window timers
   tick 18 times a second, and the play time of discs, the image cursors and the fades are reckoned in such
   ticks. */
INK_API void HOST_set_timer_resolution(uint32_t milliseconds);

/* Sets the machine's time of day, which goes on from there with its clock; until it is set it is the
   system's. Years are 1 to 9999; other fields may lie beyond their ranges and carry into the next larger
   one, so that day 0 is the last one of the month before. A time outside those years becomes the nearest. */
INK_API void HOST_set_local_time(int32_t year, int32_t month, int32_t day, int32_t hour, int32_t minute,
                                 int32_t second);

/* Sets a setting of the machine's, such as "CHINESBIG5(88)", whose value "yes" says that Big5 text can be
   shown; null removes it. */
INK_API void HOST_set_setting(const char *name, const char *value);

/* ---- Feeding input ---- */

/* Presses (down non-zero) or releases a key of the machine's keyboard: the set-1 scan code 0x01 to 0x58, plus
   0x100 for an extended key (the cursor block, right Ctrl and Alt, keypad Enter and slash). The window with the
   focus receives WM_KEYDOWN or WM_KEYUP. A key that is pressed again without a release repeats. Pause
   is 0x45 and Num Lock 0x145, as in Windows' messages: handed on to the keyboard family, which knows the codes of
   the keyboard itself, Num Lock is its extended key 0x45, Pause. Codes outside 1 to 0x1FF are no keys. */
INK_API void HOST_key(int32_t scan_code, int32_t down);

/* Moves the pointer to the client position (x, y) of the window with the focus, which receives WM_SETCURSOR
   and WM_MOUSEMOVE. */
INK_API void HOST_pointer_move(int32_t x, int32_t y);

/* Presses (down 1), releases (0) or double-clicks (2) a button: 0 left, 1 right, 2 middle. Anything else does
   nothing. */
INK_API void HOST_pointer_button(int32_t button, int32_t down);

/* ---- Reading back what is shown ---- */

/* The size of the window's client area; either pointer may be null. Returns 0, or -2 for an unknown window. */
INK_API int32_t HOST_window_size(HWND window, int32_t *width, int32_t *height);

/* The palette indices last presented in the window's client area: width x height bytes, rows top to bottom.
   Returns 0, or -2 for an unknown window. */
INK_API int32_t HOST_read_indices(HWND window, uint8_t *indices);

/* The picture of the window's client area through the hardware palette: width x height x 3 bytes, red, green,
   blue. Returns 0, or -2 for an unknown window. */
INK_API int32_t HOST_read_picture(HWND window, uint8_t *rgb);

/* The hardware palette: 256 x 3 bytes, red, green, blue, 0 to 255 each. */
INK_API void HOST_read_palette(uint8_t *palette);

/* ---- Reading back what is heard ---- */

/* Begins (on non-zero) or ends keeping what the machine plays, wave sounds and disc together. What was kept
   before is forgotten. At most ten minutes are kept that nobody reads. */
INK_API void HOST_capture_sound(int32_t on);

/* Takes what was kept, the oldest first: writes up to frames stereo frames, 44100 in a second, as pairs of
   signed 16-bit samples, left and right. Returns how many frames were written. */
INK_API int32_t HOST_read_sound(int16_t *stereo, int32_t frames);

/* ---- The disc drive ---- */

/* Puts a disc into the drive: name is a CUE sheet, whose files lie beside it, or on Linux the device of a real
   drive. The files are of type BINARY, with one track or several in each, or WAVE of 16-bit stereo at 44100
   frames a second; the gap before a track may stand at the end of the file before. A disc that is in the drive
   is taken out first. Returns 0, or -2 when there is no such disc, or the sheet and the files do not fit
   together; the drive is left as it was then. The environment variable INKSTONE_DISC names the disc that is in
   the drive when the machine starts. */
INK_API int32_t HOST_insert_disc(const char *name);

/* Takes the disc out of the drive, also while it plays. */
INK_API void HOST_eject_disc(void);

INK_END

#endif
