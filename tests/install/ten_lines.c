#include <inkstone/inkstone.h>
#include <stdio.h>

static uint8_t screen[INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT];

int main(void) {
    HWND window = HOST_open_window("Ten lines", INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, NULL);
    WViewInit(window, 0, 0, INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, screen);
    WViewEnable();
    BUF_bar(100, 100, 200, 200, 14, screen);
    WViewBuffer2Screen();
    printf("Inkstone on %s: pixel %d\n", HOST_name(), BUF_get_pixel(150, 150, screen));
    ExecQuitProc();
    return 0;
}
