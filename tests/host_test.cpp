// The machine beyond what the families ask of it: windows that close twice, the time of day, the end of the
// process, and what is missing.
#include "inkstone/host.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

#include "inkstone/inkstone.h"
#include "support/allocation.h"
#include "support/calls.h"
#include "support/injection.h"
#include "support/new_process.h"

namespace {

std::vector<HWND> windows;
int destroyed = 0;

LRESULT close_all(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message != WM_DESTROY) return HOST_default_procedure(window, message, wparam, lparam);
    ++destroyed;
    for (const HWND each : windows) HOST_close_window(each);
    return 0;
}

TEST(Host, ClosesAWindowOnceWhateverItsProcedureDoes) {
    for (int i = 0; i < 3; ++i) windows.push_back(HOST_open_window("w", 8, 8, close_all));
    HOST_post_message(windows[1], WM_CLOSE, 0, 0);
    EXPECT_EQ(HOST_run_messages(), 1);
    EXPECT_EQ(destroyed, 3);
    for (const HWND each : windows) EXPECT_EQ(HOST_window_size(each, nullptr, nullptr), -2);
}

TEST(Host, BearsMissingResultsAndWindowsThatNobodyCanHave) {
    const HWND window = HOST_open_window("w", 3, 2, nullptr);
    std::int32_t width = 0, height = 0;
    EXPECT_EQ(HOST_window_size(window, &width, nullptr), 0);
    EXPECT_EQ(HOST_window_size(window, nullptr, &height), 0);
    EXPECT_EQ(width * 10 + height, 32);
    EXPECT_EQ(HOST_read_indices(window, nullptr), -2);
    EXPECT_EQ(HOST_read_picture(window, nullptr), -2);
    HOST_read_palette(nullptr);
    EXPECT_EQ(HOST_read_sound(nullptr, 5), 0);
    HOST_set_setting(nullptr, "yes");
    for (const std::int32_t size : {0, -1, 4097, INT32_MAX}) {
        EXPECT_EQ(HOST_open_window("w", size, 8, nullptr), nullptr);
        EXPECT_EQ(HOST_open_window("w", 8, size, nullptr), nullptr);
    }
    const HWND untitled = HOST_open_window(nullptr, 8, 8, nullptr);
    EXPECT_NE(untitled, nullptr);
    HOST_close_window(untitled);
    HOST_close_window(window);
}

TEST(Host, BearsEveryRefusal) {
    const std::string name(50, 'n'), value(50, 'v');
    HWND window = nullptr;
    std::int32_t timer = 0;
    test::inject(
        {.group = "HOST_open_window, HOST_close_window, HOST_set_timer, HOST_kill_timer, HOST_set_setting",
         .use =
             [&] {
                 window = HOST_open_window("w", 64, 64, nullptr);
                 timer = HOST_set_timer(window, 100, 55);
                 HOST_set_setting(name.c_str(), value.c_str());
             },
         .outcome =
             [&] {
                 HOST_kill_timer(window, 100);
                 HOST_close_window(window);
                 HOST_set_setting(name.c_str(), nullptr);
                 return std::string(window != nullptr ? "window " : "none ") + std::to_string(timer);
             },
         .right = "window 0",
         .memory = {"none 0"},
         .machine = {"none -2", "none 0", "window -2"}});
    // Messages that there is no memory for are lost; which, hangs on how many of them a piece of the queue holds.
    static int taken;
    window = HOST_open_window("w", 8, 8, [](HWND, UINT message, WPARAM, LPARAM) -> LRESULT {
        return taken += message == WM_USER, 0;
    });
    test::inject(
        {.group = "HOST_key, HOST_pointer_move, HOST_pointer_button, HOST_post_message, HOST_run_messages",
         .use =
             [&] {
                 HOST_key(0x1E, 1), HOST_pointer_move(1, 2), HOST_pointer_button(0, 1);
                 HOST_pointer_button(0, 0), HOST_key(0x1E, 0);  // nothing stays held
                 for (int i = 0; i < 1000; ++i) HOST_post_message(window, WM_USER, 0, 0);
             },
         .outcome =
             [] {
                 HOST_run_messages();
                 return taken == 1000 ? "all" : "fewer";
             },
         .right = "all",
         .memory = {"fewer"},
         .prepare = [] { taken = 0; }});
    HOST_close_window(window);
}

std::string time_of_day() {
    char text[26];
    get_time(text);
    return text;
}

TEST_IN_NEW_PROCESS(Host, KeepsTheSystemsTimeUntilItIsSet) {
    // The date of one of two moments, between which midnight may lie.
    const auto date = [] {
        const std::time_t now = std::time(nullptr);
        char text[32];
        std::strftime(text, sizeof text, "%d %Y", std::localtime(&now));
        return std::string(text);
    };
    const std::string before = date(), told = time_of_day(), after = date();
    EXPECT_TRUE(told.substr(8, 2) + told.substr(19, 5) == before ||
                told.substr(8, 2) + told.substr(19, 5) == after)
        << told;
    const struct {
        std::int32_t year, month, day, hour, minute, second;
        const char *told;
    } cases[] = {
        {2000, 2, 29, 23, 59, 59, "Tue Feb 29 23:59:59 2000\n"},
        {1999, 14, 0, 25, -1, 60, "Tue Feb 01 01:00:00 2000\n"},  // every field carries
        {1, 1, 1, 0, 0, 0, "Mon Jan 01 00:00:00 0001\n"},
        {INT32_MIN, INT32_MIN, INT32_MIN, INT32_MIN, INT32_MIN, INT32_MIN, "Mon Jan 01 00:00:00 0001\n"},
        {INT32_MAX, INT32_MAX, INT32_MAX, INT32_MAX, INT32_MAX, INT32_MAX, "Fri Dec 31 23:59:59 9999\n"},
    };
    for (const auto &c : cases) {
        HOST_set_local_time(c.year, c.month, c.day, c.hour, c.minute, c.second);
        EXPECT_EQ(time_of_day(), c.told);
    }
    HOST_set_local_time(2026, 12, 31, 23, 59, 59);
    HOST_advance_clock(2'000'000);
    EXPECT_EQ(time_of_day(), "Fri Jan 01 00:00:01 2027\n");
}

// Exit handlers run last of all, and one that was registered first runs after everything else is gone.
// A machine that there is no memory for gives way to the next one, and a program for which there is none to its end.
TEST(HostDeath, StartsOnceThereIsMemoryForAMachine) {
    if (!test::kAllocationsCanFail) GTEST_SKIP();
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto find_none = [] {
        static const test::FailingAllocation failing(0, true);  // till the exit handlers
        HOST_clock();
    };
    EXPECT_EXIT(find_none(), testing::ExitedWithCode(1), "^SystemError: there is no memory for a machine\n$");
    const auto choose = [] {
        std::size_t refused = 0;
        for (bool chosen = false; !chosen; ++refused) {
            const test::FailingAllocation failing(refused);
            chosen = HOST_choose("headless") == 0;
        }
        const HWND window = HOST_open_window("w", 8, 8, nullptr);
        std::exit(refused > 2 && window != nullptr ? 7 : 1);
    };
    EXPECT_EXIT(choose(), testing::ExitedWithCode(7), "^$");
    // What was to be recorded or replayed does not run otherwise.
    const auto trace = [](char *variable) {
        putenv(variable);
        HOST_clock();
    };
    char record[] = "INKSTONE_RECORD=no/such/place", replay[] = "INKSTONE_REPLAY=none.rec";
    EXPECT_EXIT(trace(record), testing::ExitedWithCode(1), "^record: no/such/place cannot be recorded\n$");
    EXPECT_EXIT(trace(replay), testing::ExitedWithCode(1),
                "none.rec cannot be replayed: there is no such file");
}

TEST_IN_NEW_PROCESS(Host, ListsItsMachines) {
    const char *name = nullptr, *description = nullptr;
    std::string names;
    for (std::int32_t i = 0; HOST_list(i, &name, &description) == 0; ++i) {
        names += std::string(name) + ' ';
        EXPECT_EQ(HOST_list(i, nullptr, nullptr), 0);
        EXPECT_NE(std::string(description), name);
    }
    EXPECT_NE((' ' + names).find(" headless "), names.npos) << names;
    EXPECT_EQ(HOST_list(-1, &name, &description), -2);
    EXPECT_EQ(HOST_choose(nullptr), -2);
}

TEST(HostDeath, ServesExitHandlers) {
    const auto live = [] {
        std::atexit(ExecQuitProc);
        WViewInit(HOST_open_window("w", 8, 8, nullptr), 0, 0, 8, 8, nullptr);
        WViewEnable();
        SetupTimerProc(nullptr);
        DS_init(nullptr);
        CDROM_open();
        test::record_calls();
        std::atexit([] {
            ExecQuitProc();
            std::fprintf(stderr, "%s ", test::calls.front().c_str());
            for (const std::string &call : test::calls)
                if (call.starts_with("delete_palette")) std::fputs(call.c_str(), stderr);
            HOST_observe(nullptr);
        });
        std::exit(3);
    };
    EXPECT_EXIT(live(), testing::ExitedWithCode(3), "^stop_disc delete_palette .+");
}

}  // namespace
