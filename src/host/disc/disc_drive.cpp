#include "host/disc/disc_drive.h"

#include <algorithm>
#include <new>
#include <utility>

#include "core/reader.h"
#include "host/disc/read_ahead.h"

namespace ink::host {
namespace {

// A disc begins two seconds before its first track, and its times count from there.
constexpr std::uint32_t kLeadIn = 2 * kSectorsPerSecond;

std::uint32_t field(std::uint32_t packed, unsigned index) {
    return packed >> (8 * index) & 0xFF;
}

std::uint32_t sectors(std::uint32_t minutes, std::uint32_t seconds, std::uint32_t frames) {
    return (minutes * 60 + seconds) * kSectorsPerSecond + std::min(frames, kSectorsPerSecond - 1);
}

}  // namespace

bool DiscDrive::insert(const char *name) try {
    std::unique_ptr<DiscContents> disc = DiscContents::open(name);
    if (disc && playback_.in_real_time()) disc = read_ahead(std::move(disc));
    if (!disc) return false;
    change(std::move(disc));
    return true;
} catch (const std::bad_alloc &) {
    return false;
}

void DiscDrive::eject() {
    change(nullptr);
}

void DiscDrive::change(std::unique_ptr<DiscContents> disc) {
    const auto held = playback_.present();
    disc_.swap(disc);
    playing_ = false;
}

bool DiscDrive::open() {
    if (open_) return false;
    playback_.start();
    return open_ = true;
}

bool DiscDrive::close() {
    if (!open_) return false;
    const auto held = playback_.present();
    playing_ = open_ = false;
    return true;
}

bool DiscDrive::stop() {
    if (!open_) return false;
    const auto held = playback_.present();
    playing_ = false;
    return true;
}

bool DiscDrive::set_time_format(DiscTime format) {
    if (!open_) return false;
    format_ = format;
    return true;
}

bool DiscDrive::track_count(std::int32_t &count) {
    if (!ready()) return false;
    count = static_cast<std::int32_t>(disc_->tracks().size());
    return true;
}

bool DiscDrive::track_length(std::int32_t track, std::uint32_t &packed_msf) {
    if (!ready()) return false;
    if (track < 1 || static_cast<std::size_t>(track) > disc_->tracks().size()) return false;
    const std::uint32_t length = disc_->tracks()[static_cast<std::size_t>(track - 1)].length;
    const std::uint32_t seconds = length / kSectorsPerSecond;
    packed_msf = seconds / 60 | seconds % 60 << 8 | length % kSectorsPerSecond << 16;
    return true;
}

bool DiscDrive::mode(DiscMode &mode) {
    if (!open_) return false;
    const auto held = playback_.present();
    mode = disc_ == nullptr ? DiscMode::not_ready : playing_ ? DiscMode::playing : DiscMode::stopped;
    return true;
}

bool DiscDrive::play(std::uint32_t from, std::uint32_t to) {
    if (!ready()) return false;
    std::uint32_t first = 0, end = 0;
    if (!sector_at(from, first) || !sector_at(to, end)) return false;
    const auto held = playback_.present();
    at_ = std::uint64_t{first} * kFramesPerSector;
    end_ = std::uint64_t{std::min(end, disc_->end())} * kFramesPerSector;
    playing_ = true;
    sector_read_ = false;
    end_when_reached();
    return true;
}

// The sector, counted from the first track's start, of a position in the time format set last.
bool DiscDrive::sector_at(std::uint32_t position, std::uint32_t &sector) const {
    if (format_ == DiscTime::msf) {
        sector =
            std::max(sectors(field(position, 0), field(position, 1), field(position, 2)), kLeadIn) - kLeadIn;
        return true;
    }
    // Track 256 does not fit into a byte, and there is no track 0.
    const std::uint32_t track = field(position, 0) != 0 ? field(position, 0) : 256;
    if (track > disc_->tracks().size()) return false;
    sector = disc_->tracks()[track - 1].start +
             sectors(field(position, 1), field(position, 2), field(position, 3));
    return true;
}

void DiscDrive::end_when_reached() {
    if (at_ >= end_) playing_ = false;
}

void DiscDrive::mix(std::int32_t *stereo, std::size_t frames) {
    for (; playing_ && frames > 0; --frames, stereo += 2) {
        const std::uint64_t number = at_ / kFramesPerSector;
        if (!sector_read_ || number != sector_number_)
            sector_read_ = disc_->read(static_cast<std::uint32_t>(number), sector_);
        if (!sector_read_) return;  // a drive that starts up is silent and stays where it is
        sector_number_ = number;
        const std::uint8_t *frame = &sector_[static_cast<std::size_t>(4 * (at_ % kFramesPerSector))];
        stereo[0] += static_cast<std::int16_t>(get_u16(frame));
        stereo[1] += static_cast<std::int16_t>(get_u16(frame + 2));
        ++at_;
        end_when_reached();
    }
}

void DiscDrive::skip(std::uint64_t frames) {
    if (!playing_) return;
    at_ += frames;
    end_when_reached();
}

}  // namespace ink::host
