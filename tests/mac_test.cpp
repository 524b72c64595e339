// Scripts: loading them, their saved state, and what a run does that no random program shows.
#include "inkstone/mac.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>

#include "inkstone/host.h"
#include "inkstone/runtime.h"
#include "support/files.h"
#include "support/injection.h"
#include "support/script.h"

namespace {

using namespace test;
namespace fs = std::filesystem;

constexpr const char *kNotInitialised = "ERROR : mac system have not been initialized !\n";

std::function<std::int32_t(std::uint8_t)> action;
std::int32_t act(std::uint8_t opcode) {
    return action ? action(opcode) : 0;
}

std::string exported() {
    std::string bytes(static_cast<std::size_t>(MAC_info_size()), '\xAA');
    EXPECT_EQ(MAC_export_info(bytes.data()), MAC_info_size());
    return bytes;
}

std::string record(std::string name, std::int32_t size, std::int32_t position,
                   const std::vector<std::int32_t> &values) {
    name.resize(80);
    std::string bytes = name + word(size) + word(position) + word(static_cast<std::int32_t>(values.size()));
    for (const std::int32_t value : values) bytes += word(value);
    return bytes;
}

// Loads a script of these procedures and forgets that the log tells of it.
void load(const std::vector<std::string> &procedures, std::uint32_t variables = 10) {
    write_text("a.mac", script_file(procedures));
    ASSERT_EQ(MAC_init("", "", variables, act), 0);
    ASSERT_EQ(MAC_load("a.mac"), 0);
    take_log();
}

TEST(MacLoader, TellsWhatIsMissing) {
    char name[80] = "untouched";
    EXPECT_EQ(MAC_load("a.mac") + MAC_reload(), -2);
    EXPECT_EQ(take_log(), std::string(kNotInitialised) + kNotInitialised);
    EXPECT_EQ(MAC_init("", "", 100, nullptr), 0);
    EXPECT_EQ(exported(), record("NONAME", 0, 0, std::vector<std::int32_t>(100)));
    EXPECT_EQ(MAC_reload(), -1);
    EXPECT_EQ(MAC_load("dir\\none.mac"), -1);
    EXPECT_EQ(MAC_load(""), -1);
    EXPECT_EQ(MAC_load(std::string(80, 'n').c_str()), -1);
    EXPECT_EQ(MAC_inport_info(nullptr), 0);
    EXPECT_EQ(MAC_inport_info(record("x.mac", 0, 0, {7}).c_str()), 96);
    EXPECT_EQ(MAC_reload(), -1);
    EXPECT_EQ(MAC_get_variable(0), 7);
    EXPECT_EQ(MAC_init("", "", 0x7FFFFFFF, nullptr), -1);
    EXPECT_EQ(MAC_load("a.mac"), -1);
    EXPECT_EQ(take_log(),
              "ERROR : mac filename lost !\nERROR : error open file dir\\none.mac(MAC_load)\n"
              "ERROR : error open file (MAC_load)\nERROR : error open file " +
                  std::string(80, 'n') +
                  "(MAC_load)\nERROR : mac inport info is null\nERROR : error open file x.mac\n"
                  "ERROR : memory alloc error\n" +
                  kNotInitialised);
    // What was named is forgotten by a set-up that fails, and by MAC_free.
    EXPECT_EQ(MAC_init("", "", 1, nullptr), 0);
    EXPECT_EQ(MAC_reload(), -1);
    EXPECT_EQ(MAC_inport_info(record("x.mac", 0, 0, {7}).c_str()), 96);
    EXPECT_EQ(MAC_export_info(nullptr), 0);
    EXPECT_EQ(MAC_export_filename(nullptr), nullptr);
    MAC_free();
    EXPECT_EQ(MAC_load(nullptr), -1);
    EXPECT_EQ(MAC_init(nullptr, nullptr, 1, nullptr), 0);
    EXPECT_EQ(MAC_reload(), -1);
    EXPECT_EQ(MAC_load(nullptr), -1);
    EXPECT_EQ(take_log(), "ERROR : mac filename lost !\n" + std::string(kNotInitialised) +
                              "ERROR : mac filename lost !\nERROR : error open file (MAC_load)\n");
    MAC_free();
    EXPECT_EQ(MAC_info_size() + MAC_head_size() + MAC_export_info(name), 0);
    EXPECT_EQ(MAC_export_filename(name), nullptr);
    EXPECT_STREQ(name, "untouched");
    EXPECT_EQ(MAC_driver(0) + MAC_get_number() + MAC_get_long() + MAC_get_char() + MAC_get_variable(0), 0);
}

TEST(MacLoader, FindsScriptsAndLogsInTheirDirectories) {
    fs::create_directories("Script/sub");
    fs::create_directory("log");
    const std::string code = op(23) + std::string(98, '\0');
    write_text("Script/sub/One.mac", script_file({0, -1, 2}, code));
    write_text("Script/two.mac", script_file({op(15)}));
    ASSERT_EQ(MAC_init("SCRIPT", "LOG", 2, nullptr), 0);
    EXPECT_EQ(MAC_load("sub\\ONE.MAC"), 0);
    EXPECT_EQ(MAC_head_size(), 36);
    MAC_set_variable(1, -5);
    EXPECT_EQ(exported(), record("sub\\ONE.MAC", 100, 0, {0, -5}));
    EXPECT_EQ(MAC_driver(0), -1);
    EXPECT_EQ(MAC_driver(1) + MAC_driver(-1) + MAC_driver(3), 0);
    EXPECT_EQ(MAC_load("two.mac"), 0);
    EXPECT_EQ(MAC_get_variable(1), -5);  // values carry over
    EXPECT_EQ(MAC_load("none.mac"), -1);
    EXPECT_EQ(exported(), record("two.mac", 2, 0, {0, -5}));  // which a failed load leaves alone
    EXPECT_EQ(MAC_reload(), 0);
    EXPECT_EQ(MAC_init("", "", 0, nullptr), 0);  // keeps both directories and the head
    EXPECT_EQ(MAC_head_size() + MAC_info_size(), 28 + 92);
    EXPECT_EQ(MAC_reload(), -1);
    EXPECT_EQ(MAC_head_size(), 0);
    EXPECT_EQ(take_log("log/ERROR.MSG"),
              "LOAD MAC sub\\ONE.MAC(100) OK!\nPROC address not define !!!\n"
              "LOAD MAC two.mac(2) OK!\nERROR : error open file none.mac(MAC_load)\nLOAD MAC two.mac(2) OK!\n"
              "ERROR : error open file NONAME\n");
    ASSERT_EQ(MAC_init("Script\\sub", "", 1, nullptr), 0);  // another directory, the same log
    EXPECT_EQ(MAC_load("two.mac"), -1);
    EXPECT_EQ(MAC_load("one.mac"), 0);
    EXPECT_EQ(take_log("log/ERROR.MSG"),
              "ERROR : error open file two.mac(MAC_load)\nLOAD MAC one.mac(100) OK!\n");
    EXPECT_FALSE(exists("ERROR.MSG"));
}

// Sizes that the file does not bear out are refused, unless it merely ends early.
TEST(MacLoader, MeasuresStatedSizes) {
    const auto header = [](std::int32_t size, std::int32_t count) {
        return std::string(12, '\0') + word(size) + word(0) + word(count);
    };
    struct {
        std::string file;
        std::int32_t head, size;  // head 0: refused
    } const cases[] = {
        {"", 24, 0},
        {std::string(20, '\1'), 0, 0},
        {header(100, 3) + word(0), 36, 100},
        {header(1 << 20, 1) + word(0), 0, 0},
        {header((1 << 20) - 28, 1) + word(0), 28, (1 << 20) - 28},
        {header(0x7FFFFFFF, 1), 0, 0},
        {header(-1, 1), 0, 0},
        {header(0, 0x3FFFFFFF), 0, 0},
        {header(2 << 20, 0) + std::string(2 << 20, '\0'), 24, 2 << 20},
    };
    ASSERT_EQ(MAC_init("", "", 1, nullptr), 0);
    for (const auto &c : cases) {
        write_text("a.mac", c.file);
        const bool good = c.head != 0;
        EXPECT_EQ(MAC_load("a.mac"), good ? 0 : -1);
        EXPECT_EQ(MAC_head_size(), c.head);
        const std::string loaded = "LOAD MAC a.mac(" + std::to_string(c.size) + ") OK!\n";
        EXPECT_EQ(take_log(), good ? loaded : "ERROR : memory alloc error(MAC_load)\n");
        MAC_driver(0);
        take_log();
        ASSERT_EQ(MAC_inport_info(record("a.mac", 0, 0, {0}).c_str()), 96);
        EXPECT_EQ(MAC_reload(), good ? 0 : -1);
        EXPECT_EQ(take_log(), good ? loaded : "ERROR : memory alloc error\n");
    }
}

TEST(MacState, IsBytesWithAFixedLayout) {
    load({op(17, constant(2) + constant(-2)) + op(30, constant(1) + constant(2)) + op(1)}, 3);
    action = [](std::uint8_t) { return MAC_get_number() + 4; };
    EXPECT_EQ(MAC_driver(0), 5);
    const std::string saved = exported();  // the position is that of the operand that was not read
    EXPECT_EQ(saved, record("a.mac", 26, 12 + 2 + 5, {0, 0, -2}));
    ASSERT_EQ(MAC_init("", "", 50, act), 0);
    EXPECT_EQ(MAC_inport_info(saved.data()), 104);
    EXPECT_EQ(exported(), saved);
    EXPECT_EQ(MAC_driver(0), 0);  // nothing is loaded yet
    EXPECT_EQ(MAC_reload(), 0);
    EXPECT_EQ(MAC_inport_info(saved.data()), 104);
    EXPECT_EQ(MAC_driver(0), 5);  // what is loaded stays so
    EXPECT_EQ(MAC_reload(), 0);
    EXPECT_EQ(exported(), record("a.mac", 26, 0, {0, 0, -2}));
    // A name that does not end, and a count of variables that cannot be.
    char name[80];
    EXPECT_EQ(MAC_inport_info((std::string(88, 'x') + word(0)).data()), 92);
    const char *const own = MAC_export_filename(name);
    EXPECT_NE(own, name);
    std::memset(name, 0, 10);
    EXPECT_EQ(MAC_inport_info(saved.data()), 104);
    EXPECT_EQ(own, std::string(79, 'x'));  // a copy
    take_log();
    EXPECT_EQ(MAC_inport_info((std::string(88, 'x') + word(-1)).data()), 0);
    EXPECT_EQ(MAC_info_size(), 0);
    EXPECT_EQ(MAC_load("a.mac") + MAC_reload(), -2);
    EXPECT_EQ(take_log(),
              "ERROR : memory alloc error\nERROR : pmac_info is null\nERROR : pmac_info is null\n");
}

// Saved by a game that has ended, taken up by another process.
TEST(MacState, GoesOnInANewProcess) {
#if defined(_WIN32)
    GTEST_SKIP() << "the process that dies has a directory of its own";
#endif
    write_text("a.mac", script_file({op(18, constant(0) + constant(11)) + op(16, text("b.mac")) + op(1)}));
    write_text("b.mac", script_file({op(20, constant(0) + variable(0)) + op(1)}));
    const auto first_game = [] {
        MAC_init("", "", 4, nullptr);
        MAC_load("a.mac");
        const bool chained = MAC_driver(0) == 8;
        write_text("save", exported());
        std::exit(chained ? 42 : 1);
    };
    EXPECT_EXIT(first_game(), ::testing::ExitedWithCode(42), "");
    ASSERT_EQ(MAC_init("", "", 1, nullptr), 0);
    EXPECT_EQ(MAC_inport_info(read_text("save").data()), 92 + 16);
    EXPECT_EQ(MAC_reload(), 0);
    EXPECT_EQ(MAC_driver(0), 0);
    EXPECT_EQ(MAC_get_variable(0), 121);
    EXPECT_EQ(take_log(), "LOAD MAC a.mac(22) OK!\nLOAD MAC b.mac(14) OK!\n");
}

TEST(MacState, BearsEveryRefusal) {
    const std::string directory = "a-directory-with-a-long-name", kept = record("a.mac", 0, 0, {3, 4});
    fs::create_directory(directory);
    write_text(directory + "/a.mac", script_file({op(17, constant(0) + constant(8)) + op(23)}));
    std::int32_t result = 0;
    const auto init = [&] { result = MAC_init(directory.c_str(), "", 2, nullptr); };
    const auto ready = [&] { init(), MAC_load("a.mac"); };
    const auto outcome = [&] {
        const std::int32_t end = MAC_driver(0);
        return std::to_string(result) + ' ' + std::to_string(end) + ' ' +
               std::to_string(MAC_get_variable(0) + MAC_get_variable(1));
    };
    inject({.group = "MAC_init, MAC_free",
            .use = init,
            .outcome = [&] { return std::to_string(result) + ' ' + std::to_string(MAC_info_size()); },
            .right = "0 100",
            .memory = {"-1 0| ERROR : memory alloc error"},
            .prepare = MAC_free});
    inject({.group = "MAC_load",
            .use = [&] { result = MAC_load("a.mac"); },
            .outcome = outcome,
            .right = "0 -1 8| LOAD MAC a.mac(14) OK!",
            .memory = {"-1 0 0| ERROR : error open file a.mac(MAC_load)",
                       "-1 0 0| ERROR : memory alloc error(MAC_load)"},
            .files = {"-1 0 0| ERROR : error open file a.mac(MAC_load)",
                      "0 -2 0| LOAD MAC a.mac(14) OK!, MAC address 14 outside code",
                      "0 0 0| LOAD MAC a.mac(0) OK!"},
            .prepare = init});
    inject({.group = "MAC_inport_info, MAC_reload",
            .use = [&] { result = MAC_inport_info(kept.data()) == 100 ? MAC_reload() : -100; },
            .outcome = outcome,
            .right = "0 -1 12| LOAD MAC a.mac(14) OK!",
            .memory = {"-1 0 7| ERROR : error open file a.mac", "-1 0 7| ERROR : memory alloc error",
                       "-100 0 0| ERROR : memory alloc error"},
            .files = {"-1 0 7| ERROR : error open file a.mac",
                      "0 -2 7| LOAD MAC a.mac(14) OK!, MAC address 14 outside code",
                      "0 0 7| LOAD MAC a.mac(0) OK!"},
            .prepare = ready});
    inject({.group = "MAC_driver",
            .use = [&] { result = MAC_driver(0); },
            .outcome = [&] { return std::to_string(result) + ' ' + std::to_string(MAC_get_variable(0)); },
            .right = "-1 8",
            .prepare = ready});
}

// Number operands do not read variables from 16,000 on; everything else reaches them.
TEST(MacDriver, ReachesVariablesFromNumber16000OnAndStopsWithoutACallback) {
    load({op(17, constant(0) + variable(15999)) + op(17, constant(1) + variable(16000)) +
          op(18, constant(16000) + constant(3)) + op(17, variable(0) + constant(4)) +
          op(2, word(9999) + constant(16000) + "=" + constant(9)) + op(24)},
         16001);
    ASSERT_EQ(MAC_init("", "", 16001, nullptr), 0);
    EXPECT_EQ(MAC_driver(0), 0);  // setting up anew drops the code
    ASSERT_EQ(MAC_load("a.mac"), 0);
    MAC_set_variable(1, 7);
    MAC_set_variable(15999, 5);
    MAC_set_variable(16000, 6);
    EXPECT_EQ(MAC_driver(0), -1);
    for (const auto &[index, value] :
         {std::pair{0, 5}, {1, 0}, {5, 4}, {15999, 5}, {16000, 9}, {-1, 0}, {16001, 0}})
        EXPECT_EQ(MAC_get_variable(index), value) << index;
}

TEST(MacDriver, CallsProceduresUpToNumber1023) {
    std::vector<std::int32_t> table(1026, -1);
    table[0] = 0;
    table[1023] = table[1024] = 16;
    table[1025] = INT32_MAX - 8;  // outside the code
    write_text("a.mac", script_file(table, op(14, constant(1023)) + op(14, constant(1024)) + op(23) +
                                               op(18, constant(0) + constant(1)) + op(1)));
    ASSERT_EQ(MAC_init("", "", 1, nullptr), 0);
    ASSERT_EQ(MAC_load("a.mac"), 0);
    take_log();
    EXPECT_EQ(MAC_driver(0), -1);
    EXPECT_EQ(MAC_get_variable(0), 1);
    EXPECT_EQ(MAC_driver(1025), -2);
    EXPECT_EQ(take_log(), "MAC call proc no out of range\nMAC address 2147483639 outside code\n");
    // The run has left its operand cursor there.
    EXPECT_EQ(MAC_get_number(), 0);
    EXPECT_EQ(MAC_get_long(), 0);
    EXPECT_EQ(MAC_get_char(), 0);
    EXPECT_EQ(MAC_get_string(), nullptr);
}

TEST(MacDriver, ChainsToNamesThatFit) {
    struct {
        std::string operand, name;
    } const cases[] = {
        {text("next.mac"), "next.mac"},
        {text(""), ""},
        {text(std::string(253, 'y')), std::string(79, 'y')},
        {'\xFE' + std::string(90, 'z'), "a.mac"},  // no string stands there: the name stays
    };
    for (const auto &c : cases) {
        load({op(16, c.operand)});
        EXPECT_EQ(MAC_driver(0), 8);
        char name[80];
        EXPECT_EQ(MAC_export_filename(name), c.name);
    }
}

// Callbacks that take the ground from under the run, which would set variable 0 afterwards.
TEST(MacDriver, EndsWhenACallbackReleasesOrReplacesTheScript) {
    const std::function<void()> changes[] = {
        // This alone lets it go on.
        [] {
            MAC_inport_info(record("a.mac", 0, 3, {1, 2, 3}).data());
        },
        MAC_free,
        [] { MAC_init("", "", 10, act); },
        [] { MAC_load("a.mac"); },
        [] { MAC_load("none.mac"); },
        [] { MAC_reload(); },
        [] { MAC_inport_info((std::string(88, 'x') + word(-1)).data()); },
    };
    for (const std::int32_t result : {0, 6}) {
        for (const auto &change : changes) {
            load({op(30, constant(1)) + op(17, constant(0) + constant(9)) + op(1)});
            action = [&](std::uint8_t) { return change(), result; };
            EXPECT_EQ(MAC_driver(0), result);
            const bool import = &change == changes;
            EXPECT_EQ(MAC_get_variable(0), import ? (result == 0 ? 9 : 1) : 0) << &change - changes;
        }
    }
}

// What the code was read for before must not be believed afterwards.
TEST(MacDriver, GoesOnWithMoreAndFewerVariablesAfterImports) {
    load({op(17, constant(5) + constant(9)) + op(30) + op(13, word(0))}, 3);
    const std::string many = record("a.mac", 0, 0, std::vector<std::int32_t>(10)),
                      few = record("a.mac", 0, 0, {1, 2, 3});
    int calls = 0;
    action = [&](std::uint8_t) {
        EXPECT_EQ(MAC_get_variable(5), calls == 1 ? 9 : 0);
        if (calls++ == 2) return 6;
        return MAC_inport_info((calls == 1 ? many : few).data()) != 0 ? 0 : 7;
    };
    EXPECT_EQ(MAC_driver(0), 6);
    EXPECT_EQ(exported(), record("a.mac", 0, 14, {1, 2, 3}));
}

LRESULT free_on_message(HWND, UINT message, WPARAM, LPARAM) {
    if (message == WM_TIMER) MAC_free();
    return 0;
}

// A game's quit in the middle of a loop that never ends by itself.
TEST(MacDriver, EndsWhenAPumpedProcedureFreesTheScript) {
    const HWND window = HOST_open_window("t", 8, 8, free_on_message);
    load({op(13, word(0))});
    EXPECT_EQ(HOST_set_timer(window, 40, 60), 0);
    const std::uint64_t before = HOST_clock();
    EXPECT_EQ(MAC_driver(0), 0);
    EXPECT_NEAR(static_cast<double>(HOST_clock() - before), 60000.0, 10.0);
    HOST_kill_timer(window, 40);
    HOST_advance_clock(100000);
    load({op(23)});
    EXPECT_EQ(MAC_driver(0), -1);
}

TEST(MacDriver, RunsProceduresFromCallbacks) {
    load({op(30, constant(1) + constant(77)) + op(1), op(31, constant(5)) + op(23), op(32) + op(1)});
    std::string trace;
    int depth = 0;
    action = [&](std::uint8_t opcode) {
        if (opcode == 32) return ++depth, MAC_driver(2);
        if (opcode == 31) return trace += 'b', MAC_get_number() - 5;
        const std::int32_t inner = MAC_driver(MAC_get_number());
        trace += std::to_string(inner) + ' ' + std::to_string(MAC_get_number());  // its own operands again
        return 0;
    };
    EXPECT_EQ(MAC_driver(0), 0);
    EXPECT_EQ(trace, "b-1 77");
    for (const int round : {1, 2}) {
        EXPECT_EQ(MAC_driver(2), 0);
        EXPECT_EQ(depth, 32 * round);
        EXPECT_EQ(take_log(), "MAC stack overflow\n");
#if !defined(_WIN32) || defined(_WIN64)  // where exceptions pass from one module into another
        // Runs that the game leaves by an exception are over too.
        action = [&](std::uint8_t) -> std::int32_t { throw depth; };
        EXPECT_THROW(MAC_driver(2), int);
#endif
        action = [&](std::uint8_t) { return ++depth, MAC_driver(2); };
    }
}

}  // namespace
