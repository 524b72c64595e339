/* Plays wave files, up to four at a time: example_sound FILE... Each begins a second after the one before; the
   first loops until all others are over, then fades. */
#include <inkstone/inkstone.h>
#include <stdio.h>

/* Messages are dispatched while the time passes, so that a window would stay alive. */
static void pause_for(uint32_t milliseconds) {
    clear_time_delay();
    wait_time_delay(milliseconds);
}

static int others_play(int32_t channels) {
    for (int32_t channel = 1; channel < channels; ++channel)
        if (DS_status(channel) != 0) return 1;
    return 0;
}

int main(int argc, char **argv) {
    const int32_t channels = argc - 1;
    if (channels < 1 || channels > 4) {
        fprintf(stderr, "usage: example_sound FILE... (four at most)\n");
        return 2;
    }
    HWND window = HOST_open_window("Inkstone: sound", 320, 200, NULL);
    DS_init(window);
    for (int32_t channel = 0; channel < channels; ++channel) {
        if (DS_load_wave_channel(argv[channel + 1], channel) != 0) {
            fprintf(stderr, "example_sound: %s: see ERROR.MSG\n", argv[channel + 1]);
            ExecQuitProc();
            return 1;
        }
    }
    for (int32_t channel = 0; channel < channels; ++channel) {
        DS_start(channel, channel == 0);
        printf("channel %d plays %s\n", (int)channel, argv[channel + 1]);
        pause_for(1000);
    }
    while (others_play(channels)) pause_for(100);
    for (int32_t volume = 0; volume >= -4000; volume -= 100) {
        DS_set_volume(0, volume);
        pause_for(50);
    }
    ExecQuitProc(); /* stops what plays and closes the device */
    HOST_close_window(window);
    return 0;
}
