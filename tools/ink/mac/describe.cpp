// What scripts and their saved states hold, for ink info.
#include <algorithm>

#include "charset/big5.h"
#include "core/reader.h"
#include "info/report.h"
#include "inkstone/mac.h"
#include "script/instruction_set.h"

namespace ink::tool {
namespace {

// Where the whole instructions end.
std::size_t walk(std::span<const std::uint8_t> code, std::int64_t &count) {
    std::size_t at = 0;
    while (code.size() - at >= 2 && code.size() - at >= std::size_t{2} + code[at + 1]) {
        at += std::size_t{2} + code[at + 1];
        ++count;
    }
    return at;
}

}  // namespace

std::optional<Report> describe_script(const Bytes &file) {
    Reader reader(file);
    reader.seek(script::kCodeSizeAt);
    const std::uint32_t code_size = reader.u32();
    reader.seek(script::kProcedureCountAt);
    const std::uint32_t procedures = reader.u32();
    // Scripts have no mark of their own; their sizes fit together.
    if (!reader.ok() || procedures > reader.left() / 4 ||
        reader.left() - 4 * std::size_t{procedures} != code_size || code_size < 2)
        return std::nullopt;
    Report report("MAC script");
    report.add("procedures", procedures);
    report.add("code bytes", code_size);
    report.items = "procedure list";
    report.columns = {"procedure", "start"};
    for (std::uint32_t i = 0; i < procedures; ++i) {
        const std::int32_t start = reader.i32();
        if (start < 0) continue;
        report.rows.push_back({number(i), number(start)});
        if (static_cast<std::uint32_t>(start) >= code_size)
            report.fault(script::kFileHeader + 4 * std::size_t{i},
                         "procedure " + std::to_string(i) + " starts outside the code");
    }
    std::int64_t count = 0;
    const std::size_t code_at = reader.position(), end = walk(reader.take(code_size), count);
    report.add("instructions", count);
    if (end < code_size)
        report.fault(code_at + end,
                     std::to_string(code_size - end) + " bytes of the code are no whole instruction");
    return report;
}

std::optional<Report> describe_saved_state(const Bytes &file) {
    Reader reader(file);
    const auto name = reader.take(sizeof MAC_INFO_STRUCT::name);
    const std::uint32_t code_size = reader.u32();
    const std::int32_t position = reader.i32();
    const std::uint32_t variables = reader.u32();
    const auto end = std::ranges::find(name, 0);
    if (!reader.ok() || reader.left() != 4 * std::size_t{variables} || end == name.begin() ||
        end == name.end() || std::any_of(name.begin(), end, [](std::uint8_t byte) { return byte < 0x20; }))
        return std::nullopt;
    Report report("saved state of a script");
    report.add("script", from_big5(std::string(name.begin(), end)));
    report.add("code bytes", code_size);
    report.add("position", position);
    report.add("variables", variables);
    report.items = "values";
    report.columns = {"variable", "value"};
    for (std::uint32_t i = 0; i < variables; ++i) report.rows.push_back({number(i), number(reader.i32())});
    if (position < 0 || static_cast<std::uint32_t>(position) > code_size)
        report.fault(84, "the position lies outside the code");
    return report;
}

}  // namespace ink::tool
