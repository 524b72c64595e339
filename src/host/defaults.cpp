// The answers of a machine that makes no characters of keys, has no boxes and no time of day of its own.
#include <cstdio>
#include <ctime>

#include "host/host.h"

namespace ink::host {

// Out of the way of the pump, which calls it between two operations that are the machine's own.
void Messages::translate(const Message &) {}

void Messages::message_box(HWND, const char *text, const char *caption, std::uint32_t) {
    std::fprintf(stderr, "%s: %s\n", caption, text);
}

std::tm System::local_time() {
    std::tm time{};
    const std::time_t now = std::time(nullptr);
#if defined(_WIN32)
    localtime_s(&time, &now);
#else
    localtime_r(&now, &time);
#endif
    return time;
}

}  // namespace ink::host
