// The drive: opening, the track table, playing one track, and its time.
#include "platform/cdaudio/drive.h"

#include <algorithm>
#include <array>

#include "core/counters.h"
#include "core/log.h"
#include "host/host.h"
#include "inkstone/cdaudio.h"
#include "inkstone/runtime.h"
#include "inkstone/timer.h"

namespace {

using ink::host::DiscMode;
using ink::host::DiscTime;

constexpr std::uint32_t kTicksPerSecond = 18;
constexpr std::size_t kMostTracks = 256;

struct Time {
    std::uint32_t minutes = 0, seconds = 0;
    std::uint32_t fraction = 0;  // frames of 1/75 second in lengths, hundredths in play times
};

bool is_open = false, playing = false, paused = false;
std::int32_t current_track = -1;
std::array<Time, kMostTracks> lengths;
std::uint32_t saved_ticks = 0;
Time paused_time;

ink::host::Disc &disc() {
    return ink::host::machine().disc;
}

bool in_table(std::int32_t track) {
    return track >= 0 && static_cast<std::size_t>(track) < lengths.size();
}

std::uint32_t pack(Time time) {
    return (time.minutes & 0xFF) << 16 | (time.seconds & 0xFF) << 8 | (time.fraction & 0xFF);
}

// A position for the drive: track, minutes, seconds, frames from the low byte up. The track's number counts
// from 0.
std::uint32_t position(std::int32_t track, Time time) {
    return (static_cast<std::uint32_t>(track + 1) & 0xFF) | std::min(time.minutes, 0xFFU) << 8 |
           time.seconds << 16 | time.fraction << 24;
}

Time time_of_ticks(std::uint32_t ticks) {
    return {ticks / (kTicksPerSecond * 60), ticks / kTicksPerSecond % 60,
            ticks % kTicksPerSecond * 100 / kTicksPerSecond};
}

// A length in ticks. Its frames are reckoned as the hundredths of a play time, which stops with them: at the
// end of a track of 2 seconds and 50 frames it shows 2 seconds and 50 hundredths.
std::uint32_t ticks_of_length(Time length) {
    return (length.minutes * 60 + length.seconds) * kTicksPerSecond + length.fraction * kTicksPerSecond / 100;
}

bool play_to_end(std::int32_t track, Time from) {
    return disc().play(position(track, from), position(track, lengths[static_cast<std::size_t>(track)]));
}

std::int32_t close_and_fail() {
    CDROM_close();
    return -1;
}

void stop_and_close() {
    CDROM_stop();
    CDROM_close();
}

// Reads the table's entries and their number; false when the drive refuses.
bool read_table(std::int32_t &count) {
    lengths.fill({});
    if (!disc().set_time_format(DiscTime::msf) || !disc().track_count(count)) return false;
    if (count > static_cast<std::int32_t>(kMostTracks)) return false;
    for (std::int32_t track = 0; track < count; ++track) {
        std::uint32_t length = 0;
        if (!disc().track_length(track + 1, length)) return false;
        lengths[static_cast<std::size_t>(track)] = {length & 0xFF, length >> 8 & 0xFF, length >> 16 & 0xFF};
    }
    return true;
}

}  // namespace

bool ink::cdaudio::opened() {
    return is_open;
}

int32_t CDROM_open(void) {
    if (!disc().open()) return -1;
    is_open = true;
    if (PushQuitProc(stop_and_close) == 0) return 0;
    ink::log_error("Push Quit Proc Error!!!");
    return -1;
}

int32_t CDROM_close(void) {
    if (!is_open || !disc().close()) return -1;
    is_open = false;
    return 0;
}

int32_t CDROM_total(void) {
    std::int32_t count = 0;
    if (!is_open) return -1;
    return read_table(count) ? count : close_and_fail();
}

int32_t CDROM_play(int32_t track) {
    if (!is_open || !in_table(track)) return -1;
    if (!disc().set_time_format(DiscTime::tmsf) || !play_to_end(track, {})) {
        playing = false;
        return close_and_fail();
    }
    current_track = track;
    playing = true;
    paused = false;
    paused_time = {};
    saved_ticks = 0;
    SetTimerTick(ink::kPlayTimeCounter, 0);
    return 0;
}

int32_t CDROM_stop(void) {
    if (!is_open) return -1;
    saved_ticks = 0;
    paused_time = {};
    const bool stopped = disc().stop();
    playing = paused = false;
    return stopped ? 0 : -1;
}

int32_t CDROM_pause(void) {
    if (!is_open || !playing || paused) return -1;
    saved_ticks = GetTimerTick(ink::kPlayTimeCounter);
    paused_time = time_of_ticks(saved_ticks);
    const bool stopped = disc().stop();
    paused = true;
    return stopped ? 0 : -1;
}

int32_t CDROM_resume(void) {
    if (!is_open || current_track < 0 || !playing || !paused) return -1;
    if (!disc().set_time_format(DiscTime::tmsf)) return -1;
    SetTimerTick(ink::kPlayTimeCounter, saved_ticks);
    if (!play_to_end(current_track, paused_time)) return -1;
    paused = false;
    return 0;
}

int32_t CDROM_status(void) {
    if (!is_open) return -1;
    DiscMode mode{};
    if (!disc().mode(mode)) return close_and_fail();
    return mode == DiscMode::stopped ? 0 : -1;
}

int32_t CDROM_loop(void) {
    if (!is_open) return -1;
    if (const std::int32_t status = CDROM_status(); status != 0) return status;
    if (current_track == -1) return 0;
    CDROM_stop();
    return CDROM_play(current_track);
}

uint32_t CDROM_track_time(int32_t track) {
    if (!is_open || track <= 0 || !in_table(track)) return 0;
    return pack(lengths[static_cast<std::size_t>(track)]);
}

uint32_t CDROM_now_time(void) {
    if (!is_open || !playing || current_track < 0) return 0;
    if (paused)
        SetTimerTick(ink::kPlayTimeCounter, saved_ticks);
    else
        saved_ticks = GetTimerTick(ink::kPlayTimeCounter);
    const std::uint32_t length = ticks_of_length(lengths[static_cast<std::size_t>(current_track)]);
    if (saved_ticks >= length) {
        saved_ticks = length;
        SetTimerTick(ink::kPlayTimeCounter, length);
    }
    paused_time = time_of_ticks(saved_ticks);
    return pack(paused_time);
}

int32_t CDROM_now_track(void) {
    return is_open ? current_track : -1;
}
