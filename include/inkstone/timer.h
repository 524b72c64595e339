/* Tick counters, the millisecond delay clock, the waits built on them, and the hooks the waits call.

   The counters are asked for every 5 milliseconds, but window timers are no finer than the machine makes them:
   55 milliseconds unless INKSTONE_TIMER_RESOLUTION or HOST_set_timer_resolution says otherwise, so that a counter
   advances about 18 times a second. Fades, animated cursors and the play time of discs count on that. */
#ifndef INKSTONE_TIMER_H
#define INKSTONE_TIMER_H

#include "types.h"

INK_BEGIN

/* Zeroes the sixteen tick counters and starts them: each is advanced by a window timer of its own on window
   (which may be null), so they advance only while messages are dispatched. At most one event of each timer is
   pending: what falls due while nobody dispatches is not counted. Pushes a quit procedure that stops them;
   when the quit stack is full the process ends with "PUSHQUIT ERROR!!!". Returns 0, or -2
   when the machine refuses a timer; those already started are stopped then. */
INK_API int32_t SetupTimerProc(HWND window);

/* Stops the sixteen timers on window. The counters keep their values. */
INK_API void ClearTimerProc(HWND window);

/* Tick counter 0 to 15, which wraps at 2^32, or 0 for any other index. Counters 0 to 11 are the game's; 12 paces the image cursor,
   13 the CD play time, 14 tick_wait and wait_key_time, 15 the fades. */
INK_API uint32_t GetTimerTick(int32_t counter);

/* Sets tick counter 0 to 15; any other index does nothing. */
INK_API void SetTimerTick(int32_t counter, uint32_t value);

/* Waits until ticks timer events of counter 14 have passed; messages are pumped meanwhile, by the idle
   function if one is set, else by fnCheckMessage. 0 returns at once. */
INK_API void tick_wait(uint32_t ticks);

/* Starts the delay clock, at the top of a frame. */
INK_API void clear_time_delay(void);

/* Milliseconds since the delay clock was last read: by clear_time_delay or inside wait_time_delay. */
INK_API uint32_t get_time_delay(void);

/* Waits until milliseconds have passed since clear_time_delay, pumping as tick_wait does, at least once unless
   the last reading was late enough. The clock's values are compared as they stand: a wait across its wrap at
   2^32 milliseconds ends at once. */
INK_API void wait_time_delay(uint32_t milliseconds);

/* Sets the procedure that the waits and key readers call in place of fnCheckMessage; null removes it. It must
   dispatch messages itself, or the counters stand still and tick waits never end. */
INK_API void set_system_idle_function(INK_PROCEDURE procedure);

/* Sets the procedure that the key readers call when Tab is held; null removes it. */
INK_API void set_system_tab_function(INK_PROCEDURE procedure);

INK_END

#endif
