// Runs the tests on the headless machine, each in a process and an empty directory of its own, so that they pass
// alone, together and in any order.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

#include "support/processes.h"

namespace fs = std::filesystem;

namespace {

#if defined(_WIN32)
// In the current directory: the paths that are compiled in have no drive, and are meant on this one.
fs::path place_of_directories() {
    return fs::current_path();
}
void set_environment(const char *name, const char *value) {
    _putenv_s(name, value);
}
#else
fs::path place_of_directories() {
    return fs::temp_directory_path();
}
void set_environment(const char *name, const char *value) {
    setenv(name, value, 1);
}
#endif

// A directory that was not there before.
fs::path make_directory() {
    std::random_device random;
    for (;;) {
        const fs::path made = place_of_directories() / ("inkstone-test-" + std::to_string(random()));
        if (fs::create_directory(made)) return made;
    }
}

}  // namespace

int main(int argc, char **argv) {
    ::testing::InitGoogleTest(&argc, argv);
    GTEST_FLAG_SET(death_test_style, "fast");
    set_environment("INKSTONE_HOST", "headless");

    const fs::path place = make_directory();
    testing::UnitTest::GetInstance()->listeners().Append(new test::ProcessForEachTest(argv[0], place));
    const fs::path before = fs::current_path();
    fs::current_path(place);
    const int result = RUN_ALL_TESTS();
    fs::current_path(before);
    std::error_code ignored;
    fs::remove_all(place, ignored);
    return result;
}
