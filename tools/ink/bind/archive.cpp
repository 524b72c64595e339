#include "bind/archive.h"

#include <algorithm>
#include <cstdio>
#include <map>

#include "charset/big5.h"
#include "core/reader.h"
#include "info/report.h"

namespace ink::tool {
namespace {

constexpr std::string_view kMark = "Murn Bind file";
constexpr std::size_t kHeader = 24, kEntry = 24, kName = 16;

std::string capitals(std::string text) {
    for (char &letter : text)
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 32);
    return text;
}

}  // namespace

bool is_bind(const Bytes &file) {
    return file.size() >= kHeader && as_text(file).starts_with(kMark);
}

std::vector<BindEntry> bind_entries(const Bytes &file) {
    Reader reader(file);
    reader.seek(16);
    const std::int32_t count = reader.i32();
    reader.skip(4);
    std::vector<BindEntry> entries;
    for (std::int32_t i = 0; i < count && reader.left() >= kEntry; ++i) {
        const auto name = reader.take(kName);
        const auto end = std::ranges::find(name, 0);
        entries.push_back({std::string(name.begin(), end), 0, 0});
        entries.back().offset = reader.u32();
        entries.back().size = reader.u32();
    }
    return entries;
}

void name_bind_entry(Bytes &file, std::size_t index, const std::string &name) {
    const auto field = file.begin() + static_cast<std::ptrdiff_t>(kHeader + kEntry * index);
    std::fill_n(field, kName, std::uint8_t{0});
    std::ranges::copy(name, field);
}

std::string file_name_of_entry(const std::string &name) {
    std::string made;
    for (std::string_view left = name; !left.empty();) {
        const bool lead = static_cast<unsigned char>(left[0]) >= 0x80;
        const std::string_view character = left.substr(0, lead ? 2 : 1);
        if (const auto utf8 = character_of_big5(character)) {
            made += *utf8 == "\\" ? "/" : *utf8;
            left.remove_prefix(character.size());
        } else {
            char code[8];
            std::snprintf(code, sizeof code, "%%%02X", static_cast<unsigned>(left[0]) & 0xFFU);
            made += code;
            left.remove_prefix(1);
        }
    }
    return made;
}

std::optional<Report> describe_bind(const Bytes &file) {
    if (!is_bind(file)) return std::nullopt;
    Report report("BIND archive");
    Reader reader(file);
    reader.seek(16);
    const std::int32_t count = reader.i32();
    const auto entries = bind_entries(file);
    report.add("files", count);
    report.items = "file list";
    report.columns = {"name", "offset", "bytes"};
    if (count < 0 || static_cast<std::size_t>(count) != entries.size())
        report.fault(16, "the directory of " + std::to_string(count) + " files ends behind the archive");
    std::size_t expected = kHeader + kEntry * entries.size();
    std::map<std::string, std::size_t> places;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const BindEntry &entry = entries[i];
        const std::size_t at = kHeader + kEntry * i;
        report.rows.push_back({from_big5(entry.name), number(entry.offset), number(entry.size)});
        if (entry.name.empty() || entry.name.size() > kLongestBindName)
            report.fault(at, "the name is empty or does not end");
        if (entry.offset > file.size() || entry.size > file.size() - entry.offset)
            report.fault(at + kName, '"' + from_big5(entry.name) + "\" ends behind the archive");
        else if (entry.offset != expected)
            report.fault(at + kName,
                         '"' + from_big5(entry.name) + "\" does not begin where the file before it ends");
        expected = std::size_t{entry.offset} + entry.size;
        if (!places.emplace(capitals(entry.name), i).second)
            report.fault(at,
                         '"' + from_big5(entry.name) + "\" is there already, and only the first is found");
    }
    return report;
}

}  // namespace ink::tool
