// The interpreter.
#include <array>
#include <cstdint>
#include <utility>

#include "core/log.h"
#include "core/random.h"
#include "inkstone/mac.h"
#include "inkstone/runtime.h"
#include "script/instruction_set.h"
#include "script/operands.h"
#include "script/state.h"

namespace ink::script {
namespace {

constexpr std::int32_t kFinished = 0, kStopped = -1, kOutsideCode = -2, kChained = 8;
constexpr std::size_t kCallDepth = 32;
constexpr int kRunDepth = 32;  // of runs started from callbacks of other runs
constexpr const char *kUndefinedProcedure = "PROC address not define !!!";
constexpr const char *kStackOverflow = "MAC stack overflow";

bool holds(std::int32_t left, std::uint8_t comparison, std::int32_t right) {
    switch (comparison) {
        case '<': return left < right;
        case '=': return left == right;
        case '>': return left > right;
        case kNotLess: return left >= right;
        case kNotGreater: return left <= right;
        case kNotEqual: return left != right;
        default: return false;
    }
}

// Wraps around in 32 bits.
void calculate(std::uint8_t opcode, std::int32_t index, std::int32_t value) {
    Record &record = state.record;
    if (!record.has_variable(index)) return;
    const std::int32_t old = record.variable(index);
    const auto a = static_cast<std::uint32_t>(old), b = static_cast<std::uint32_t>(value);
    std::uint32_t result = a;
    switch (opcode) {
        case kSet: result = b; break;
        case kAdd: result = a + b; break;
        case kSubtract: result = a - b; break;
        case kMultiply: result = a * b; break;
        case kDivide:
            // In 64 bits, where the smallest number has a negative.
            if (value != 0) result = static_cast<std::uint32_t>(std::int64_t{old} / value);
            break;
        default:
            if (value != 0) result = static_cast<std::uint32_t>(random_number() % value);
    }
    record.set_variable(index, static_cast<std::int32_t>(result));
}

// One run of a procedure. The code cannot change under it: the run ends as soon as a callback or a pumped
// procedure has released or replaced it, before anything of it is touched again.
class Run {
  public:
    Run() : code_(state.code.get()), size_(state.code_size), generation_(state.generation) {}

    std::int32_t from(std::int32_t start) {
        state.cursor = static_cast<std::uint32_t>(start);
        if (jump(start)) execute();
        if (intact()) state.record.set_position(state.cursor);
        return result_;
    }

  private:
    bool intact() const { return state.generation == generation_; }

    void end(std::int32_t result) { result_ = result; }
    void end_outside(std::uint32_t address) {
        log_format_to_file(state.log_file.c_str(), "MAC address %d outside code", static_cast<int>(address));
        end(kOutsideCode);
    }

    // Takes the operands that were read, unless one of them lies outside the code.
    bool take(const Operands &operands) {
        if (operands.cursor > size_) {
            end_outside(size_);
            return false;
        }
        state.cursor = operands.cursor;
        return true;
    }

    // False when the run is over.
    bool jump(std::int32_t target) {
        if (static_cast<std::uint32_t>(target) > size_) {
            end_outside(static_cast<std::uint32_t>(target));
            return false;
        }
        position_ = static_cast<std::uint32_t>(target);
        return true;
    }
    bool call(std::int32_t procedure) {
        if (procedure < 0 || procedure >= kCallableProcedures) {
            state.log("MAC call proc no out of range");
            return true;
        }
        if (depth_ >= kCallDepth) {
            state.log(kStackOverflow);
            return true;
        }
        const std::int32_t start = procedure < state.procedure_count ? state.entry(procedure) : -1;
        if (start < 0) {
            state.log(kUndefinedProcedure);
            end(kOutsideCode);
            return false;
        }
        callers_[depth_++] = position_;
        return jump(start);
    }
    // A command of the game's.
    bool command(std::uint8_t opcode) {
        state.overrun = false;
        const std::int32_t result = state.callback(opcode);
        if (result != 0)
            end(result);
        else if (intact() && state.overrun)
            end_outside(size_);
        else
            return true;
        return false;
    }

    void execute() {
        for (;;) {
            fnCheckMessage();
            if (!intact()) return;
            const std::uint8_t opcode = code_[position_];
            Operands operands{code_, position_ + 2};
            const std::uint32_t next = operands.cursor + code_[position_ + 1];
            if (next > size_) return end_outside(size_);
            position_ = next;
            state.cursor = operands.cursor;
            state.record.set_position(next);
            switch (opcode) {
                case kNote:
                    operands.number();
                    if (!take(operands)) return;
                    break;
                case kReturn:
                case kEnd:
                    if (depth_ == 0) return;
                    position_ = callers_[--depth_];
                    break;
                case kIf: {
                    const std::int32_t target = operands.word();
                    const std::int32_t index = operands.number();
                    const std::uint8_t comparison = operands.byte();
                    const std::int32_t right = operands.number();
                    if (!take(operands)) return;
                    if (!holds(state.record.variable(index), comparison, right) && !jump(target)) return;
                    break;
                }
                case kGoto: {
                    const std::int32_t target = operands.word();
                    if (!take(operands) || !jump(target)) return;
                    break;
                }
                case kCall: {
                    const std::int32_t procedure = operands.number();
                    if (!take(operands) || !call(procedure)) return;
                    break;
                }
                case kChain: {
                    const char *name = operands.string();
                    if (!take(operands)) return;
                    if (name != nullptr) state.record.set_name(name);
                    return end(kChained);
                }
                case kSet:
                case kAdd:
                case kSubtract:
                case kMultiply:
                case kDivide:
                case kRandom: {
                    const std::int32_t index = operands.number();
                    const std::int32_t value = operands.number();
                    if (!take(operands)) return;
                    calculate(opcode, index, value);
                    break;
                }
                case kStop: return end(kStopped);
                default:
                    if (opcode >= kFirstGameOpcode && !command(opcode)) return;
            }
        }
    }

    const std::uint8_t *const code_;
    const std::uint32_t size_;
    const std::uint64_t generation_;
    std::uint32_t position_ = 0;  // of the next instruction: within the code or at its end
    std::size_t depth_ = 0;
    std::array<std::uint32_t, kCallDepth> callers_;
    std::int32_t result_ = kFinished;
};

}  // namespace
}  // namespace ink::script

int32_t MAC_driver(int32_t proc) {
    using namespace ink::script;
    if (!state.initialised || !state.loaded || !state.head || !state.code || !state.record) return kFinished;
    if (proc < 0 || proc >= state.procedure_count) return kFinished;
    const std::int32_t start = state.entry(proc);
    if (start < 0) {
        state.log(kUndefinedProcedure);
        return kFinished;
    }
    // A callback that runs a procedure of its own goes on reading its operands afterwards.
    static int running = 0;
    if (running == kRunDepth) {
        state.log(kStackOverflow);
        return kFinished;
    }
    const std::uint32_t cursor = state.cursor;
    const bool overrun = state.overrun;
    const std::uint64_t generation = state.generation;
    ++running;
    const std::int32_t result = Run().from(start);
    --running;
    if (running > 0 && state.generation == generation) {
        state.cursor = cursor;
        state.overrun = overrun;
    }
    return result;
}
