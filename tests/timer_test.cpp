// Tick counters, waits, hooks and polling lists.
#include "inkstone/timer.h"

#include <gtest/gtest.h>

#include <string>

#include "inkstone/host.h"
#include "inkstone/polling.h"
#include "inkstone/runtime.h"
#include "support/calls.h"
#include "support/files.h"
#include "support/injection.h"
#include "support/new_process.h"

namespace {

std::string trace;

TEST(Timer, CountsAtMostOnePendingEventOfEachCounter) {
    for (int counter = 0; counter < 16; ++counter) SetTimerTick(counter, 100);
    ASSERT_EQ(SetupTimerProc(nullptr), 0);
    HOST_advance_clock(550'000);  // ten expiries nobody takes
    EXPECT_EQ(GetTimerTick(3), 0U);
    fnCheckMessage();
    for (int counter = 0; counter < 16; ++counter) EXPECT_EQ(GetTimerTick(counter), 1U) << counter;
    for (int i = 0; i < 20; ++i) {
        HOST_advance_clock(55'000);
        fnCheckMessage();
    }
    EXPECT_EQ(GetTimerTick(15), 21U);
    SetTimerTick(3, 0xFFFFFFFF);
    HOST_advance_clock(55'000);
    fnCheckMessage();
    EXPECT_EQ(GetTimerTick(3), 0U);
    SetTimerTick(16, 5);
    SetTimerTick(-1, 5);
    EXPECT_EQ(GetTimerTick(16) + GetTimerTick(-1), 0U);
    ClearTimerProc(nullptr);
    HOST_advance_clock(55'000);
    fnCheckMessage();
    EXPECT_EQ(GetTimerTick(15), 22U);
}

TEST(Timer, TicksAsSlowlyAsTheMachineButNoFasterThanAsked) {
    for (const auto &[resolution, tick] : {std::pair{0U, 5U}, {20U, 20U}, {4000U, 1000U}, {55U, 55U}}) {
        HOST_set_timer_resolution(resolution);
        SetupTimerProc(nullptr);
        const std::uint64_t before = HOST_clock();
        tick_wait(3);
        EXPECT_NEAR(static_cast<double>(HOST_clock() - before), 3000.0 * tick, 100) << resolution;
    }
}

TEST(Timer, GivesBackWhatItGotWhenOneIsRefused) {
    const auto quit_calls = [] {
        test::record_calls();
        ExecQuitProc();
        return test::take_calls().size();
    };
    const std::size_t before = quit_calls();
    test::record_calls("set_timer 0 3 ");
    EXPECT_EQ(SetupTimerProc(nullptr), -2);
    EXPECT_EQ(test::take_calls(), (test::Calls{"set_timer 0 1 5", "set_timer 0 2 5", "set_timer 0 3 5",
                                               "kill_timer 0 1", "kill_timer 0 2"}));
    EXPECT_EQ(quit_calls(), before);  // nothing was pushed
    const auto overflow = [] {
        while (PushQuitProc([] {}) == 0) {
        }
        SetupTimerProc(nullptr);
    };
    EXPECT_EXIT(overflow(), testing::ExitedWithCode(1), "PUSHQUIT ERROR!!!");
}

TEST(Timer, QuitProcedureStopsAllOnTheirWindow) {
    const HWND window = HOST_open_window("t", 8, 8, nullptr);
    test::record_calls();
    SetupTimerProc(window);
    test::Calls expected = test::take_calls();
    ASSERT_EQ(expected.size(), 16U);
    // The window and the number of each timer, without what was asked of it.
    for (std::string &call : expected) call = "kill" + call.substr(3, call.rfind(' ') - 3);
    test::record_calls();
    ExecQuitProc();
    test::Calls calls = test::take_calls();
    calls.resize(16);
    EXPECT_EQ(calls, expected);
}

TEST(Waits, TakeTheirTimeOnTheSimulatedClock) {
    SetupTimerProc(nullptr);
    SetTimerTick(14, 100);
    const std::uint64_t before = HOST_clock();
    tick_wait(3);
    EXPECT_NEAR(static_cast<double>(HOST_clock() - before), 165'000, 100);
    EXPECT_GE(GetTimerTick(14), 3U);

    clear_time_delay();
    const std::uint64_t frame = HOST_clock();
    wait_time_delay(20);
    EXPECT_NEAR(static_cast<double>(HOST_clock() - frame), 20000, 1100);
    EXPECT_EQ(get_time_delay(), 0U);  // since the last reading inside the wait
    wait_time_delay(30);              // still from the same start
    EXPECT_NEAR(static_cast<double>(HOST_clock() - frame), 30000, 1100);
    const std::uint64_t late = HOST_clock();
    wait_time_delay(30);  // the last reading was late enough: the clock is not read again
    EXPECT_EQ(HOST_clock() - late, 1U);

    HOST_advance_clock(0xFFFFFFFFULL * 1000 - HOST_clock());
    clear_time_delay();
    const std::uint64_t wrap = HOST_clock();
    wait_time_delay(20);  // the end lies beyond the clock's wrap, and so seems long past
    EXPECT_EQ(HOST_clock() - wrap, 1U);
    HOST_advance_clock(1000000);  // and over it, for the tests that follow
}

TEST(Waits, CallTheIdleFunctionInPlaceOfThePump) {
    trace.clear();
    SetupTimerProc(nullptr);
    set_system_idle_function([] { trace += 'i'; });
    clear_time_delay();
    wait_time_delay(0);
    tick_wait(0);
    EXPECT_EQ(trace, "");
    HOST_advance_clock(30000);
    wait_time_delay(20);  // overdue: one turn
    EXPECT_EQ(trace, "i");
    wait_time_delay(25);  // the mark is beyond it
    EXPECT_EQ(trace, "i");
    set_system_idle_function([] {
        set_system_idle_function(nullptr);
        trace += 'j';
    });
    tick_wait(1);  // the idle function pumps nothing and leaves; the pump takes over
    EXPECT_EQ(trace, "ij");
}

template <char letter>
void say() {
    trace += letter;
}

std::string run(std::int32_t list) {
    trace.clear();
    EXPECT_EQ(PollingExecute(list), 0);
    return trace;
}

TEST(Polling, KeepsItsOrder) {
    for (std::int32_t list = 0; list < 8; ++list) ASSERT_EQ(PollingInit(list), 0);
    PollingAppend(0, say<'0'>);
    PollingAppend(6, say<'6'>);
    EXPECT_EQ(run(0) + run(6), "06");
    for (std::int32_t list = 0; list < 7; ++list) EXPECT_EQ(PollingClear(list), 0);
    EXPECT_EQ(run(7), "");
    EXPECT_EQ(PollingDelete(7, say<'1'>), -2);
    EXPECT_EQ(PollingInsert(7, say<'1'>, say<'2'>), -2);
    for (const INK_PROCEDURE procedure : {say<'1'>, say<'2'>, say<'3'>})
        EXPECT_EQ(PollingAppend(7, procedure), 0);
    EXPECT_EQ(run(7), "123");
    EXPECT_EQ(PollingInsert(7, say<'4'>, say<'1'>), 0);
    EXPECT_EQ(PollingInsert(7, say<'5'>, say<'3'>), 0);
    EXPECT_EQ(PollingAppend(7, say<'1'>), 0);
    EXPECT_EQ(run(7), "142351");
    EXPECT_EQ(PollingInsert(7, say<'6'>, say<'7'>), -2);
    EXPECT_EQ(PollingInsert(7, say<'6'>, nullptr), -2);
    EXPECT_EQ(PollingDelete(7, say<'1'>), 0);  // the first of the two
    EXPECT_EQ(run(7), "42351");
    EXPECT_EQ(PollingDelete(7, say<'1'>), 0);
    EXPECT_EQ(PollingDelete(7, say<'1'>), -2);
    EXPECT_EQ(run(7), "4235");
    for (const INK_PROCEDURE head : {say<'4'>, say<'2'>}) EXPECT_EQ(PollingDelete(7, head), 0);
    EXPECT_EQ(run(7), "35");
    EXPECT_EQ(PollingClear(7), 0);
    EXPECT_EQ(run(7), "");
    for (const std::int32_t bad : {-1, 8, 7, INT32_MIN, INT32_MAX}) {  // 7 does not exist any more
        EXPECT_EQ(PollingAppend(bad, say<'1'>), -2);
        EXPECT_EQ(PollingInsert(bad, say<'1'>, say<'2'>), -2);
        EXPECT_EQ(PollingDelete(bad, say<'1'>), -2);
        EXPECT_EQ(PollingClear(bad), -2);
        EXPECT_EQ(PollingExecute(bad), bad == 7 ? 0 : -2);
        EXPECT_EQ(PollingInit(bad), bad == 7 ? 0 : -2);
    }
}

void delete_self() {
    trace += 'd';
    PollingDelete(0, delete_self);
}
void delete_next() {
    trace += 'n';
    PollingDelete(0, say<'2'>);
}
void insert_next() {
    trace += 'i';
    PollingInsert(0, say<'9'>, insert_next);
}
void replace_self() {
    trace += 'r';
    PollingDelete(0, replace_self);
    PollingAppend(0, say<'7'>);
    PollingDelete(0, say<'7'>);
    PollingAppend(0, say<'8'>);
}
void clear_all() {
    trace += 'c';
    PollingClear(0);
}

TEST(Polling, SurvivesAProcedureThatChangesItsOwnList) {
    PollingInit(0);
    for (const INK_PROCEDURE procedure : {delete_self, delete_next, say<'2'>, insert_next, say<'3'>})
        PollingAppend(0, procedure);
    EXPECT_EQ(run(0), "dni93");
    EXPECT_EQ(run(0), "ni993");
    PollingInsert(0, clear_all, delete_next);
    EXPECT_EQ(run(0), "nc");
    EXPECT_EQ(run(0), "");
    PollingInit(0);
    PollingAppend(0, replace_self);  // what it appends may lie where it lay itself
    EXPECT_EQ(run(0), "r8");
#if !defined(_WIN32) || defined(_WIN64)  // where exceptions pass from one module into another
    PollingAppend(0, [] { throw 1; });
    EXPECT_THROW(PollingExecute(0), int);
#endif
    PollingClear(0);  // the execution that was left does not count any more
}

TEST(Polling, BearsEveryRefusal) {
    std::int32_t results[3];
    test::inject(
        {.group = "PollingInit, PollingAppend, PollingInsert, PollingDelete, PollingExecute, PollingClear",
         .use =
             [&] {
                 results[0] = PollingInit(5);
                 results[1] = PollingAppend(5, say<'5'>);
                 results[2] = PollingInsert(5, say<'6'>, say<'5'>);
                 PollingAppend(5, say<'7'>), PollingDelete(5, say<'7'>);
             },
         .outcome =
             [&] {
                 std::string told;
                 for (const std::int32_t result : results) told += std::to_string(result) + ' ';
                 return told + run(5);
             },
         .right = "0 0 0 56",
         .memory = {"-2 -2 -2 | PollingInit(5) error", "0 -2 -2 ", "0 0 -2 5"},
         .prepare = [] { PollingClear(5); }});
    PollingClear(5);
}

// In a process that has had no timers: their list keeps its room.
TEST_IN_NEW_PROCESS(Timer, BearsEveryRefusal) {
    std::int32_t result = 0;
    test::inject({.group = "SetupTimerProc, ClearTimerProc",
                  .use = [&] { result = SetupTimerProc(nullptr); },
                  .outcome =
                      [&] {
                          HOST_advance_clock(55'000);
                          fnCheckMessage();
                          return std::to_string(result) + (GetTimerTick(3) == 1 ? " ticks" : "");
                      },
                  .right = "0 ticks",
                  .memory = {"-2"},
                  .machine = {"-2"},
                  .prepare = [] { ClearTimerProc(nullptr), SetTimerTick(3, 0); },
                  .in_process_of_its_own = true});
}

}  // namespace
