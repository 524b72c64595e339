// Any bytes as the saved state of scripts: taken in as a game takes it from a file, it comes out as it was, and its
// script is loaded and run with its variables.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "core/reader.h"
#include "inkstone/mac.h"
#include "scratch.h"
#include "support/files.h"
#include "support/script.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    fuzz::as_file(data, size);  // for the directory
    if (size < sizeof(MAC_INFO_STRUCT)) return 0;
    const std::uint32_t variables = ink::get_u32(data + offsetof(MAC_INFO_STRUCT, variable_count));
    if (size < sizeof(MAC_INFO_STRUCT) + std::size_t{4} * variables) return 0;
    // A block of exactly its size, so that the address sanitizer sees a read past its end.
    std::vector<std::uint8_t> state(data, data + sizeof(MAC_INFO_STRUCT) + std::size_t{4} * variables),
        out(state.size());
    state.shrink_to_fit();
    test::write_text("a",
                     test::script_file({test::op(2, test::variable(0) + test::variable(1)) + test::op(0)}));
    MAC_init("", "nowhere", 3, nullptr);
    const auto taken = static_cast<std::int32_t>(state.size());
    if (MAC_inport_info(state.data()) != taken || MAC_info_size() != taken ||
        MAC_export_info(out.data()) != taken)
        std::abort();
    state[sizeof(MAC_INFO_STRUCT::name) - 1] = 0;
    if (out != state) std::abort();
    for (std::uint32_t i = 0; i <= variables; ++i) {
        const auto value =
            i < variables ? ink::get_u32(&state[sizeof(MAC_INFO_STRUCT) + std::size_t{4} * i]) : 0;
        if (MAC_get_variable(static_cast<std::int32_t>(i)) != static_cast<std::int32_t>(value)) std::abort();
    }
    char name[sizeof(MAC_INFO_STRUCT::name)];
    const char *const again = MAC_export_filename(name);
    if (again == nullptr || std::strcmp(again, name) != 0) std::abort();
    if (MAC_reload() == 0) MAC_driver(0);
    MAC_free();
    return 0;
}
