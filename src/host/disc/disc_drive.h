// The disc drive of a machine made in software: plays the audio tracks of a disc into the mix.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "host/disc/disc.h"
#include "host/host.h"
#include "host/sound/playback.h"

namespace ink::host {

class DiscDrive final : public Disc {
  public:
    explicit DiscDrive(Playback &playback) : playback_(playback) {}

    // Takes out the disc that is in the drive, which ends its playing, and puts in another one. False when
    // there is no such disc; the drive is left as it was.
    bool insert(const char *name);
    void eject();

    bool open() override;
    bool close() override;
    bool stop() override;
    bool set_time_format(DiscTime format) override;
    bool track_count(std::int32_t &count) override;
    bool track_length(std::int32_t track, std::uint32_t &packed_msf) override;
    bool mode(DiscMode &mode) override;
    // Positions of both formats may lie in any track. A frames field beyond 74, the last frame of a second,
    // stands for 74. A range that ends before it begins is empty and is over at once.
    bool play(std::uint32_t from, std::uint32_t to) override;

    // Adds the next frames of what plays to the mix, or passes over them. For whoever holds the present.
    void mix(std::int32_t *stereo, std::size_t frames);
    void skip(std::uint64_t frames);

  private:
    // Puts the disc into the place of the one that is in the drive.
    void change(std::unique_ptr<DiscContents> disc);
    bool ready() const { return open_ && disc_ != nullptr; }
    bool sector_at(std::uint32_t position, std::uint32_t &sector) const;
    void end_when_reached();

    Playback &playback_;
    std::unique_ptr<DiscContents> disc_;
    bool open_ = false, playing_ = false;
    DiscTime format_ = DiscTime::msf;
    std::uint64_t at_ = 0, end_ = 0;  // frames of sound from the disc's start
    Sector sector_{};                 // the one read last
    std::uint64_t sector_number_ = 0;
    bool sector_read_ = false;
};

}  // namespace ink::host
