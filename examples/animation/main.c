/* Shows a CAN animation over a picture in a window: animation FILE.CAN PICTURE.PCX. The picture brings the
   palette; both come out of a paint program and "ink can build". Escape or closing the window ends it, and so
   do ten rounds. */
#include <inkstone/inkstone.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { ESCAPE = 0x1B, WIDTH = 640, HEIGHT = 480, WORK = 1 << 20, ROUNDS = 10 };

static uint8_t screen[WIDTH * HEIGHT], background[WIDTH * HEIGHT];
static int closed;

static LRESULT procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_CLOSE || (message == WM_KEYDOWN && wparam == ESCAPE)) closed = 1;
    return message == WM_CLOSE ? 0 : HOST_default_procedure(window, message, wparam, lparam);
}

/* Reads the picture and puts it onto the background, in its top-left corner. */
static int load_background(const char *name) {
    int32_t width, height;
    const int32_t size = PCX_get_image_size(name, &width, &height);
    if (size < 1) return 0;
    uint8_t *pixels = malloc((size_t)size), palette[768];
    const int read = pixels != NULL && PCX_read_file(name, pixels) == 0;
    if (read) {
        BUF_put_bitmap(0, 0, width, height, pixels, background);
        PCX_export_palette(palette);
        SCR_set_palette(palette);
    }
    free(pixels);
    return read;
}

int main(int argc, char **argv) {
    if (argc < 3) {
        fprintf(stderr, "usage: animation FILE.CAN PICTURE.PCX\n");
        return 2;
    }
    HWND window = HOST_open_window(argv[1], WIDTH, HEIGHT, procedure);
    WViewInit(window, 0, 0, WIDTH, HEIGHT, screen);
    WViewEnable();

    uint8_t *work = malloc(WORK); /* room for the largest compressed frame */
    ANI_DATA_STRUCT *animation = NULL;
    const int32_t frames = work == NULL ? -1 : CAN_read_file(argv[1], &animation, work);
    free(work);
    const int ready = frames > 0 && load_background(argv[2]);
    if (!ready) fprintf(stderr, "animation: see ERROR.MSG for what could not be read\n");

    for (int round = 0; ready && round < ROUNDS && !closed; ++round) {
        for (const ANI_DATA_STRUCT *frame = animation->next; frame != NULL && !closed; frame = frame->next) {
            clear_time_delay();
            memcpy(screen, background, sizeof screen);
            BUF_pest_image(WIDTH / 2 + frame->x, HEIGHT / 2 + frame->y, frame->image, screen);
            WViewBuffer2Screen();
            wait_time_delay(100);
        }
    }
    ANI_free_ani(animation);
    ExecQuitProc();
    HOST_close_window(window);
    return ready ? 0 : 1;
}
