// Runs the tests on the headless machine, each in an empty directory and with the library as it is when a game
// starts, so that they pass alone, together and in any order.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

#include "inkstone/chine.h"
#include "inkstone/flic.h"
#include "inkstone/host.h"
#include "inkstone/info.h"
#include "inkstone/keyboard.h"
#include "inkstone/mac.h"
#include "inkstone/runtime.h"
#include "inkstone/timer.h"

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

class Surroundings : public testing::EmptyTestEventListener {
  public:
    explicit Surroundings(fs::path place) : place_(std::move(place)) {}

  private:
    void OnTestStart(const testing::TestInfo &) override {
        fs::create_directory(place_);
        fs::current_path(place_);
    }
    void OnTestEnd(const testing::TestInfo &) override {
        HOST_observe(nullptr);
        HOST_eject_disc();
        HOST_capture_sound(0);
        fnCheckMessage();
        ExecQuitProc();
        set_system_idle_function(nullptr);
        set_system_tab_function(nullptr);
        fnResetKeyBoard();
        FLIC_close_flic_file();
        INFO_close_file();
        CHINE_free();
        MAC_free();
        fs::current_path(place_.parent_path());
        fs::remove_all(place_);
    }

    fs::path place_;
};

}  // namespace

int main(int argc, char **argv) {
    ::testing::InitGoogleTest(&argc, argv);
    GTEST_FLAG_SET(death_test_style, "fast");
    set_environment("INKSTONE_HOST", "headless");

    const fs::path place = make_directory();
    testing::UnitTest::GetInstance()->listeners().Append(new Surroundings(place / "test"));
    const fs::path before = fs::current_path();
    const int result = RUN_ALL_TESTS();
    fs::current_path(before);
    std::error_code ignored;
    fs::remove_all(place, ignored);
    return result;
}
