// The hosts built into the library, and the choice among them.
#include <array>
#include <cstdlib>
#include <cstring>

#include "host/headless/headless.h"
#include "host/host.h"
#if defined(INKSTONE_HAS_SDL)
#include "host/sdl/sdl_host.h"
#endif

namespace ink::host {
namespace {

constexpr Host kHosts[] = {
#if defined(INKSTONE_HAS_SDL)
    {"sdl", "a window on the desktop, through SDL2", open_sdl},
#endif
    {"headless", "a simulated machine in memory with a clock of its own", open_headless},
};

Machine *running = nullptr;

Machine *start(const char *name) {
    for (const Host &host : kHosts)
        if (std::strcmp(host.name, name) == 0) return running = host.open();
    return nullptr;
}

}  // namespace

std::span<const Host> hosts() {
    return kHosts;
}

Machine &machine() {
    if (running != nullptr) return *running;
    // A machine that was asked for and cannot be had gives way to the next one that can: the last always can.
    const char *wanted = std::getenv("INKSTONE_HOST");
    if (wanted != nullptr && start(wanted) != nullptr) return *running;
    for (const Host &host : kHosts) {
        running = host.open();
        if (running != nullptr) break;
    }
    return *running;
}

}  // namespace ink::host

namespace host = ink::host;

int32_t HOST_choose(const char *name) {
    if (name == nullptr) return -2;
    if (host::running != nullptr) return std::strcmp(host::running->name, name) == 0 ? 0 : -2;
    return host::start(name) != nullptr ? 0 : -2;
}

const char *HOST_name(void) {
    return host::machine().name;
}

int32_t HOST_list(int32_t index, const char **name, const char **description) {
    const auto hosts = host::hosts();
    if (index < 0 || static_cast<std::size_t>(index) >= hosts.size()) return -2;
    const host::Host &record = hosts[static_cast<std::size_t>(index)];
    if (name != nullptr) *name = record.name;
    if (description != nullptr) *description = record.description;
    return 0;
}
