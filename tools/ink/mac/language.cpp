#include "mac/language.h"

#include <algorithm>
#include <array>
#include <utility>

#include "script/instruction_set.h"

namespace ink::mac {
namespace {

using enum Operand;

const std::vector<Instruction> kBuiltIn = {
    {script::kNote, "note", {number}},
    {script::kReturn, "return", {}},
    {script::kGoto, "goto", {offset}},
    {script::kCall, "call", {procedure}},
    {script::kEnd, "end", {}},
    {script::kChain, "chain", {string}},
    {script::kSet, "set", {variable, number}},
    {script::kAdd, "add", {variable, number}},
    {script::kSubtract, "sub", {variable, number}},
    {script::kMultiply, "mul", {variable, number}},
    {script::kDivide, "div", {variable, number}},
    {script::kRandom, "random", {variable, number}},
    {script::kStop, "stop", {}},
};

constexpr std::pair<std::string_view, Operand> kKinds[] = {
    {"number", number}, {"variable", variable}, {"procedure", procedure},
    {"long", offset},   {"char", character},    {"string", string},
};

// The first of several spellings is the one that is written.
constexpr std::pair<std::string_view, std::uint8_t> kComparisons[] = {
    {"<", std::uint8_t{'<'}},  {"=", std::uint8_t{'='}},    {">", std::uint8_t{'>'}},
    {">=", script::kNotLess},  {"<=", script::kNotGreater}, {"<>", script::kNotEqual},
    {"!=", script::kNotEqual},
};

constexpr std::string_view kDirectives[] = {"include", "const", "var",   "command", "proc", "op",   "data",
                                            "header",  "procs", "entry", "size",    "file", "else", kIfWord};

}  // namespace

std::optional<Operand> operand_kind(std::string_view name) {
    for (const auto &[text, kind] : kKinds)
        if (text == name) return kind;
    return std::nullopt;
}

const Instruction *built_in(std::string_view name) {
    const auto found = std::ranges::find(kBuiltIn, name, &Instruction::name);
    return found != kBuiltIn.end() ? &*found : nullptr;
}

const Instruction *built_in(std::uint8_t opcode) {
    const auto found = std::ranges::find(kBuiltIn, opcode, &Instruction::opcode);
    return found != kBuiltIn.end() ? &*found : nullptr;
}

std::optional<std::uint8_t> comparison(std::string_view text) {
    for (const auto &[spelling, byte] : kComparisons)
        if (spelling == text) return byte;
    return std::nullopt;
}

std::optional<std::string_view> comparison(std::uint8_t byte) {
    for (const auto &[spelling, code] : kComparisons)
        if (code == byte) return spelling;
    return std::nullopt;
}

bool is_reserved(std::string_view word) {
    return built_in(word) != nullptr || operand_kind(word) ||
           std::ranges::find(kDirectives, word) != std::end(kDirectives);
}

const Instruction *Program::command(std::uint8_t opcode) const {
    for (const auto &[name, instruction] : commands)
        if (instruction.opcode == opcode) return &instruction;
    return nullptr;
}

std::string Program::variable_name(std::int64_t index) const {
    for (const auto &[name, symbol] : symbols)
        if (symbol.kind == Symbol::Kind::variable && symbol.value == index) return name;
    return {};
}

}  // namespace ink::mac
