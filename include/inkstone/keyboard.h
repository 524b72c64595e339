/* The keyboard: the state of every key, kept from the scan codes of set 1 that the game forwards, and readers
   that turn it into key codes. */
#ifndef INKSTONE_KEYBOARD_H
#define INKSTONE_KEYBOARD_H

#include "types.h"

INK_BEGIN

/* Takes one byte from the keyboard: a make code below 0x80, a break code (the make code plus 0x80), or the
   prefix 0xE0 of an extended key or 0xE1 of the Pause sequence. Codes that stand for no key change nothing. */
INK_API void fnKeyBoardInterrupt(uint8_t code);

/* Forgets every key that is down, a pending prefix and the Esc latch. */
INK_API void fnResetKeyBoard(void);

/* The same, but Shift keys that are down stay so. */
INK_API void fnResetNormalKey(void);

/* How often the key was made since it went down, modulo 256 (so a held key reads as up once in 256 repeats), or
   0 when it is up: scan codes 0x00 to 0x58, plus 0x80 for extended keys. 0 for any other code. */
INK_API uint8_t fnCheckKeyValue(uint8_t code);

/* 1 when any key is down, else 0. */
INK_API int16_t fnScanKeyPress(void);

/* The character of the first held key among digits, letters, punctuation and backspace (8), or 0. Letters are
   capitals; Shift is not applied. */
INK_API uint8_t fnCheckAlphaNumberKey(void);

/* 59 to 68 for F1 to F10, 133 for F11, 134 for F12, or 0. */
INK_API uint8_t fnCheckFunctionKey(void);

/* Whether one key is down: 1 or 0. Where a key exists twice (cursor keys and the keypad, both Enter, Ctrl and
   Alt keys) either counts, unless the name says which. */
INK_API int16_t fnCheckUpKey(void);
INK_API int16_t fnCheckDownKey(void);
INK_API int16_t fnCheckLeftKey(void);
INK_API int16_t fnCheckRightKey(void);
INK_API int16_t fnCheckHomeKey(void);
INK_API int16_t fnCheckEndKey(void);
INK_API int16_t fnCheckPgUpKey(void);
INK_API int16_t fnCheckPgDnKey(void);
INK_API int16_t fnCheckInsertKey(void);
INK_API int16_t fnCheckDeleteKey(void);
INK_API int16_t fnCheckEnterKey(void);
INK_API int16_t fnCheckCtrlKey(void);
INK_API int16_t fnCheckLeftCtrlKey(void);
INK_API int16_t fnCheckRightCtrlKey(void);
INK_API int16_t fnCheckAltKey(void);
INK_API int16_t fnCheckLeftAltKey(void);
INK_API int16_t fnCheckRightAltKey(void);
INK_API int16_t fnCheckShiftKey(void);
INK_API int16_t fnCheckLeftShiftKey(void);
INK_API int16_t fnCheckRightShiftKey(void);
INK_API int16_t fnCheckSpaceKey(void);
INK_API int16_t fnCheckTabKey(void);
/* The P key. */
INK_API int16_t fnCheckPauseKey(void);
/* Whether Esc has been pressed since the last reset, held or not. The key readers see it only while some key is
   held. */
INK_API int16_t fnCheckEscKey(void);

/* Pumps messages and returns the code of the first held key for navigation, or 0: Up 72, Down 80, Left 75,
   Right 77, Space 32, Enter 13, Esc 27, Tab 9, Insert 82, Delete 83, PgUp 73, PgDn 81, Home 71, End 79, F1 to
   F10 59 to 68, F11 133, F12 134, tested in that order. A key that is held is reported again by the next
   call; Tab calls the tab function and resets the keyboard. */
INK_API uint8_t read_system_key(void);

/* Pumps messages and returns the code of the first held key for text entry, or 0: Up 200, Down 208, Left 203,
   Right 205, Insert 210, Delete 211, Home 199, End 207, PgUp 201, PgDn 209, Space 32, Enter 141, Esc 155, Tab
   137, F1 to F12 187 to 198, else the character of fnCheckAlphaNumberKey, tested in that order; Shift turns
   digits and punctuation into the upper characters of a US keyboard. Tab as in read_system_key. */
INK_API uint8_t read_data_key(void);

/* Waits until read_system_key gives key, Enter and Space counting as one, then resets the keyboard. Key 0
   only resets it. */
INK_API void wait_key(int32_t key);

/* Resets the keyboard, waits for any code of read_system_key, resets the keyboard again and returns the code. */
INK_API uint8_t wait_any_key(void);

/* Waits until read_system_key gives key, Enter and Space counting as one, or until ticks timer events of
   counter 14 have passed. The keyboard is not reset. Key 0 ends the wait as soon as no such key is held. */
INK_API void wait_key_time(int32_t key, uint32_t ticks);

INK_END

#endif
