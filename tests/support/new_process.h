// Tests that run in a new process, in which no other test has run: those that look at how the library begins or
// use up what lasts as long as the process, such as the places for quit procedures.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

namespace test {

inline void run_in_new_process(void (*body)()) {
    const auto run = [body] {
        body();
        // Nothing of this process is told but what it writes here.
        const testing::TestResult &result = *testing::UnitTest::GetInstance()->current_test_info()->result();
        for (int i = 0; i < result.total_part_count(); ++i) {
            const testing::TestPartResult &part = result.GetTestPartResult(i);
            if (part.failed())
                std::fprintf(stderr, "%s:%d: %s\n", part.file_name(), part.line_number(), part.message());
        }
        std::exit(result.Failed() ? 1 : 0);
    };
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
}

}  // namespace test

#define TEST_IN_NEW_PROCESS(suite, name)          \
    static void suite##_##name();                 \
    TEST(suite, name) {                           \
        test::run_in_new_process(suite##_##name); \
    }                                             \
    static void suite##_##name()
