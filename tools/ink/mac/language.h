// The words of the script language: instructions, the kinds of their operands, and what names stand for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/source.h"

namespace ink::mac {

using tool::brief;

enum class Operand {
    number,     // a constant or the value of a variable
    variable,   // the index of a variable, or the variable that holds it
    procedure,  // a number, which is shown by name
    offset,     // a place in the code
    character,  // one byte
    string,
};

// By the names that declarations use.
std::optional<Operand> operand_kind(std::string_view name);

struct Instruction {
    std::uint8_t opcode = 0;
    std::string name;
    std::vector<Operand> operands;
};

// The interpreter's own, but "if", whose operands have a form of their own. Null when there is none.
const Instruction *built_in(std::string_view name);
const Instruction *built_in(std::uint8_t opcode);

// The words that begin every other statement. "if" is one, too: its operands have a form of their own.
enum class Directive {
    include,
    constant,
    variable,
    command,
    procedure,
    raw,
    data,
    header,
    count,
    entry,
    size,
    file,
    if_
};
std::optional<Directive> directive(std::string_view word);

inline constexpr std::string_view kIfWord = "if";

// Every word that may begin a statement, but the game's own.
std::vector<std::string> statement_words();

// The comparison of "if" as written, by its byte and back.
std::optional<std::uint8_t> comparison(std::string_view text);
std::optional<std::string_view> comparison(std::uint8_t byte);

// Whether a word has a meaning of its own in the language, so that nothing can be named so.
bool is_reserved(std::string_view word);

struct Symbol {
    enum class Kind { constant, variable, procedure, label } kind;
    std::int64_t value =
        0;  // of a variable its index, of a procedure its number, of a label its place in the code
    std::int64_t start = 0;  // of a procedure
    std::string defined_at;
};

// A script file and what its source called things. Local labels have no name outside.
struct Program {
    std::vector<std::uint8_t> file;
    std::vector<tool::SourceError> warnings;     // what is allowed and hardly meant
    std::map<std::uint32_t, std::string> lines;  // by where their instructions start in the code
    std::map<std::string, Symbol> symbols;
    std::map<std::string, Instruction> commands;

    const Instruction *command(std::uint8_t opcode) const;
    // The line of the instruction at that place or before it, as " (file:line)"; empty when there is none.
    std::string line_of(std::int64_t place) const;
    // The name of the variable with that index; empty when it has none.
    std::string variable_name(std::int64_t index) const;
};

// The most procedures that the tools write a table for.
inline constexpr std::int64_t kMostProcedures = 65536;

}  // namespace ink::mac
