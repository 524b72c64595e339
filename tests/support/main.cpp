// Runs the tests on the headless machine, in an empty directory that is removed afterwards.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

int main(int argc, char **argv) {
    ::testing::InitGoogleTest(&argc, argv);
    GTEST_FLAG_SET(death_test_style, "fast");
    setenv("INKSTONE_HOST", "headless", 1);

    std::string place = (fs::temp_directory_path() / "inkstone-test-XXXXXX").string();
    if (mkdtemp(place.data()) == nullptr) return 1;
    const fs::path before = fs::current_path();
    fs::current_path(place);
    const int result = RUN_ALL_TESTS();
    fs::current_path(before);
    std::error_code ignored;
    fs::remove_all(place, ignored);
    return result;
}
