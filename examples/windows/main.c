/* A drawing board: a plain Windows program that makes its own window, runs its own message loop and links one
   library.

   The left button draws and picks colours, letters write a line at the bottom, Space turns the light off and
   on, Esc or closing the window ends it. board [SOUND.WAV] plays the sound at each new dot. The picture is
   saved as BOARD.PCX when the program ends, however it ends. */
#include <windows.h>

#include <string.h>

#include "board.h"

enum { FRAME_MILLISECONDS = 16, TEXT_ROOM = 60 };
enum { KEY_ESC = 155, KEY_SPACE = 32 };
enum { LEFT_DRAG = 242, LEFT_DOWN = 244, LEFT_UP = 245, LEFT_DOUBLE = 246 };

static uint8_t screen[INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT];
static uint8_t day[768], night[768]; /* the palettes */
static int running = 1;

/* The window procedure forwards what the window is told to the families, which know nothing of windows. */
static LRESULT CALLBACK window_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_KEYDOWN:
        case WM_KEYUP: {
            const uint8_t scan_code = (uint8_t)(lparam >> 16 & 0x7F);
            if ((lparam & 0x01000000) != 0) fnKeyBoardInterrupt(0xE0);
            fnKeyBoardInterrupt((uint8_t)(message == WM_KEYUP ? scan_code | 0x80 : scan_code));
            return 0;
        }
        case WM_SETCURSOR:
            if (LOWORD(lparam) != HTCLIENT) break; /* the frame has cursors of its own */
            fnMouseInterrupt(message, (uint32_t)wparam, (int32_t)lparam);
            return TRUE;
        case WM_MOUSEMOVE:
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDOWN:
        case WM_RBUTTONUP:
        case WM_RBUTTONDBLCLK: fnMouseInterrupt(message, (uint32_t)wparam, (int32_t)lparam); return 0;
        case WM_DESTROY:
            /* The waits of the library take quit requests out of the queue, so the end is noted here. */
            running = 0;
            PostQuitMessage(0);
            return 0;
        default: break;
    }
    return DefWindowProcA(window, message, wparam, lparam);
}

static HWND open_window(HINSTANCE instance) {
    const DWORD style = WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;
    RECT frame = {0, 0, INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT};
    WNDCLASSA made;
    memset(&made, 0, sizeof made);
    made.style = CS_DBLCLKS;
    made.lpfnWndProc = window_procedure;
    made.hInstance = instance;
    made.lpszClassName = "Board";
    if (RegisterClassA(&made) == 0) return NULL;
    AdjustWindowRect(&frame, style, FALSE);
    return CreateWindowA("Board", "Drawing board", style, CW_USEDEFAULT, CW_USEDEFAULT,
                         frame.right - frame.left, frame.bottom - frame.top, NULL, NULL, instance, NULL);
}

/* A quit procedure: also runs when a fatal error ends the program. */
static void save_picture(void) {
    PCX_inport_palette(day);
    PCX_save_file("BOARD.PCX", 0, 0, INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, screen, INK_SCREEN_WIDTH, 0);
}

static void start(HWND window, HINSTANCE instance) {
    PushQuitProc(save_picture);
    WViewInit(window, 0, 0, INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, screen);
    WViewEnable();
    SCR_get_palette(day);
    board_night(day, night);
    SCR_set_palette(day); /* the system colours, in the 64 steps of brightness that games work with */
    SetupTimerProc(window);
    fnMouseInit(window, instance, 0, 0, fnCheckMessage);
    MOUSE_load_cursor(1, LoadCursorA(NULL, (LPCSTR)IDC_CROSS));
    MOUSE_set_cursor(1);
    DS_init(window);
    if (CDROM_open() == 0 && CDROM_total() > 0) CDROM_play(0); /* without a disc it is quiet */
}

/* A key that is held is reported in every frame; the board hears of it once. */
static uint8_t new_key(void) {
    static uint8_t held;
    const uint8_t key = read_data_key(), before = held;
    held = key;
    return (uint8_t)(key != before ? key : 0);
}

/* What the keys change in the picture; 1 when it must be shown. */
static int type(void) {
    static char text[TEXT_ROOM + 1];
    static int dark;
    const uint8_t key = new_key();
    const size_t length = strlen(text);
    if (key == KEY_ESC) running = 0;
    if (key == KEY_SPACE) {
        dark = !dark;
        SCR_set_palette(dark ? night : day); /* shows at once: nothing is drawn or presented */
    }
    if (key <= KEY_SPACE || key >= 127 || length == TEXT_ROOM) return 0;
    text[length] = (char)key;
    board_text(text, screen);
    return 1;
}

/* The same for the mouse. A click may be over within a frame, so its end draws too. */
static int draw(int32_t sound) {
    static int32_t color = 32;
    static int stroke;
    int32_t x, y;
    const uint8_t event = MOUSE_get_key();
    const int begins = !stroke;
    if (event != LEFT_DRAG && event != LEFT_DOWN && event != LEFT_UP && event != LEFT_DOUBLE) return 0;
    MOUSE_get_position(&x, &y);
    MOUSE_reset();
    stroke = event != LEFT_UP;
    if (board_color_at(x, y) >= 0) {
        color = board_color_at(x, y);
        return 0;
    }
    board_dot(x, y, color, screen);
    if (begins && sound >= 0) DS_start(sound, 0);
    return 1;
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE before, LPSTR command_line, int show) {
    int32_t sound = -1, changed;
    HWND window = open_window(instance);
    (void)before;
    if (window == NULL) return 1;
    ShowWindow(window, show);
    start(window, instance);

    board_clear(screen);
    WViewBuffer2Screen();
    if (command_line[0] != 0) sound = DS_load_wave(command_line);

    while (running) {
        MSG message;
        clear_time_delay();
        while (PeekMessageA(&message, NULL, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        changed = type();
        if (draw(sound) || changed) WViewBuffer2Screen();
        wait_time_delay(FRAME_MILLISECONDS);
    }
    ExecQuitProc();
    return 0;
}
