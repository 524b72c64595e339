// Error log, quit procedures, fatal exit and message pump.
#include "inkstone/runtime.h"

#include <gtest/gtest.h>

#include <string>

#include "inkstone/host.h"
#include "inkstone/timer.h"
#include "support/calls.h"
#include "support/files.h"
#include "support/injection.h"
#include "support/new_process.h"

namespace {

std::string trace;

LRESULT note_message(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_USER) trace.append("u").append(std::to_string(wparam));
    return HOST_default_procedure(window, message, wparam, lparam);
}

TEST(ErrorLog, AppendsALineACall) {
    test::write_text("ERROR.MSG", "before\n");
    log_error_to_file("abc", "ERROR.MSG");
    log_error_to_file("abc\n", "ERROR.MSG");
    log_error_to_file("", "ERROR.MSG");
    EXPECT_EQ(test::take_log(), "before\nabc\nabc\n\n\n");
}

TEST(ErrorLog, BearsEveryRefusal) {
    test::inject({.group = "log_error_to_file",
                  .use = [] { log_error_to_file("abc", "a log of a long name.txt"); },
                  .outcome = [] { return test::read_text("a log of a long name.txt"); },
                  .right = "abc\n",
                  .memory = {""},
                  .files = {"", "ab"},
                  .prepare = [] { test::write_file("a log of a long name.txt", {}); }});
}

TEST_IN_NEW_PROCESS(QuitProcedures, RunNewestFirstAgainAndAgain) {
    ExecQuitProc();
    EXPECT_EQ(PushQuitProc([] { trace += '1'; }), 0);
    EXPECT_EQ(PushQuitProc([] { trace += '2'; }), 0);
    EXPECT_EQ(PushQuitProc(nullptr), 0);
    for (int i = 3; i < 64; ++i) EXPECT_EQ(PushQuitProc([] { trace += '3'; }), 0) << i;
    EXPECT_EQ(PushQuitProc([] { trace += 'x'; }), -1);
    ExecQuitProc();
    ExecQuitProc();
    EXPECT_EQ(trace, std::string(61, '3') + "21" + std::string(61, '3') + "21");
}

TEST(MessagePump, DispatchesAllThatWaitsAndSwallowsAQuitRequest) {
    trace.clear();
    const HWND window = HOST_open_window("t", 64, 48, note_message);
    HOST_post_message(window, WM_USER, 1, 0);
    HOST_post_quit(7);
    HOST_post_message(window, WM_USER, 2, 0);
    HOST_post_message(nullptr, WM_USER, 3, 0);                         // nobody's
    HOST_post_message(reinterpret_cast<HWND>(0x1234), WM_USER, 4, 0);  // an unknown window's
    fnCheckMessage();
    EXPECT_EQ(trace, "u1u2");
    EXPECT_EQ(HOST_run_messages(), 1);  // the request is gone
    HOST_post_quit(7);
    HOST_post_message(window, WM_USER, 5, 0);
    EXPECT_EQ(HOST_run_messages(), 0);
    EXPECT_EQ(HOST_exit_code(), 7);
    EXPECT_EQ(trace, "u1u2u5");
    HOST_post_message(window, WM_CLOSE, 0, 0);
    fnCheckMessage();
    HOST_post_message(window, WM_USER, 6, 0);
    fnCheckMessage();
    EXPECT_EQ(trace, "u1u2u5");
    EXPECT_EQ(HOST_wait_messages(), 0);  // nothing can come any more
    const HWND other = HOST_open_window("t", 64, 48, HOST_default_procedure);
    HOST_post_message(other, WM_CLOSE, 0, 0);
    EXPECT_EQ(HOST_run_messages(), 0);  // closing the window ends the loop
}

// The whole order: the box, the messages that waited, the quit procedures newest first, exit code 1.
TEST(FatalExit, DeliversMessagesThenRunsQuitProceduresThenEnds) {
    const auto die = [] {
        const HWND window = HOST_open_window("t", 64, 48, [](HWND, UINT message, WPARAM, LPARAM) -> LRESULT {
            if (message == WM_USER) std::fputs("message ", stderr);
            return 0;
        });
        PushQuitProc([] { std::fputs("first.", stderr); });
        PushQuitProc([] { std::fputs("second ", stderr); });
        HOST_post_message(window, WM_USER, 0, 0);
        HOST_observe([](const char *call) -> std::int32_t {
            std::fprintf(stderr, "[%s]", call);
            return 0;
        });
        fnErrorExit(window, "no more");
    };
    // 8240 is 0x2030: an exclamation mark, modal to the task.
    EXPECT_EXIT(die(), testing::ExitedWithCode(1),
                "\\[message_box .+ 8240 SystemError no more\\]SystemError: no more\nmessage second first\\.");
}

// A failure while the last messages are delivered, and one in a quit procedure: nothing runs twice, and all that
// can be released is.
TEST(FatalExit, ReleasesEverythingThoughMoreFails) {
    const auto die = [] {
        const HWND window =
            HOST_open_window("t", 64, 48, [](HWND, UINT message, WPARAM wparam, LPARAM) -> LRESULT {
                if (message != WM_USER) return 0;
                std::fprintf(stderr, "message %d ", static_cast<int>(wparam));
                fnErrorExit(nullptr, "middle");
                return 0;
            });
        PushQuitProc([] { std::fputs("first.", stderr); });
        PushQuitProc([] {
            std::fputs("second ", stderr);
            fnErrorExit(nullptr, "inner");
        });
        PushQuitProc([] { std::fputs("third ", stderr); });
        HOST_post_message(window, WM_USER, 1, 0);
        HOST_post_message(window, WM_USER, 2, 0);
        fnErrorExit(window, "outer");
    };
    EXPECT_EXIT(
        die(), testing::ExitedWithCode(1),
        "^SystemError: outer\nmessage 1 SystemError: middle\nthird second SystemError: inner\nfirst\\.");
}

}  // namespace
