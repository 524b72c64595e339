/* The picture of the drawing board: what the program draws of it, apart from where it comes from. */
#ifndef BOARD_H
#define BOARD_H

#include <inkstone/inkstone.h>

enum { BOARD_COLORS = 16, BOARD_LINE = 32, BOARD_TEXT_Y = 456 };

/* The empty board, its colours in a row at the top. */
void board_clear(uint8_t *screen);

/* One of the colours, picked by where it is in the row at the top; -1 when (x, y) is none of them. */
int32_t board_color_at(int32_t x, int32_t y);

/* A dot of ink at (x, y) of the board. */
void board_dot(int32_t x, int32_t y, int32_t color, uint8_t *screen);

/* The line of text at the bottom. */
void board_text(const char *text, uint8_t *screen);

/* The palette of the night, 768 bytes like that of the day. */
void board_night(const uint8_t *day, uint8_t *night);

#endif
