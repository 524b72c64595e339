// Any bytes as a file that ink info is asked about, and as an animation: known, refused or damaged, but read. The
// first byte chooses what the name ends in.
#include <array>
#include <cstdlib>
#include <stdexcept>

#include "animation/formats.h"
#include "bind/archive.h"
#include "info/report.h"
#include "lzss/stream.h"
#include "picture/picture_file.h"
#include "png/png_file.h"

// The entries of an archive keep the names that they are given, and have names that a system can take.
static void name_entries(ink::tool::Bytes file) {
    using namespace ink::tool;
    const auto entries = bind_entries(file);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const std::string &name = entries[i].name, for_system = file_name_of_entry(name);
        if (name.empty() != for_system.empty() || for_system.find('\\') != std::string::npos) std::abort();
        name_bind_entry(file, i, name);
    }
    const auto named = bind_entries(file);
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (named[i].name != entries[i].name || named[i].offset != entries[i].offset) std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    using namespace ink::tool;
    if (size == 0 || size > 1 << 16) return 0;
    const Bytes file(data + 1, data + size);
    const char *const names[] = {"-", "a.FON"};
    try {
        if (const auto report = describe(file, names[data[0] % 2])) {
            if (report->format.empty() || page_of("a", *report).empty() ||
                !json_of("a", *report).ends_with("]}"))
                std::abort();
            for (const auto &row : report->rows)
                if (row.size() != report->columns.size()) std::abort();
        }
    } catch (const std::runtime_error &) {
    }
    if (is_bind(file)) name_entries(file);
    if (lzss_memory_length(file) > 18 * static_cast<std::int64_t>(file.size())) std::abort();
    try {
        if (is_gif(file))
            for (const RawFrame &frame : decode_gif(file).frames)
                if (!frame.picture.colours) std::abort();
        if (is_png(file)) decode_png(file);
    } catch (const std::runtime_error &) {
    }
    return 0;
}
