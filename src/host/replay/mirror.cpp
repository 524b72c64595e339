#include "host/replay/mirror.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>

#include "core/reader.h"
#include "host/disc/disc_device.h"
#include "host/replay/record_file.h"

namespace ink::host {
namespace {

constexpr std::size_t kMostCaptured = std::size_t{2} * kMixRate * 600;

}  // namespace

void Mirror::advance_to(std::uint64_t time) {
    // Of a pause in which nobody asks for anything no more than this is heard.
    constexpr std::uint64_t kLongestPause = 60'000'000;
    Bench &bench = machine().bench;
    const std::uint64_t now = bench.now();
    if (time <= now) return;
    const bool long_pause = time - now > kLongestPause;
    if (long_pause) {
        listen();
        bench.capture_sound(false);
    }
    bench.advance_clock(time - now);
    if (long_pause) bench.capture_sound(true);
}

bool Mirror::insert_disc(const char *name) {
    return !is_disc_device(name) && machine().bench.insert_disc(name);
}

Picture Mirror::picture() {
    Picture picture;
    const Screen &screen = virtual_.screen();
    std::copy(screen.hardware_palette().begin(), screen.hardware_palette().end(), picture.palette.begin());
    for (const auto &window : screen.windows())
        picture.panes.push_back({window->width, window->height, window->pixels});
    return picture;
}

std::uint32_t Mirror::picture_check() {
    const Screen &screen = virtual_.screen();
    bool changed = !std::exchange(looked_, true) || windows_ != screen.windows().size();
    windows_ = screen.windows().size();
    for (const auto &window : screen.windows()) changed |= std::exchange(window->changed, false);
    if (!changed) return picture_check_;
    picture_check_ = 0;
    std::array<std::uint8_t, 8> size{};
    std::vector<std::uint8_t> rgb;
    for (const auto &window : screen.windows()) {
        put_u32(size.data(), static_cast<std::uint32_t>(window->width));
        put_u32(size.data() + 4, static_cast<std::uint32_t>(window->height));
        rgb.resize(3 * window->pixels.size());
        screen.read_picture(*window, rgb.data());
        picture_check_ = check_value(rgb, check_value(size, picture_check_));
    }
    return picture_check_;
}

// Takes what was heard since it did so last.
void Mirror::listen() {
    std::array<std::int16_t, 4096> block;
    std::array<std::uint8_t, 2 * block.size()> bytes;
    while (const std::size_t frames = machine().bench.read_sound(block.data(), block.size() / 2)) {
        const std::size_t samples = 2 * frames;
        for (std::size_t i = 0; i < samples; ++i)
            put_u16(&bytes[2 * i], static_cast<std::uint16_t>(block[i]));
        sound_check_ = check_value(std::span(bytes).first(2 * samples), sound_check_);
        const auto end = block.begin() + static_cast<std::ptrdiff_t>(samples);
        try {
            if (keeping_) kept_.insert(kept_.end(), block.begin(), end);
            if (capturing_ && captured_.size() < kMostCaptured)
                captured_.insert(captured_.end(), block.begin(), end);
        } catch (const std::bad_alloc &) {
            keeping_ = capturing_ = false;
        }
    }
}

std::uint32_t Mirror::take_sound_check() {
    listen();
    return std::exchange(sound_check_, 0);
}

std::vector<std::int16_t> Mirror::take_sound() {
    return std::exchange(kept_, {});
}

void Mirror::capture(bool on) {
    listen();
    capturing_ = on;
    captured_.clear();
}

std::size_t Mirror::read(std::int16_t *stereo, std::size_t frames) {
    listen();
    const std::size_t samples = std::min(2 * frames, captured_.size());
    const auto end = captured_.begin() + static_cast<std::ptrdiff_t>(samples);
    std::copy(captured_.begin(), end, stereo);
    captured_.erase(captured_.begin(), end);
    return samples / 2;
}

}  // namespace ink::host
