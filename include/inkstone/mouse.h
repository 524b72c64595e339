/* Mouse: pointer position, last event, Shift and Ctrl, the cursor's shape, animated image cursors, and the
   mask that says what is under the pointer. All of it follows the messages that the game's window procedure
   hands on.

   Positions are pixels of the screen buffer, whose pixel (0, 0) lies at the client position given to
   fnMouseInit. */
#ifndef INKSTONE_MOUSE_H
#define INKSTONE_MOUSE_H

#include "types.h"

INK_BEGIN

/* The last event, as MOUSE_get_key gives it; 0 when there was none since MOUSE_reset. */
#define MOUSE_MOVE 0xF1
#define MOUSE_LEFT_DRAG 0xF2  /* a movement with the left button held */
#define MOUSE_RIGHT_DRAG 0xF3 /* with the right button held, the left not */
#define MOUSE_LEFT_DOWN 0xF4
#define MOUSE_LEFT_UP 0xF5
#define MOUSE_LEFT_DOUBLE 0xF6
#define MOUSE_RIGHT_DOWN 0xF7
#define MOUSE_RIGHT_UP 0xF8
#define MOUSE_RIGHT_DOUBLE 0xF9
#define MOUSE_MIDDLE_DOWN 0xFA
#define MOUSE_MIDDLE_UP 0xFB
#define MOUSE_MIDDLE_DOUBLE 0xFC

/* Starts the family: position (0, 0), no event, cursor 0, all 64 cursors the standard arrow, no image
   cursors, hot spot (0, 0), cursor shown. (origin_x, origin_y) is where the screen buffer lies in the client
   area of window. pump is called by MOUSE_get_key and the waits, which cannot see an event that nobody
   dispatches; it may be null. instance is only kept. */
INK_API void fnMouseInit(HWND window, HINSTANCE instance, int16_t origin_x, int16_t origin_y,
                         INK_PROCEDURE pump);

/* Takes a message of the game's window procedure, with its parameters unchanged: WM_SETCURSOR and the mouse
   messages, WM_MOUSEMOVE to WM_MBUTTONDBLCLK. Any message sets the cursor's shape again. */
INK_API void fnMouseInterrupt(uint32_t message, uint32_t wparam, int32_t lparam);

/* Both put a cursor into the table of 64; the shape on the screen stays as it is until MOUSE_set_cursor
   selects another. An index outside 0 to 63 is passed over; MOUSE_load_cursor then returns -2, else 0. */
INK_API void fnMouseInitCursor(int32_t index, HICON cursor);
INK_API int32_t MOUSE_load_cursor(int32_t index, HICON cursor);

/* Selects cursor and image cursor 0 to 63. The one that is selected already is not set again, even when the
   table has another cursor there by now. */
INK_API void MOUSE_set_cursor(int32_t index);

/* Hides (0) or shows the cursor. The same once more does nothing, by the lowest byte of show. */
INK_API void MOUSE_show(int32_t show);

/* Moves the pointer. The position is known at once, as the lower 16 bits of x and y, -32768 to 32767; the
   movement's own message follows. */
INK_API void MOUSE_set_position(int32_t x, int32_t y);

/* The pointer's position at the last event, which may lie outside the screen buffer: right of it and below by
   up to 65535, and left of it and above by up to the origin, since messages carry it in 16 bits without sign.
   Either pointer may be null. */
INK_API void MOUSE_get_position(int32_t *x, int32_t *y);

/* Pumps, then returns the last event. It stays until the next one or MOUSE_reset. */
INK_API uint8_t MOUSE_get_key(void);

/* Both pump at least once and never end when there is no pump. The first waits until there is an event, a
   movement included; one that is there already will do. */
INK_API void MOUSE_wait_any_key(void);

/* Waits until the last event is key. */
INK_API void MOUSE_wait_key(uint8_t key);

/* Whether Shift or Ctrl was held at the last event, 0 or 1. */
INK_API int32_t MOUSE_check_shift(void);
INK_API int32_t MOUSE_check_control(void);

/* Forgets the last event. */
INK_API void MOUSE_reset(void);

/* The byte of a 640 x 480 mask under the pointer, or 0 when the pointer is outside. */
INK_API int32_t MOUSE_get_mask_key(const uint8_t *mask);

/* Loads a CAN animation as image cursor 0 to 63, in place of the one there. work is room for the file's
   largest compressed frame by agreement; it is not used and may be null. Returns 0, or -2 when the file cannot
   be read (the log says why; there is no image cursor then) or the index is outside. */
INK_API int32_t MOUSE_load_image_cursor(int32_t index, const char *file_name, uint8_t *work);

/* Draws the selected image cursor into a 640 x 480 screen buffer, its first frame's corner at the pointer
   less the hot spot, and goes on to the next frame when tick counter 12 has passed 1. */
INK_API void MOUSE_show_image_cursor(uint8_t *buffer);

/* Sets the pixel of the image cursors that points. */
INK_API void MOUSE_set_spot(int32_t x, int32_t y);

INK_END

#endif
