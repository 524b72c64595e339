// BIND archives against bytes put together here.
#include "inkstone/bind.h"

#include <gtest/gtest.h>

#include "support/files.h"
#include "support/guarded.h"

namespace fs = std::filesystem;
using test::Bytes;

namespace {

struct Entry {
    std::string name;
    std::uint32_t offset, size;
};

// An archive of that directory and those contents.
std::string archive(const std::vector<Entry> &entries, const std::string &contents, std::int32_t count = -1) {
    const auto number = [](std::uint32_t value) {
        std::string bytes;
        for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(value >> shift);
        return bytes;
    };
    std::string bytes = "Murn Bind file\x1A\x10";
    bytes +=
        number(count < 0 ? static_cast<std::uint32_t>(entries.size()) : static_cast<std::uint32_t>(count));
    bytes += std::string("\x4B\x73\x0B\0", 4);
    for (const Entry &entry : entries) {
        std::string name = entry.name;
        name.resize(16);
        bytes += name + number(entry.offset) + number(entry.size);
    }
    return bytes + contents;
}

// The file's bytes as BIND_open and BIND_read give them.
std::string fetch(const std::string &from, std::string name) {
    std::int32_t offset = -1, size = -1;
    EXPECT_EQ(BIND_open(from.c_str(), name.data(), &offset, &size), 0);
    test::Guarded to(static_cast<std::size_t>(size));
    EXPECT_EQ(BIND_read(from.c_str(), offset, size, to), 0);
    EXPECT_TRUE(to.intact());
    const Bytes bytes = to.contents();
    return std::string(bytes.begin(), bytes.end());
}

}  // namespace

TEST(Bind, BindsWhatTheListNames) {
    fs::create_directory("Sub");
    const std::string long_file(128000, 'x');
    test::write_text("A.DAT", "0123456789");
    test::write_text("B.DAT", "bbbbb");
    test::write_text("Sub/Long.dat", long_file);
    test::write_text("EMPTY", "");
    const struct {
        std::string list, archive;
    } rows[] = {
        {"", archive({}, "")},
        {"; A.DAT\r\n;\n", archive({}, "")},
        {"A.DAT\r\nB.DAT\r\n", archive({{"A.DAT", 72, 10}, {"B.DAT", 82, 5}}, "0123456789bbbbb")},
        {"B.DAT\n;\nempty\nB.DAT",
         archive({{"B.DAT", 96, 5}, {"empty", 101, 0}, {"B.DAT", 101, 5}}, "bbbbbbbbbb")},
        {"sub\\long.DAT\r\nA.DAT\r\n\x1A\r\nB.DAT\r\n",
         archive({{"sub\\long.DAT", 72, 128000}, {"A.DAT", 128072, 10}}, long_file + "0123456789")},
        {";" + std::string(126, '-') + "A.DAT\n", archive({{"A.DAT", 48, 10}}, "0123456789")},
    };
    for (const auto &row : rows) {
        test::write_text("list", row.list);
        EXPECT_EQ(BIND_bind_file("out.bnd", "list"), 0);
        EXPECT_EQ(test::read_text("out.bnd"), row.archive);
        EXPECT_EQ(test::take_log(), "");
    }
}

TEST(Bind, LeavesTheArchiveAloneUntilTheListIsRead) {
    test::write_text("a", "a");
    test::write_text("fifteen_letters", "15");
    std::ofstream("huge").close();
    fs::resize_file("huge", (std::uint64_t{1} << 31) - 72);
    const struct {
        std::string list, log;
    } rows[] = {
        {"a\nmissing.dat\n", "BIND element file missing.dat open error\n"},
        {"a\r\n\r\n", "BIND element file  open error\n"},
        {" a\n", "BIND element file  a open error\n"},
        {"fifteen_letters\nsixteen__letters\n", "BIND element file sixteen__letters name too long\n"},
        {"huge\na\n", "BIND file out.bnd too large\n"},
    };
    for (const auto &row : rows) {
        test::write_text("list", row.list);
        test::write_text("out.bnd", "before");
        EXPECT_EQ(BIND_bind_file("out.bnd", "list"), -1);
        EXPECT_EQ(test::read_text("out.bnd"), "before");
        EXPECT_EQ(test::take_log(), row.log);
    }
    EXPECT_EQ(BIND_bind_file("out.bnd", "no_list"), -1);
    EXPECT_EQ(test::take_log(), "LIST file no_list open error\n");
    test::write_text("list", "a\n");
    EXPECT_EQ(BIND_bind_file("no/out.bnd", "list"), -1);
    EXPECT_EQ(BIND_bind_file("/dev/full", "list"), -1);
    EXPECT_EQ(test::take_log(), "file no/out.bnd open error\nfile /dev/full write error\n");
}

TEST(Bind, FindsAndReadsByName) {
    test::write_text(
        "x.bnd", archive({{"One.dat", 96, 3}, {"one.DAT", 99, 2}, {"exactly16letters", 101, 1}}, "abcde!"));
    EXPECT_EQ(fetch("X.BND", "oNE.dat"), "abc");  // the first of two
    EXPECT_EQ(fetch("x.bnd", "Exactly16Letters"), "!");

    char name[] = "two.d{t";
    std::int32_t offset = -7, size = -7;
    EXPECT_EQ(BIND_open("x.bnd", name, &offset, &size), -2);
    EXPECT_STREQ(name, "TWO.D{T");
    EXPECT_EQ(BIND_open("no.bnd", name, &offset, &size), -2);
    test::write_text("none.bnd", archive({}, ""));
    char unchanged[] = "two";
    EXPECT_EQ(BIND_open("none.bnd", unchanged, &offset, &size), -2);
    EXPECT_EQ(offset, -7);
    EXPECT_EQ(size, -7);
    std::uint8_t byte = 9;
    EXPECT_EQ(BIND_read("no.bnd", 0, 1, &byte), -2);
    EXPECT_EQ(test::take_log(),
              "File TWO.D{T not in BIND file x.bnd \nFile no.bnd open error\n"
              "File two not in BIND file none.bnd \nFile no.bnd open error\n");

    // A stretch that is not all there, or none at all.
    test::Guarded to(4, 9);
    EXPECT_EQ(BIND_read("x.bnd", 100, 4, to), 0);
    EXPECT_EQ(to.contents(), (Bytes{'e', '!', 9, 9}));
    for (const auto &[from, count] : {std::pair(-1, 4), {500, 4}, {96, -1}, {96, 0}, {INT32_MAX, INT32_MAX}})
        EXPECT_EQ(BIND_read("x.bnd", from, count, to), 0);
    EXPECT_EQ(to.contents(), (Bytes{'e', '!', 9, 9}));
}

TEST(Bind, ChopsWhatItBound) {
    fs::create_directories("in/sub");
    fs::create_directories("out/SUB");
    const std::string long_file(64000 + 1, 'y');
    test::write_text("in/A", "first");
    test::write_text("in/sub/B", long_file);
    test::write_text("in/EMPTY", "");
    test::write_text("in/list", "A\r\nsub\\B\r\nEMPTY\r\n");
    fs::current_path("in");
    ASSERT_EQ(BIND_bind_file("all.bnd", "list"), 0);
    fs::current_path("../out");
    test::write_text("a", "some longer file that stands there");
    EXPECT_EQ(BIND_chop_file("../in/all.bnd", nullptr), 0);
    EXPECT_EQ(test::read_text("a"), "first");
    EXPECT_FALSE(test::exists("A"));
    EXPECT_EQ(test::read_text("SUB/B"), long_file);
    EXPECT_TRUE(test::exists("EMPTY"));
    EXPECT_EQ(test::take_log(), "");
    EXPECT_EQ(BIND_chop_file("missing", nullptr), 0);
    EXPECT_EQ(test::take_log(), "file missing open error\n");
}

TEST(Bind, ChopsNothingOutsideTheDirectory) {
    fs::create_directory("here");
    fs::current_path("here");
    std::vector<std::string> names = {"..\\bad", "../bad", "/bad",  "\\bad",      "c:\\bad",
                                      "c:bad",   "no/bad", "a.bnd", ".\\..\\bad", "a\\.. \\bad",
                                      "...",     "A.BND",  ""};
    for (const std::string &name : names) {
        test::write_text("a.bnd", archive({{"good", 96, 1}, {name, 96, 1}, {"late", 96, 1}}, "!"));
        EXPECT_EQ(BIND_chop_file("a.bnd", nullptr), 0);
        EXPECT_EQ(test::take_log(), std::string("file ").append(name).append(" open error\n"));
        EXPECT_EQ(test::read_text("good"), "!");
        fs::remove("good");
        EXPECT_EQ(test::read_text("a.bnd").size(), 97u) << name;
        EXPECT_EQ(std::distance(fs::directory_iterator("."), {}), 1) << name;
        EXPECT_EQ(std::distance(fs::directory_iterator(".."), {}), 1) << name;
    }
}

TEST(Bind, ChopsDamagedArchivesAsFarAsTheyGo) {
    // Contents cut short or missing, and a count that promises more entries than there are.
    test::write_text("a.bnd", archive({{"cut", 80, 0xFFFFFFFF}, {"gone", 0xFFFFFFF0, 9}}, "", INT32_MAX) +
                                  "data and half an entry");
    EXPECT_EQ(BIND_chop_file("a.bnd", nullptr), 0);
    EXPECT_EQ(test::read_text("cut"), " half an entry");
    EXPECT_TRUE(test::exists("gone"));
    // Entries that share contents may not make more of the archive than it is.
    std::vector<Entry> entries;
    for (int i = 0; i < 100; ++i) entries.push_back({std::string("f").append(std::to_string(i)), 0, 4000});
    test::write_text("b.bnd", archive(entries, std::string(5600, 'z')));
    EXPECT_EQ(BIND_chop_file("b.bnd", nullptr), 0);
    EXPECT_TRUE(test::exists("f1"));
    EXPECT_FALSE(test::exists("f2"));
    EXPECT_EQ(test::take_log(), "file f2 open error\n");
}
