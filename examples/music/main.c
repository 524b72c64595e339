/* Plays the tracks of a disc one after the other and tells their times: example_music [SHEET]. Without a CUE
   sheet it plays the disc that INKSTONE_DISC names. */
#include <inkstone/inkstone.h>
#include <stdio.h>

enum { IN_ORDER = 0 };

static void print_time(uint32_t packed) {
    printf("%02u:%02u", (unsigned)(packed >> 16), (unsigned)(packed >> 8 & 0xFF));
}

int main(int argc, char **argv) {
    if (argc > 1 && HOST_insert_disc(argv[1]) != 0) {
        fprintf(stderr, "example_music: %s is no disc\n", argv[1]);
        return 1;
    }
    HWND window = HOST_open_window("Inkstone: music", 320, 200, NULL);
    SetupTimerProc(window); /* the play time counts its ticks */
    if (CDROM_open() != 0) return 1;
    const int32_t tracks = CDROM_total();
    if (tracks < 1) {
        fprintf(stderr, "example_music: there is no disc in the drive\n");
        return 1;
    }
    CDROM_clear_task();
    for (int32_t track = 0; track < tracks; ++track) CDROM_push_task(track);
    CDROM_task_type(IN_ORDER);
    CDROM_exec_task(1);

    /* A disc plays a track by itself; it goes on to the next one when the game asks. */
    uint32_t heard = 0;
    for (int32_t track = CDROM_now_track();;) {
        clear_time_delay();
        wait_time_delay(50);
        if (CDROM_status() != 0) {
            heard = CDROM_now_time();
            continue;
        }
        printf("track %d: ", (int)track + 1);
        print_time(heard);
        printf("\n");
        CDROM_check_task();
        if (CDROM_status() == 0) break; /* after the last one the list rests */
        track = CDROM_now_track();
    }
    ExecQuitProc();
    HOST_close_window(window);
    return 0;
}
