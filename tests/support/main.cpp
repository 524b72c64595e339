// Runs the tests on the headless machine, each in an empty directory and with the library as it is when a game
// starts, so that they pass alone, together and in any order.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "inkstone/ascii.h"
#include "inkstone/chine.h"
#include "inkstone/draw.h"
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
    explicit Surroundings(fs::path test_place) : place_(std::move(test_place)) {}

  private:
    void OnTestStart(const testing::TestInfo &) override {
        GTEST_FLAG_SET(death_test_style, "fast");
        fs::create_directory(place_);
        fs::current_path(place_);
        std::vector<std::uint8_t> screen(INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT);
        print_ascii16(0, 0, "~C0~Z0~O0~T0", 1, screen.data());
    }
    void OnTestEnd(const testing::TestInfo &) override {
        HOST_observe(nullptr);
        HOST_eject_disc();
        HOST_capture_sound(0);
        fnCheckMessage();
        ExecQuitProc();
        HOST_advance_clock(1000000);  // what fades out is past
        set_system_idle_function(nullptr);
        set_system_tab_function(nullptr);
        fnResetKeyBoard();
        FLIC_close_flic_file();
        INFO_close_file();
        // The outline and the window of text outlast the fonts.
        std::vector<std::uint8_t> screen(INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT);
        CHINE_set_text_window(0, 0, INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT);
        CHINE_print16(0, 0, "~O0", 1, screen.data());
        CHINE_free();
        MAC_init(".", ".", 1, nullptr);  // the directories outlast it, too
        MAC_free();
        fs::current_path(place_.parent_path());
        fs::remove_all(place_);
    }

    fs::path place_;
};

fs::path place;
void remove_place() {
    std::error_code ignored;
    fs::current_path(place.parent_path(), ignored);
    fs::remove_all(place, ignored);
}

}  // namespace

int main(int argc, char **argv) {
    const bool is_new_process = std::any_of(argv, argv + argc, [](std::string_view argument) {
        return argument.starts_with("--gtest_internal_run_death_test");
    });
    ::testing::InitGoogleTest(&argc, argv);
    set_environment("INKSTONE_HOST", "headless");
    place = make_directory();
    // The new process of a single test hears of no beginning, and ends in the midst of it.
    if (is_new_process) {
        fs::current_path(place);
        std::atexit(remove_place);
    }
    testing::UnitTest::GetInstance()->listeners().Append(new Surroundings(place / "test"));
    const int result = RUN_ALL_TESTS();
    remove_place();
    return result;
}
