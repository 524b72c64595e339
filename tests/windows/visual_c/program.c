/* A program as Visual C++ compiles it, without its run-time library: functions and procedures of the game pass the
   border both ways. Its exit code says what failed, 0 for nothing. */
#include <inkstone/inkstone.h>

static uint8_t screen[INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT], shown[64 * 48];
static int quits, ticks;
static LPARAM got;

static void quit(void) {
    quits = quits * 10 + 1;
}
static void quit_first(void) {
    quits = quits * 10 + 2;
}
static void idle(void) {
    ++ticks;
    fnCheckMessage();
}
static LRESULT procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == 0x0401) got = lparam - (LPARAM)wparam;
    return HOST_default_procedure(window, message, wparam, lparam);
}

int start(void) {
    HWND window;
    int32_t x = 0, y = 0;
    if (HOST_choose("headless") != 0) return 1;
    window = HOST_open_window("Visual C++", 64, 48, procedure);
    WViewInit(window, -8, -8, INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, screen);
    WViewEnable();
    BUF_bar(10, 10, 20, 20, 77, screen);
    WViewBuffer2Screen();
    if (HOST_read_indices(window, shown) != 0 || shown[2 * 64 + 2] != 77 || shown[13 * 64 + 2] != 0) return 2;
    HOST_post_message(window, 0x0401, 1000, 1042);
    fnCheckMessage();
    if (got != 42) return 3;
    if (PushQuitProc(quit) != 0 || PushQuitProc(quit_first) != 0) return 4;
    SetupTimerProc(window);
    set_system_idle_function(idle);
    tick_wait(3);
    if (ticks == 0 || GetTimerTick(14) < 3) return 5;
    fnMouseInit(window, 0, 0, 0, 0);
    fnMouseInterrupt(0x0200, 0, 5 | 6 << 16);
    MOUSE_get_position(&x, &y);
    if (x != 5 || y != 6) return 6;
    ExecQuitProc();
    return quits == 21 ? 0 : 7;
}
