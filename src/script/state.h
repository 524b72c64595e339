// The one script system of the process: where its files are, the loaded script, the record of variables, and
// what a callback or a pumped procedure can see of a run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "core/log.h"
#include "inkstone/mac.h"
#include "script/memory.h"
#include "script/record.h"
#include "script/steps.h"

namespace ink::script {

struct State {
    std::string directory = ".";
    std::string log_file = kErrorLog;

    Memory head;  // header and table of procedures
    std::int32_t procedure_count = 0;
    Memory code;  // kMargin bytes longer than the code
    std::uint32_t code_size = 0;
    Steps steps;  // of the code
    // Changes whenever a run in progress has lost the code or the record it works on.
    std::uint64_t generation = 0;

    Record record;
    MAC_CALLBACK callback = nullptr;
    bool initialised = false, loaded = false, named = false;

    std::uint32_t cursor = 0;  // of the next operand; beyond the code's end only after a run that began there
    bool overrun = false;      // an operand outside the code was asked for

    void log(const char *message) const;
    void release_head();
    void release_code();
    void release_record();
    // Where procedure number, which exists, starts; negative when it is not defined.
    std::int32_t entry(std::int32_t number) const;
};

extern State state;

// Behind the code stand kMargin bytes of '#', more than one instruction can read past the end: read as opcode
// and length they make an instruction that ends behind the code, read as operands they move the cursor behind
// it. So one comparison after decoding tells whether anything lay outside.
inline constexpr std::size_t kMargin = 256;
inline constexpr std::uint8_t kMarginByte = '#';

}  // namespace ink::script
