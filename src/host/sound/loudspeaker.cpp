#include "host/sound/loudspeaker.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace ink::host {
namespace {

constexpr std::size_t kMostCaptured = std::size_t{2} * kMixRate * 600;
constexpr std::size_t kBlock = 1024;  // frames mixed at a time for the clock

}  // namespace

void Loudspeaker::start() {
    if (std::exchange(started_, true)) return;
    const bool opened = open_device_ && open_device_();
    const std::lock_guard held(mutex_);
    device_ = opened;
}

std::unique_lock<std::mutex> Loudspeaker::present() {
    std::unique_lock held(mutex_);
    const std::uint64_t due = frames_by_clock();
    if (!device_) pass(due - played_);
    played_ = due;
    return held;
}

// Microseconds times kMixRate, without the product's overflow.
std::uint64_t Loudspeaker::frames_by_clock() const {
    constexpr std::uint64_t kSecond = 1000000;
    const std::uint64_t now = clock_.now();
    return now / kSecond * kMixRate + now % kSecond * kMixRate / kSecond;
}

// Nobody takes the sound: it is made only to be captured.
void Loudspeaker::pass(std::uint64_t frames) {
    std::int16_t block[2 * kBlock];
    while (capturing_ && frames > 0 && captured_.size() < kMostCaptured) {
        const std::size_t count = static_cast<std::size_t>(std::min<std::uint64_t>(frames, kBlock));
        mix(block, count);
        frames -= count;
    }
    mixer_.skip(frames);
    drive_.skip(frames);
}

void Loudspeaker::mix(std::int16_t *stereo, std::size_t frames) {
    sum_.assign(2 * frames, 0);
    mixer_.mix(sum_.data(), frames);
    drive_.mix(sum_.data(), frames);
    std::transform(sum_.begin(), sum_.end(), stereo, [](std::int32_t sample) {
        using Limits = std::numeric_limits<std::int16_t>;
        return static_cast<std::int16_t>(std::clamp<std::int32_t>(sample, Limits::min(), Limits::max()));
    });
    if (capturing_ && captured_.size() < kMostCaptured)
        captured_.insert(captured_.end(), stereo, stereo + 2 * frames);
}

void Loudspeaker::render(std::int16_t *stereo, std::size_t frames) {
    const std::lock_guard held(mutex_);
    mix(stereo, frames);
}

void Loudspeaker::capture(bool on) {
    const auto held = present();
    capturing_ = on;
    captured_.clear();
}

std::size_t Loudspeaker::read(std::int16_t *stereo, std::size_t frames) {
    const auto held = present();
    const auto count = std::min(2 * frames, captured_.size());
    const auto end = captured_.begin() + static_cast<std::ptrdiff_t>(count);
    std::copy(captured_.begin(), end, stereo);
    captured_.erase(captured_.begin(), end);
    return count / 2;
}

}  // namespace ink::host
