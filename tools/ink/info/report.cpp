#include "info/report.h"

#include <algorithm>
#include <cstdio>

namespace ink::tool {
namespace {

std::string text_of(const Value &value) {
    if (const auto *text = std::get_if<std::string>(&value)) return *text;
    if (const auto *integer = std::get_if<std::int64_t>(&value)) return std::to_string(*integer);
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", std::get<double>(value));
    return text;
}

std::string quoted(const std::string &text) {
    std::string made = "\"";
    for (const char letter : text) {
        char code[8];
        if (letter == '"' || letter == '\\') {
            made += {'\\', letter};
        } else if (static_cast<unsigned char>(letter) < 0x20) {
            std::snprintf(code, sizeof code, "\\u%04X", static_cast<unsigned>(letter));
            made += code;
        } else {
            made += letter;
        }
    }
    return made + '"';
}
std::string json(const Value &value) {
    const auto *text = std::get_if<std::string>(&value);
    return text != nullptr ? quoted(*text) : text_of(value);
}

std::string padded(const std::string &text, std::size_t width, bool right) {
    const std::string blanks(width > text.size() ? width - text.size() : 0, ' ');
    return right ? blanks + text : text + blanks;
}

// Numbers to the right, words to the left.
std::string table_of(const Report &report) {
    std::vector<std::size_t> widths;
    for (std::size_t column = 0; column < report.columns.size(); ++column) {
        std::size_t width = report.columns[column].size();
        for (const auto &row : report.rows) width = std::max(width, text_of(row[column]).size());
        widths.push_back(width);
    }
    std::string table;
    const auto line = [&](const auto &cell, const auto &right) {
        std::string text = "   ";
        for (std::size_t column = 0; column < widths.size(); ++column)
            text += ' ' + padded(cell(column), widths[column], right(column)) + ' ';
        text.erase(text.find_last_not_of(' ') + 1);
        table += text + '\n';
    };
    const auto is_number = [&](std::size_t column) {
        return !report.rows.empty() && !std::holds_alternative<std::string>(report.rows[0][column]);
    };
    line([&](std::size_t column) { return report.columns[column]; }, is_number);
    for (const auto &row : report.rows)
        line([&](std::size_t column) { return text_of(row[column]); }, is_number);
    return table;
}

}  // namespace

std::string size_text(std::int64_t width, std::int64_t height) {
    return std::to_string(width) + " x " + std::to_string(height);
}
std::string place_text(std::int64_t x, std::int64_t y) {
    return '(' + std::to_string(x) + ", " + std::to_string(y) + ')';
}

std::string page_of(const std::string &file, const Report &report) {
    std::string page = file + ": " + report.format + '\n';
    std::size_t width = 0;
    for (const auto &[name, value] : report.facts) width = std::max(width, name.size());
    for (const auto &[name, value] : report.facts)
        page += "    " + padded(name, width, false) + "  " + text_of(value) + '\n';
    if (!report.rows.empty()) page += table_of(report);
    for (const std::string &fault : report.faults) page += "    fault: " + fault + '\n';
    return page;
}

std::string json_of(const std::string &file, const Report &report) {
    std::string text = "{\"file\": " + quoted(file) + ", \"format\": " + quoted(report.format);
    for (const auto &[name, value] : report.facts) text += ", " + quoted(name) + ": " + json(value);
    if (!report.items.empty()) {
        text += ", " + quoted(report.items) + ": [";
        for (std::size_t i = 0; i < report.rows.size(); ++i) {
            text += i > 0 ? ",\n  {" : "\n  {";
            for (std::size_t column = 0; column < report.columns.size(); ++column)
                text += (column > 0 ? ", " : "") + quoted(report.columns[column]) + ": " +
                        json(report.rows[i][column]);
            text += '}';
        }
        text += ']';
    }
    text += ", \"faults\": [";
    for (std::size_t i = 0; i < report.faults.size(); ++i)
        text += (i > 0 ? ", " : "") + quoted(report.faults[i]);
    return text + "]}";
}

// Those with a mark of their own come first, and last what is known by its size or its words alone.
std::optional<Report> describe(const Bytes &file, const std::filesystem::path &name) {
    using Describe = std::optional<Report> (*)(const Bytes &);
    if (auto report = describe_flic(file)) return report;
    if (auto report = describe_bind(file)) return report;
    if (auto report = describe_record(file)) return report;
    if (auto report = describe_wave(file)) return report;
    for (const Describe one :
         {describe_can, describe_palette, describe_picture, describe_script, describe_saved_state})
        if (auto report = one(file)) return report;
    if (auto report = describe_font(file, name)) return report;
    if (auto report = describe_cue(file, name)) return report;
    if (auto report = describe_conf(file)) return report;
    return describe_lzss(file, name);
}

}  // namespace ink::tool
