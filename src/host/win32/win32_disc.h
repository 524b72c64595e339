// The drive for audio discs: the system's own, through its media control interface, unless a disc image was
// put into the one made in software.
#pragma once

#include "host/disc/disc_drive.h"
#include "host/host.h"

namespace ink::host {

class MciDrive final : public Disc {
  public:
    bool open() override;
    bool close() override;
    bool stop() override;
    bool set_time_format(DiscTime format) override;
    bool track_count(std::int32_t &count) override;
    bool track_length(std::int32_t track, std::uint32_t &packed_msf) override;
    bool mode(DiscMode &mode) override;
    bool play(std::uint32_t from, std::uint32_t to) override;

  private:
    std::uint32_t device_ = 0;
};

// Which of the two drives answers is decided when it is opened.
class Win32Disc final : public Disc {
  public:
    explicit Win32Disc(DiscDrive &images) : images_(images) {}

    bool insert(const char *name) { return has_image_ = images_.insert(name) || has_image_; }
    void eject() {
        images_.eject();
        has_image_ = false;
    }

    bool open() override {
        drive_ = has_image_ ? static_cast<Disc *>(&images_) : &mci_;
        return drive_->open();
    }
    bool close() override { return drive_->close(); }
    bool stop() override { return drive_->stop(); }
    bool set_time_format(DiscTime format) override { return drive_->set_time_format(format); }
    bool track_count(std::int32_t &count) override { return drive_->track_count(count); }
    bool track_length(std::int32_t track, std::uint32_t &packed_msf) override {
        return drive_->track_length(track, packed_msf);
    }
    bool mode(DiscMode &mode) override { return drive_->mode(mode); }
    bool play(std::uint32_t from, std::uint32_t to) override { return drive_->play(from, to); }

  private:
    DiscDrive &images_;
    MciDrive mci_;
    Disc *drive_ = &mci_;
    bool has_image_ = false;
};

}  // namespace ink::host
