/* Wave sound: four channels, each holding one sound from a RIFF wave file, played once or in a loop. Sounds
   go on by themselves; nothing has to be called while they play. Functions given a channel outside 0 to 3 or
   one that holds no sound do nothing. */
#ifndef INKSTONE_WAVE_H
#define INKSTONE_WAVE_H

#include "types.h"

INK_BEGIN

/* Opens the sound device for the game's window, with all channels empty, and pushes a quit procedure that
   closes it. A device that is open is closed first. Every other function here needs it. A machine without a
   sound device has a silent one; where it cannot be opened the process ends with "Create DirectSound error" or
   "Set DirectSound CooperativeLevel error", which like every fatal failure of this family are shown on window.
   Returns 0. */
INK_API int32_t DS_init(HWND window);

/* Stops and empties the channels and closes the device. A second call does nothing. */
INK_API void DS_destroy(void);

/* Loads a wave file into channel 0 to 3, whose former sound is stopped and unloaded once the file is found to
   be good. The file (RIFF form WAVE, little-endian) must have a "fmt " chunk that says PCM (format tag 1) and
   after it a "data" chunk, whose bytes are the sound. Other chunks are passed over. The device plays one or
   two channels of 8-bit unsigned or 16-, 24- or 32-bit signed samples, 100 to 200000 frames a second; PCM of
   any other kind, and a sound there is no memory for in the device, ends the process with
   "DS: CreateSoundBuffer error". A size of 0 that the file's writer left for the RIFF chunk means the rest of
   the file, and so it does for the data chunk of such a file.

   Returns 0, or -2 with a line in ERROR.MSG:

   "ERROR : error open file %s (DS)"

   "ERROR : %s not a WAVE file(DS)": it has no RIFF chunk of form WAVE

   "ERROR : %s has no fmt chunk(DS)"

   "ERROR : unable read fmt chunk from file %s(DS)": the chunk is too short

   "ERROR : WAVE file %s is not PCM format(DS)"

   "ERROR : unable ascend file %s": the file ends before the chunk does

   "ERROR : memory alloc error(DS)"

   No line is logged for a missing "data" chunk, for one that the file ends in, which leaves the channel
   empty, for a channel outside 0 to 3, or without a device. */
INK_API int32_t DS_load_wave_channel(const char *file_name, int32_t channel);

/* Loads a wave file as DS_load_wave_channel does, into the first channel that holds no sound, and returns its
   number; -1 when all four hold one or there is no device. Every failure of the file ends the process, also
   when all four hold one: "DS: can't open file", "DS: not a WAVE file", "DS: WAVE file has no fmt chunk",
   "DS: unable to read fmt chunk", "DS: WAVE file is not PCM format", "DS: unable ascend",
   "DS: WAVE file has no data chunk", "DS: memory alloc error", "DS: unable to read data chunk ". */
INK_API int32_t DS_load_wave(const char *file_name);

/* Stops and unloads the channel's sound. */
INK_API void DS_unload_wave(int32_t channel);

/* Plays the channel's sound, in a loop when loop is not 0, from where DS_stop stopped it or else from its
   start. While it plays it begins again from its start instead, and goes on looping or not as before,
   whatever loop says. */
INK_API void DS_start(int32_t channel, int32_t loop);

/* Stops the channel's sound, which keeps its place. */
INK_API void DS_stop(int32_t channel);

/* Sets the attenuation of the channel's sound, in hundredths of a decibel: 0 (as recorded) down to -10000
   (silence); -600 halves it. Values outside are taken as the nearest of these. */
INK_API void DS_set_volume(int32_t channel, int32_t volume);

/* -2 while the channel's sound plays, else 0. */
INK_API int32_t DS_status(int32_t channel);

INK_END

#endif
