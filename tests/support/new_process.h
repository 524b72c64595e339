// Tests that run in a new process, in which no other test has run: those that look at how the library begins or
// use up what lasts as long as the process, such as the places for quit procedures.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace test {

// Lets the new processes of a test run where it does itself, each of which otherwise has an empty directory of its own.
inline void share_place() {
    // Part of the environment, which the last exit handlers read.
    static std::string &set = *new std::string;
    const char *place = std::getenv("INKSTONE_TEST_PLACE");
    if (place == nullptr) {
        set = "INKSTONE_TEST_PLACE=" + std::filesystem::current_path().string();
        putenv(set.data());
    } else {
        std::filesystem::current_path(place);
    }
}

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
