#include "sound.h"

#include <inkstone/inkstone.h>

#include "settings.h"

namespace moon {
namespace {

// Steps, clicks and splashes have a channel each; what rings long shares the last.
enum Channel : std::int32_t { kStepChannel, kClickChannel, kWaterChannel, kRingChannel };

Track current = kDayMusic;
Sound ringing = Sound::kChime;

void ring(Sound sound, const char *file) {
    if (ringing != sound) DS_load_wave_channel(file, kRingChannel);
    ringing = sound;
    DS_start(kRingChannel, 0);
}

}  // namespace

void load_sounds() {
    DS_load_wave_channel("step.wav", kStepChannel);
    DS_load_wave_channel("click.wav", kClickChannel);
    DS_load_wave_channel("splash.wav", kWaterChannel);
    DS_load_wave_channel("chime.wav", kRingChannel);
    DS_set_volume(kStepChannel, -1200);
    DS_set_volume(kClickChannel, -600);
}

void play(Sound sound) {
    if (!settings().sound) return;
    switch (sound) {
        case Sound::kStep: DS_start(kStepChannel, 0); break;
        case Sound::kClick: DS_start(kClickChannel, 0); break;
        case Sound::kSplash: DS_start(kWaterChannel, 0); break;
        case Sound::kChime: ring(sound, "chime.wav"); break;
        case Sound::kBell: ring(sound, "bell.wav"); break;
        case Sound::kPage: ring(sound, "page.wav"); break;
    }
}

void insert_disc(const std::string &sheet) {
    HOST_insert_disc(sheet.c_str());
}

void play_music(Track track) {
    current = track;
    if (!settings().music) return;
    CDROM_clear_task();
    CDROM_push_task(track);
    CDROM_task_type(1);
    CDROM_exec_task(0);
}

void adjust_sound() {
    if (!settings().music)
        CDROM_stop();
    else if (CDROM_status() == 0)
        CDROM_play(current);
}

}  // namespace moon
