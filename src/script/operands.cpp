// The operands as a callback reads them, and the variables.
#include "script/operands.h"

#include <cstring>

#include "inkstone/mac.h"

namespace ink::script {
namespace {

template <class Value>
Value fetch(Value (Operands::*read)()) {
    // A run that began outside the code has left its cursor there.
    if (!state.code || state.cursor > state.code_size) return Value{};
    Operands operands{state.code.get(), state.cursor};
    const Value value = (operands.*read)();
    state.overrun |= operands.cursor > state.code_size;
    if (state.overrun) return Value{};
    state.cursor = operands.cursor;
    return value;
}

}  // namespace

char *Operands::string() {
    static char text[kLongestString + 2];
    const std::uint32_t start = cursor;
    if (!skip_string()) return nullptr;
    std::memset(text, 0, sizeof text);
    std::memcpy(text, code + start + 1, code[start]);
    return text;
}

}  // namespace ink::script

using ink::script::Operands;
using ink::script::state;

int32_t MAC_get_number(void) {
    return ink::script::fetch(&Operands::value);
}

char *MAC_get_string(void) {
    return ink::script::fetch(&Operands::string);
}

int32_t MAC_get_long(void) {
    return ink::script::fetch(&Operands::word);
}

uint8_t MAC_get_char(void) {
    return ink::script::fetch(&Operands::byte);
}

void MAC_set_variable(int32_t index, int32_t value) {
    state.record.set_variable(index, value);
}

int32_t MAC_get_variable(int32_t index) {
    return state.record.variable(index);
}
