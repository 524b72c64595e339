#include "conf/lines.h"

#include <algorithm>

#include "charset/big5.h"
#include "info/report.h"

namespace ink::tool {
namespace {

constexpr std::string_view kSeparators = " \t,=";
constexpr std::size_t kLongestLine = 1022, kLongestName = 79, kLongestValue = 254;

bool same_name(std::string_view a, std::string_view b) {
    const auto capital = [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 32) : letter;
    };
    return std::ranges::equal(a, b, {}, capital, capital);
}

ConfLine line_of(std::string_view text, std::size_t start) {
    ConfLine line;
    line.start = start;
    line.end = start + text.size();
    // A carriage return ends what counts of a line.
    text = text.substr(0, text.find('\r'));
    const std::size_t first = text.find_first_not_of(kSeparators);
    if (first == std::string_view::npos || text[first] == ';') return line;
    text.remove_prefix(first);
    if (text[0] == '[') {
        line.kind = ConfLine::Kind::section;
        line.key = text.substr(1, text.find(']') - 1);
        return line;
    }
    line.kind = ConfLine::Kind::value;
    const std::size_t end = std::min(text.find_first_of(kSeparators), text.size());
    line.key = text.substr(0, end);
    const std::size_t value = text.find_first_not_of(kSeparators, end);
    if (value != std::string_view::npos) line.value = text.substr(value);
    return line;
}

}  // namespace

std::vector<ConfLine> conf_lines(const Bytes &file) {
    const std::string_view text = as_text(file);
    std::vector<ConfLine> lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        lines.push_back(line_of(text.substr(start, end - start), start));
        lines.back().ended = end < text.size();
        start = end + 1;
    }
    return lines;
}

Bytes with_value(const Bytes &file, const std::string &section, const std::string &key,
                 const std::string &value) {
    std::string text(as_text(file));
    const std::string line_end = text.find("\r\n") != std::string::npos ? "\r\n" : "\n";
    if (!text.empty() && text.back() != '\n') text += line_end;
    const std::string new_line = key + " = " + value + line_end;
    const std::vector<ConfLine> lines = conf_lines(Bytes(text.begin(), text.end()));
    const auto header = std::ranges::find_if(lines, [&](const ConfLine &line) {
        return line.kind == ConfLine::Kind::section && same_name(line.key, section);
    });
    if (header == lines.end()) {
        if (!text.empty()) text += line_end;
        text += '[' + section + ']' + line_end + new_line;
    } else {
        const auto end = std::find_if(header + 1, lines.end(), [](const ConfLine &line) {
            return line.kind == ConfLine::Kind::section;
        });
        const auto here = std::find_if(header + 1, end, [&](const ConfLine &line) {
            return line.kind == ConfLine::Kind::value && same_name(line.key, key);
        });
        if (here != end) {
            // Up to the value the line stays as the author wrote it.
            const std::string_view old = std::string_view(text).substr(here->start, here->end - here->start);
            const std::size_t carriage = std::min(old.find('\r'), old.size());
            const std::size_t length = here->value.size();
            if (length > 0)
                text.replace(here->start + carriage - length, length, value);
            else
                text.replace(here->start, carriage, key + " = " + value);
        } else {
            // Blank lines stay between the sections.
            const auto blank = [&](const ConfLine &line) {
                return text.find_first_not_of(" \t\r", line.start) >= line.end;
            };
            auto last = end;
            while (last - 1 != header && blank(*(last - 1))) --last;
            text.insert(last == lines.end() ? text.size() : last->start, new_line);
        }
    }
    return Bytes(text.begin(), text.end());
}

bool is_text(const Bytes &file) {
    return std::ranges::none_of(file, [](std::uint8_t byte) {
        return byte < 0x20 && byte != '\t' && byte != '\r' && byte != '\n' && byte != 0x1A;
    });
}

std::optional<Report> describe_conf(const Bytes &file) {
    if (file.empty() || !is_text(file)) return std::nullopt;
    const std::vector<ConfLine> lines = conf_lines(file);
    const auto first =
        std::ranges::find_if(lines, [](const ConfLine &line) { return line.kind != ConfLine::Kind::other; });
    if (first == lines.end() || first->kind != ConfLine::Kind::section) return std::nullopt;
    Report report("configuration (INFO)");
    report.items = "values";
    report.columns = {"section", "key", "value"};
    std::string section;
    for (const ConfLine &line : lines) {
        if (line.kind == ConfLine::Kind::section) section = from_big5(line.key);
        if (line.kind == ConfLine::Kind::value)
            report.rows.push_back({section, from_big5(line.key), from_big5(line.value)});
        if (line.key.size() > kLongestName) report.fault(line.start, "this name has more than 79 characters");
        if (line.value.size() > kLongestValue)
            report.fault(line.start, "this value has more than 254 characters");
        if (line.end - line.start > kLongestLine) report.fault(line.start, "this line counts as several");
    }
    if (!lines.back().ended)
        report.fault(lines.back().start, "the last line is not read: it has no line feed");
    return report;
}

}  // namespace ink::tool
