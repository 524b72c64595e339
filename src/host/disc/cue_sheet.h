// CUE sheets: the text that says where the tracks of a disc lie in its files.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ink::host {

struct CueFile {
    std::string name;  // as the sheet writes it
    bool wave;         // a wave file of the disc's own format, else the sectors themselves
};

struct CuePlace {
    std::size_t file = 0;
    std::uint32_t sector = 0;  // of the file
    auto operator<=>(const CuePlace &) const = default;
};

struct CueTrack {
    bool audio = false;
    std::uint32_t sector_size = 0;          // bytes in the file
    std::uint32_t pregap = 0, postgap = 0;  // silent sectors before and after, which are in no file
    std::optional<CuePlace> index0;         // where the gap before the track begins
    std::optional<CuePlace> index1;         // where the track itself begins
    CuePlace first() const { return index0.value_or(*index1); }
};

struct CueSheet {
    std::vector<CueFile> files;
    std::vector<CueTrack> tracks;
};

// Reads a sheet of BINARY and WAVE files with tracks numbered from 1 on, their places in order: several
// tracks in one file, or each in a file of its own, whose gap may stand at the end of the file before. Titles
// and the other texts of a sheet are passed over. Empty when the sheet is anything else. Throws
// std::bad_alloc.
std::optional<CueSheet> parse_cue_sheet(std::string_view text);

}  // namespace ink::host
