// The hosts built into the library, and the choice among them.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <new>
#include <string>

#include "host/host.h"
#include "host/replay/player.h"
#include "host/replay/recorder.h"
#include "host/watched_machine.h"

namespace ink::host {

// One line for each host built into the library, the preferred one first.
#define INK_HOST(name) extern const Host name##_host;
#include "host/hosts.inc"
#undef INK_HOST

namespace {

constexpr const Host *kHosts[] = {
#define INK_HOST(name) &name##_host,
#include "host/hosts.inc"
#undef INK_HOST
};

HOST_OBSERVER observer = nullptr;
Machine *opened = nullptr;   // the machine itself
Machine *traced = nullptr;   // that, or the one in front of it that records or replays
Machine *watched = nullptr;  // the one that stands in front of both, once there was an observer
Machine *current = nullptr;  // the one of these that the library calls

// While nobody watches nothing stands between the library and the machine.
void place_watch() {
    if (observer != nullptr && watched == nullptr) watched = &watch(*traced, observer);
    current = observer != nullptr ? watched : traced;
}

void place(Machine *machine) {
    traced = machine;
    watched = nullptr;
    place_watch();
}

bool begin_replay(const char *file) {
    std::string reason;
    Machine *machine = replay(*traced, file, reason);
    if (machine == nullptr)
        std::fprintf(stderr, "replay: %s cannot be replayed: %s\n", file, reason.c_str());
    else
        place(machine);
    return machine != nullptr;
}

bool begin_record(const char *file) {
    Machine *machine = record(*traced, file);
    if (machine == nullptr)
        std::fprintf(stderr, "record: %s cannot be recorded\n", file);
    else
        place(machine);
    return machine != nullptr;
}

// A program that was to be recorded or replayed does not run otherwise.
void obey(const char *variable, bool (*begin)(const char *)) {
    const char *file = std::getenv(variable);
    if (file != nullptr && *file != '\0' && !begin(file)) std::exit(1);
}

bool start(const Host &host) try {
    opened = host.open();
    if (opened == nullptr) return false;
    place(opened);
    obey("INKSTONE_REPLAY", begin_replay);
    obey("INKSTONE_RECORD", begin_record);
    return true;
} catch (const std::bad_alloc &) {
    return false;
}

bool start(const char *name) {
    for (const Host *host : kHosts)
        if (std::strcmp(host->name, name) == 0) return start(*host);
    return false;
}

// Apart from the way that the pump takes, which it would burden.
[[gnu::noinline]] Machine &start_preferred() {
    // A machine that was asked for and cannot be had gives way to the next one that can: the last always can.
    const char *wanted = std::getenv("INKSTONE_HOST");
    if (wanted != nullptr && start(wanted)) return *current;
    for (const Host *host : kHosts)
        if (start(*host)) return *current;
    std::fputs("SystemError: there is no memory for a machine\n", stderr);
    std::exit(1);
}

}  // namespace

Machine &machine() {
    return current != nullptr ? *current : start_preferred();
}

}  // namespace ink::host

namespace host = ink::host;

int32_t HOST_choose(const char *name) {
    if (name == nullptr) return -2;
    if (host::opened != nullptr) return std::strcmp(host::opened->name, name) == 0 ? 0 : -2;
    return host::start(name) ? 0 : -2;
}

const char *HOST_name(void) {
    return host::machine().name;
}

int32_t HOST_list(int32_t index, const char **name, const char **description) {
    if (index < 0 || static_cast<std::size_t>(index) >= std::size(host::kHosts)) return -2;
    const host::Host &record = *host::kHosts[index];
    if (name != nullptr) *name = record.name;
    if (description != nullptr) *description = record.description;
    return 0;
}

int32_t HOST_record(const char *file) try {
    if (file == nullptr) return host::end_record() ? 0 : -2;
    host::machine();
    return host::begin_record(file) ? 0 : -2;
} catch (const std::bad_alloc &) {
    return -2;
}

int32_t HOST_replay(const char *file) try {
    if (file == nullptr) return -2;
    host::machine();
    return host::begin_replay(file) ? 0 : -2;
} catch (const std::bad_alloc &) {
    return -2;
}

int32_t HOST_replay_state(int32_t *seconds, int32_t *first_difference) {
    host::ReplayState state;
    if (!host::replay_state(state)) return -2;
    if (seconds != nullptr) *seconds = state.seconds;
    if (first_difference != nullptr) *first_difference = state.first_difference;
    return 0;
}

void HOST_observe(HOST_OBSERVER observer) try {
    host::observer = observer;
    if (host::opened != nullptr) host::place_watch();
} catch (const std::bad_alloc &) {
    // Nobody is told anything.
}
