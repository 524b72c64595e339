// File names of game data through the one door that opens them, seen through the error log's file.
#include <gtest/gtest.h>

#include "inkstone/runtime.h"
#include "support/files.h"

namespace fs = std::filesystem;

TEST(FileName, IsFoundWhateverItsSeparatorsAndCase) {
    fs::create_directories("Data/Level1");
    test::write_text("Data/Level1/Notes.Txt", "old\n");
    log_error_to_file("a", "DATA\\level1/NOTES.TXT");
    log_error_to_file("b", "data\\LEVEL1\\new.txt");
    EXPECT_EQ(test::read_text("Data/Level1/Notes.Txt"), "old\na\n");
    EXPECT_EQ(test::read_text("Data/Level1/new.txt"), "b\n");
}

TEST(FileName, PrefersTheNameAsWritten) {
#if defined(_WIN32)
    GTEST_SKIP() << "the system itself takes any letter case";
#endif
    test::write_text("Name", "");
    test::write_text("NAME", "");
    log_error_to_file("x", "NAME");
    log_error_to_file("y", "name");  // neither is exact: the first in byte order
    EXPECT_EQ(test::read_text("NAME"), "x\ny\n");
    EXPECT_EQ(test::read_text("Name"), "");
}

TEST(FileName, ThatCannotBeOpenedIsPassedOver) {
    fs::create_directory("dir");
    log_error_to_file("x", "dir");
    log_error_to_file("x", "missing/file");
    log_error_to_file("x", "");
    log_error_to_file("x", nullptr);
    EXPECT_TRUE(fs::is_empty("dir"));
}
