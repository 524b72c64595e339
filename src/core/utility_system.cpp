// Facts about the machine: the time of day, its character set, its drives.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <new>
#include <optional>
#include <string>

#include "core/random.h"
#include "host/host.h"
#include "inkstone/utility.h"

namespace {

constexpr char kDays[][4] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr char kMonths[][4] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                               "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::size_t kTimeSize = 26;
constexpr int kDrawsPerSecond = 100;
constexpr std::int32_t kDrives = 26;

ink::host::System &system_of_machine() {
    return ink::host::machine().system;
}

}  // namespace

void get_time(char *text) {
    if (text == nullptr) return;
    const std::tm now = system_of_machine().local_time();
    // Not strftime, whose names of days and months follow the game's locale.
    const auto digits = [](int value, unsigned limit) { return static_cast<unsigned>(value) % limit; };
    std::snprintf(text, kTimeSize, "%s %s %02u %02u:%02u:%02u %04u\n", kDays[now.tm_wday],
                  kMonths[now.tm_mon], digits(now.tm_mday, 100), digits(now.tm_hour, 100),
                  digits(now.tm_min, 100), digits(now.tm_sec, 100), digits(now.tm_year + 1900, 10000));
}

void run_random_init(void) {
    const int draws = system_of_machine().local_time().tm_sec * kDrawsPerSecond;
    for (int i = 0; i < draws; ++i) ink::random_number();
}

int32_t check_big5(void) try {
    std::optional<std::string> setting = system_of_machine().setting("CHINESBIG5(88)");
    if (!setting) return -2;
    for (char &c : *setting) c = static_cast<char>(char_lower(static_cast<std::uint8_t>(c)));
    return *setting == "yes" ? 0 : -2;
} catch (const std::bad_alloc &) {
    return -2;
}

int32_t get_cdrom_drive(void) {
    for (std::int32_t drive = 0; drive < kDrives; ++drive)
        if (system_of_machine().is_cdrom(drive)) return drive;
    return -1;
}
