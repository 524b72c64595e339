// The utilities.
#include "inkstone/utility.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <map>
#include <numbers>

#include "inkstone/host.h"
#include "inkstone/mac.h"
#include "support/files.h"
#include "support/injection.h"
#include "support/new_process.h"
#include "support/script.h"

namespace {

using test::exists;
namespace fs = std::filesystem;

TEST(Utility, TurnsLettersOnly) {
    for (int c = 0; c < 256; ++c) {
        const bool small = c >= 'a' && c <= 'z', capital = c >= 'A' && c <= 'Z';
        EXPECT_EQ(char_upper(static_cast<uint8_t>(c)), small ? c - 32 : c);
        EXPECT_EQ(char_lower(static_cast<uint8_t>(c)), capital ? c + 32 : c);
    }
}

TEST(Utility, ReadsNumbersAtOddPlaces) {
    const uint8_t bytes[] = {0xFF, 0x34, 0x12, 0x78, 0x56, 0x34, 0x92};
    int32_t position = 0;
    EXPECT_EQ(get_byte_from_buffer(&position, bytes), 0xFF);
    EXPECT_EQ(get_int_from_buffer(&position, bytes), 0x1234);
    EXPECT_EQ(get_long_from_buffer(&position, bytes), static_cast<int32_t>(0x92345678));
    EXPECT_EQ(position, 7);
}

TEST(Utility, CutsAndJoinsFileNames) {
    const std::array<const char *, 3> cases[] = {{"README.TXT", "README", "README.BAK"},
                                                 {"X.Y.Z", "X", "X.BAK"},
                                                 {"NAME", "NAME", "NAME.BAK"},
                                                 {"", "", ".BAK"},
                                                 {"THIRTEEN.CHAR", "THIRTEEN", "THIRTEEN.BAK"},
                                                 {"FOURTEEN.CHARS", "FORMERR!", "FOURTEEN.BAK"}};
    for (const auto &[name, only, changed] : cases) {
        char out[20];
        EXPECT_STREQ(get_only_filename(out, name), only);
        EXPECT_STREQ(out, only);
        change_ext(std::strcpy(out, name), out, "BAK");
        EXPECT_STREQ(out, changed);
    }
}

TEST(Utility, TakesTextLinesApart) {
    const char *line = "KEY=12\tx, =\t,end";
    char out[20];
    int32_t position = 0;
    const auto take = [&](uint8_t stop, int32_t max) {
        get_str(out, line, &position, stop, max);
        return std::string(out) + '|' + std::to_string(position);
    };
    EXPECT_EQ(take(1, 19), "KEY|3");
    skip_space(line, &position);
    EXPECT_EQ(take(1, 19), "12\tx|8");  // a tab ends no token
    skip_space(line, &position);
    EXPECT_EQ(position, 13);
    EXPECT_EQ(take(1, 2), "en|15");
    EXPECT_EQ(take(1, 0), "|15");
    EXPECT_EQ(take(0, -1), "|15");
    EXPECT_EQ(take(0, 19), "d|16");
    EXPECT_EQ(take(0, 19), "|16");
    position = 0;
    EXPECT_EQ(take(0, 19), std::string(line) + "|16");
}

TEST(Utility, HasTheCircleInFixedPoint) {
    const std::map<int, int> sine = {{30, 32768},   {47, 47930},   {117, 58392},  {159, 23485}, {218, -40348},
                                     {227, -47930}, {297, -58392}, {330, -32767}, {339, -23485}};
    const std::map<int, int> cosine = {{60, 32767},   {69, 23485},   {120, -32768}, {128, -40348},
                                       {137, -47930}, {207, -58392}, {240, -32767}, {249, -23485},
                                       {308, 40348},  {317, 47930}};
    const auto expected = [](const std::map<int, int> &off, int angle, double value) {
        return off.contains(angle) ? off.at(angle) : static_cast<int>(value * 65536);
    };
    for (int angle = 0; angle < 360; ++angle) {
        const double radians = angle * std::numbers::pi / 180;
        EXPECT_EQ(int_sin(angle), expected(sine, angle, std::sin(radians))) << angle;
        EXPECT_EQ(int_cos(angle), expected(cosine, angle, std::cos(radians))) << angle;
        EXPECT_EQ(int_sin(angle - 720), int_sin(angle));
        EXPECT_EQ(int_cos(angle + 360), int_cos(angle));
    }
    EXPECT_EQ(int_sin(INT32_MIN), int_sin(INT32_MIN % 360 + 360));
}

TEST(Utility, FindsAndMakesAndRemovesDirectories) {
    test::write_text("File", "");
    EXPECT_EQ(check_file_exist("FILE"), 0);
    EXPECT_EQ(check_file_exist("none"), -2);
    EXPECT_EQ(make_directory(""), -2);
    EXPECT_EQ(make_directory("SAVE\\SLOT1"), 0);
    EXPECT_EQ(make_directory("SAVE\\SLOT1"), -2);
    EXPECT_EQ(make_directory("save/SLOT2\\"), -2);  // made, but not by the last attempt
    EXPECT_TRUE(exists("SAVE/SLOT1") && exists("SAVE/SLOT2"));
#if !defined(_WIN32)
    EXPECT_FALSE(exists("save"));
#endif
    EXPECT_EQ(check_directory_exist("save\\slot1"), 0);
    EXPECT_TRUE(fs::is_empty("SAVE/SLOT1"));
    EXPECT_EQ(check_directory_exist("SAVE\\SLOT3"), -2);
    EXPECT_EQ(check_directory_exist("File"), -2);
    EXPECT_EQ(check_file_exist("SAVE"), -2);
    const auto removed = [](std::string path) {
        const std::int32_t result = remove_directory(path.data());
        return std::to_string(result) + path.c_str();
    };
    EXPECT_EQ(removed(""), "-2");
    EXPECT_EQ(removed("File"), "-2File");
    EXPECT_EQ(removed("\\nowhere\\x"), "-2\\nowhere");
    EXPECT_EQ(removed("SAVE\\SLOT1"), "-2SAVE");  // SLOT2 is still in it
    EXPECT_EQ(removed("SAVE/SLOT2\\"), "0SAVE");
    EXPECT_TRUE(!exists("SAVE") && exists("File"));
}

TEST(Utility, MakesWholePaths) {
    const std::string here = fs::current_path().string();
#if defined(_WIN32)
    const std::string drive = here.substr(0, 2), root = drive;
#else
    const std::string drive = "d:", root;  // every drive is the one that is there
#endif
    struct {
        std::string path, whole, left;
    } const cases[] = {
        {"D:\\game\\Data", "D:\\GAME\\DATA", "D:\\GAME\\DATA"},
        {"d:\\", "D:", "D:\\"},
        {"\\game", root + "\\GAME", "\\GAME"},
        {"\\", root, "\\"},
        {drive + "x", here + "\\X", drive + "X"},
        {drive, here, drive},
        {drive + ".", here, drive + "."},
        {"data\\x", here + "\\DATA\\X", "DATA\\X"},
        {"1:x", here + "\\1:X", "1:X"},
        {drive + "..\\x", here, drive + "..\\x"},
#if !defined(_WIN32)
        {"/usr", "/USR", "/USR"},
#endif
    };
    std::string output;
    for (const auto &c : cases) {
        char path[32], whole[512];
        std::strcpy(path, c.path.c_str());
        ::testing::internal::CaptureStdout();
        oper_whole_path(path, whole);
        output += ::testing::internal::GetCapturedStdout();
        EXPECT_EQ(whole, c.whole) << c.path;
        EXPECT_EQ(path, c.left);
    }
    EXPECT_EQ(output, "Input path error\n");

    // A directory too long for the callers' buffers goes by its short name.
    const auto whole_in = [](std::size_t length) {
        std::string directory = fs::current_path().string();
        while (directory.size() + 1 < length) {
            directory += '/' + std::string(std::min<std::size_t>(100, length - directory.size() - 1), 'd');
            if (directory.size() + 1 == length) directory += 'd';
        }
        fs::create_directories(directory);
        const fs::path before = fs::current_path();
        fs::current_path(directory);
        char path[] = "x", whole[512];
        oper_whole_path(path, whole);
        fs::current_path(before);
        return std::string(whole);
    };
    EXPECT_EQ(whole_in(255).size(), 257U);
    EXPECT_EQ(whole_in(256), ".\\X");
}

TEST(Utility, BearsNulls) {
    const std::uint8_t bytes[] = {1, 2, 3, 4};
    char path[] = "x", whole[512] = "old", kept[] = "README.TXT";
    std::int32_t position = 0;
    EXPECT_EQ(check_file_exist(nullptr), -2);
    EXPECT_EQ(check_directory_exist(nullptr), -2);
    EXPECT_EQ(make_directory(nullptr), -2);
    EXPECT_EQ(remove_directory(nullptr), -2);
    oper_whole_path(nullptr, whole);
    oper_whole_path(path, nullptr);
    EXPECT_STREQ(whole, "old");
    EXPECT_EQ(get_long_from_buffer(nullptr, bytes), 0);
    EXPECT_STREQ(get_only_filename(nullptr, kept), "README");
    change_ext(nullptr, kept, "BAK");
    skip_space(" x", nullptr);
    get_str(nullptr, "x", &position, 0, 1);
    EXPECT_EQ(position, 0);
    get_time(nullptr);
}

TEST(Utility, BearsEveryRefusal) {
    const std::string deep = "some directory whose name is long/enough to need memory";
    char path[] = "some directory whose name is long", made_path[] = "another name that is as long as that",
         whole[512];
    std::int32_t file = 0, directory = 0, made = 0, removed = 0;
    std::filesystem::create_directory(path);
    test::write_text(deep, "x");
    test::inject(
        {.group =
             "check_file_exist, check_directory_exist, make_directory, remove_directory, oper_whole_path",
         .use =
             [&] {
                 file = check_file_exist(deep.c_str());
                 directory = check_directory_exist(path);
                 made = make_directory(made_path);
                 removed = remove_directory(made_path);
                 oper_whole_path(path, whole);
             },
         .outcome =
             [&] {
                 return std::to_string(file) + ' ' + std::to_string(directory) + ' ' + std::to_string(made) +
                        ' ' + std::to_string(removed) + (std::string(whole).empty() ? " none" : " whole");
             },
         .right = "0 0 0 0 whole",
         .memory = {"-2 -2 -2 -2 none", "-2 0 0 0 whole", "0 -2 -2 -2 none", "0 -2 0 0 whole",
                    "0 0 -2 -2 none", "0 0 -2 -2 whole", "0 0 0 -2 none", "0 0 0 -2 whole", "0 0 0 0 none"},
         .files = {"-2 -2 0 0 whole", "-2 0 0 0 whole", "0 -2 0 0 whole"},
         .prepare = [&] { std::filesystem::remove(made_path); }});
    std::int32_t big5 = 0, drive = 0;
    HOST_set_setting("CHINESBIG5(88)", "yes");
    test::inject({.group = "check_big5, get_cdrom_drive",
                  .use = [&] { big5 = check_big5(), drive = get_cdrom_drive(); },
                  .outcome = [&] { return std::to_string(big5) + ' ' + std::to_string(drive); },
                  .right = "0 3",
                  .machine = {"-2 -1", "-2 3", "0 -1"}});
    HOST_set_setting("CHINESBIG5(88)", nullptr);
}

TEST(Utility, AsksTheMachine) {
    char time[26];
    HOST_set_local_time(2026, 11, 2, 9, 5, 42);
    get_time(time);
    EXPECT_STREQ(time, "Mon Nov 02 09:05:42 2026\n");
    for (const char *value : {"YeS", "yes!", static_cast<const char *>(nullptr)}) {
        HOST_set_setting("CHINESBIG5(88)", value);
        EXPECT_EQ(check_big5(), value != nullptr && value[3] == '\0' ? 0 : -2);
    }
    EXPECT_EQ(get_cdrom_drive(), 3);
    HOST_observe([](const char *call) { return std::string_view(call).starts_with("is_cdrom") ? 1 : 0; });
    EXPECT_EQ(get_cdrom_drive(), -1);
    HOST_observe(nullptr);
}

TEST_IN_NEW_PROCESS(Utility, AdvancesTheRandomGeneratorByTheClock) {
    test::write_text(
        "a.mac", test::script_file({test::op(22, test::constant(0) + test::constant(32768)) + test::op(1)}));
    ASSERT_EQ(MAC_init("", "", 1, nullptr) + MAC_load("a.mac"), 0);
    HOST_set_local_time(2026, 11, 2, 9, 5, 42);
    // The number that the script draws is the 4201st.
    run_random_init();
    EXPECT_EQ(MAC_driver(0), 0);
    std::uint32_t state = 1;
    for (int i = 0; i < 4201; ++i) state = state * 214013 + 2531011;
    EXPECT_EQ(MAC_get_variable(0), static_cast<std::int32_t>(state >> 16 & 0x7FFF));
}

}  // namespace
