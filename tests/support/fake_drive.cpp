#include "support/fake_drive.h"

#if defined(__linux__) && defined(__GLIBC__)
#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <bitset>
#include <cerrno>
#include <cstdarg>
#include <cstring>

namespace {

test::FakeDisc *disc = nullptr;
std::bitset<1024> opened;  // by the system's numbers, of which one may stand for another file by now
std::int32_t questions = 0;

bool is_the_drive(const char *name) {
    return disc != nullptr && std::strcmp(name, test::kDriveName) == 0;
}

int read_sound(const cdrom_read_audio &request) {
    const int first = request.addr.lba;
    if (request.addr_format != CDROM_LBA || request.nframes < 1) return errno = EINVAL, -1;
    disc->reads.insert(disc->reads.end(), {first, request.nframes});
    const auto track = std::find_if(disc->tracks.rbegin(), disc->tracks.rend(),
                                    [=](const auto &begun) { return begun.start <= first; });
    const bool there = track != disc->tracks.rend() && first + request.nframes <= disc->lead_out;
    if (!there || track->data) return errno = EIO, -1;
    if (disc->unreadable >= first && disc->unreadable < first + request.nframes) return errno = EIO, -1;
    std::uint8_t *to = request.buf;
    for (int sector = first; sector < first + request.nframes; ++sector)
        for (int frame = 0; frame < 588; ++frame)
            for (const int sample : {sector, frame}) {
                *to++ = static_cast<std::uint8_t>(sample);
                *to++ = static_cast<std::uint8_t>(sample >> 8);
            }
    return 0;
}

int answer(unsigned long request, void *argument) {
    if (questions++ == disc->refused_at) return errno = EIO, -1;
    switch (request) {
        case CDROMREADTOCHDR: {
            auto &header = *static_cast<cdrom_tochdr *>(argument);
            header.cdth_trk0 = 1;
            header.cdth_trk1 = static_cast<std::uint8_t>(disc->tracks.size());
            return 0;
        }
        case CDROMREADTOCENTRY: {
            auto &entry = *static_cast<cdrom_tocentry *>(argument);
            if (entry.cdte_format != CDROM_LBA) return errno = EINVAL, -1;
            const bool ends = entry.cdte_track == CDROM_LEADOUT;
            if (!ends && (entry.cdte_track < 1 || entry.cdte_track > disc->tracks.size()))
                return errno = EINVAL, -1;
            const test::FakeDisc::Track track =
                ends ? test::FakeDisc::Track{disc->lead_out} : disc->tracks[entry.cdte_track - 1U];
            entry.cdte_addr.lba = track.start;
            entry.cdte_ctrl = track.data ? CDROM_DATA_TRACK : 0;
            return 0;
        }
        case CDROMREADAUDIO: return read_sound(*static_cast<cdrom_read_audio *>(argument));
        default: return errno = EINVAL, -1;
    }
}

}  // namespace

// In place of the C library's, to whose other doors everything else goes on.
extern "C" {
[[gnu::visibility("default")]] int stat(const char *name, struct stat *status) noexcept {
    if (!is_the_drive(name)) return fstatat(AT_FDCWD, name, status, 0);
    *status = {};
    status->st_mode = S_IFBLK;
    return 0;
}

[[gnu::visibility("default")]] int open(const char *name, int flags, ...) {
    std::va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    if (!is_the_drive(name)) return openat(AT_FDCWD, name, flags, mode);
    const int file = openat(AT_FDCWD, "/dev/null", O_RDONLY | O_CLOEXEC);
    if (file >= 0) opened.set(static_cast<std::size_t>(file));
    questions = 0;
    return file;
}

[[gnu::visibility("default")]] int ioctl(int file, unsigned long request, ...) noexcept {
    std::va_list rest;
    va_start(rest, request);
    void *const argument = va_arg(rest, void *);
    va_end(rest);
    const bool asks_drive = disc != nullptr && file >= 0 && opened.test(static_cast<std::size_t>(file));
    return asks_drive ? answer(request, argument)
                      : static_cast<int>(syscall(SYS_ioctl, file, request, argument));
}
}

namespace test {

FakeDrive::FakeDrive(FakeDisc &there) {
    disc = &there;
    opened.reset();
}

FakeDrive::~FakeDrive() {
    disc = nullptr;
}

int FakeDrive::open_files() {
    int count = 0;
    struct stat nothing, status;
    fstatat(AT_FDCWD, "/dev/null", &nothing, 0);
    for (std::size_t file = 0; file < opened.size(); ++file)
        count +=
            opened[file] && fstat(static_cast<int>(file), &status) == 0 && status.st_rdev == nothing.st_rdev;
    return count;
}

}  // namespace test

#else

namespace test {

FakeDrive::FakeDrive(FakeDisc &) {}
FakeDrive::~FakeDrive() = default;
int FakeDrive::open_files() {
    return 0;
}

}  // namespace test

#endif
