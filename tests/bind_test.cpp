// BIND archives against bytes put together here.
#include "inkstone/bind.h"

#include <gtest/gtest.h>

#include <cstring>

#include "support/files.h"
#include "support/guarded.h"
#include "support/injection.h"

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

// So many bytes of which no two stretches are the same.
std::string numbered(std::size_t size) {
    std::string text;
    while (text.size() < size) text += std::to_string(text.size()) += ',';
    return text.substr(0, size);
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
    const std::string long_file = numbered(128000);
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
    fs::resize_file("huge", (std::uint64_t{1} << 31) - 73);  // one byte too many, and far more than that
    std::ofstream("vast").close();
    fs::resize_file("vast", (std::uint64_t{1} << 32) + 5);
    const struct {
        std::string list, log;
    } rows[] = {
        {"a\nmissing.dat\n", "BIND element file missing.dat open error\n"},
        {"a\r\n\r\n", "BIND element file  open error\n"},
        {" a\n", "BIND element file  a open error\n"},
        {"fifteen_letters\nsixteen__letters\n", "BIND element file sixteen__letters name too long\n"},
        {"huge\na\n", "BIND file out.bnd too large\n"},
        {"vast\n", "BIND file out.bnd too large\n"},
        {"a\nOUT.BND\n", "BIND element file OUT.BND open error\n"},  // it cannot hold itself
    };
    for (const auto &row : rows) {
        test::write_text("list", row.list);
        test::write_text("out.bnd", "before");
        EXPECT_EQ(BIND_bind_file("out.bnd", "list"), -1);
        EXPECT_EQ(test::read_text("out.bnd"), "before");
        EXPECT_EQ(test::take_log(), row.log);
    }
    test::write_text("list", "a\n");
    const struct {
        const char *archive, *list;
        std::string log;
    } failures[] = {{"out.bnd", "no_list", "LIST file no_list open error\n"},
                    {"out.bnd", nullptr, "LIST file  open error\n"},
                    {"no/out.bnd", "list", "file no/out.bnd open error\n"},
                    {nullptr, "list", "file  open error\n"},
                    {"/dev/full", "list", "file /dev/full write error\n"}};
    for (const auto &[to, list, log] : failures) {
        if (!test::kHasFullDevice && log.find("/dev/full") != log.npos) continue;
        EXPECT_EQ(BIND_bind_file(to, list), -1);
        EXPECT_EQ(test::take_log(), log);
    }
    EXPECT_EQ(test::read_text("out.bnd"), "before");
}

TEST(Bind, BearsEveryRefusal) {
    test::write_text("list", "a\nanother\n");
    test::write_text("a", "aa");
    test::write_text("another", "bbb");
    const std::string whole = archive({{"a", 72, 2}, {"another", 74, 3}}, "aabbb");
    std::int32_t result = 0, offset = 0, size = 0;
    const auto made = [&](const std::string &name, const std::string &text) {
        const std::string found = test::read_text(name);
        return found == text             ? " whole"
               : text.starts_with(found) ? (test::exists(name) ? " begun" : " none")
                                         : " wrong";
    };
    test::inject(
        {.group = "BIND_bind_file",
         .use = [&] { result = BIND_bind_file("a.bnd", "list"); },
         .outcome = [&] { return std::to_string(result) + made("a.bnd", whole); },
         .right = "0 whole",
         .memory = {"-1 begun| memory alloc error", "-1 none| memory alloc error"},
         .files = {"-1 begun| file a open error", "-1 begun| file a.bnd write error",
                   "-1 begun| file another open error", "-1 none| BIND element file a open error",
                   "-1 none| BIND element file ano open error",
                   "-1 none| BIND element file another open error", "-1 none| LIST file list open error",
                   "-1 none| file a.bnd open error", "-1 whole| file a.bnd write error",
                   "-1 wrong| file a open error", "-1 wrong| file another open error"},
         .prepare = [] { fs::remove("a.bnd"); }});
    char name[8];
    test::inject({.group = "BIND_open",
                  .use = [&] { result = BIND_open("a.bnd", name, &offset, &size); },
                  .outcome = [&] { return std::to_string(result) + ' ' + std::to_string(offset + size); },
                  .right = "0 77",
                  .files = {"-2 0| File a.bnd open error", "-2 0| File another not in BIND file a.bnd "},
                  .prepare =
                      [&] {
                          std::strcpy(name, "another");
                          offset = size = 0;
                      }});
    char bytes[4];
    test::inject({.group = "BIND_read",
                  .use = [&] { result = BIND_read("a.bnd", 74, 3, reinterpret_cast<std::uint8_t *>(bytes)); },
                  .outcome = [&] { return std::to_string(result) + ' ' + bytes; },
                  .right = "0 bbb",
                  .files = {"-2 ...| File a.bnd open error", "0 ...", "0 b.."},
                  .prepare = [&] { std::strcpy(bytes, "..."); }});
    test::inject(
        {.group = "BIND_chop_file",
         .use = [&] { result = BIND_chop_file("a.bnd", nullptr); },
         .outcome = [&] { return std::to_string(result) + made("a", "aa") + made("another", "bbb"); },
         .right = "0 whole whole",
         .memory = {"0 none none| memory alloc error"},
         .files = {"0 begun begun", "0 begun none| file a write error", "0 begun whole", "0 none none",
                   "0 none none| file a open error", "0 none none| file a.bnd open error",
                   "0 whole begun| file another write error", "0 whole none| file a write error",
                   "0 whole none| file another open error", "0 whole whole| file another write error"},
         .prepare = [] { fs::remove("a"), fs::remove("another"); }});
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

    EXPECT_EQ(BIND_open("x.bnd", nullptr, &offset, &size), -2);
    EXPECT_EQ(BIND_open("x.bnd", name, nullptr, &size), -2);
    EXPECT_EQ(test::take_log(), "File  not in BIND file x.bnd \n");
    EXPECT_STREQ(name, "TWO.D{T");

    // Of a directory that is read in several pieces.
    std::vector<Entry> many;
    for (std::uint32_t i = 0; i < 3000; ++i) many.push_back({"n" + std::to_string(i), i, i % 7});
    many.push_back({"[@", 0, 0});
    test::write_text("many.bnd", archive(many, ""));
    for (std::string wanted : {"{@", "[`"}) {  // neighbours of the letters have no case
        EXPECT_EQ(BIND_open("many.bnd", wanted.data(), &offset, &size), -2);
        EXPECT_EQ(test::take_log(), "File " + wanted + " not in BIND file many.bnd \n");
    }
    for (const std::uint32_t i : {0u, 127u, 128u, 1023u, 1024u, 2999u}) {
        std::string wanted = "N" + std::to_string(i);
        EXPECT_EQ(BIND_open("many.bnd", wanted.data(), &offset, &size), 0) << i;
        EXPECT_EQ(std::pair(offset, size), std::pair(static_cast<int>(i), static_cast<int>(i % 7)));
    }

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
    const std::string long_file = numbered(2 * 64000 + 1);
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
#if !defined(_WIN32)
    EXPECT_FALSE(test::exists("A"));
#endif
    EXPECT_EQ(test::read_text("SUB/B"), long_file);
    EXPECT_TRUE(test::exists("EMPTY"));
    EXPECT_EQ(test::take_log(), "");
    if (!test::kHasFullDevice) return;
    fs::remove("EMPTY");
    fs::create_symlink("/dev/full", "SUB/B.LNK");
    fs::remove("SUB/B");
    fs::rename("SUB/B.LNK", "SUB/B");
    EXPECT_EQ(BIND_chop_file("../in/all.bnd", nullptr), 0);
    EXPECT_FALSE(test::exists("EMPTY"));  // a full disk ends it
    EXPECT_EQ(BIND_chop_file("missing", nullptr), 0);
    EXPECT_EQ(BIND_chop_file(nullptr, nullptr), 0);
    EXPECT_EQ(test::take_log(), "file sub\\B write error\nfile missing open error\nfile  open error\n");
}

TEST(Bind, ChopsNothingOutsideTheDirectory) {
    fs::create_directory("here");
    fs::current_path("here");
    // What leads outside, or to the archive itself, is passed over; what cannot be created ends it.
    const std::vector<std::pair<std::string, bool>> names = {
        {"..\\bad", true}, {"../bad", true}, {"/bad", true},       {"\\bad", true},
        {"c:\\bad", true}, {"c:bad", true},  {".\\..\\bad", true}, {"a\\.. \\bad", true},
        {"...", true},     {"A.BND", true},  {"", true},           {"no/bad", false}};
    for (const auto &[name, goes_on] : names) {
        test::write_text("a.bnd", archive({{"good", 96, 1}, {name, 96, 1}, {"late", 96, 1}}, "!"));
        EXPECT_EQ(BIND_chop_file("a.bnd", nullptr), 0);
        EXPECT_EQ(test::take_log(), std::string("file ").append(name).append(" open error\n"));
        EXPECT_EQ(test::read_text("good"), "!");
        EXPECT_EQ(test::read_text("late"), goes_on ? "!" : "") << name;
        fs::remove("good");
        fs::remove("late");
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
    // Entries may share contents, but make no more than 64 times the archive of it, here of 8000 bytes.
    std::vector<Entry> entries;
    for (int i = 0; i < 130; ++i) entries.push_back({std::string("f").append(std::to_string(i)), 4000, 4000});
    test::write_text("b.bnd", archive(entries, std::string(8000 - 24 - 130 * 24, 'z')));
    EXPECT_EQ(BIND_chop_file("b.bnd", nullptr), 0);
    EXPECT_EQ(test::read_text("f127").size(), 4000u);
    EXPECT_FALSE(test::exists("f128"));
    EXPECT_EQ(test::take_log(), "file f128 open error\n");
}
