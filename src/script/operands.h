// Reading operands where they stand in the code. Reads may reach into the margin behind the code, never
// beyond it: an instruction reads at most 254 bytes from a cursor within the code before the cursor is looked
// at.
#pragma once

#include <cstdint>

#include "core/reader.h"
#include "script/instruction_set.h"
#include "script/state.h"

namespace ink::script {

struct Operands {
    const std::uint8_t *code;
    std::uint32_t cursor;

    std::uint8_t byte() { return code[cursor++]; }
    std::int32_t word() {
        cursor += 4;
        return static_cast<std::int32_t>(get_u32(code + cursor - 4));
    }
    // 0, and the cursor stays, when no number stands there.
    std::int32_t number() {
        const std::uint8_t type = code[cursor];
        if (type != kConstant && type != kVariable) return 0;
        ++cursor;
        const std::int32_t value = word();
        if (type == kConstant) return value;
        return static_cast<std::uint32_t>(value) < kReadableVariables ? state.record.variable(value) : 0;
    }
    // A zero-terminated copy, which the next call overwrites. Null, and the cursor stays, when no string
    // stands there.
    char *string();
};

}  // namespace ink::script
