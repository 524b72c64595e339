#include "host/sound/mixer.h"

#include <algorithm>
#include <new>
#include <utility>

namespace ink::host {

bool Mixer::create() {
    playback_.start();
    return true;
}

void Mixer::release() {
    const auto held = playback_.present();
    for (const Buffer &buffer : buffers_) cut(*buffer.voice);
    buffers_.clear();
}

Voice *Mixer::find(SoundBuffer handle) {
    const auto found = std::find_if(buffers_.begin(), buffers_.end(),
                                    [handle](const Buffer &buffer) { return buffer.handle == handle; });
    return found != buffers_.end() ? found->voice.get() : nullptr;
}

SoundBuffer Mixer::create_buffer(const WaveFormat &format, std::uint32_t bytes) try {
    std::optional<Voice> voice = Voice::make(format, bytes);
    if (!voice) return SoundBuffer::none;
    auto kept = std::make_unique<Voice>(*std::move(voice));
    const auto held = playback_.present();
    buffers_.push_back({static_cast<SoundBuffer>(last_handle_ + 1), std::move(kept)});
    return static_cast<SoundBuffer>(++last_handle_);
} catch (const std::bad_alloc &) {
    return SoundBuffer::none;
}

void Mixer::release_buffer(SoundBuffer handle) {
    const Voice *voice = find(handle);
    if (voice == nullptr) return;
    const auto held = playback_.present();
    cut(*voice);
    std::erase_if(buffers_, [handle](const Buffer &buffer) { return buffer.handle == handle; });
}

Mixer::LockResult Mixer::lock(SoundBuffer buffer, Locked &whole) {
    Voice *voice = find(buffer);
    if (voice == nullptr) return LockResult::failed;
    // In two parts, as a device's memory that wraps comes, so that whoever fills it shows that he fills both.
    const std::span samples = voice->samples();
    whole = {samples.first(samples.size() / 2), samples.subspan(samples.size() / 2)};
    return LockResult::ok;
}

std::optional<bool> Mixer::playing(SoundBuffer buffer) {
    const Voice *voice = find(buffer);
    if (voice == nullptr) return std::nullopt;
    const auto held = playback_.present();
    return voice->playing();
}

bool Mixer::play(SoundBuffer buffer, bool looping) {
    Voice *voice = find(buffer);
    if (voice == nullptr) return false;
    const auto held = playback_.present();
    voice->play(looping);
    return true;
}

bool Mixer::stop(SoundBuffer buffer) {
    Voice *voice = find(buffer);
    if (voice == nullptr) return false;
    const auto held = playback_.present();
    cut(*voice);
    voice->stop();
    return true;
}

bool Mixer::set_position(SoundBuffer buffer, std::uint32_t byte) {
    Voice *voice = find(buffer);
    if (voice == nullptr) return false;
    const auto held = playback_.present();
    cut(*voice);
    return voice->set_position(byte);
}

bool Mixer::set_volume(SoundBuffer buffer, std::int32_t volume) {
    Voice *voice = find(buffer);
    if (voice == nullptr) return false;
    const auto held = playback_.present();
    voice->set_volume(volume);
    return true;
}

// A sound that is cut off in its middle is heard a moment longer, fading, since a sudden end clicks.
void Mixer::cut(const Voice &voice) {
    if (!voice.heard()) return;
    // What still fades moves to the front, where the new one joins it.
    const auto rest = std::copy(fading_.begin() + static_cast<std::ptrdiff_t>(fading_from_), fading_.end(),
                                fading_.begin());
    std::fill(rest, fading_.end(), 0);
    fading_from_ = 0;
    voice.fade_out(fading_.data());
}

void Mixer::mix(std::int32_t *stereo, std::size_t frames) {
    for (const Buffer &buffer : buffers_) buffer.voice->mix(stereo, frames);
    const std::size_t count = std::min(2 * frames, fading_.size() - fading_from_);
    for (std::size_t i = 0; i < count; ++i) stereo[i] += fading_[fading_from_ + i];
    fading_from_ += count;
}

void Mixer::skip(std::uint64_t frames) {
    for (const Buffer &buffer : buffers_) buffer.voice->skip(frames);
    fading_from_ +=
        static_cast<std::size_t>(std::min<std::uint64_t>(2 * frames, fading_.size() - fading_from_));
}

}  // namespace ink::host
