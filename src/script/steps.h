// The loaded code as the interpreter runs it. An instruction is read and checked once, when a run first comes
// to it, into a step that says all there is to know about it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>

namespace ink::script {

struct Step {
    enum class Kind : std::uint8_t {
        kNothing,
        kOutside,  // an operand lies outside the code
        kReturn,
        // Goes on when it holds, else to the target.
        kIfLess,
        kIfEqual,
        kIfGreater,
        kIfNotLess,
        kIfNotGreater,
        kIfNotEqual,
        kGoto,
        kCall,
        kChain,
        kSet,
        kAdd,
        kSubtract,
        kMultiply,
        kDivide,
        kRandom,
        kStop,
        kCommand,  // of the game's
    };
    enum class Place : std::uint8_t {
        kGiven,  // the variable of that index, which exists
        kHeld,   // the one whose index stands in the variable of that index
        kNone,
    };

    static constexpr std::uint32_t kEmpty = std::numeric_limits<std::uint32_t>::max();

    // The places of the steps behind this one and at its target; whether they are there is told by their at.
    Step *next_step = nullptr, *target_step = nullptr;

    std::uint32_t at = kEmpty;  // where the instruction stands
    std::uint32_t next = 0;     // where the one behind it stands
    std::uint32_t target = 0;   // where a jump leads, perhaps outside the code
    std::uint32_t cursor = 0;   // where its last operand ends that was read; of a command its first operand
    Kind kind = Kind::kNothing;
    std::uint8_t opcode = 0;
    Place place = Place::kNone;      // the variable it changes or compares
    bool value_in_variable = false;  // value is the index of a variable, which exists
    std::int32_t index = 0;
    std::int32_t value = 0;
};

// Places for the steps of the code, one for two bytes, since no instruction is shorter. In long code offsets
// share places, so that a step may have to be read again: that bounds the memory by kMost steps.
class Steps {
  public:
    // Makes places for code of that size; false when there is no memory for them.
    bool create(std::uint32_t code_size);
    void release();

    // Forgets all steps if they were read for another number of variables.
    void fit(std::uint32_t variable_count);

    Step *place_of(std::uint32_t offset) { return &steps_[offset / 2 & mask_]; }

  private:
    static constexpr std::uint32_t kMost = 1 << 16;

    std::unique_ptr<Step[]> steps_;
    std::uint32_t mask_ = 0, variable_count_ = 0;
};

// Reads the instruction at an offset of the loaded code into its place. False when it does not end within the
// code.
bool read_step(std::uint32_t offset);

}  // namespace ink::script
