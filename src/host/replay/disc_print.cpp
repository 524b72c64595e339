#include "host/replay/disc_print.h"

#include <cstdint>
#include <cstdio>
#include <string_view>

#include "host/disc/disc.h"
#include "host/disc/disc_device.h"
#include "host/replay/record_file.h"

namespace ink::host {

std::string disc_print(const char *name) {
    constexpr std::uint32_t kSamples = 16;  // sectors of a track
    if (name == nullptr || *name == '\0') return {};
    const auto disc = DiscContents::open(name);
    if (!disc) return {};
    const std::string_view whole = name;
    std::string print(whole.substr(whole.find_last_of("/\\") + 1));
    const bool device = is_disc_device(name);
    for (const DiscContents::Track &track : disc->tracks()) {
        print += " " + std::to_string(track.start) + "+" + std::to_string(track.length);
        if (device) continue;
        std::uint32_t check = 0;
        Sector sector{};
        for (std::uint64_t i = 0; i < kSamples; ++i)
            if (disc->read(track.start + static_cast<std::uint32_t>(i * track.length / kSamples), sector))
                check = check_value(sector, check);
        char digits[16];
        std::snprintf(digits, sizeof digits, ":%08lx", static_cast<unsigned long>(check));
        print += digits;
    }
    return print;
}

}  // namespace ink::host
