// Random programs, sound and unsound, run by the library and by a plain interpreter written here from the
// language's rules, which looks before every byte it reads and pumps before every instruction. Commands and
// pumped procedures note what they can see: the position in the record, the operand cursor, the clock.
#include <gtest/gtest.h>

#include <map>
#include <random>

#include "core/reader.h"
#include "inkstone/host.h"
#include "inkstone/mac.h"
#include "inkstone/runtime.h"
#include "support/files.h"
#include "support/new_process.h"
#include "support/script.h"

namespace {

using namespace test;

constexpr std::int32_t kVariables = 8;
constexpr int kMostSteps = 1000;

constexpr std::uint64_t kTimer = 55000;

void note(std::string &trace, char who, std::int64_t position, std::uint64_t clock) {
    trace += who + std::to_string(position) + '@' + std::to_string(clock) + ' ';
}

struct Naive {
    std::string code;
    std::vector<std::int32_t> table;
    std::vector<std::int32_t> variables = std::vector<std::int32_t>(kVariables);
    std::uint32_t random = 1;
    std::string trace, log;
    std::int64_t cursor = 0, position = 0;
    bool outside = false;
    std::uint64_t clock = 0, timer_due = 0;  // microseconds, of which each look and each pump takes one
    int posted = 0;                          // messages that wait

    std::int64_t size() const { return static_cast<std::int64_t>(code.size()); }
    bool inside(std::int64_t count) { return !(outside |= cursor + count > size()); }
    std::uint8_t at(std::int64_t place) const {
        return static_cast<std::uint8_t>(code[static_cast<std::size_t>(place)]);
    }
    std::int32_t read(int count) {
        if (!inside(count)) return 0;
        std::uint32_t value = 0;
        for (int i = 0; i < count; ++i) value |= std::uint32_t{at(cursor++)} << 8 * i;
        return static_cast<std::int32_t>(value);
    }
    bool exists(std::int64_t index) const { return index >= 0 && index < kVariables; }
    std::int32_t number() {
        if (!inside(1) || (at(cursor) != '#' && at(cursor) != '@') || !inside(5)) return 0;
        const bool plain = read(1) == '#';
        const std::int32_t value = read(4);
        return plain ? value : exists(value) ? variables[static_cast<std::size_t>(value)] : 0;
    }
    std::optional<std::string> string() {
        if (!inside(1) || at(cursor) > 253 || !inside(1 + at(cursor))) return std::nullopt;
        const auto length = static_cast<std::size_t>(read(1));
        cursor += static_cast<std::int64_t>(length);
        return code.substr(static_cast<std::size_t>(cursor) - length, length).c_str();
    }

    void look(char who) { note(trace, who, position, ++clock); }
    void pump() {
        for (;;) {
            ++clock;
            if (posted > 0) {
                --posted;
                look('m');
            } else if (clock >= timer_due) {
                timer_due += kTimer;
                look('t');
                outside = false;
                trace += std::to_string(read(1));
            } else {
                return;
            }
        }
    }

    std::int32_t leave(std::int64_t address) {
        log += "MAC address " + std::to_string(address) + " outside code\n";
        return -2;
    }

    // Empty when it takes too many steps.
    std::optional<std::int32_t> run(std::int32_t start) {
        if (start < 0) return log += "PROC address not define !!!\n", 0;
        std::vector<std::int64_t> callers;
        position = cursor = start;
        for (int steps = 0; steps < kMostSteps; ++steps) {
            if (position < 0 || position > size()) return leave(position);
            pump();
            if (position + 2 > size() || position + 2 + at(position + 1) > size()) return leave(size());
            const int opcode = at(position);
            const std::int64_t operands = cursor = position + 2;
            position = cursor + at(position + 1);
            outside = false;
            if (opcode >= 24) {
                look('c');
                if (opcode % 5 == 0) ++posted;
                const std::int32_t result = command(*this, opcode, trace);
                if (result != 0) return result;
                if (outside) return leave(size());
                continue;
            }
            std::int32_t target = 0, first = 0, second = 0;
            int comparison = 0;
            if (opcode == 2 || opcode == 13) target = read(4);
            if (opcode == 0 || opcode == 2 || opcode == 14 || (opcode >= 17 && opcode <= 22))
                first = number();
            if (opcode == 2) comparison = read(1);
            if (opcode == 2 || (opcode >= 17 && opcode <= 22)) second = number();
            if (opcode == 16) string();
            if (outside) {
                cursor = operands;
                return leave(size());
            }
            if (opcode == 23) return -1;
            if (opcode == 16) return 8;
            if (opcode == 1 || opcode == 15) {
                if (callers.empty()) return 0;
                position = callers.back();
                callers.pop_back();
            }
            if (opcode == 13) position = target;
            if (opcode == 14 && (first < 0 || first > 1023)) {
                log += "MAC call proc no out of range\n";
            } else if (opcode == 14 && callers.size() == 32) {
                log += "MAC stack overflow\n";
            } else if (opcode == 14) {
                const bool known = static_cast<std::size_t>(first) < table.size();
                if (!known || table[static_cast<std::size_t>(first)] < 0)
                    return log += "PROC address not define !!!\n", -2;
                callers.push_back(position);
                position = table[static_cast<std::size_t>(first)];
            }
            std::int32_t unused = 0;
            std::int32_t &to = exists(first) ? variables[static_cast<std::size_t>(first)] : unused;
            if (opcode == 2) {
                const bool holds =
                    (comparison == '<' && to < second) || (comparison == '=' && to == second) ||
                    (comparison == '>' && to > second) || (comparison == 0xF2 && to >= second) ||
                    (comparison == 0xF3 && to <= second) || (comparison == 0xF7 && to != second);
                if (!holds) position = target;
            }
            std::int64_t result = to;
            if (opcode == 17) result = second;
            if (opcode == 18) result = std::int64_t{to} + second;
            if (opcode == 19) result = std::int64_t{to} - second;
            if (opcode == 20) result = std::int64_t{to} * second;
            if (opcode == 21 && second != 0) result = std::int64_t{to} / second;
            if (opcode == 22 && second != 0 && exists(first)) {
                random = random * 214013 + 2531011;
                result = static_cast<std::int32_t>(random >> 16 & 0x7FFF) % second;
            }
            to = static_cast<std::int32_t>(static_cast<std::uint32_t>(result));
        }
        return std::nullopt;
    }
};

class Generator {
  public:
    explicit Generator(std::uint32_t seed) : random_(seed) {}

    Naive program() {
        Naive program;
        const int instructions = 4 + below(30), procedures = 1 + below(6);
        std::vector<std::int32_t> starts;
        for (int i = 0; i < instructions; ++i) {
            starts.push_back(static_cast<std::int32_t>(program.code.size()));
            program.code += instruction();
        }
        program.code += op(1);
        const auto place = [&] {
            if (below(25) == 0) return below(3) == 0 ? -1 : below(900) - 20;
            return starts[static_cast<std::size_t>(below(instructions))];
        };
        for (const std::int32_t start : starts) {
            const std::size_t at = static_cast<std::size_t>(start);
            const int opcode = program.code[at];
            if ((opcode == 2 || opcode == 13) && program.code[at + 1] >= 4)
                program.code.replace(at + 2, 4, word(place()));
        }
        for (int i = 0; i < procedures; ++i) program.table.push_back(i > 0 && below(8) == 0 ? -1 : place());
        if (below(8) == 0) program.code.resize(program.code.size() - static_cast<std::size_t>(below(7)));
        return program;
    }

  private:
    int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    std::int32_t value() {
        const std::int32_t extremes[] = {INT32_MIN, INT32_MAX, 16000, 1024};
        return below(4) == 0 ? extremes[below(4)] : below(12) - 2;
    }
    std::string number() {
        if (below(40) == 0) return "!";
        return below(3) == 0 ? variable(value()) : constant(value());
    }
    std::string instruction() {
        static const int kOpcodes[] = {0,  1,  2,  2,  2,  5,  13, 14, 14, 15, 17, 17, 18,
                                       18, 19, 20, 21, 22, 24, 25, 26, 27, 29, 36, 47};
        const int opcode = below(60) == 0 ? (below(2) == 0 ? 16 : 23) : kOpcodes[below(25)];
        std::string operands;
        switch (opcode) {
            case 2: operands = word(0) + constant(below(9)) + "<=>\xF2\xF3\xF7!"[below(7)] + number(); break;
            case 13: operands = word(0); break;
            case 14: operands = below(5) == 0 ? number() : constant(below(6)); break;
            case 16: operands = text("chain"); break;
            case 27: operands = text(std::string(static_cast<std::size_t>(below(20)), 'x')); break;
            default:
                operands = (below(3) == 0 ? number() : constant(below(kVariables))) + number() + number();
        }
        if (below(12) == 0) operands += std::string(static_cast<std::size_t>(below(9)), 'j');
        if (below(40) == 0)
            operands.resize(static_cast<std::size_t>(below(static_cast<int>(operands.size()) + 1)));
        return op(opcode, operands);
    }

    std::mt19937 random_;
};

Library library;
std::string library_trace;

std::vector<std::int32_t> exported() {
    Bytes bytes(92 + 4 * kVariables);
    MAC_export_info(bytes.data());
    std::vector<std::int32_t> record;
    for (std::size_t at = 0; at < bytes.size(); at += 4)
        record.push_back(static_cast<std::int32_t>(ink::get_u32(&bytes[at])));
    return record;
}
void look(char who) {
    const std::int32_t position = exported()[21];
    note(library_trace, who, position, HOST_clock());
}
LRESULT procedure(HWND, UINT message, WPARAM, LPARAM) {
    look(message == WM_TIMER ? 't' : 'm');
    if (message == WM_TIMER) library_trace += std::to_string(MAC_get_char());
    return 0;
}

TEST_IN_NEW_PROCESS(Interpreter, AgreesWithANaiveOne) {
    static const HWND window = HOST_open_window("t", 8, 8, procedure);
    const auto callback = [](std::uint8_t opcode) {
        look('c');
        if (opcode % 5 == 0) HOST_post_message(window, WM_USER, 0, 0);
        return command(library, opcode, library_trace);
    };
    std::map<std::int32_t, int> results;
    std::uint32_t random = 1;
    int pumped = 0;
    for (std::uint32_t seed = 0; seed < 6000; ++seed) {
        // The timer is due so many pumps after the start.
        HOST_set_timer(window, 40, kTimer / 1000);
        HOST_advance_clock(kTimer - 1 - seed % 50);
        Naive naive = Generator(seed).program();
        naive.random = random;
        naive.clock = HOST_clock();
        naive.timer_due = naive.clock + seed % 50;
        const auto expected = naive.run(naive.table[0]);
        if (!expected) continue;
        random = naive.random;
        ++results[*expected];
        pumped += naive.trace.find('t') != std::string::npos;

        write_text("a.mac", script_file(naive.table, naive.code));
        ASSERT_EQ(MAC_init("", "", kVariables, callback), 0);
        ASSERT_EQ(MAC_load("a.mac"), 0);
        library_trace.clear();
        ASSERT_EQ(MAC_driver(0), *expected) << seed;
        ASSERT_EQ(library_trace, naive.trace) << seed;
        ASSERT_EQ(take_log(), "LOAD MAC a.mac(" + std::to_string(naive.size()) + ") OK!\n" + naive.log)
            << seed;
        ASSERT_EQ(HOST_clock(), naive.clock + 1) << seed;
        const std::vector<std::int32_t> record = exported();
        ASSERT_EQ(record[21], naive.cursor) << seed;
        ASSERT_EQ(std::vector<std::int32_t>(record.begin() + 23, record.end()), naive.variables) << seed;
        HOST_kill_timer(window, 40);
        fnCheckMessage();  // what was posted last
    }
    for (const std::int32_t result : {0, -1, -2, 8, 47}) EXPECT_GT(results[result], 100) << result;
    EXPECT_GT(pumped, 500);
}

}  // namespace
