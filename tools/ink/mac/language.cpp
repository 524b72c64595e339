#include "mac/language.h"

#include <algorithm>
#include <array>
#include <iterator>
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

constexpr std::pair<std::string_view, Directive> kDirectives[] = {
    {"include", Directive::include}, {"const", Directive::constant}, {"var", Directive::variable},
    {"command", Directive::command}, {"proc", Directive::procedure}, {"op", Directive::raw},
    {"data", Directive::data},       {"header", Directive::header},  {"procs", Directive::count},
    {"entry", Directive::entry},     {"size", Directive::size},      {"file", Directive::file},
    {kIfWord, Directive::if_},
};
constexpr std::string_view kElseWord = "else";

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
    return built_in(word) != nullptr || operand_kind(word) || directive(word) || word == kElseWord;
}

std::optional<Directive> directive(std::string_view word) {
    for (const auto &[text, meaning] : kDirectives)
        if (text == word) return meaning;
    return std::nullopt;
}

std::vector<std::string> statement_words() {
    std::vector<std::string> words;
    for (const auto &[text, meaning] : kDirectives) words.emplace_back(text);
    for (const Instruction &instruction : kBuiltIn) words.push_back(instruction.name);
    return words;
}

std::string Program::line_of(std::int64_t place) const {
    const auto after = place < 0 ? lines.begin() : lines.upper_bound(static_cast<std::uint32_t>(place));
    return after == lines.begin() ? "" : " (" + std::prev(after)->second + ')';
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
