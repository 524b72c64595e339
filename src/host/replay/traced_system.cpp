#include "host/replay/traced_system.h"

#include <algorithm>
#include <new>

#include "host/replay/disc_print.h"

namespace ink::host {
namespace {

// Where the fields of a time may lie: a record is a file that anybody can have written.
struct Field {
    int std::tm::*field;
    int least, most;
};
constexpr Field kFields[] = {
    {&std::tm::tm_sec, 0, 60},  {&std::tm::tm_min, 0, 59},   {&std::tm::tm_hour, 0, 23},
    {&std::tm::tm_mday, 1, 31}, {&std::tm::tm_mon, 0, 11},   {&std::tm::tm_year, -1900, 1'000'000},
    {&std::tm::tm_wday, 0, 6},  {&std::tm::tm_yday, 0, 365}, {&std::tm::tm_isdst, -1, 1},
};
static_assert(std::size(kFields) == Answer::kMostValues);

}  // namespace

// ---- The pointer ----

// The handles that the program has of shapes are the mirror's: their numbers.
void TracedPointer::set_cursor(HCURSOR cursor) {
    constexpr std::uintptr_t kLastShape = 0xFFFF;
    mirror().set_cursor(cursor);
    if (tape_.behind() == nullptr) return;
    Pointer &behind = tape_.behind()->pointer;
    const auto shape = reinterpret_cast<std::uintptr_t>(cursor);
    behind.set_cursor(shape != 0 && shape <= kLastShape ? behind.load_cursor(static_cast<std::int32_t>(shape))
                                                        : cursor);
}

void TracedPointer::show_cursor(bool show) {
    mirror().show_cursor(show);
    if (tape_.behind() != nullptr) tape_.behind()->pointer.show_cursor(show);
}

Point TracedPointer::client_to_screen(HWND window, Point point) {
    const Answer answer = tape_.ask(Kind::client_to_screen, [&](Machine &machine, Answer &told) {
        const Point screen = machine.pointer.client_to_screen(tape_.real(window), point);
        told.values[0] = screen.x;
        told.values[1] = screen.y;
    });
    return {static_cast<std::int32_t>(answer.values[0]), static_cast<std::int32_t>(answer.values[1])};
}

// Whoever watches a replay keeps his pointer where it is.
void TracedPointer::set_cursor_position(Point screen) {
    if (tape_.records()) tape_.behind()->pointer.set_cursor_position(screen);
}

// ---- The system ----

std::tm TracedSystem::local_time() {
    const Answer answer = tape_.ask(Kind::local_time, [](Machine &machine, Answer &told) {
        const std::tm time = machine.system.local_time();
        for (std::size_t i = 0; i < std::size(kFields); ++i) told.values[i] = time.*kFields[i].field;
    });
    std::tm time{};
    for (std::size_t i = 0; i < std::size(kFields); ++i)
        time.*kFields[i].field =
            static_cast<int>(std::clamp<std::int64_t>(answer.values[i], kFields[i].least, kFields[i].most));
    return time;
}

std::optional<std::string> TracedSystem::setting(const char *name) try {
    const Answer answer = tape_.ask(Kind::setting, [&](Machine &machine, Answer &told) {
        const auto value = machine.system.setting(name);
        told.values[0] = value.has_value();
        if (value) told.text = value->substr(0, AnswerModel::kLongestText);
    });
    return answer.values[0] != 0 ? std::optional(answer.text) : std::nullopt;
} catch (const std::bad_alloc &) {
    return std::nullopt;
}

bool TracedSystem::is_cdrom(std::int32_t drive) {
    return tape_.allows(Kind::is_cdrom, [&](Machine &machine) { return machine.system.is_cdrom(drive); });
}

// ---- The bench ----

std::uint64_t TracedBench::clock() {
    const Answer answer = tape_.ask(Kind::clock, [](Machine &machine, Answer &told) {
        told.values[0] = static_cast<std::int64_t>(machine.bench.clock());
    });
    return static_cast<std::uint64_t>(answer.values[0]);
}

void TracedBench::advance_clock(std::uint64_t microseconds) {
    act([&](Bench &bench) { bench.advance_clock(microseconds); });
}

void TracedBench::set_timer_resolution(std::uint32_t milliseconds) {
    act([&](Bench &bench) { bench.set_timer_resolution(milliseconds); });
}

void TracedBench::set_local_time(const DateTime &time) {
    act([&](Bench &bench) { bench.set_local_time(time); });
}

void TracedBench::set_setting(const char *name, const char *value) {
    act([&](Bench &bench) { bench.set_setting(name, value); });
}

void TracedBench::key(std::int32_t scan_code, bool down) {
    act([&](Bench &bench) { bench.key(scan_code, down); });
}

void TracedBench::pointer_move(std::int32_t x, std::int32_t y) {
    act([&](Bench &bench) { bench.pointer_move(x, y); });
}

void TracedBench::pointer_button(std::int32_t button, std::int32_t down) {
    act([&](Bench &bench) { bench.pointer_button(button, down); });
}

bool TracedBench::window_size(HWND window, std::int32_t &width, std::int32_t &height) {
    return mirror().window_size(tape_.mirrored(window), width, height);
}

bool TracedBench::read_indices(HWND window, std::uint8_t *indices) {
    return mirror().read_indices(tape_.mirrored(window), indices);
}

bool TracedBench::read_picture(HWND window, std::uint8_t *rgb) {
    return mirror().read_picture(tape_.mirrored(window), rgb);
}

bool TracedBench::insert_disc(const char *name) try {
    const std::string print = disc_print(name);
    const Answer answer = tape_.ask(Kind::insert_disc, [&](Machine &machine, Answer &told) {
        told.values[0] = machine.bench.insert_disc(name);
        if (tape_.records()) told.text = print.substr(0, AnswerModel::kLongestText);
    });
    tape_.compare_disc(answer.text, print);
    if (answer.values[0] != 0) tape_.mirror().insert_disc(name);
    return answer.values[0] != 0;
} catch (const std::bad_alloc &) {
    return false;
}

void TracedBench::eject_disc() {
    mirror().eject_disc();
    if (tape_.behind() != nullptr) tape_.behind()->bench.eject_disc();
}

}  // namespace ink::host
