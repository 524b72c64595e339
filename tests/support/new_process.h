// What holds only once in a process: the library's state before the first call.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>

namespace test {

// Runs check, which says whether all was well, in a process of its own. The test runs there again from its
// start, so this comes first in it.
inline void expect_in_new_process(bool (*check)()) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::exit(check() ? 0 : 1), testing::ExitedWithCode(0), "");
    GTEST_FLAG_SET(death_test_style, "fast");
}

}  // namespace test
