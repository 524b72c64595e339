// Runs the tests on the headless machine, each in an empty directory and with the library as it is when a game
// starts, so that they pass alone, together and in any order.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "inkstone/chine.h"
#include "inkstone/flic.h"
#include "inkstone/host.h"
#include "inkstone/info.h"
#include "inkstone/keyboard.h"
#include "inkstone/mac.h"
#include "inkstone/runtime.h"
#include "inkstone/timer.h"
#include "support/processes.h"

namespace fs = std::filesystem;

namespace {

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
    setenv("INKSTONE_HOST", "headless", 1);

    std::string place = (fs::temp_directory_path() / "inkstone-test-XXXXXX").string();
    if (mkdtemp(place.data()) == nullptr) return 1;
    testing::UnitTest::GetInstance()->listeners().Append(new test::ProcessForEachTest(argv[0], place));
    testing::UnitTest::GetInstance()->listeners().Append(new Surroundings(fs::path(place) / "test"));
    const fs::path before = fs::current_path();
    const int result = RUN_ALL_TESTS();
    fs::current_path(before);
    std::error_code ignored;
    fs::remove_all(place, ignored);
    return result;
}
