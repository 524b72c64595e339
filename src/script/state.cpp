#include "script/state.h"

#include "core/reader.h"
#include "inkstone/runtime.h"
#include "script/instruction_set.h"

namespace ink::script {

State state;

void State::log(const char *message) const {
    log_error_to_file(message, log_file.c_str());
}

void State::release_head() {
    head.reset();
    procedure_count = 0;
    ++generation;
}

void State::release_code() {
    code.reset();
    steps.release();
    code_size = 0;
    cursor = 0;
    ++generation;
}

void State::release_record() {
    record.release();
    ++generation;
}

std::int32_t State::entry(std::int32_t number) const {
    return static_cast<std::int32_t>(
        get_u32(head.get() + kFileHeader + std::size_t{4} * static_cast<std::uint32_t>(number)));
}

}  // namespace ink::script
