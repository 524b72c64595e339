// Any bytes as a palette file: the entries that the file has are read, and no others; written they come back.
#include "inkstone/palette.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "scratch.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    std::vector<std::uint8_t> palette(768, 0xEE), expected = palette, again = palette;
    const auto number = [&](std::size_t at) {
        return size >= 4 ? static_cast<std::int16_t>(data[at] | data[at + 1] << 8) : 0;
    };
    const int first = number(0), end = number(2);
    for (int at = std::max(first, 0) * 3; at < std::min(end, 256) * 3; ++at)
        if (const auto from = static_cast<std::size_t>(4 + at - first * 3); from < size)
            expected[static_cast<std::size_t>(at)] = data[from];
    PAL_read_palette(fuzz::as_file(data, size), palette.data());
    PAL_read_palette("nothing", palette.data());
    if (palette != expected) std::abort();
    PAL_save_palette(first, end, "saved", palette.data());
    if (first < 0 || first > end || end > 256) return 0;
    PAL_read_palette("saved", again.data());
    if (!std::equal(again.begin() + first * 3, again.begin() + end * 3, palette.begin() + first * 3))
        std::abort();
    return 0;
}
