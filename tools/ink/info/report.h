// What is known of a file: for people as a page, for programs as JSON.
#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "files/file.h"

namespace ink::tool {

using Value = std::variant<std::string, std::int64_t, double>;

struct Report {
    explicit Report(std::string what = {}) : format(std::move(what)) {}

    std::string format;  // what it is, in words
    std::vector<std::pair<std::string, Value>> facts;
    std::string items;  // what the rows are, in the plural: "frames"
    std::vector<std::string> columns;
    std::vector<std::vector<Value>> rows;
    std::vector<std::string> faults;  // where it breaks its format

    void add(const std::string &name, const std::string &text) { facts.emplace_back(name, text); }
    template <std::integral Number>
    void add(const std::string &name, Number number) {
        facts.emplace_back(name, static_cast<std::int64_t>(number));
    }
    void add(const std::string &name, double number) { facts.emplace_back(name, number); }
    void fault(std::size_t offset, const std::string &what) {
        faults.push_back("at byte " + std::to_string(offset) + ": " + what);
    }
};

inline Value number(std::int64_t value) {
    return value;
}
std::string size_text(std::int64_t width, std::int64_t height);
std::string place_text(std::int64_t x, std::int64_t y);

std::string page_of(const std::string &file, const Report &report);
std::string json_of(const std::string &file, const Report &report);

// Nothing when the file is of no known format. What a packed file holds is described, too.
std::optional<Report> describe(const Bytes &file, const std::filesystem::path &name);

// One for each format: nothing when the file is none of it.
std::optional<Report> describe_bind(const Bytes &file);
std::optional<Report> describe_can(const Bytes &file);
std::optional<Report> describe_conf(const Bytes &file);
std::optional<Report> describe_cue(const Bytes &file, const std::filesystem::path &name);
std::optional<Report> describe_flic(const Bytes &file);
std::optional<Report> describe_font(const Bytes &file, const std::filesystem::path &name);
std::optional<Report> describe_lzss(const Bytes &file, const std::filesystem::path &name);
std::optional<Report> describe_palette(const Bytes &file);
std::optional<Report> describe_picture(const Bytes &file);
std::optional<Report> describe_record(const Bytes &file);
std::optional<Report> describe_saved_state(const Bytes &file);
std::optional<Report> describe_script(const Bytes &file);
std::optional<Report> describe_wave(const Bytes &file);

// The code of a compressed image of that size, from a place in its file on, checked against it.
void check_code(Report &report, std::size_t offset, std::span<const std::uint8_t> code, std::int64_t pixels);

}  // namespace ink::tool
