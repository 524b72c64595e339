#include "host/win32/win32_sound.h"

#include <mmsystem.h>
// DirectSound builds on the multimedia types above it.
#include <dsound.h>

namespace ink::host {
namespace {

// Loaded once and played often, with a frequency, a place and a volume that can be set.
constexpr DWORD kBufferFlags = DSBCAPS_STATIC | DSBCAPS_CTRLFREQUENCY | DSBCAPS_CTRLPAN | DSBCAPS_CTRLVOLUME;

// Whether the operation on the buffer succeeds. No buffer refuses all of them.
template <class Operation>
bool ask(SoundBuffer buffer, Operation operation) {
    return buffer != SoundBuffer::none &&
           SUCCEEDED(operation(reinterpret_cast<IDirectSoundBuffer *>(static_cast<std::uintptr_t>(buffer))));
}

}  // namespace

bool Win32Sound::create() {
    return SUCCEEDED(DirectSoundCreate(nullptr, &device_, nullptr));
}

bool Win32Sound::set_cooperative_level(HWND window) {
    return device_ != nullptr && SUCCEEDED(device_->SetCooperativeLevel(window, DSSCL_NORMAL));
}

void Win32Sound::release() {
    if (device_ != nullptr) device_->Release();
    device_ = nullptr;
}

SoundBuffer Win32Sound::create_buffer(const WaveFormat &format, std::uint32_t bytes) {
    WAVEFORMATEX wave{};
    wave.wFormatTag = format.tag;
    wave.nChannels = format.channels;
    wave.nSamplesPerSec = format.samples_per_second;
    wave.nAvgBytesPerSec = format.average_bytes_per_second;
    wave.nBlockAlign = format.block_align;
    wave.wBitsPerSample = format.bits_per_sample;
    DSBUFFERDESC description{};
    description.dwSize = sizeof description;
    description.dwFlags = kBufferFlags;
    description.dwBufferBytes = bytes;
    description.lpwfxFormat = &wave;
    IDirectSoundBuffer *buffer = nullptr;
    if (device_ == nullptr || FAILED(device_->CreateSoundBuffer(&description, &buffer, nullptr)))
        return SoundBuffer::none;
    return static_cast<SoundBuffer>(reinterpret_cast<std::uintptr_t>(buffer));
}

void Win32Sound::release_buffer(SoundBuffer buffer) {
    ask(buffer, [](IDirectSoundBuffer *sound) { return sound->Release(), S_OK; });
}

Sound::LockResult Win32Sound::lock(SoundBuffer buffer, Locked &whole) {
    void *first = nullptr, *second = nullptr;
    DWORD first_bytes = 0, second_bytes = 0;
    HRESULT result = DSERR_GENERIC;
    ask(buffer, [&](IDirectSoundBuffer *sound) {
        return result = sound->Lock(0, 0, &first, &first_bytes, &second, &second_bytes, DSBLOCK_ENTIREBUFFER);
    });
    if (FAILED(result)) return result == DSERR_BUFFERLOST ? LockResult::lost : LockResult::failed;
    whole.first = {static_cast<std::uint8_t *>(first), first_bytes};
    whole.second = {static_cast<std::uint8_t *>(second), second != nullptr ? second_bytes : 0};
    return LockResult::ok;
}

bool Win32Sound::unlock(SoundBuffer buffer, const Locked &whole) {
    return ask(buffer, [&](IDirectSoundBuffer *sound) {
        return sound->Unlock(whole.first.data(), static_cast<DWORD>(whole.first.size()), whole.second.data(),
                             static_cast<DWORD>(whole.second.size()));
    });
}

bool Win32Sound::restore(SoundBuffer buffer) {
    return ask(buffer, [](IDirectSoundBuffer *sound) { return sound->Restore(); });
}

std::optional<bool> Win32Sound::playing(SoundBuffer buffer) {
    DWORD status = 0;
    if (!ask(buffer, [&](IDirectSoundBuffer *sound) { return sound->GetStatus(&status); }))
        return std::nullopt;
    return (status & DSBSTATUS_PLAYING) != 0;
}

bool Win32Sound::play(SoundBuffer buffer, bool looping) {
    return ask(buffer,
               [=](IDirectSoundBuffer *sound) { return sound->Play(0, 0, looping ? DSBPLAY_LOOPING : 0); });
}

bool Win32Sound::stop(SoundBuffer buffer) {
    return ask(buffer, [](IDirectSoundBuffer *sound) { return sound->Stop(); });
}

bool Win32Sound::set_position(SoundBuffer buffer, std::uint32_t byte) {
    return ask(buffer, [=](IDirectSoundBuffer *sound) { return sound->SetCurrentPosition(byte); });
}

bool Win32Sound::set_volume(SoundBuffer buffer, std::int32_t hundredths_of_decibel) {
    return ask(buffer, [=](IDirectSoundBuffer *sound) { return sound->SetVolume(hundredths_of_decibel); });
}

}  // namespace ink::host
