#include "inkstone/runtime.h"

#include <array>
#include <cstdlib>
#include <utility>

#include "host/host.h"

namespace {

std::array<INK_PROCEDURE, 64> quit_procedures;
std::int32_t quit_count = 0;

}  // namespace

int32_t PushQuitProc(INK_PROCEDURE proc) {
    if (quit_count >= static_cast<std::int32_t>(quit_procedures.size())) return -1;
    quit_procedures[static_cast<std::size_t>(quit_count++)] = proc;
    return 0;
}

void ExecQuitProc(void) {
    for (std::int32_t i = quit_count; i-- > 0;)
        if (const INK_PROCEDURE procedure = quit_procedures[static_cast<std::size_t>(i)]) procedure();
}

void fnErrorExit(HWND window, const char *message) {
    using namespace ink::host;
    Messages &messages = machine().messages;
    messages.message_box(window, message, "SystemError", kMessageBoxExclamation | kMessageBoxTaskModal);
    // A quit procedure, or a window procedure told of its window's end, that fails fatally too must not start
    // the same round again.
    static bool ending = false;
    if (std::exchange(ending, true)) std::exit(1);
    messages.post_quit(0);
    for (Message waiting; messages.get(waiting);) {
        messages.translate(waiting);
        messages.dispatch(waiting);
    }
    ExecQuitProc();
    std::exit(1);
}

void fnCheckMessage(void) {
    ink::host::Messages &messages = ink::host::machine().messages;
    for (ink::host::Message message; messages.peek(message);) {
        messages.translate(message);
        messages.dispatch(message);
    }
}
