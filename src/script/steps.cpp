#include "script/steps.h"

#include <algorithm>
#include <bit>
#include <new>

#include "script/instruction_set.h"
#include "script/operands.h"
#include "script/state.h"

namespace ink::script {
namespace {

bool is_readable(std::int32_t index) {
    return static_cast<std::uint32_t>(index) < kReadableVariables && state.record.has_variable(index);
}

// A number operand as the value of a step.
void take_value(Step &step, Operands &operands) {
    const NumberOperand operand = operands.number();
    step.value_in_variable = operand.is_variable && is_readable(operand.word);
    step.value = operand.is_variable && !step.value_in_variable ? 0 : operand.word;
}

// A number operand as the index of the step's variable.
void take_place(Step &step, Operands &operands) {
    const NumberOperand operand = operands.number();
    const bool held = operand.is_variable && is_readable(operand.word);
    step.index = operand.is_variable && !held ? 0 : operand.word;
    step.place = held                                    ? Step::Place::kHeld
                 : state.record.has_variable(step.index) ? Step::Place::kGiven
                                                         : Step::Place::kNone;
}

// A comparison that does not exist never holds.
Step::Kind comparison(std::uint8_t operation) {
    switch (operation) {
        case '<': return Step::Kind::kIfLess;
        case '=': return Step::Kind::kIfEqual;
        case '>': return Step::Kind::kIfGreater;
        case kNotLess: return Step::Kind::kIfNotLess;
        case kNotGreater: return Step::Kind::kIfNotGreater;
        case kNotEqual: return Step::Kind::kIfNotEqual;
        default: return Step::Kind::kGoto;
    }
}

// What changes a variable; without one there is nothing to do.
void take_change(Step &step, Operands &operands, Step::Kind kind) {
    take_place(step, operands);
    take_value(step, operands);
    if (step.place != Step::Place::kNone) step.kind = kind;
}

void take_operands(Step &step, Operands &operands) {
    switch (step.opcode) {
        case kNote: operands.number(); break;
        case kReturn:
        case kEnd: step.kind = Step::Kind::kReturn; break;
        case kIf:
            step.target = static_cast<std::uint32_t>(operands.word());
            take_place(step, operands);
            step.kind = comparison(operands.byte());
            take_value(step, operands);
            break;
        case kGoto:
            step.kind = Step::Kind::kGoto;
            step.target = static_cast<std::uint32_t>(operands.word());
            break;
        case kCall:
            step.kind = Step::Kind::kCall;
            take_value(step, operands);
            break;
        case kChain:
            step.kind = Step::Kind::kChain;
            operands.skip_string();
            break;
        case kSet: take_change(step, operands, Step::Kind::kSet); break;
        case kAdd: take_change(step, operands, Step::Kind::kAdd); break;
        case kSubtract: take_change(step, operands, Step::Kind::kSubtract); break;
        case kMultiply: take_change(step, operands, Step::Kind::kMultiply); break;
        case kDivide: take_change(step, operands, Step::Kind::kDivide); break;
        case kRandom: take_change(step, operands, Step::Kind::kRandom); break;
        case kStop: step.kind = Step::Kind::kStop; break;
        default:
            if (step.opcode >= kFirstGameOpcode) step.kind = Step::Kind::kCommand;
    }
}

}  // namespace

bool Steps::create(std::uint32_t code_size) {
    // The end of the code is an offset too.
    const std::uint32_t count = std::bit_ceil(std::min(code_size / 2 + 1, kMost));
    steps_.reset(new (std::nothrow) Step[count]);
    mask_ = count - 1;
    return steps_ != nullptr;
}

void Steps::release() {
    steps_.reset();
}

void Steps::fit(std::uint32_t variable_count) {
    if (variable_count_ == variable_count) return;
    variable_count_ = variable_count;
    for (std::uint32_t i = 0; i <= mask_; ++i) steps_[i].at = Step::kEmpty;
}

bool read_step(std::uint32_t offset) {
    const std::uint8_t *const code = state.code.get();
    Operands operands{code, offset + 2};
    const std::uint32_t first = operands.cursor, next = first + code[offset + 1];
    if (next > state.code_size) return false;
    Step &step = *state.steps.place_of(offset);
    step = {.at = offset, .next = next, .opcode = code[offset]};
    take_operands(step, operands);
    step.cursor = operands.cursor;
    if (operands.cursor > state.code_size) {
        step.cursor = first;
        step.kind = Step::Kind::kOutside;
    }
    step.next_step = state.steps.place_of(next);
    // A target outside has no place; this one is taken by a step that cannot stand there.
    step.target_step = step.target <= state.code_size ? state.steps.place_of(step.target) : &step;
    return true;
}

}  // namespace ink::script
