#include "mac/runner.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <sstream>
#include <stdexcept>
#include <system_error>

#include "charset/big5.h"
#include "core/reader.h"
#include "files/workshop.h"
#include "inkstone/host.h"
#include "inkstone/mac.h"
#include "script/instruction_set.h"

namespace ink::mac {
namespace {
constexpr UINT kLimitTimer = 1;
// The headless machine's clock moves on by one microsecond with each instruction.
constexpr std::uint32_t kInstructionsPerMillisecond = 1000;

// What the callback and the window procedure, which take no argument of ours, work with.
struct Trace {
    const Program *program;
    std::ostream *out;
    std::vector<std::uint8_t> state;  // as the run left it
    bool broken_off = false;
};
Trace *trace = nullptr;

std::string next_operand(Operand kind) {
    switch (kind) {
        case Operand::number:
        case Operand::procedure: return std::to_string(MAC_get_number());
        case Operand::variable: {
            const std::int32_t index = MAC_get_number();
            const std::string name = trace->program->variable_name(index);
            return name.empty() ? '#' + std::to_string(index) : name;
        }
        case Operand::offset: {
            const std::int32_t to = MAC_get_long();
            return std::to_string(to) + trace->program->line_of(to);
        }
        case Operand::character: return std::to_string(MAC_get_char());
        case Operand::string: break;
    }
    const char *text = MAC_get_string();
    return text != nullptr ? '"' + tool::from_big5(text) + '"' : "(no string)";
}

std::int32_t command(std::uint8_t opcode) {
    const Instruction *known = trace->program->command(opcode);
    *trace->out << (known != nullptr ? known->name : "op " + std::to_string(opcode));
    const char *separator = " ";
    for (std::size_t i = 0; known != nullptr && i < known->operands.size(); ++i) {
        *trace->out << separator << next_operand(known->operands[i]);
        separator = ", ";
    }
    *trace->out << '\n';
    return 0;
}

void keep_state() {
    trace->state.resize(static_cast<std::size_t>(MAC_info_size()));
    MAC_export_info(trace->state.data());
}

LRESULT break_off(HWND, UINT message, WPARAM, LPARAM) {
    if (message != WM_TIMER) return 0;
    keep_state();
    trace->broken_off = true;
    MAC_free();
    return 0;
}

std::int32_t number(std::string_view text, const char *what) {
    std::int32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || text.empty())
        throw std::runtime_error(std::string(what) + " \"" + std::string(text) +
                                 "\" is no number and no known name");
    return value;
}

std::int32_t number_or_name(const Program &program, Symbol::Kind kind, const std::string &text,
                            const char *what) {
    const auto found = program.symbols.find(text);
    const bool known = found != program.symbols.end() && found->second.kind == kind;
    return known ? static_cast<std::int32_t>(found->second.value) : number(text, what);
}

void require_procedure(const Program &program, std::int32_t number) {
    Reader reader(program.file);
    reader.seek(script::kProcedureCountAt);
    const std::uint32_t count = reader.u32();
    const auto wanted = static_cast<std::uint32_t>(number);
    reader.seek(script::kFileHeader + 4 * std::size_t{wanted});
    if (wanted >= count || reader.i32() < 0 || !reader.ok())
        throw std::runtime_error("there is no procedure " + std::to_string(number));
}

std::uint32_t variable_count(const Program &program, std::uint32_t at_least) {
    std::int64_t count = at_least;
    for (const auto &[name, symbol] : program.symbols)
        if (symbol.kind == Symbol::Kind::variable) count = std::max(count, symbol.value + 1);
    return static_cast<std::uint32_t>(count);
}

void set_variables(const Program &program, std::uint32_t count, const std::vector<std::string> &settings) {
    for (const std::string &setting : settings) {
        const std::size_t equals = setting.find('=');
        if (equals == std::string::npos)
            throw std::runtime_error("\"" + setting + "\" is not of the form NAME=VALUE");
        const std::int32_t index =
            number_or_name(program, Symbol::Kind::variable, setting.substr(0, equals), "variable");
        if (index < 0 || static_cast<std::uint32_t>(index) >= count)
            throw std::runtime_error("there is no variable " + std::to_string(index) + "; there are " +
                                     std::to_string(count) + ", more with --variables");
        MAC_set_variable(index, number(std::string_view(setting).substr(equals + 1), "value"));
    }
}

std::string meaning(std::int32_t result) {
    if (trace->broken_off) return "broken off at the limit of instructions";
    if (result == 0) return "the procedure ended";
    if (result == -1) return "the script stopped itself";
    if (result == -2) return "the script left its code";
    return std::string("the script goes on in ") + reinterpret_cast<const char *>(trace->state.data());
}

// The line at which a run ended that did not come to its end: the record has where the next one would be.
std::string last_line(std::int32_t result) {
    if ((result == 0 && !trace->broken_off) || trace->state.size() < sizeof(MAC_INFO_STRUCT)) return {};
    const auto code_size =
        static_cast<std::int32_t>(get_u32(trace->state.data() + offsetof(MAC_INFO_STRUCT, size)));
    const auto position =
        static_cast<std::int32_t>(get_u32(trace->state.data() + offsetof(MAC_INFO_STRUCT, position)));
    return position > 0 && position <= code_size ? trace->program->line_of(position - 1) : "";
}

void show_variables() {
    MAC_INFO_STRUCT info;
    if (trace->state.size() < sizeof info) return;
    for (std::size_t at = sizeof info; at + 4 <= trace->state.size(); at += 4) {
        const auto value = static_cast<std::int32_t>(get_u32(trace->state.data() + at));
        const auto index = static_cast<std::int64_t>((at - sizeof info) / 4);
        const std::string name = trace->program->variable_name(index);
        if (value != 0)
            *trace->out << (name.empty() ? '#' + std::to_string(index) : name) << " = " << value << '\n';
    }
}

}  // namespace

void run(const Program &program, const RunOptions &options, std::ostream &out) {
    const tool::Workshop workshop;
    workshop.put("script.mac", program.file);
    const std::int32_t procedure =
        number_or_name(program, Symbol::Kind::procedure, options.procedure, "procedure");

    Trace running{&program, &out, {}, false};
    trace = &running;
    require_procedure(program, procedure);
    const std::uint32_t variables = variable_count(program, options.variables);
    if (HOST_choose("headless") != 0)
        throw std::runtime_error("scripts are tried out on the headless machine only");
    if (MAC_init(".", ".", variables, command) != 0 || MAC_load("script.mac") != 0)
        throw std::runtime_error("the script cannot be loaded");
    set_variables(program, variables, options.settings);

    const HWND window = HOST_open_window("ink", 1, 1, break_off);
    HOST_set_timer_resolution(1);
    HOST_set_timer(window, kLimitTimer, std::max(1U, options.limit / kInstructionsPerMillisecond));
    const std::int32_t result = MAC_driver(procedure);
    if (!running.broken_off) keep_state();
    HOST_close_window(window);
    MAC_free();

    // The first line of the log tells that the script was loaded.
    std::istringstream log(workshop.log());
    std::string line;
    std::getline(log, line);
    while (std::getline(log, line)) out << "log: " << line << '\n';
    out << "result " << result << ": " << meaning(result) << last_line(result) << '\n';
    show_variables();
    trace = nullptr;
}

}  // namespace ink::mac
