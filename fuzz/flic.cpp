// Plays every frame of any file, the first byte choosing the size of the destination.
#include "inkstone/flic.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "scratch.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static std::vector<std::uint8_t> screens[] = {std::vector<std::uint8_t>(640 * 480),
                                                  std::vector<std::uint8_t>(320 * 200)};
    // Unknown chunks ring the bell.
    [[maybe_unused]] static const bool quiet = std::freopen("/dev/null", "w", stdout) != nullptr;
    if (size < 1) return 0;
    const int small = data[0] & 1;
    const char *name = fuzz::as_file(data + 1, size - 1);
    std::int32_t frames = std::min(FLIC_open_flic_file(name, small, screens[small].data()), 200);
    while (frames-- >= 0 && FLIC_read_flic_data() == 0) FLIC_play_flic_frame();
    FLIC_close_flic_file();
    // The next film starts with the palette of this one.
    std::vector<std::uint8_t> palette(768);
    FLIC_export_palette(palette.data());
    FLIC_inport_palette(palette.data());
    if (FLIC_open_flic_file("nothing", small, screens[small].data()) >= 0) std::abort();
    return 0;
}
