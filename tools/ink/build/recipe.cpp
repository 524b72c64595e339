#include "build/recipe.h"

#include <algorithm>
#include <sstream>

namespace ink::tool {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kBlanks = " \t", kBeside = "@/", kHead = "ink-build 1";

}  // namespace

std::vector<Recipe> read_recipes(const fs::path &name, const std::string &shown) {
    const std::vector<Place> lines = lines_of(shown, read_text(name));
    require_utf8(lines);
    std::vector<Recipe> recipes;
    for (Place line : lines) {
        Recipe recipe;
        const std::string_view text = line.line;
        for (std::size_t at = 0; (at = text.find_first_not_of(kBlanks, at)) != std::string_view::npos;) {
            if (text[at] == ';') break;
            const bool quoted = text[at] == '"';
            const std::size_t start = at + (quoted ? 1 : 0);
            std::size_t end =
                quoted ? text.find('"', start) : std::min(text.find_first_of(kBlanks, start), text.size());
            if (end == std::string_view::npos) {
                line.column = at;
                throw SourceError(line, "this word has no closing \"");
            }
            std::string word(text.substr(start, end - start));
            if (word.starts_with(kBeside))
                word = name_of(name.parent_path() / path_of(word.substr(kBeside.size())));
            if (recipe.words.empty()) line.column = at;
            recipe.words.push_back(std::move(word));
            at = end + (quoted ? 1 : 0);
        }
        recipe.place = line;
        if (!recipe.words.empty()) recipes.push_back(std::move(recipe));
    }
    return recipes;
}

Stamp stamp_of(const fs::path &name) {
    std::error_code error;
    const auto size = fs::file_size(name, error);
    if (error) return {name_of(name)};
    const auto time = fs::last_write_time(name, error).time_since_epoch().count();
    return {name_of(name), static_cast<long long>(time), static_cast<long long>(size)};
}

bool Made::holds() const {
    const auto unchanged = [](const Stamp &stamp) { return stamp_of(path_of(stamp.name)) == stamp; };
    return std::ranges::all_of(inputs, unchanged) && std::ranges::all_of(outputs, unchanged);
}

std::vector<Made> read_made(const fs::path &name) {
    std::error_code error;
    if (!fs::is_regular_file(name, error)) return {};
    std::istringstream lines(read_text(name));
    std::string line;
    if (!std::getline(lines, line) || line != kHead) return {};
    std::vector<Made> made;
    while (std::getline(lines, line)) {
        std::istringstream fields(line);
        std::string kind, rest;
        Stamp stamp;
        fields >> kind;
        if (kind == "command") {
            made.emplace_back();
            continue;
        }
        if (made.empty()) return {};
        if (kind == "word") {
            made.back().words.push_back(line.size() > 5 ? line.substr(5) : "");
            continue;
        }
        fields >> stamp.time >> stamp.size;
        fields.get();
        std::getline(fields, stamp.name);
        (kind == "input" ? made.back().inputs : made.back().outputs).push_back(stamp);
    }
    return made;
}

void write_made(const fs::path &name, const std::vector<Made> &made) {
    std::string text = std::string(kHead) + '\n';
    const auto add = [&](const char *kind, const std::vector<Stamp> &stamps) {
        for (const Stamp &stamp : stamps)
            text += std::string(kind) + ' ' + std::to_string(stamp.time) + ' ' + std::to_string(stamp.size) +
                    ' ' + stamp.name + '\n';
    };
    for (const Made &one : made) {
        text += "command\n";
        for (const std::string &word : one.words) text += "word " + word + '\n';
        add("input", one.inputs);
        add("output", one.outputs);
    }
    write_text(name, text, true);
}

}  // namespace ink::tool
