// Any bytes as a script file: loaded, every procedure run, with a game whose commands read operands of every
// kind and now and then free, reload, replace or re-enter the script system. A window timer frees it after
// some thousand instructions, as a game's quit does, so no loop lasts.
#include <cstdlib>
#include <string>
#include <vector>

#include "inkstone/host.h"
#include "inkstone/mac.h"
#include "scratch.h"
#include "support/script.h"

namespace {

constexpr std::uint32_t kVariables = 40;
int commands = 0;
std::vector<char> saved;

std::int32_t command(std::uint8_t opcode);

void start() {
    MAC_init("", "nowhere", kVariables, command);
}

std::int32_t command(std::uint8_t opcode) {
    if (++commands > 2000) return -7;
    switch (opcode) {
        case 24: MAC_free(); return 0;
        case 25: return MAC_reload();
        case 26: start(); return 0;
        case 27: return MAC_load("input");
        case 28: return MAC_driver(MAC_get_number());
        case 29:
            saved.resize(static_cast<std::size_t>(MAC_info_size()));
            return MAC_export_info(saved.data()) < 0;
        case 30: return !saved.empty() && MAC_inport_info(saved.data()) == 0;
        case 31: MAC_set_variable(MAC_get_number(), MAC_get_long()); return 0;
        default: break;
    }
    std::string trace;
    test::Library library;
    return test::command(library, opcode, trace);
}

LRESULT procedure(HWND, UINT message, WPARAM, LPARAM) {
    if (message == WM_TIMER) MAC_free();
    return 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const char *const name = fuzz::as_file(data, size);
    static const HWND window = HOST_open_window("fuzz", 1, 1, procedure);
    commands = 0;
    saved.clear();
    start();
    HOST_set_timer_resolution(1);
    HOST_set_timer(window, 1, 4);
    const bool loaded = MAC_load(name) == 0;
    for (std::int32_t proc = -1; loaded && proc < 6; ++proc) MAC_driver(proc);
    char exported[sizeof(MAC_INFO_STRUCT::name)];
    if (MAC_export_filename(exported) != nullptr) MAC_set_variable(1, MAC_get_variable(0) + MAC_head_size());
    if (MAC_load("nothing") == 0 || MAC_inport_info(nullptr) != 0) std::abort();
    // A game without commands.
    MAC_init("", "nowhere", 1, nullptr);
    if (MAC_load(name) == 0) MAC_driver(0);
    HOST_kill_timer(window, 1);
    MAC_free();
    return 0;
}
