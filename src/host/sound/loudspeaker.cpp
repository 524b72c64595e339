#include "host/sound/loudspeaker.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

namespace ink::host {
namespace {

constexpr std::size_t kMostCaptured = std::size_t{2} * kMixRate * 600;

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

// At most kBlock frames.
void Loudspeaker::mix(std::int16_t *stereo, std::size_t frames) {
    std::int32_t sum[2 * kBlock] = {};
    mixer_.mix(sum, frames);
    drive_.mix(sum, frames);
    std::transform(sum, sum + 2 * frames, stereo, [](std::int32_t sample) {
        using Limits = std::numeric_limits<std::int16_t>;
        return static_cast<std::int16_t>(std::clamp<std::int32_t>(sample, Limits::min(), Limits::max()));
    });
    if (capturing_ && captured_.size() < kMostCaptured) keep(stereo, frames);
}

// Nobody could be told on the device's thread that there is no memory: what does not fit is not kept.
void Loudspeaker::keep(const std::int16_t *stereo, std::size_t frames) try {
    captured_.insert(captured_.end(), stereo, stereo + 2 * frames);
} catch (const std::bad_alloc &) {
    capturing_ = false;
}

void Loudspeaker::render(std::int16_t *stereo, std::size_t frames) {
    const std::lock_guard held(mutex_);
    for (std::size_t count; frames > 0; frames -= count, stereo += 2 * count)
        mix(stereo, count = std::min(frames, kBlock));
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
