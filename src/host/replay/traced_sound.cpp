#include "host/replay/traced_sound.h"

#include <algorithm>
#include <limits>
#include <new>

namespace ink::host {
namespace {

void copy(std::span<const std::uint8_t> from, const Sound::Locked &to) {
    const std::size_t first = std::min(from.size(), to.first.size());
    std::copy_n(from.begin(), first, to.first.begin());
    std::copy_n(from.begin() + static_cast<std::ptrdiff_t>(first),
                std::min(from.size() - first, to.second.size()), to.second.begin());
}

}  // namespace

TracedSound::Buffer &TracedSound::find(SoundBuffer buffer) {
    const auto number = static_cast<std::size_t>(buffer);
    return number >= 1 && number <= buffers_.size() ? buffers_[number - 1] : none_;
}

template <class Operation>
bool TracedSound::carry_out(Kind kind, SoundBuffer handle, Operation operation) {
    const Buffer &buffer = find(handle);
    const bool allowed =
        tape_.allows(kind, [&](Machine &machine) { return operation(machine.sound, buffer.real); });
    operation(tape_.mirror().machine().sound, buffer.mirrored);
    return allowed;
}

bool TracedSound::create() {
    tape_.mirror().machine().sound.create();
    return tape_.allows(Kind::create_sound, [](Machine &machine) { return machine.sound.create(); });
}

bool TracedSound::set_cooperative_level(HWND window) {
    return tape_.allows(Kind::cooperative_level, [&](Machine &machine) {
        return machine.sound.set_cooperative_level(tape_.real(window));
    });
}

void TracedSound::release() {
    tape_.mirror().machine().sound.release();
    if (tape_.behind() != nullptr) tape_.behind()->sound.release();
}

SoundBuffer TracedSound::create_buffer(const WaveFormat &format, std::uint32_t bytes) try {
    Buffer made;
    made.memory.resize(bytes);
    buffers_.reserve(buffers_.size() + 1);
    const bool allowed = tape_.allows(Kind::create_buffer, [&](Machine &machine) {
        made.real = machine.sound.create_buffer(format, bytes);
        return made.real != SoundBuffer::none;
    });
    if (!allowed) return SoundBuffer::none;
    made.mirrored = tape_.mirror().machine().sound.create_buffer(format, bytes);
    buffers_.push_back(std::move(made));
    return static_cast<SoundBuffer>(buffers_.size());
} catch (const std::bad_alloc &) {
    return SoundBuffer::none;
}

void TracedSound::release_buffer(SoundBuffer handle) {
    Buffer &buffer = find(handle);
    tape_.mirror().machine().sound.release_buffer(buffer.mirrored);
    if (tape_.behind() != nullptr) tape_.behind()->sound.release_buffer(buffer.real);
    buffer = Buffer();
}

Sound::LockResult TracedSound::lock(SoundBuffer handle, Locked &whole) {
    Buffer &buffer = find(handle);
    const Answer answer = tape_.ask(Kind::lock_buffer, [&](Machine &machine, Answer &told) {
        told.values[0] = static_cast<std::int64_t>(machine.sound.lock(buffer.real, buffer.locked));
    });
    const std::size_t half = buffer.memory.size() / 2;
    whole = {std::span(buffer.memory).first(half), std::span(buffer.memory).subspan(half)};
    return answer.values[0] == 0   ? LockResult::ok
           : answer.values[0] == 1 ? LockResult::lost
                                   : LockResult::failed;
}

bool TracedSound::unlock(SoundBuffer handle, const Locked &) {
    Buffer &buffer = find(handle);
    Sound &mirror = tape_.mirror().machine().sound;
    Locked whole;
    if (mirror.lock(buffer.mirrored, whole) == LockResult::ok) {
        copy(buffer.memory, whole);
        mirror.unlock(buffer.mirrored, whole);
    }
    return tape_.allows(Kind::unlock_buffer, [&](Machine &machine) {
        copy(buffer.memory, buffer.locked);
        return machine.sound.unlock(buffer.real, std::exchange(buffer.locked, {}));
    });
}

bool TracedSound::restore(SoundBuffer handle) {
    return carry_out(Kind::restore_buffer, handle,
                     [](Sound &sound, SoundBuffer buffer) { return sound.restore(buffer); });
}

std::optional<bool> TracedSound::playing(SoundBuffer handle) {
    constexpr std::int64_t kUnknown = 2;
    const Answer answer = tape_.ask(Kind::buffer_status, [&](Machine &machine, Answer &told) {
        const auto playing = machine.sound.playing(find(handle).real);
        told.values[0] = playing ? std::int64_t{*playing} : kUnknown;
    });
    return answer.values[0] != kUnknown ? std::optional(answer.values[0] != 0) : std::nullopt;
}

bool TracedSound::play(SoundBuffer handle, bool looping) {
    return carry_out(Kind::play_buffer, handle,
                     [&](Sound &sound, SoundBuffer buffer) { return sound.play(buffer, looping); });
}

bool TracedSound::stop(SoundBuffer handle) {
    return carry_out(Kind::stop_buffer, handle,
                     [](Sound &sound, SoundBuffer buffer) { return sound.stop(buffer); });
}

bool TracedSound::set_position(SoundBuffer handle, std::uint32_t byte) {
    return carry_out(Kind::buffer_position, handle,
                     [&](Sound &sound, SoundBuffer buffer) { return sound.set_position(buffer, byte); });
}

bool TracedSound::set_volume(SoundBuffer handle, std::int32_t volume) {
    return carry_out(Kind::buffer_volume, handle,
                     [&](Sound &sound, SoundBuffer buffer) { return sound.set_volume(buffer, volume); });
}

// ---- The drive ----

template <class Operation>
bool TracedDisc::carry_out(Kind kind, Operation operation) {
    const bool allowed = tape_.allows(kind, [&](Machine &machine) { return operation(machine.disc); });
    operation(tape_.mirror().machine().disc);
    return allowed;
}

bool TracedDisc::open() {
    return carry_out(Kind::open_disc, [](Disc &disc) { return disc.open(); });
}

bool TracedDisc::close() {
    return carry_out(Kind::close_disc, [](Disc &disc) { return disc.close(); });
}

bool TracedDisc::stop() {
    return carry_out(Kind::stop_disc, [](Disc &disc) { return disc.stop(); });
}

bool TracedDisc::set_time_format(DiscTime format) {
    return carry_out(Kind::disc_time_format, [&](Disc &disc) { return disc.set_time_format(format); });
}

bool TracedDisc::track_count(std::int32_t &count) {
    const Answer answer = tape_.ask(Kind::disc_track_count, [&](Machine &machine, Answer &told) {
        std::int32_t counted = 0;
        told.values[0] = machine.disc.track_count(counted);
        told.values[1] = counted;
    });
    if (answer.values[0] != 0) count = static_cast<std::int32_t>(answer.values[1]);
    return answer.values[0] != 0;
}

bool TracedDisc::track_length(std::int32_t track, std::uint32_t &packed_msf) {
    const Answer answer = tape_.ask(Kind::disc_track_length, [&](Machine &machine, Answer &told) {
        std::uint32_t length = 0;
        told.values[0] = machine.disc.track_length(track, length);
        told.values[1] = length;
    });
    if (answer.values[0] != 0) packed_msf = static_cast<std::uint32_t>(answer.values[1]);
    return answer.values[0] != 0;
}

bool TracedDisc::mode(DiscMode &mode) {
    const Answer answer = tape_.ask(Kind::disc_mode, [](Machine &machine, Answer &told) {
        DiscMode found = DiscMode::not_ready;
        told.values[0] = machine.disc.mode(found);
        told.values[1] = static_cast<std::int64_t>(found);
    });
    if (answer.values[0] != 0) mode = static_cast<DiscMode>(answer.values[1]);
    return answer.values[0] != 0;
}

bool TracedDisc::play(std::uint32_t from, std::uint32_t to) {
    return carry_out(Kind::play_disc, [&](Disc &disc) { return disc.play(from, to); });
}

}  // namespace ink::host
