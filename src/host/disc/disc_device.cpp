#include "host/disc/disc_device.h"

#if defined(__linux__)

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace ink::host {
namespace {

class DiscDevice final : public DiscContents {
  public:
    explicit DiscDevice(const char *name) : device_(::open(name, O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    DiscDevice(const DiscDevice &) = delete;
    DiscDevice &operator=(const DiscDevice &) = delete;
    ~DiscDevice() override {
        if (device_ >= 0) close(device_);
    }

    // False when the drive cannot be opened or has no disc that could be understood. Throws std::bad_alloc.
    bool read_contents() {
        if (device_ < 0) return false;
        cdrom_tochdr header{};
        if (ioctl(device_, CDROMREADTOCHDR, &header) != 0 || header.cdth_trk1 < header.cdth_trk0)
            return false;
        // The lead-out, where the last track ends, comes after it.
        for (int number = header.cdth_trk0; number <= header.cdth_trk1 + 1; ++number) {
            cdrom_tocentry entry{};
            entry.cdte_track = static_cast<__u8>(number > header.cdth_trk1 ? CDROM_LEADOUT : number);
            entry.cdte_format = CDROM_LBA;
            if (ioctl(device_, CDROMREADTOCENTRY, &entry) != 0 || entry.cdte_addr.lba < 0) return false;
            const auto start = static_cast<std::uint32_t>(entry.cdte_addr.lba);
            if (tracks_.empty()) origin_ = start;
            if (start < (tracks_.empty() ? origin_ : origin_ + tracks_.back().start)) return false;
            if (!tracks_.empty()) tracks_.back().length = start - origin_ - tracks_.back().start;
            if (number > header.cdth_trk1) break;
            tracks_.push_back({start - origin_, 0});
            audio_.push_back((entry.cdte_ctrl & CDROM_DATA_TRACK) == 0);
        }
        return true;
    }

    bool read(std::uint32_t sector, Sector &sound) override {
        if (sector < first_ || sector - first_ >= held_) fetch(sector);
        if (sector >= first_ && sector - first_ < held_)
            sound = sectors_[sector - first_];
        else
            sound.fill(0);
        return true;
    }

  private:
    bool is_audio(std::uint32_t sector) const {
        const auto after = std::find_if(tracks_.begin(), tracks_.end(),
                                        [=](const Track &track) { return track.start > sector; });
        return after != tracks_.begin() && audio_[static_cast<std::size_t>(after - tracks_.begin() - 1)];
    }
    // Drives give many sectors at once far faster than one by one.
    void fetch(std::uint32_t sector) {
        held_ = 0;
        if (sector >= end() || !is_audio(sector)) return;
        cdrom_read_audio request{};
        request.addr.lba = static_cast<int>(origin_ + sector);
        request.addr_format = CDROM_LBA;
        request.nframes = static_cast<int>(std::min<std::size_t>(sectors_.size(), end() - sector));
        request.buf = sectors_.front().data();
        if (ioctl(device_, CDROMREADAUDIO, &request) != 0) return;
        first_ = sector;
        held_ = static_cast<std::uint32_t>(request.nframes);
    }

    int device_;
    std::uint32_t origin_ = 0;  // the first track's start, as the drive counts
    std::vector<bool> audio_;   // by track
    std::array<Sector, 25> sectors_;
    std::uint32_t first_ = 0, held_ = 0;  // the sectors fetched last
};

}  // namespace

bool is_disc_device(const char *name) {
    struct stat status {};
    return stat(name, &status) == 0 && S_ISBLK(status.st_mode);
}

std::unique_ptr<DiscContents> open_disc_device(const char *name) {
    auto disc = std::make_unique<DiscDevice>(name);
    if (!disc->read_contents()) return nullptr;
    return disc;
}

}  // namespace ink::host

#else

namespace ink::host {

bool is_disc_device(const char *) {
    return false;
}

std::unique_ptr<DiscContents> open_disc_device(const char *) {
    return nullptr;
}

}  // namespace ink::host

#endif
