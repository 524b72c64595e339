/* CD audio: plays the tracks of the disc in the drive, one at a time or by a task list. The disc plays by
   itself to the end of the track; it goes on to another only while the game calls CDROM_loop or
   CDROM_check_task again and again.

   Tracks count from 0: track t is the disc's track t + 1. Data tracks count too and are silent. Times come
   packed into one number: minutes in bits 16 to 23, seconds in bits 8 to 15, and in bits 0 to 7 frames of
   1/75 second (lengths) or hundredths of a second (play time). The play time is taken from tick counter 13 at
   18 ticks a second, so it needs SetupTimerProc and moves only while messages are dispatched; timers that tick
   faster (HOST_set_timer_resolution) make it run too fast, and CDROM_resume go on at the wrong place.

   The order of calls is CDROM_open, CDROM_total, then the others. Unless said otherwise a function returns 0
   when it is done, and -1 before CDROM_open or when the drive refuses; CDROM_total, CDROM_play and
   CDROM_status also close the drive when it refuses, and CDROM_open must come first again. Nothing is logged
   but where it is said. */
#ifndef INKSTONE_CDAUDIO_H
#define INKSTONE_CDAUDIO_H

#include "types.h"

INK_BEGIN

/* Opens the drive, whether or not a disc is in it, and pushes a quit procedure that stops and closes it. When
   the quit stack is full "Push Quit Proc Error!!!" is logged and the result is -1, with the drive open. */
INK_API int32_t CDROM_open(void);

/* Closes the drive; not when it refuses. It neither stops the disc of a machine whose drive plays on by itself
   nor forgets that a track was started, so CDROM_stop comes first. */
INK_API int32_t CDROM_close(void);

/* Reads the track table, from which CDROM_play and the times take the lengths. Returns the number of tracks,
   or -1, also for a disc of more than 256. */
INK_API int32_t CDROM_total(void);

/* Plays track 0 to 255, to the end of it, and starts its play time. A number outside returns -1 with nothing
   changed. Its length is the one that CDROM_total read: without it nothing is heard. */
INK_API int32_t CDROM_play(int32_t track);

/* Stops the disc and forgets its place and its play time; CDROM_now_track stays as it is. Also when the drive
   refuses, and the result is -1, the library takes it as stopped. */
INK_API int32_t CDROM_stop(void);

/* Stops the disc and keeps the place for CDROM_resume. -1 when nothing was started or it is paused already,
   and when the drive refuses, though it counts as paused then. */
INK_API int32_t CDROM_pause(void);

/* Goes on where CDROM_pause stopped, by its play time, of which the hundredths go to the drive as frames of
   1/75 second: within a quarter of a second. -1 when nothing is paused. */
INK_API int32_t CDROM_resume(void);

/* 0 when the disc stands still, because it was stopped, was paused, or reached the end of the track; -1 while
   it plays or when there is no disc. */
INK_API int32_t CDROM_status(void);

/* Starts the current track again when it is over. -1 while it plays; otherwise the result of the start. */
INK_API int32_t CDROM_loop(void);

/* The length of a track. The number counts unlike everywhere else here: only numbers above 0 have a length,
   and number n has that of the disc's track n + 1. 0 for others and before CDROM_open. */
INK_API uint32_t CDROM_track_time(int32_t track);

/* How long the current track has played, and its length from its end on, where it and tick counter 13 stand
   still; 0 before a track is started and after CDROM_stop. */
INK_API uint32_t CDROM_now_time(void);

/* The track started last, also when it is over; -1 before the first and before CDROM_open. */
INK_API int32_t CDROM_now_track(void);

/* ---- The task list: up to 256 tracks to be played one after the other ---- */

/* Empties the list. */
INK_API int32_t CDROM_clear_task(void);

/* Appends a track. With 256 in the list nothing is appended and the result is 0. */
INK_API int32_t CDROM_push_task(int32_t track);

/* How the list goes on after a track: 0 with the next one, and after the last one a check that plays nothing
   before it begins again with the first; 1 with the next one and after the last with the first; 2 with one
   chosen at random; any other value with the same one. */
INK_API void CDROM_task_type(int32_t type);

/* Plays the next track of the list when the current one is over. Returns 0 in any case but -1 before
   CDROM_open and -2 when the list is empty. */
INK_API int32_t CDROM_check_task(void);

/* Begins the list: with its first entry, or with type 2 with one chosen at random. When that is the current
   track it goes on undisturbed unless force is not 0. Returns the result of the start, or -2 when the list is
   empty. */
INK_API int32_t CDROM_exec_task(int32_t force);

INK_END

#endif
