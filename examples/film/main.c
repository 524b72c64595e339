/* Plays a FLIC film in a window, at the film's own speed: film FILE [small]. "small" is for films of 320 x
   200. Escape or closing the window ends it. */
#include <inkstone/inkstone.h>
#include <stdio.h>
#include <string.h>

enum { ESCAPE = 0x1B };

static uint8_t screen[640 * 480];
static int closed;

static LRESULT procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_CLOSE || (message == WM_KEYDOWN && wparam == ESCAPE)) closed = 1;
    return message == WM_CLOSE ? 0 : HOST_default_procedure(window, message, wparam, lparam);
}

/* The speed is the one thing of a film that the library leaves to the game: FLC films state milliseconds a
   frame, FLI films seventieths of a second. */
static uint32_t frame_milliseconds(const char *name) {
    uint8_t header[20] = {0};
    FILE *file = fopen(name, "rb");
    if (file != NULL) {
        if (fread(header, 1, sizeof header, file) < sizeof header) memset(header, 0, sizeof header);
        fclose(file);
    }
    const uint32_t speed = header[16] + 256u * header[17];
    const int is_fli = header[4] == 0x11;
    return is_fli ? speed * 1000 / 70 : speed;
}

int main(int argc, char **argv) {
    if (argc < 2) {
        fprintf(stderr, "usage: film FILE [small]\n");
        return 2;
    }
    const int small = argc > 2;
    const int width = small ? 320 : 640, height = small ? 200 : 480;
    const int32_t frames = FLIC_open_flic_file(argv[1], small, screen);
    if (frames < 0) {
        fprintf(stderr, "film: cannot open %s\n", argv[1]);
        return 1;
    }
    HWND window = HOST_open_window(argv[1], width, height, procedure);
    WViewInit(window, 0, 0, width, height, screen);
    WViewEnable();

    const uint32_t pause = frame_milliseconds(argv[1]);
    uint8_t palette[768];
    int32_t shown = 0;
    while (shown < frames && !closed && FLIC_read_flic_data() == 0) {
        clear_time_delay();
        FLIC_play_flic_frame();
        FLIC_export_palette(palette);
        SCR_set_palette(palette);
        WViewBuffer2Screen();
        wait_time_delay(pause);
        ++shown;
    }
    printf("%d of %d frames\n", (int)shown, (int)frames);
    FLIC_close_flic_file();
    ExecQuitProc();
    HOST_close_window(window);
    return 0;
}
