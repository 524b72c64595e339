// A drive for audio discs that is none: the name of a device and what its driver answers, in place of the system's.
#pragma once

#include <cstdint>
#include <vector>

namespace test {

struct FakeDisc {
    struct Track {
        std::int32_t start;  // as the drive counts its sectors
        bool data = false;
    };
    std::vector<Track> tracks;
    std::int32_t lead_out = 0;     // where the last track ends
    std::int32_t refused_at = -1;  // the question, counted from 0, that fails
    std::int32_t unreadable = -1;  // a sector that cannot be read
    // What the drive was asked to read: the first sector, and how many.
    std::vector<std::int32_t> reads = {};
};

// While one is there, kDriveName is a drive with that disc, whose sound says in every frame where it lies: the sector as the
// drive counts on the left, the frame on the right.
constexpr const char *kDriveName = "/dev/a drive of the tests";

class FakeDrive {
  public:
    explicit FakeDrive(FakeDisc &disc);
    ~FakeDrive();
    FakeDrive(const FakeDrive &) = delete;
    FakeDrive &operator=(const FakeDrive &) = delete;

    // How many of the files are open that its name was opened as.
    static int open_files();
};

// Whether drives can be stood in for here.
#if defined(__linux__) && defined(__GLIBC__)
inline constexpr bool kDrivesCanBeFaked = true;
#else
inline constexpr bool kDrivesCanBeFaked = false;
#endif

}  // namespace test
