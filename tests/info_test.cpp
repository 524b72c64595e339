// Configuration files: what counts as a line, a section, a key and a value.
#include "inkstone/info.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "support/files.h"
#include "support/injection.h"

namespace {

void load(const std::string &text) {
    INFO_close_file();
    test::write_text("game.inf", text);
    ASSERT_EQ(INFO_open_file("game.inf"), 0);
}

std::string look_up(const std::string &section, const std::string &key) {
    char value[255];
    std::fill_n(value, sizeof value, '?');
    const char *returned = INFO_read_config(section.c_str(), key.c_str(), value);
    EXPECT_STREQ(returned, value);
    return value;
}

}  // namespace

TEST(Info, FindsValues) {
    load(
        "none = 0\r\n"
        "[Sound]\r\nVolume = 80\r\n; Rate = 1\r\n"
        " \t[Video]\r\nVolume = 5\nName = Big Dragon ; boss \r\n\tSPEED,12\nA=12\nB 12\n,=C\t=, 12\nOnly = "
        "x\rrest\n"
        "Later =\nLater = 3\nLater = 4\n"
        "[open\nKey = 1\n"
        "[Twice]\nA = dropped\n[TWICE]text behind\nB = kept\n[]\nE = empty\n[Twice]\nC = other\n");
    const struct {
        const char *section, *key, *value;
    } rows[] = {
        {"sound", "VOLUME", "80"}, {"Video", "volume", "5"}, {"Video", "Name", "Big Dragon ; boss "},
        {"Video", "speed", "12"},  {"Video", "a", "12"},     {"Video", "b", "12"},
        {"Video", "c", "12"},      {"Video", "Only", "x"},   {"Video", "later", "3"},
        {"open", "key", "1"},      {"twice", "B", "kept"},   {"", "e", "empty"},
        {"Twice", "A", ""},        {"Twice", "C", ""},       {"Sound", "Name", ""},
        {"Sound", ";", ""},        {"Sound", "Rate", ""},    {"Sound", "", ""},
        {"none", "none", ""},      {"[Sound", "Volume", ""}, {"Sound]", "Volume", ""},
    };
    for (const auto &row : rows)
        EXPECT_EQ(look_up(row.section, row.key), row.value) << row.section << row.key;
    char value[255];
    EXPECT_STREQ(INFO_read_config("Video", INFO_read_config("Video", "a", value), value), "");
    EXPECT_EQ(test::take_log(), "");
}

TEST(Info, ReadsLinesOfLimitedLength) {
    const std::string name79(79, 'n'), name80(80, 'm'), value300(300, 'v');
    load("[" + name79 + "]\nKey = " + value300 + "\n[" + name80 + "]\n" + name79 + " = 9\nLast = 1");
    EXPECT_EQ(look_up(name79, "Key"), value300.substr(0, 254));
    EXPECT_EQ(look_up(name80, name79), "");  // no name is that long
    EXPECT_EQ(look_up(name79, "Last"), "");

    // A piece of 1022 characters is a line, and is one even where the file ends behind it.
    const std::string start = "[S]\n", filler(1022, ';');
    load(start + filler + "A = 1\n" + std::string("B = 2") + std::string(1017, ' '));
    EXPECT_EQ(look_up("S", "A"), "1");
    EXPECT_EQ(look_up("S", "B").substr(0, 3), "2  ");
    load(start + "B = 2" + std::string(1016, ' '));
    EXPECT_EQ(look_up("S", "B"), "");
    load(start + std::string("C = 3\0 D\nE = 5\n", 15));  // a text ends at a zero
    EXPECT_EQ(look_up("S", "C"), "3");
    EXPECT_EQ(look_up("S", "E"), "5");
}

TEST(Info, LoadsOneFileAtATime) {
    EXPECT_EQ(look_up("a", "b"), "");
    load("[a]\nb = 1\n");
    EXPECT_EQ(INFO_open_file("game.inf"), -2);
    EXPECT_EQ(test::take_log(), "INFO file reopen error !!!\n");
    EXPECT_EQ(look_up("a", "b"), "1");
    INFO_close_file();
    EXPECT_EQ(look_up("a", "b"), "");
    EXPECT_EQ(INFO_open_file("missing.inf"), -2);
    EXPECT_EQ(INFO_open_file("game.inf"), -2);
    EXPECT_EQ(test::take_log(), "INFO file missing.inf open error!!!\nINFO file reopen error !!!\n");
    INFO_close_file();
    EXPECT_EQ(INFO_open_file("GAME.INF"), 0);
    EXPECT_EQ(look_up("A", "B"), "1");
}

TEST(Info, BearsEveryRefusal) {
    std::string text = "[first]\na = 1\n";
    for (int i = 0; i < 50; ++i) text += "[s" + std::to_string(i) + "]\nkey = " + std::to_string(i) + "\n";
    test::write_text("game.inf", text);
    std::int32_t result = 0;
    // The lines read before one that cannot be had can be looked up.
    const auto found = [] {
        int count = 0;
        while (count < 50 && look_up("s" + std::to_string(count), "KEY") == std::to_string(count)) ++count;
        return count == 50 ? " all" : count > 0 ? " some" : " none";
    };
    test::inject(
        {.group = "INFO_open_file, INFO_read_config, INFO_close_file",
         .use = [&] { result = INFO_open_file("game.inf"); },
         .outcome = [&] { return std::to_string(result) + found(); },
         .right = "0 all",
         .memory = {"-2 none| INFO_open_file: Memory alloc error!!!", "-2 none| Memory alloc error!!!",
                    "-2 some| INFO_open_file: Memory alloc error!!!"},
         .files = {"-2 none| INFO file game.inf open error!!!", "0 none"},
         .prepare = [] { INFO_close_file(); }});
    EXPECT_EQ(INFO_read_config("s49", "key", nullptr), std::string("49"));
    EXPECT_EQ(INFO_read_config(nullptr, "key", nullptr), std::string());
    EXPECT_EQ(INFO_read_config("s49", nullptr, nullptr), std::string());
    INFO_close_file();
    EXPECT_EQ(INFO_open_file(nullptr), -2);
    EXPECT_EQ(test::take_log(), "INFO file  open error!!!\n");
    INFO_close_file();
}
