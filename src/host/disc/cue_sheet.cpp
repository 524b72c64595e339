#include "host/disc/cue_sheet.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "host/disc/disc.h"

namespace ink::host {
namespace {

// The word at the front of the line, which it is taken from: up to a blank, or between quotation marks.
std::string_view take_word(std::string_view &line) {
    constexpr std::string_view kBlank = " \t\r";
    line.remove_prefix(std::min(line.find_first_not_of(kBlank), line.size()));
    const bool quoted = line.starts_with('"');
    if (quoted) line.remove_prefix(1);
    const std::string_view word = line.substr(0, quoted ? line.find('"') : line.find_first_of(kBlank));
    line.remove_prefix(std::min(word.size() + (quoted ? 1 : 0), line.size()));
    return word;
}

bool is(std::string_view word, std::string_view keyword) {
    return std::equal(word.begin(), word.end(), keyword.begin(), keyword.end(),
                      [](char a, char b) { return (a >= 'a' && a <= 'z' ? a - 'a' + 'A' : a) == b; });
}

std::optional<std::uint32_t> number(std::string_view digits) {
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    return value;
}

// minutes:seconds:frames, in sectors.
std::optional<std::uint32_t> sectors(std::string_view time) {
    const std::size_t first = time.find(':'), second = time.rfind(':');
    if (first == second) return std::nullopt;
    const auto minutes = number(time.substr(0, first));
    const auto seconds = number(time.substr(first + 1, second - first - 1));
    const auto frames = number(time.substr(second + 1));
    if (!minutes || !seconds || !frames) return std::nullopt;
    if (*minutes > 255 || *seconds > 59 || *frames >= kSectorsPerSecond) return std::nullopt;
    return (*minutes * 60 + *seconds) * kSectorsPerSecond + *frames;
}

struct Mode {
    std::string_view name;
    bool audio;
    std::uint32_t sector_size;
};
constexpr std::array kModes{
    Mode{"AUDIO", true, 2352},       Mode{"CDG", false, 2448},        Mode{"MODE1/2048", false, 2048},
    Mode{"MODE1/2352", false, 2352}, Mode{"MODE2/2048", false, 2048}, Mode{"MODE2/2324", false, 2324},
    Mode{"MODE2/2336", false, 2336}, Mode{"MODE2/2352", false, 2352}, Mode{"CDI/2336", false, 2336},
    Mode{"CDI/2352", false, 2352},
};

bool read_track(CueSheet &sheet, std::string_view line) {
    const auto track_number = number(take_word(line));
    if (track_number != sheet.tracks.size() + 1 || (!sheet.tracks.empty() && !sheet.tracks.back().index1))
        return false;
    const std::string_view name = take_word(line);
    const auto mode =
        std::find_if(kModes.begin(), kModes.end(), [&](const Mode &m) { return is(name, m.name); });
    if (mode == kModes.end()) return false;
    sheet.tracks.push_back({mode->audio, mode->sector_size, 0, 0, std::nullopt, std::nullopt});
    return true;
}

bool read_file(CueSheet &sheet, std::string_view line) {
    const std::string_view name = take_word(line), type = take_word(line);
    if (name.empty() || (!is(type, "BINARY") && !is(type, "WAVE"))) return false;
    sheet.files.push_back({std::string(name), is(type, "WAVE")});
    return true;
}

bool read_index(CueSheet &sheet, std::string_view line) {
    const auto index = number(take_word(line));
    const auto sector = sectors(take_word(line));
    if (!index || !sector) return false;
    CueTrack &track = sheet.tracks.back();
    const CuePlace place{sheet.files.size() - 1, *sector};
    if (*index == 0) track.index0 = place;
    if (*index == 1) track.index1 = place;
    return true;  // the indexes inside a track divide it for nobody here
}

bool read_gap(std::uint32_t &gap, std::string_view line) {
    const auto length = sectors(take_word(line));
    gap = length.value_or(0);
    return length.has_value();
}

bool read_line(CueSheet &sheet, std::string_view line) {
    const std::string_view command = take_word(line);
    if (is(command, "FILE")) return read_file(sheet, line);
    if (is(command, "TRACK")) return !sheet.files.empty() && read_track(sheet, line);
    const bool placed = is(command, "INDEX"), before = is(command, "PREGAP"), after = is(command, "POSTGAP");
    if (!placed && !before && !after) return true;
    if (sheet.tracks.empty()) return false;
    CueTrack &track = sheet.tracks.back();
    return placed ? read_index(sheet, line) : read_gap(before ? track.pregap : track.postgap, line);
}

// Every track begins, none before the one ahead of it, and something begins in every file.
bool in_order(const CueSheet &sheet) {
    CuePlace reached;
    for (const CueTrack &track : sheet.tracks) {
        if (!track.index1) return false;
        for (const CuePlace place : {track.first(), *track.index1}) {
            if (place < reached || place.file > reached.file + 1) return false;
            reached = place;
        }
        if (sheet.files[reached.file].wave && !track.audio) return false;
    }
    return !sheet.tracks.empty() && sheet.tracks.front().first().file == 0 &&
           reached.file + 1 == sheet.files.size();
}

}  // namespace

std::optional<CueSheet> parse_cue_sheet(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    CueSheet sheet;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\n\r"), text.size());
        if (!read_line(sheet, text.substr(0, end))) return std::nullopt;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return in_order(sheet) ? std::optional(std::move(sheet)) : std::nullopt;
}

}  // namespace ink::host
