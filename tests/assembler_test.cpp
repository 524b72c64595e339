// Sources to scripts and back, and the tool that does it.
#include "mac/assembler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>

#include "mac/disassembler.h"
#include "support/files.h"
#include "support/script.h"

namespace {

using namespace test;
using ink::mac::assemble;
using ink::mac::disassemble;
using ink::mac::Program;

constexpr const char *kDeclarations =
    "command 24 say string\ncommand 25 give number, variable procedure\ncommand 26 at long, char\n"
    "var gold\nvar far #0x10\nconst N = (2 + 3) * -4 % 6\n";

std::optional<std::string> read(const std::string &name) {
    if (name == "dir/commands.mas") return kDeclarations;
    if (name == "dir/self.mas") return "include \"self.mas\"";
    return std::nullopt;
}

std::string build(const std::string &source) {
    const auto file = assemble("dir/a.mas", source, read).file;
    return {file.begin(), file.end()};
}

TEST(Assembler, WritesEachStatement) {
    struct {
        std::string source, code;
    } const cases[] = {
        {"", ""},
        {"note 5 ; comment", op(0, constant(5))},
        {"return\nend\r\nstop", op(1) + op(15) + op(23)},
        {"a: b: goto b\n goto end_\n end_:", op(13, word(0)) + op(13, word(12))},
        {"if gold < 5 else .x\n.x:", op(2, word(17) + constant(0) + '<' + constant(5))},
        {"if [far] <> far else 3", op(2, word(3) + variable(16) + '\xF7' + variable(16))},
        {"if #9 != @8 else -1", op(2, word(-1) + constant(9) + '\xF7' + variable(8))},
        {"if far = #far else 0", op(2, word(0) + constant(16) + '=' + constant(16))},
        {"if gold >= 1 else 0", op(2, word(0) + constant(0) + '\xF2' + constant(1))},
        {"if gold <= 1 else 0", op(2, word(0) + constant(0) + '\xF3' + constant(1))},
        {"set gold, 0xFFFFFFFF", op(17, constant(0) + constant(-1))},
        {"add [gold], far", op(18, variable(0) + variable(16))},
        {"sub gold, -(N - 1) * 2", op(19, constant(0) + constant(6))},
        {"mul gold, 'A'", op(20, constant(0) + constant(65))},
        {"div @gold, '\\''", op(21, variable(0) + constant(39))},
        {"random #far + 1, 7 / 2", op(22, constant(17) + constant(3))},
        {"chain \"A.MAC\"", op(16, text("A.MAC"))},
        {"say \"\xE4\xBD\xA0 \\x5c\\n\\\"\"", op(24, text("\xA7\x41 \\\n\""))},
        {"give far, [far], 3", op(25, variable(16) + variable(16) + constant(3))},
        {"at 10, 200", op(26, word(10) + "\xC8")},
        {"op 200", op(200)},
        {"op 7, -3, gold, variable gold, long 2, char 'x', \"s\", {00 fF}",
         op(7,
            constant(-3) + variable(0) + constant(0) + word(2) + 'x' + text("s") + std::string("\0\xFF", 2))},
        {"data {01 02}, 3, \"45\"",
         "\1\2\3"
         "45"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(build("include \"commands.mas\"\n" + c.source),
                  std::string(12, '\0') + word(static_cast<std::int32_t>(c.code.size())) + word(0) + word(0) +
                      c.code)
            << c.source;
}

TEST(Assembler, LaysTheTableAndTheHeaderOut) {
    const std::string code =
        op(14, constant(3)) + op(13, word(0)) + op(14, constant(4)) + op(13, word(7 + 6)) + op(1);
    EXPECT_EQ(
        build("proc main\n call 3\n goto main\nproc 3 twin\n call last\n goto twin\nproc last\n return\n"),
        std::string(12, '\0') + word(static_cast<std::int32_t>(code.size())) + word(0) + word(5) + word(0) +
            word(-1) + word(-1) + word(13) + word(26) + code);
    EXPECT_EQ(build("header 1, -2, 3, 4\nsize 9\nprocs 2\nentry 3 = there + 1\ndata 1, 2\nthere:"),
              word(1) + word(-2) + word(3) + word(9) + word(4) + word(4) + word(-1) + word(-1) + word(-1) +
                  word(3) + "\1\2");
    EXPECT_EQ(build("file {01 02}\nfile {03}"), "\1\2\3");
}

// Sources with one fault each, below them the report: the first lines of it, each behind "> ".
TEST(Assembler, PointsAtWhatIsWrong) {
    const auto reported = [](const std::string &source) -> std::string {
        try {
            const auto warnings = assemble("dir/a.mas", source, read).warnings;
            return warnings.size() == 1 ? warnings[0].what() : std::to_string(warnings.size()) + " warnings";
        } catch (const ink::tool::SourceErrors &error) {
            return error.what();
        }
    };
    std::istringstream file(read_text(TEST_DATA "/script/errors.txt"));
    int count = 0;
    std::string source, report;
    for (std::string line; std::getline(file, line);) {
        const bool of_report = line.starts_with("> ");
        (of_report ? report : source) += (of_report ? line.substr(2) : line) + '\n';
        if (!of_report || file.peek() == '>') continue;
        const std::string expected = "dir/a.mas:" + report;
        EXPECT_EQ((reported("include \"commands.mas\"\n" + source) + "\n").substr(0, expected.size()),
                  expected)
            << source;
        ++count;
        source = report = {};
        std::getline(file, line);
    }
    EXPECT_EQ(count, 61);
    EXPECT_NE(reported("say \"\xA7\x41\"").find("a.mas:1:6: this is not UTF-8"), std::string::npos);
    // Every fault of a source, but not what follows from one, up to twenty; files that include themselves
    // end.
    const std::string all = reported("var 5\nconst lamp = = 3\nnote lamp\nproc a\n goto nowhere\n jump\n");
    std::string places;
    for (std::size_t at = 0; (at = all.find("dir/a.mas:", at)) != std::string::npos; ++at)
        places += all.substr(at + 10, all.find(' ', at) - at - 10);
    EXPECT_EQ(places, "1:5:2:14:6:2:5:7:");
    std::string many;
    for (int i = 0; i < 30; ++i) many += "x\n";
    const std::string screen = reported(many);
    EXPECT_EQ(std::count(screen.begin(), screen.end(), '^'), 20);
    EXPECT_NE(reported("include \"self.mas\"\ninclude \"self.mas\"").find("include each other"),
              std::string::npos);
}

TEST(Disassembler, GivesASourceThatBuildsToTheSameBytes) {
    const Program declarations = assemble("dir/commands.mas", kDeclarations, read);
    const auto check = [&](const std::string &bytes, const std::string &expected) {
        const std::vector<std::uint8_t> file(bytes.begin(), bytes.end());
        const std::string source = disassemble(file, declarations, "commands.mas");
        EXPECT_EQ(source, expected);
        EXPECT_EQ(assemble("dir/b.mas", source, read).file, file);
        EXPECT_EQ(assemble("dir/b.mas", disassemble(file, {}, ""), read).file, file);
    };
    const std::string sound = op(24, text("\xA7\x41 \xA7\"\n")) + op(14, constant(2)) +
                              op(25, variable(0) + constant(16) + constant(0)) +
                              op(2, word(0) + variable(16) + '\xF3' + variable(3)) + op(26, word(5) + "'");
    const std::string odd = op(17, constant(1)) + op(17, constant(1) + constant(2) + "x") +
                            op(2, word(0) + constant(0) + "!" + constant(0)) + op(24, "\xFF") +
                            op(26, word(1)) + op(5, "ab") + op(99) + "\x0D\x04\0";
    std::string file = script_file({0, 3, static_cast<std::int32_t>(sound.size()), -7, -1}, sound + odd);
    file.replace(12, 4, word(1));
    check(file, read_text(TEST_DATA "/script/odd.mas"));
    check("", "include \"commands.mas\"\nfile {}\n");
    check(std::string(3, '\x7F') + '\1', "include \"commands.mas\"\nfile {7F 7F 7F 01}\n");
}

// The page that explains the language has an example, which must stay true.
TEST(InkMac, BuildsRunsAndListsTheExampleOfThePage) {
    const std::string page = read_text(DOCS "/script.md");
    const auto block = [&page](std::size_t from) {
        const std::size_t start = page.find("```\n", from) + 4;
        return page.substr(start, page.find("```\n", start) - start);
    };
    write_text("commands.mas", block(0));
    write_text("gate.mas", block(page.find("`gate.mas`:")));
    const auto ink = [](const std::string &arguments) {
        const int status = std::system((INK_TOOL " mac " + arguments + " >out 2>err").c_str());
        return (status == 0 ? "" : "failed: ") + read_text("out") + read_text("err");
    };
    EXPECT_EQ(ink("build gate.mas"), "");
    EXPECT_EQ(ink("dump gate.mac -d commands.mas -o back.mas"), "");
    EXPECT_EQ(ink("build back.mas -o sub.mac"), "");
    EXPECT_EQ(read_file("gate.mac"), read_file("sub.mac"));
    const std::string start = "say \"守門人：「你要進城嗎？」\"\nask \"給他多少錢？\", ";
    EXPECT_EQ(ink("run gate.mas -s gold=20 -s answer=6"),
              start +
                  "answer\nresult 8: the script goes on in CITY.MAC (gate.mas:26)\ngold = 14\nanswer = "
                  "6\nluck = 5\n");
    EXPECT_EQ(ink("run gate.mac -d commands.mas -p 0"),
              start + "#1\nsay \"「沒有 5 文錢，免談！」\"\nresult -1: the script stopped itself\n");
    write_text("loop.mas", "var n\nproc a\n.b: add n, 1\n goto .b\nproc c\n call c\n goto 99\n");
    EXPECT_EQ(ink("run loop.mas -l 4000"),
              "result 0: broken off at the limit of instructions (loop.mas:3)\nn = 2000\n");
    EXPECT_EQ(ink("run loop.mas -p c"),
              "log: MAC stack overflow\nlog: MAC address 99 outside code\n"
              "result -2: the script left its code (loop.mas:7)\n");
    // Nothing is written when something is wrong.
    write_text("wrong.mas", "stop\nstop 1\n");
    EXPECT_EQ(ink("build wrong.mas"),
              "failed: wrong.mas:2:6: expected the end of the line, found \"1\"\n"
              "    stop 1\n         ^\n");
    EXPECT_FALSE(exists("wrong.mac"));
    EXPECT_EQ(ink("build gate.mac -o gate.mac").substr(0, 19), "failed: gate.mac:1:");
    EXPECT_EQ(ink("run gate.mas -p nobody"),
              "failed: ink: gate.mas: procedure \"nobody\" is no number and no known name\n");
    EXPECT_EQ(ink("run gate.mas -p 2"), "failed: ink: gate.mas: there is no procedure 2\n");
    EXPECT_EQ(ink("run gate.mas -s 100=1"),
              "failed: ink: gate.mas: there is no variable 100; there are 100, more with --variables\n");
    // A source is not written over, whatever its name is.
    for (const char *command :
         {"build gate.mas -o ./gate.mas", "build gate.mas -o commands.mas", "dump gate.mac -o ./gate.mac",
          "dump gate.mac -d commands.mas -o commands.mas"})
        EXPECT_NE(ink(command).find("is what this is made of"), std::string::npos) << command;
}

}  // namespace
