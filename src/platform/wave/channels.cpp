// The four wave channels and their sound device.
#include <algorithm>
#include <array>
#include <memory>

#include "core/log.h"
#include "host/host.h"
#include "host/sound/wave_file.h"
#include "inkstone/runtime.h"
#include "inkstone/wave.h"

namespace {

using ink::host::InputFile;
using ink::host::Sound;
using ink::host::SoundBuffer;
using ink::host::WaveFile;
using Fault = WaveFile::Fault;

struct Channel {
    SoundBuffer buffer = SoundBuffer::none;  // none while the channel is empty
    std::unique_ptr<std::uint8_t[]> samples;
    std::uint32_t size = 0;  // bytes
    ink::host::WaveFormat format;
    bool playing = false;  // started and not stopped since; stays set when the sound ends by itself
};

HWND window = nullptr;
bool created = false;  // whether the device is there
std::array<Channel, 4> channels;

// The line for the log, null where none is written, and the text of the fatal exit.
struct Messages {
    const char *log, *fatal;
};

Messages messages(Fault fault) {
    switch (fault) {
        case Fault::open: return {"ERROR : error open file %s (DS)", "DS: can't open file"};
        case Fault::not_wave: return {"ERROR : %s not a WAVE file(DS)", "DS: not a WAVE file"};
        case Fault::no_format: return {"ERROR : %s has no fmt chunk(DS)", "DS: WAVE file has no fmt chunk"};
        case Fault::format_short:
            return {"ERROR : unable read fmt chunk from file %s(DS)", "DS: unable to read fmt chunk"};
        case Fault::not_pcm:
            return {"ERROR : WAVE file %s is not PCM format(DS)", "DS: WAVE file is not PCM format"};
        case Fault::ascend: return {"ERROR : unable ascend file %s", "DS: unable ascend"};
        case Fault::no_data: return {nullptr, "DS: WAVE file has no data chunk"};
        case Fault::memory: return {"ERROR : memory alloc error(DS)", "DS: memory alloc error"};
        case Fault::data_short: break;
    }
    return {nullptr, "DS: unable to read data chunk "};
}

int32_t log_fault(Fault fault, const char *file_name) {
    if (messages(fault).log != nullptr)
        ink::log_error_format(messages(fault).log, file_name != nullptr ? file_name : "");
    return -2;
}

Sound &device() {
    return ink::host::machine().sound;
}

void require(bool done, const char *message) {
    if (!done) fnErrorExit(window, message);
}

bool in_range(std::int32_t number) {
    return number >= 0 && static_cast<std::size_t>(number) < channels.size();
}

// The channel of that number when it holds a sound, else null.
Channel *loaded(std::int32_t number) {
    if (!in_range(number)) return nullptr;
    Channel &channel = channels[static_cast<std::size_t>(number)];
    return channel.buffer != SoundBuffer::none ? &channel : nullptr;
}

void release(Channel &channel) {
    if (channel.buffer == SoundBuffer::none) return;
    device().release_buffer(channel.buffer);
    channel = Channel();
}

void fill_buffer(Channel &channel) {
    channel.buffer = device().create_buffer(channel.format, channel.size);
    require(channel.buffer != SoundBuffer::none, "DS: CreateSoundBuffer error");
    Sound::Locked whole;
    auto result = device().lock(channel.buffer, whole);
    if (result == Sound::LockResult::lost && device().restore(channel.buffer))
        result = device().lock(channel.buffer, whole);
    require(result == Sound::LockResult::ok, "DS: DirectSoundBuffer Lock error");
    std::copy_n(channel.samples.get(), whole.first.size(), whole.first.begin());
    std::copy_n(channel.samples.get() + whole.first.size(), whole.second.size(), whole.second.begin());
    require(device().unlock(channel.buffer, whole), "DS: DirectSoundBuffer Unlock error");
}

// Reads the samples of an opened file into an empty channel.
std::optional<Fault> fill(Channel &channel, WaveFile &file) {
    const auto fault = file.read(channel.samples);
    file.take();
    if (fault) {
        channel.samples.reset();
        return fault;
    }
    channel.size = file.size();
    channel.format = file.format();
    fill_buffer(channel);
    return std::nullopt;
}

}  // namespace

int32_t DS_init(HWND game_window) {
    DS_destroy();
    window = game_window;
    require(device().create(), "Create DirectSound error");
    created = true;
    require(device().set_cooperative_level(window), "Set DirectSound CooperativeLevel error");
    PushQuitProc(DS_destroy);
    return 0;
}

void DS_destroy(void) {
    if (!created) return;
    for (std::int32_t number = 0; in_range(number); ++number) {
        DS_stop(number);
        release(channels[static_cast<std::size_t>(number)]);
    }
    device().release();
    created = false;
}

int32_t DS_load_wave_channel(const char *file_name, int32_t channel) {
    if (!created || !in_range(channel)) return -2;
    WaveFile file;
    if (const auto fault = file.open(InputFile(file_name))) return log_fault(*fault, file_name);
    DS_unload_wave(channel);
    if (const auto fault = fill(channels[static_cast<std::size_t>(channel)], file))
        return log_fault(*fault, file_name);
    return 0;
}

int32_t DS_load_wave(const char *file_name) {
    if (!created) return -1;
    WaveFile file;
    auto fault = file.open(InputFile(file_name));
    const auto empty = std::find_if(channels.begin(), channels.end(), [](const Channel &channel) {
        return channel.buffer == SoundBuffer::none;
    });
    if (!fault && empty == channels.end()) return -1;
    if (!fault) fault = fill(*empty, file);
    file.take();
    if (fault) fnErrorExit(window, messages(*fault).fatal);
    return static_cast<std::int32_t>(empty - channels.begin());
}

void DS_unload_wave(int32_t channel) {
    Channel *sound = loaded(channel);
    if (sound == nullptr) return;
    DS_stop(channel);
    release(*sound);
}

void DS_start(int32_t channel, int32_t loop) {
    Channel *sound = loaded(channel);
    if (sound == nullptr) return;
    if (device().playing(sound->buffer).value_or(false)) {
        require(device().set_position(sound->buffer, 0), "DS: Cannot set current position");
        return;
    }
    require(device().play(sound->buffer, loop != 0), "DS: Cannot start playing");
    sound->playing = true;
}

void DS_stop(int32_t channel) {
    Channel *sound = loaded(channel);
    if (sound == nullptr || !sound->playing) return;
    require(device().stop(sound->buffer), "DS: can not stop sound");
    sound->playing = false;
}

void DS_set_volume(int32_t channel, int32_t volume) {
    Channel *sound = loaded(channel);
    if (sound == nullptr) return;
    require(device().set_volume(sound->buffer, std::clamp(volume, -10000, 0)), "DS: can not set volume");
}

int32_t DS_status(int32_t channel) {
    Channel *sound = loaded(channel);
    return sound != nullptr && device().playing(sound->buffer).value_or(false) ? -2 : 0;
}
