#include "inkstone/runtime.h"

#include <array>
#include <cstdlib>
#include <utility>

#include "host/host.h"

namespace {

std::array<INK_PROCEDURE, 64> quit_procedures;
std::int32_t quit_count = 0;

// Runs the oldest ones of that number, the newest of them first, and counts down as it goes.
void run_quit_procedures(std::int32_t &left) {
    while (left > 0)
        if (const INK_PROCEDURE procedure = quit_procedures[static_cast<std::size_t>(--left)]) procedure();
}

}  // namespace

int32_t PushQuitProc(INK_PROCEDURE proc) {
    if (quit_count >= static_cast<std::int32_t>(quit_procedures.size())) return -1;
    quit_procedures[static_cast<std::size_t>(quit_count++)] = proc;
    return 0;
}

void ExecQuitProc(void) {
    std::int32_t left = quit_count;
    run_quit_procedures(left);
}

void fnErrorExit(HWND window, const char *message) {
    using namespace ink::host;
    Messages &messages = machine().messages;
    messages.message_box(window, message, "SystemError", kMessageBoxExclamation | kMessageBoxTaskModal);
    // A procedure that fails fatally too, while the last messages are delivered or the quit procedures run, goes
    // on with what is left to do: nothing is done twice, and everything that can be released is.
    static bool delivering = false, exiting = false;
    static std::int32_t left = -1;  // quit procedures still to be run, once they are begun with
    if (!std::exchange(delivering, true)) {
        messages.post_quit(0);
        for (Message waiting; messages.get(waiting);) {
            messages.translate(waiting);
            messages.dispatch(waiting);
        }
    }
    if (left < 0) left = quit_count;
    run_quit_procedures(left);
    // An exit handler that fails cannot begin the exit anew.
    if (std::exchange(exiting, true)) std::_Exit(1);
    std::exit(1);
}

void fnCheckMessage(void) {
    ink::host::Messages &messages = ink::host::machine().messages;
    for (ink::host::Message message; messages.peek(message);) {
        messages.translate(message);
        messages.dispatch(message);
    }
}
