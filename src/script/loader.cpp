// Setting the script system up, loading scripts, and the saved state's way out and in.
#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <new>
#include <string>

#include "core/reader.h"
#include "host/input_file.h"
#include "inkstone/mac.h"
#include "script/instruction_set.h"
#include "script/state.h"

namespace ink::script {
namespace {

constexpr const char *kOutOfMemory = "ERROR : memory alloc error";
constexpr const char *kNotInitialised = "ERROR : mac system have not been initialized !";
constexpr const char *kRecordMissing = "ERROR : pmac_info is null";

// A file may end before its stated sizes, the rest counting as zeros; but only up to this size, so that a few
// bytes cannot ask for gigabytes.
constexpr std::uint64_t kLargestShortScript = 1 << 20;

std::int32_t default_callback(std::uint8_t) {
    return -1;
}

bool is_given(const char *text) {
    return text != nullptr && *text != '\0';
}

// Empty and null ones keep what was set before. False when memory is exhausted.
bool set_directories(const char *script_dir, const char *log_dir) {
    try {
        if (is_given(script_dir)) state.directory = script_dir;
        if (is_given(log_dir)) state.log_file = std::string(log_dir) + '\\' + kErrorLog;
        return true;
    } catch (const std::bad_alloc &) {
        return false;
    }
}

std::int32_t fail() {
    state.release_head();
    state.release_code();
    state.loaded = false;
    return -1;
}
std::int32_t fail(const char *message) {
    state.log(message);
    return fail();
}

host::InputFile open_script(const char *name) {
    try {
        return host::InputFile((state.directory + '\\' + name).c_str());
    } catch (const std::bad_alloc &) {
        return {};
    }
}

// Reads head and code; false when there is no memory for them or their stated sizes cannot be.
bool read_script(host::InputFile &file) {
    state.release_head();
    state.release_code();

    std::array<std::uint8_t, kFileHeader> header{};
    file.read(0, header);
    const auto count = static_cast<std::int32_t>(get_u32(header.data() + kProcedureCountAt));
    const auto code_size = static_cast<std::int32_t>(get_u32(header.data() + kCodeSizeAt));
    if (count < 0 || code_size < 0) return false;
    const std::uint64_t head_size = kFileHeader + std::uint64_t{4} * static_cast<std::uint32_t>(count);
    const auto size = static_cast<std::uint32_t>(code_size);
    if (head_size + size > std::max(file.size(), kLargestShortScript)) return false;
    if (head_size > std::numeric_limits<std::int32_t>::max())
        return false;  // it is given out as such a number

    state.head = zeroed(static_cast<std::size_t>(head_size));
    state.code = zeroed(size + kMargin);
    if (!state.head || !state.code || !state.steps.create(size)) return false;
    state.procedure_count = count;
    state.code_size = size;
    file.read(0, {state.head.get(), static_cast<std::size_t>(head_size)});
    file.read(head_size, {state.code.get(), size});
    std::memset(state.code.get() + size, kMarginByte, kMargin);
    return true;
}

// What load and reload share once the file is open; name is null when the record keeps its own.
std::int32_t finish_loading(host::InputFile &file, const char *name, const char *out_of_memory) {
    state.loaded = false;
    if (!read_script(file)) return fail(out_of_memory);
    if (!state.record) return fail(kRecordMissing);
    state.record.set_code_size(state.code_size);
    state.record.set_position(0);
    if (name != nullptr) state.record.set_name(name);
    state.loaded = state.named = true;
    log_format_to_file(state.log_file.c_str(), "LOAD MAC %s(%d) OK!", state.record.name(),
                       static_cast<int>(state.code_size));
    return 0;
}

}  // namespace
}  // namespace ink::script

using ink::script::Record;
using ink::script::state;

int32_t MAC_init(const char *script_dir, const char *log_dir, uint32_t variable_count,
                 MAC_CALLBACK callback) {
    using namespace ink::script;
    const bool directories = set_directories(script_dir, log_dir);
    state.release_record();
    if (!directories || !state.record.create(variable_count)) {
        state.log(kOutOfMemory);
        state.initialised = state.loaded = state.named = false;
        return -1;
    }
    state.record.set_name("NONAME");
    state.release_code();
    state.callback = callback != nullptr ? callback : default_callback;
    state.initialised = true;
    return 0;
}

int32_t MAC_load(const char *file_name) {
    using namespace ink::script;
    if (!state.initialised) return fail(kNotInitialised);
    const char *name = ink::text_of(file_name);
    ink::host::InputFile file =
        std::strlen(name) < Record::kNameSize ? open_script(name) : ink::host::InputFile();
    if (!file.is_open()) {
        ink::log_format_to_file(state.log_file.c_str(), "ERROR : error open file %s(MAC_load)", name);
        return fail();
    }
    return finish_loading(file, name, "ERROR : memory alloc error(MAC_load)");
}

int32_t MAC_reload(void) {
    using namespace ink::script;
    if (!state.initialised) return fail(kNotInitialised);
    if (!state.named) return fail("ERROR : mac filename lost !");
    if (!state.record) return fail(kRecordMissing);
    const char *name = state.record.name();
    ink::host::InputFile file = open_script(name);
    if (!file.is_open()) {
        ink::log_format_to_file(state.log_file.c_str(), "ERROR : error open file %s", name);
        return fail();
    }
    return finish_loading(file, nullptr, kOutOfMemory);
}

void MAC_free(void) {
    state.release_head();
    state.release_code();
    state.release_record();
    state.initialised = state.loaded = state.named = false;
}

int32_t MAC_info_size(void) {
    return static_cast<int32_t>(state.record.size());
}

int32_t MAC_head_size(void) {
    if (!state.head) return 0;
    return static_cast<int32_t>(ink::script::kFileHeader) + 4 * state.procedure_count;
}

int32_t MAC_export_info(void *destination) {
    if (!state.record || destination == nullptr) return 0;
    std::memcpy(destination, state.record.bytes(), state.record.size());
    return MAC_info_size();
}

int32_t MAC_inport_info(const void *source) {
    if (source == nullptr) {
        state.log("ERROR : mac inport info is null");
        return 0;
    }
    if (!state.record.assign(static_cast<const std::uint8_t *>(source))) {
        state.release_record();
        state.log(ink::script::kOutOfMemory);
        return 0;
    }
    state.named = true;
    return MAC_info_size();
}

char *MAC_export_filename(char *destination) {
    static char name[Record::kNameSize];
    if (!state.record || destination == nullptr) return nullptr;
    std::memcpy(name, state.record.name(), sizeof name);
    std::strcpy(destination, name);
    return name;
}
