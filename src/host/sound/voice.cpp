#include "host/sound/voice.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <type_traits>

#include "core/reader.h"

namespace ink::host {
namespace {

constexpr std::uint32_t kSlowest = 100, kFastest = 200000, kMostBytes = 0x0FFFFFFF;
constexpr std::int32_t kSilence = -10000;

}  // namespace

std::optional<Voice> Voice::make(const WaveFormat &format, std::uint32_t bytes) {
    if (format.tag != 1 || format.channels < 1 || format.channels > 2) return std::nullopt;
    constexpr unsigned kBits[] = {8, 16, 24, 32};
    if (std::find(std::begin(kBits), std::end(kBits), format.bits_per_sample) == std::end(kBits))
        return std::nullopt;
    if (format.samples_per_second < kSlowest || format.samples_per_second > kFastest) return std::nullopt;
    if (bytes > kMostBytes) return std::nullopt;
    return Voice(format, bytes);
}

Voice::Voice(const WaveFormat &format, std::uint32_t bytes)
    : samples_(bytes),
      channels_(format.channels),
      bytes_per_sample_(format.bits_per_sample / 8U),
      frames_(bytes / (channels_ * bytes_per_sample_)),
      resampler_(format.samples_per_second, kMixRate) {}

void Voice::play(bool looping) {
    looping_ = looping;
    if (playing_ || frames_ == 0) return;
    playing_ = true;
    heard_ = false;
    // A sound begins as it is; one that goes on in its middle would begin with a click.
    if (position_.frame != 0)
        glide(0);
    else
        gain_now_ = gain_, gliding_ = 0;
}

bool Voice::set_position(std::uint32_t byte) {
    if (byte >= samples_.size() && byte != 0) return false;
    position_ = {byte / (channels_ * bytes_per_sample_), 0};
    heard_ = false;
    return true;
}

void Voice::set_volume(std::int32_t volume) {
    const double factor = volume <= kSilence ? 0 : std::pow(10.0, volume / 2000.0);
    gain_ = std::lround(factor * (1 << kGainBits));
    if (playing_)
        glide(gain_now_);
    else
        gain_now_ = gain_;
}

void Voice::glide(std::int64_t from) {
    gain_now_ = from;
    gliding_ = kFadeFrames;
}

std::int64_t Voice::next_gain() {
    if (gliding_ > 0) gain_now_ += (gain_ - gain_now_) / static_cast<std::int64_t>(gliding_--);
    return gain_now_;
}

template <unsigned bytes>
std::int32_t Voice::stored(std::int64_t frame, unsigned channel) const {
    const std::uint8_t *sample = &samples_[bytes * (static_cast<std::size_t>(frame) * channels_ + channel)];
    if constexpr (bytes == 1) return (*sample - 128) * 256;
    if constexpr (bytes == 2) return static_cast<std::int16_t>(get_u16(sample));
    // Of the wider ones the upper 16 bits, rounded by the bit below them.
    if constexpr (bytes > 2) {
        const std::uint8_t *upper = sample + bytes - 2;
        return static_cast<std::int16_t>(get_u16(upper)) + (upper[-1] >> 7);
    }
}

template <class Read>
std::int32_t Voice::by_size(Read read) const {
    switch (bytes_per_sample_) {
        case 1: return read(std::integral_constant<unsigned, 1>());
        case 2: return read(std::integral_constant<unsigned, 2>());
        case 3: return read(std::integral_constant<unsigned, 3>());
        default: return read(std::integral_constant<unsigned, 4>());
    }
}

// Also before the start and after the end: in a loop the last frames are followed by the first and the first
// preceded by the last.
std::int32_t Voice::sample(std::int64_t frame, unsigned channel) const {
    if (frame < 0 || frame >= frames_) {
        if (!looping_) return 0;
        frame %= frames_;
        if (frame < 0) frame += frames_;
    }
    return by_size([&](auto bytes) { return stored<bytes>(frame, channel); });
}

// The sound at that position. Away from the ends, where most of it is, no frame can lie outside.
std::int32_t Voice::sample_at(const SamplePosition &position, unsigned channel) const {
    const auto frame = static_cast<std::int64_t>(position.frame);
    if (frame < resampler_.reach() || frame >= frames_ - resampler_.reach())
        return resampler_.at(position, [&](std::int64_t at) { return sample(at, channel); });
    if (bytes_per_sample_ == 2 && channels_ == 1 && resampler_.between(position))
        return resampler_.between_shorts(position, samples_.data());
    return by_size([&](auto bytes) {
        return resampler_.at(position, [&](std::int64_t at) { return stored<bytes>(at, channel); });
    });
}

// False when the sound came to its end.
bool Voice::advance(SamplePosition &position, std::uint64_t frames) const {
    resampler_.advance(position, frames);
    const auto end = static_cast<std::uint64_t>(frames_);
    if (position.frame < end) return true;
    if (looping_) position.frame %= end;
    return looping_;
}

std::int32_t Voice::at_gain(std::int32_t sample, std::int64_t gain) {
    constexpr std::int64_t kHalf = std::int64_t{1} << (kGainBits - 1);
    return static_cast<std::int32_t>((sample * gain + kHalf) >> kGainBits);
}

void Voice::add(const SamplePosition &position, std::int64_t gain, std::int32_t *stereo) const {
    std::int32_t heard = 0;
    for (unsigned ear = 0; ear < 2; ++ear) {
        if (ear < channels_)  // a single channel is heard with both
            heard = sample_at(position, ear);
        stereo[ear] += at_gain(heard, gain);
    }
}

// Frames of 16 bits at the rate of the mix, while the volume stands: as add() would, without a look at each. Returns how
// many were added, up to the end of the sound at most.
std::size_t Voice::add_unchanged(std::int32_t *stereo, std::size_t frames) const {
    if (gliding_ > 0 || bytes_per_sample_ != 2 || !resampler_.keeps_rate()) return 0;
    const std::size_t place = static_cast<std::size_t>(position_.frame),
                      end = static_cast<std::size_t>(frames_);
    const std::size_t count = std::min(frames, end - std::min(place, end));
    const std::uint8_t *from = samples_.data() + 2 * channels_ * place;
    for (std::size_t i = 0; i < count; ++i, from += 2 * channels_, stereo += 2) {
        const auto left = static_cast<std::int16_t>(get_u16(from)),
                   right = static_cast<std::int16_t>(get_u16(from + 2 * (channels_ - 1)));
        stereo[0] += at_gain(left, gain_now_);
        stereo[1] += at_gain(right, gain_now_);
    }
    return count;
}

void Voice::mix(std::int32_t *stereo, std::size_t frames) {
    heard_ |= frames > 0;
    while (playing_ && frames > 0) {
        std::size_t added = add_unchanged(stereo, frames);
        if (added == 0) {
            add(position_, next_gain(), stereo);
            added = 1;
        }
        if (!advance(position_, added)) finish();
        frames -= added;
        stereo += 2 * added;
    }
}

void Voice::skip(std::uint64_t frames) {
    if (!playing_) return;
    heard_ |= frames > 0;
    for (std::uint64_t i = 0; i < frames && gliding_ > 0; ++i) next_gain();
    if (!advance(position_, frames)) finish();
}

void Voice::finish() {
    playing_ = false;
    position_ = {};
}

void Voice::fade_out(std::int32_t *stereo) const {
    SamplePosition position = position_;
    for (std::size_t left = kFadeFrames; left > 0; --left, stereo += 2) {
        add(position, gain_now_ * static_cast<std::int64_t>(left) / static_cast<std::int64_t>(kFadeFrames),
            stereo);
        if (!advance(position, 1)) break;
    }
}

}  // namespace ink::host
