// The script's instructions and the layout of script files, for the interpreter here and for the tools that
// write scripts.
//
// An instruction is an opcode byte, a length byte L and L bytes of operands. Opcodes up to 23 are the
// interpreter's, of which 3 to 12 do nothing; the others are the game's.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ink::script {

enum Opcode : std::uint8_t {
    kNote = 0,
    kReturn = 1,
    kIf = 2,
    kGoto = 13,
    kCall = 14,
    kEnd = 15,
    kChain = 16,
    kSet = 17,
    kAdd = 18,
    kSubtract = 19,
    kMultiply = 20,
    kDivide = 21,
    kRandom = 22,
    kStop = 23,
    kFirstGameOpcode = 24,
};

// The first byte of a number operand, before a 32-bit word.
inline constexpr std::uint8_t kConstant = '#';  // the word is the number
inline constexpr std::uint8_t kVariable = '@';  // the word is the index of the variable that holds it
// Variables from here on are not reached by number operands.
inline constexpr std::uint32_t kReadableVariables = 16000;

// The operator byte of kIf; besides '<', '=' and '>'.
inline constexpr std::uint8_t kNotLess = 0xF2;
inline constexpr std::uint8_t kNotGreater = 0xF3;
inline constexpr std::uint8_t kNotEqual = 0xF7;

inline constexpr std::size_t kLongestString = 253;
inline constexpr std::int32_t kCallableProcedures = 1024;

// Script files: offsets of the header's 32-bit words. The table of procedures follows it, then the code.
inline constexpr std::size_t kCodeSizeAt = 12;
inline constexpr std::size_t kProcedureCountAt = 20;
inline constexpr std::size_t kFileHeader = 24;

}  // namespace ink::script
