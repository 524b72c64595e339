/* Draws with the mouse: the left button draws, the right one clears, and the pointer's shape and the mask say
   where the palette of colours is. Escape or closing the window ends it. Without a display it draws a stroke
   of its own and says what came of it. */
#include <inkstone/inkstone.h>
#include <stdio.h>
#include <string.h>

enum { ESCAPE = 0x1B, COLOURS = 16, SIDE = 40 };

static uint8_t screen[640 * 480], mask[640 * 480];
static int closed;

/* The window procedure hands every mouse message on, the one that asks for the pointer's shape too. */
static LRESULT procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_SETCURSOR || (message >= WM_MOUSEMOVE && message <= WM_MBUTTONDBLCLK)) {
        fnMouseInterrupt(message, (uint32_t)wparam, (int32_t)lparam);
        return 0;
    }
    if (message == WM_CLOSE || (message == WM_KEYDOWN && wparam == ESCAPE)) closed = 1;
    return message == WM_CLOSE ? 0 : HOST_default_procedure(window, message, wparam, lparam);
}

/* A row of colours; the mask has each one's number plus 1 where it stands. */
static void draw_palette(void) {
    memset(screen, 0, sizeof screen);
    for (int32_t i = 0; i < COLOURS; ++i) {
        BUF_bar(i * SIDE, 0, i * SIDE + SIDE - 1, SIDE - 1, i, screen);
        BUF_bar(i * SIDE, 0, i * SIDE + SIDE - 1, SIDE - 1, i + 1, mask);
    }
}

static void use_mouse(void) {
    static int32_t colour = 15;
    int32_t x, y;
    const uint8_t key = MOUSE_get_key();
    const int32_t over = MOUSE_get_mask_key(mask);
    MOUSE_get_position(&x, &y);
    MOUSE_set_cursor(over != 0 ? 1 : 0);
    if (key == MOUSE_LEFT_DOWN && over != 0) colour = over - 1;
    if ((key == MOUSE_LEFT_DOWN || key == MOUSE_LEFT_DRAG) && over == 0)
        BUF_bar(x - 2, y - 2, x + 2, y + 2, colour, screen);
    if (key == MOUSE_RIGHT_DOWN) draw_palette();
    if (key != 0) WViewBuffer2Screen();
    MOUSE_reset();
}

/* Where nobody holds a mouse the machine's own is moved: colour 4, then a stroke with the button held. */
static void draw_a_stroke(void) {
    const int32_t path[][2] = {{180, 20}, {100, 200}, {110, 205}, {120, 210}};
    for (int i = 0; i < 4; ++i) {
        HOST_pointer_move(path[i][0], path[i][1]);
        use_mouse();
        if (i < 2) HOST_pointer_button(0, 1);
        use_mouse();
    }
    int drawn = 0;
    for (int i = SIDE * 640; i < 640 * 480; ++i) drawn += screen[i] == 4;
    printf("%d pixels drawn\n", drawn);
}

int main(void) {
    HWND window = HOST_open_window("Inkstone: mouse", 640, 480, procedure);
    WViewInit(window, 0, 0, 640, 480, screen);
    WViewEnable();
    fnMouseInit(window, NULL, 0, 0, fnCheckMessage);
    MOUSE_load_cursor(1, HOST_load_cursor(HOST_CURSOR_HAND));
    draw_palette();
    WViewBuffer2Screen();
    if (strcmp(HOST_name(), "headless") == 0) {
        draw_a_stroke();
        closed = 1;
    }
    while (!closed && HOST_wait_messages() != 0) use_mouse();
    ExecQuitProc();
    HOST_close_window(window);
    return 0;
}
