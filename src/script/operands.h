// Reading operands where they stand in the code. Reads may reach into the margin behind the code, never
// beyond it: an instruction reads at most 254 bytes from a cursor within the code before the cursor is looked
// at.
#pragma once

#include <cstdint>

#include "core/reader.h"
#include "script/instruction_set.h"
#include "script/state.h"

namespace ink::script {

// A number as it is written: itself, or as the index of the variable that holds it.
struct NumberOperand {
    bool is_variable;
    std::int32_t word;
};

struct Operands {
    const std::uint8_t *code;
    std::uint32_t cursor;

    std::uint8_t byte() { return code[cursor++]; }
    std::int32_t word() {
        cursor += 4;
        return static_cast<std::int32_t>(get_u32(code + cursor - 4));
    }
    // 0, and the cursor stays, when no number stands there.
    NumberOperand number() {
        const std::uint8_t type = code[cursor];
        if (type != kConstant && type != kVariable) return {false, 0};
        ++cursor;
        return {type == kVariable, word()};
    }
    std::int32_t value() {
        const NumberOperand operand = number();
        if (!operand.is_variable) return operand.word;
        const bool readable = static_cast<std::uint32_t>(operand.word) < kReadableVariables;
        return readable ? state.record.variable(operand.word) : 0;
    }
    // False, and the cursor stays, when no string stands there.
    bool skip_string() {
        if (code[cursor] > kLongestString) return false;
        cursor += 1U + code[cursor];
        return true;
    }
    // A zero-terminated copy, which the next call overwrites, or null.
    char *string();
};

}  // namespace ink::script
