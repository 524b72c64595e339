// The sound device and the disc drive of a machine that is recorded or replayed. What the machine behind says
// counts; what is heard is played by the mirror, too.
#pragma once

#include <vector>

#include "host/replay/tape.h"

namespace ink::host {

class TracedSound final : public Sound {
  public:
    explicit TracedSound(Tape &tape) : tape_(tape) {}

    bool create() override;
    bool set_cooperative_level(HWND window) override;
    void release() override;
    SoundBuffer create_buffer(const WaveFormat &format, std::uint32_t bytes) override;
    void release_buffer(SoundBuffer buffer) override;
    LockResult lock(SoundBuffer buffer, Locked &whole) override;
    bool unlock(SoundBuffer buffer, const Locked &whole) override;
    bool restore(SoundBuffer buffer) override;
    std::optional<bool> playing(SoundBuffer buffer) override;
    bool play(SoundBuffer buffer, bool looping) override;
    bool stop(SoundBuffer buffer) override;
    bool set_position(SoundBuffer buffer, std::uint32_t byte) override;
    bool set_volume(SoundBuffer buffer, std::int32_t volume) override;

  private:
    struct Buffer {
        SoundBuffer real = SoundBuffer::none, mirrored = SoundBuffer::none;
        // What the program fills, and what the machine behind takes it into.
        std::vector<std::uint8_t> memory;
        Locked locked;
    };

    Buffer &find(SoundBuffer buffer);
    // Whether the operation on a buffer was carried out; the mirror carries it out in any case.
    template <class Operation>
    bool carry_out(Kind kind, SoundBuffer buffer, Operation operation);

    Tape &tape_;
    std::vector<Buffer> buffers_;  // by their handles, which count from 1
    Buffer none_;
};

class TracedDisc final : public Disc {
  public:
    explicit TracedDisc(Tape &tape) : tape_(tape) {}

    bool open() override;
    bool close() override;
    bool stop() override;
    bool set_time_format(DiscTime format) override;
    bool track_count(std::int32_t &count) override;
    bool track_length(std::int32_t track, std::uint32_t &packed_msf) override;
    bool mode(DiscMode &mode) override;
    bool play(std::uint32_t from, std::uint32_t to) override;

  private:
    template <class Operation>
    bool carry_out(Kind kind, Operation operation);

    Tape &tape_;
};

}  // namespace ink::host
