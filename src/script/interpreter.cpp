// The interpreter.
#include <array>
#include <cstdint>
#include <functional>
#include <optional>

#include "core/log.h"
#include "core/random.h"
#include "core/step_pump.h"
#include "inkstone/mac.h"
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

std::uint32_t quotient(std::uint32_t a, std::uint32_t b) {
    if (b == 0) return a;
    // In 64 bits, where the smallest number has a negative.
    return static_cast<std::uint32_t>(std::int64_t{static_cast<std::int32_t>(a)} /
                                      static_cast<std::int32_t>(b));
}

// Draws no number when there is nothing to choose from.
std::uint32_t random_below(std::uint32_t old, std::uint32_t limit) {
    if (limit == 0) return old;
    return static_cast<std::uint32_t>(random_number() % static_cast<std::int32_t>(limit));
}

// One run of a procedure. The code cannot change under it: the run ends as soon as a callback or a pumped
// procedure has released or replaced it, before anything of it is touched again.
class Run {
  public:
    std::int32_t from(std::int32_t start) {
        state.cursor = static_cast<std::uint32_t>(start);
        state.overrun = false;
        if (state.cursor <= size_)
            execute(state.cursor);
        else
            end_outside(state.cursor);
        if (intact()) state.record.set_position(state.cursor);
        return result_;
    }

  private:
    bool intact() const { return state.generation == generation_; }

    void end_outside(std::uint32_t address) {
        log_format_to_file(state.log_file.c_str(), "MAC address %d outside code", static_cast<int>(address));
        result_ = kOutsideCode;
    }

    // The variables may be others after a pump or a callback.
    std::uint8_t *variables() {
        state.steps.fit(state.record.variable_count());
        return state.record.variables();
    }

    // Makes a call: the offset to go on at, or none when the run is over.
    std::optional<std::uint32_t> call(std::int32_t procedure, std::uint32_t next) {
        if (procedure < 0 || procedure >= kCallableProcedures) {
            state.log("MAC call proc no out of range");
            return next;
        }
        if (depth_ >= kCallDepth) {
            state.log(kStackOverflow);
            return next;
        }
        const std::int32_t start = procedure < state.procedure_count ? state.entry(procedure) : -1;
        if (start < 0) {
            state.log(kUndefinedProcedure);
            result_ = kOutsideCode;
            return std::nullopt;
        }
        callers_[depth_++] = next;
        return static_cast<std::uint32_t>(start);
    }

    // Hands a command to the game; false when the run is over.
    bool command(std::uint8_t opcode) {
        state.overrun = false;
        result_ = state.callback(opcode);
        if (result_ != 0 || !intact()) return false;
        if (state.overrun) end_outside(size_);
        return !state.overrun;
    }

    // Everything that somebody can look at: the pumps made so far, the operand cursor and the position.
    void show(std::uint32_t position, std::uint32_t cursor, std::uint32_t idle) {
        pump_.settle(idle);
        state.cursor = cursor;
        state.record.set_position(position);
    }

    void execute(std::uint32_t start) {
        std::uint32_t position = start, cursor = start;
        std::uint32_t idle = 0;  // steps that need not pump
        std::uint8_t *values = nullptr;
        const auto variable = [&](std::int32_t index) {
            return values + std::size_t{4} * static_cast<std::uint32_t>(index);
        };
        const auto value = [&](const Step &step) {
            return step.value_in_variable ? get_u32(variable(step.value))
                                          : static_cast<std::uint32_t>(step.value);
        };
        // The variable that a step changes or compares; null when there is none.
        const auto place = [&](const Step &step) -> std::uint8_t * {
            if (step.place == Step::Place::kGiven) [[likely]]
                return variable(step.index);
            if (step.place == Step::Place::kNone) return nullptr;
            const auto index = static_cast<std::int32_t>(get_u32(variable(step.index)));
            return state.record.has_variable(index) ? variable(index) : nullptr;
        };
        const auto change = [&](const Step &step, auto operation) {
            if (std::uint8_t *const to = place(step)) put_u32(to, operation(get_u32(to), value(step)));
        };
        Step *next = steps_.place_of(start);  // the place of the step at position
        const auto jump = [&](const Step &step) {
            position = step.target;
            next = step.target_step;
        };
        const auto compare = [&](const Step &step, auto holds) {
            const std::uint8_t *const left = place(step);
            const auto a = static_cast<std::int32_t>(left != nullptr ? get_u32(left) : 0);
            if (!holds(a, static_cast<std::int32_t>(value(step)))) jump(step);
        };
        for (;;) {
            const Step &step = *next;
            if (step.at != position || idle == 0) [[unlikely]] {
                if (position > size_) {
                    end_outside(position);
                    break;
                }
                if (idle == 0) {
                    show(position, cursor, 0);
                    idle = pump_.pump();
                    if (!intact()) return;
                    values = variables();
                    cursor = state.cursor;
                } else {
                    --idle;
                }
                if (step.at != position && !read_step(position)) {
                    end_outside(size_);
                    break;
                }
            } else {
                --idle;
            }
            position = step.next;
            next = step.next_step;
            cursor = step.cursor;
            switch (step.kind) {
                case Step::Kind::kNothing: break;
                case Step::Kind::kSet: change(step, [](auto, auto b) { return b; }); break;
                case Step::Kind::kAdd: change(step, std::plus{}); break;
                case Step::Kind::kSubtract: change(step, std::minus{}); break;
                case Step::Kind::kMultiply: change(step, std::multiplies{}); break;
                case Step::Kind::kDivide: change(step, quotient); break;
                case Step::Kind::kRandom: change(step, random_below); break;
                case Step::Kind::kIfLess: compare(step, std::less{}); break;
                case Step::Kind::kIfEqual: compare(step, std::equal_to{}); break;
                case Step::Kind::kIfGreater: compare(step, std::greater{}); break;
                case Step::Kind::kIfNotLess: compare(step, std::greater_equal{}); break;
                case Step::Kind::kIfNotGreater: compare(step, std::less_equal{}); break;
                case Step::Kind::kIfNotEqual: compare(step, std::not_equal_to{}); break;
                case Step::Kind::kGoto: jump(step); break;
                case Step::Kind::kCall: {
                    const auto to = call(static_cast<std::int32_t>(value(step)), position);
                    if (!to) return show(position, cursor, idle);
                    position = *to;
                    next = steps_.place_of(position);
                    break;
                }
                case Step::Kind::kReturn:
                    if (depth_ == 0) return show(position, cursor, idle);
                    position = callers_[--depth_];
                    next = steps_.place_of(position);
                    break;
                case Step::Kind::kCommand:
                    show(position, cursor, idle);
                    idle = 0;
                    if (!command(step.opcode)) return;
                    cursor = state.cursor;
                    break;
                case Step::Kind::kChain: {
                    show(position, cursor, idle);
                    Operands operands{code_, step.at + 2};
                    if (const char *const name = operands.string()) state.record.set_name(name);
                    result_ = kChained;
                    return;
                }
                case Step::Kind::kStop: result_ = kStopped; return show(position, cursor, idle);
                case Step::Kind::kOutside: end_outside(size_); return show(position, cursor, idle);
            }
        }
        show(position, cursor, idle);
    }

    const std::uint8_t *const code_ = state.code.get();
    const std::uint32_t size_ = state.code_size;
    const std::uint64_t generation_ = state.generation;
    Steps &steps_ = state.steps;
    StepPump pump_;
    std::size_t depth_ = 0;
    std::array<std::uint32_t, kCallDepth> callers_;
    std::int32_t result_ = kFinished;
};

// The runs in progress, one within the other. A callback that runs a procedure of its own goes on reading its
// operands afterwards, also when that run ended by an exception of the game's.
class Nesting {
  public:
    Nesting() { ++running_; }
    ~Nesting() {
        if (--running_ == 0 || state.generation != generation_) return;
        state.cursor = cursor_;
        state.overrun = overrun_;
    }
    Nesting(const Nesting &) = delete;
    Nesting &operator=(const Nesting &) = delete;

    static bool full() { return running_ == kRunDepth; }

  private:
    static inline int running_ = 0;
    const std::uint32_t cursor_ = state.cursor;
    const bool overrun_ = state.overrun;
    const std::uint64_t generation_ = state.generation;
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
    if (Nesting::full()) {
        state.log(kStackOverflow);
        return kFinished;
    }
    const Nesting nesting;
    return Run().from(start);
}
