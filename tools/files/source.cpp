#include "files/source.h"

#include <algorithm>
#include <numeric>

namespace ink::tool {
namespace {

// As wide on a terminal as the text before the place: tabs as they are, Chinese characters two columns each.
std::string padding(std::string_view before) {
    std::string pad;
    for (const char byte : before) {
        if (!begins_character(byte)) continue;
        if (byte == '\t')
            pad += '\t';
        else
            pad.append(static_cast<unsigned char>(byte) >= 0xE0 ? 2 : 1, ' ');
    }
    return pad;
}

std::string report(const Place &place, const std::string &message) {
    const std::string_view before = std::string_view(place.line).substr(0, place.column);
    const auto characters = std::count_if(before.begin(), before.end(), begins_character);
    return brief(place) + ':' + std::to_string(characters + 1) + ": " + message + "\n    " + place.line +
           "\n    " + padding(before) + '^';
}

// How many letters must be put in, left out, changed or swapped with their neighbour to turn one word into
// the other.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> before(b.size() + 1), row(b.size() + 1), next(b.size() + 1);
    std::iota(row.begin(), row.end(), 0U);
    for (std::size_t i = 1; i <= a.size(); ++i) {
        next[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            next[j] = std::min({row[j] + 1, next[j - 1] + 1, row[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                next[j] = std::min(next[j], before[j - 2] + 1);
        }
        before.swap(row);
        row.swap(next);
    }
    return row[b.size()];
}

std::string joined(const std::vector<SourceError> &errors) {
    std::string text;
    for (const SourceError &error : errors) text += (text.empty() ? "" : "\n") + std::string(error.what());
    return text;
}

// Where the text stops being UTF-8; its end when it does not.
std::size_t utf8_until(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto lead = static_cast<unsigned char>(text[at]);
        const std::size_t length = lead < 0x80   ? 1
                                   : lead < 0xC2 ? 0
                                   : lead < 0xE0 ? 2
                                   : lead < 0xF0 ? 3
                                   : lead < 0xF5 ? 4
                                                 : 0;
        if (length == 0 || at + length > text.size()) return at;
        for (std::size_t i = 1; i < length; ++i)
            if (begins_character(text[at + i])) return at;
        at += length;
    }
    return text.size();
}

}  // namespace

SourceErrors::SourceErrors(const std::vector<SourceError> &errors) : std::runtime_error(joined(errors)) {}

SourceError::SourceError(const Place &place, const std::string &message)
    : std::runtime_error(report(place, message)) {}

std::string brief(const Place &place) {
    return place.file + ':' + std::to_string(place.number);
}

std::vector<Place> lines_of(const std::string &file, std::string_view text) {
    std::vector<Place> lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        std::string_view line = text.substr(start, end - start);
        if (line.ends_with('\r')) line.remove_suffix(1);
        lines.push_back({file, std::string(line), lines.size() + 1, 0});
        start = end + 1;
    }
    return lines;
}

void require_utf8(const std::vector<Place> &lines) {
    for (const Place &line : lines)
        if (const std::size_t until = utf8_until(line.line); until < line.line.size()) {
            // The rest of the line would only garble what shows it.
            Place place{line.file, line.line.substr(0, until), line.number, until};
            throw SourceError(
                place, "this is not UTF-8; a text in Big5 becomes UTF-8 with: iconv -f CP950 -t UTF-8");
        }
}

std::string suggestion(std::string_view wrong, const std::vector<std::string> &words) {
    const std::string *best = nullptr;
    // A third of the letters may be wrong; words of a letter or two are like any other.
    std::size_t nearest = wrong.size() / 3 + 1;
    for (const std::string &word : words)
        if (const std::size_t far = distance(wrong, word); far < nearest) {
            nearest = far;
            best = &word;
        }
    return best != nullptr ? "; did you mean \"" + *best + "\"?" : "";
}

}  // namespace ink::tool
