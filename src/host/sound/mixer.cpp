#include "host/sound/mixer.h"

#include <algorithm>
#include <utility>

#include "host/observer.h"
#include "host/sound/voice.h"

namespace ink::host {

class Mixer::Buffer final : public SoundBuffer {
  public:
    Buffer(Mixer &mixer, unsigned number, Voice voice)
        : mixer_(mixer), number_(number), voice_(std::move(voice)) {}

    Voice &voice() { return voice_; }
    const Voice &voice() const { return voice_; }

    std::optional<bool> playing() override {
        if (!allowed("buffer_status %u", number_)) return std::nullopt;
        const auto held = mixer_.playback_.present();
        return voice_.playing();
    }
    bool play(bool looping) override {
        if (!allowed("play_buffer %u %d", number_, looping)) return false;
        const auto held = mixer_.playback_.present();
        voice_.play(looping);
        return true;
    }
    bool stop() override {
        if (!allowed("stop_buffer %u", number_)) return false;
        const auto held = mixer_.playback_.present();
        mixer_.cut(*this);
        voice_.stop();
        return true;
    }
    bool set_position(std::uint32_t byte) override {
        if (!allowed("set_buffer_position %u %u", number_, byte)) return false;
        const auto held = mixer_.playback_.present();
        mixer_.cut(*this);
        return voice_.set_position(byte);
    }
    bool set_volume(std::int32_t volume) override {
        if (!allowed("set_buffer_volume %u %d", number_, volume)) return false;
        const auto held = mixer_.playback_.present();
        voice_.set_volume(volume);
        return true;
    }
    LockResult lock(Locked &whole) override {
        const std::int32_t refusal = answer("lock_buffer %u", number_);
        if (refusal != 0) return refusal == kLostMemory ? LockResult::lost : LockResult::failed;
        whole = {voice_.samples(), {}};
        return LockResult::ok;
    }
    bool unlock(const Locked &) override { return allowed("unlock_buffer %u", number_); }
    bool restore() override { return allowed("restore_buffer %u", number_); }
    void release() override {
        allowed("release_buffer %u", number_);
        const auto held = mixer_.playback_.present();
        mixer_.cut(*this);
        std::erase_if(mixer_.buffers_, [this](const auto &buffer) { return buffer.get() == this; });
    }

  private:
    static constexpr std::int32_t kLostMemory = 2;

    Mixer &mixer_;
    unsigned number_;
    Voice voice_;
};

Mixer::Mixer(Playback &playback) : playback_(playback) {}
Mixer::~Mixer() = default;

bool Mixer::create() {
    if (!allowed("create_sound")) return false;
    playback_.start();
    return true;
}

bool Mixer::set_cooperative_level(HWND window) {
    return allowed("set_cooperative_level %u",
                   static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(window)));
}

SoundBuffer *Mixer::create_buffer(const WaveFormat &format, std::uint32_t bytes) {
    if (!allowed("create_buffer %u %u %u %u", unsigned{format.channels}, format.samples_per_second,
                 unsigned{format.bits_per_sample}, bytes))
        return nullptr;
    std::optional<Voice> voice = Voice::make(format, bytes);
    if (!voice) return nullptr;
    const auto held = playback_.present();
    return buffers_.emplace_back(std::make_unique<Buffer>(*this, ++last_number_, *std::move(voice))).get();
}

void Mixer::release() {
    allowed("release_sound");
    const auto held = playback_.present();
    for (const auto &buffer : buffers_) cut(*buffer);
    buffers_.clear();
}

// A sound that is cut off in its middle is heard a moment longer, fading, since a sudden end clicks.
void Mixer::cut(const Buffer &buffer) {
    if (!buffer.voice().heard()) return;
    fading_.erase(fading_.begin(), fading_.begin() + static_cast<std::ptrdiff_t>(fading_from_));
    fading_from_ = 0;
    fading_.resize(2 * Voice::kFadeFrames);
    buffer.voice().fade_out(fading_.data());
}

void Mixer::mix(std::int32_t *stereo, std::size_t frames) {
    for (const auto &buffer : buffers_) buffer->voice().mix(stereo, frames);
    const std::size_t count = std::min(2 * frames, fading_.size() - fading_from_);
    for (std::size_t i = 0; i < count; ++i) stereo[i] += fading_[fading_from_ + i];
    fading_from_ += count;
}

void Mixer::skip(std::uint64_t frames) {
    for (const auto &buffer : buffers_) buffer->voice().skip(frames);
    fading_from_ +=
        static_cast<std::size_t>(std::min<std::uint64_t>(2 * frames, fading_.size() - fading_from_));
}

}  // namespace ink::host
