#include "mac/diagnostic.h"

#include <algorithm>

namespace ink::mac {
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

}  // namespace

SourceError::SourceError(const Place &place, const std::string &message)
    : std::runtime_error(report(place, message)) {}

std::string brief(const Place &place) {
    return place.file + ':' + std::to_string(place.number);
}

}  // namespace ink::mac
