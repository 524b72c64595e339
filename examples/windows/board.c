#include "board.h"

enum { FIRST_COLOR = 32, COLOR_STEP = 12, BOX = INK_SCREEN_WIDTH / BOARD_COLORS };
enum { PAPER = 15, FRAME = 7, INK = 0 };

void board_clear(uint8_t *screen) {
    int32_t i;
    BUF_bar(0, 0, INK_SCREEN_WIDTH - 1, INK_SCREEN_HEIGHT - 1, PAPER, screen);
    for (i = 0; i < BOARD_COLORS; ++i)
        BUF_bar(i * BOX, 0, i * BOX + BOX - 1, BOARD_LINE - 1, FIRST_COLOR + i * COLOR_STEP, screen);
    BUF_box(0, BOARD_LINE, INK_SCREEN_WIDTH - 1, BOARD_TEXT_Y - 1, FRAME, screen);
}

int32_t board_color_at(int32_t x, int32_t y) {
    const int inside = x >= 0 && x < INK_SCREEN_WIDTH && y >= 0 && y < BOARD_LINE;
    return inside ? FIRST_COLOR + x / BOX * COLOR_STEP : -1;
}

void board_dot(int32_t x, int32_t y, int32_t color, uint8_t *screen) {
    BUF_bar(x - 1, y - 3, x + 1, y + 3, color, screen);
    BUF_bar(x - 2, y - 2, x + 2, y + 2, color, screen);
    BUF_bar(x - 3, y - 1, x + 3, y + 1, color, screen);
}

void board_text(const char *text, uint8_t *screen) {
    BUF_bar(0, BOARD_TEXT_Y, INK_SCREEN_WIDTH - 1, INK_SCREEN_HEIGHT - 1, PAPER, screen);
    set_ascii16_color(0, INK);
    print_ascii16(8, BOARD_TEXT_Y + 4, text, 1, screen);
}

/* It takes two thirds of the light away, and more of the red than of the blue. */
void board_night(const uint8_t *day, uint8_t *night) {
    static const int left[3] = {5, 6, 9}; /* sixteenths of red, green and blue */
    int i;
    for (i = 0; i < 768; ++i) night[i] = (uint8_t)(day[i] * left[i % 3] / 16);
}
