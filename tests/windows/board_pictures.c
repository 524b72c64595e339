/* The pictures that the drawing board must show, as the simulated machine shows them: empty.ppm, drawn.ppm
   and night.ppm. */
#include <stdio.h>

#include "board.h"

static uint8_t screen[INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT];
static uint8_t rgb[INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT * 3];

static void save(HWND window, const char *name) {
    FILE *file = fopen(name, "wb");
    if (file == NULL || HOST_read_picture(window, rgb) != 0) return;
    fprintf(file, "P6\n%d %d\n255\n", INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT);
    fwrite(rgb, 1, sizeof rgb, file);
    fclose(file);
}

int main(void) {
    uint8_t day[768], night[768];
    HWND window;
    if (HOST_choose("headless") != 0) return 1;
    window = HOST_open_window("Drawing board", INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, NULL);
    WViewInit(window, 0, 0, INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, screen);
    WViewEnable();
    SCR_get_palette(day);
    board_night(day, night);
    board_clear(screen);
    SCR_set_palette(day);
    WViewBuffer2Screen();
    save(window, "empty.ppm");

    /* What tests/windows/run.sh does by hand. */
    board_text("INK", screen);
    board_dot(100, 200, 32, screen);
    board_dot(420, 330, board_color_at(330, 10), screen);
    WViewBuffer2Screen();
    save(window, "drawn.ppm");
    SCR_set_palette(night);
    save(window, "night.ppm");
    return 0;
}
