// CUE sheets: the text that says where the tracks of a disc lie in its image.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ink::host {

struct CueTrack {
    bool audio = false;
    std::uint32_t sector_size = 0;          // bytes in the image
    std::uint32_t pregap = 0, postgap = 0;  // silent sectors before and after, which are not in the image
    std::optional<std::uint32_t> index0;    // where the gap before the track begins, in sectors of the image
    std::optional<std::uint32_t> index1;    // where the track itself begins
    std::uint32_t first() const { return index0.value_or(*index1); }
};

struct CueSheet {
    std::string image;  // the name of the BINARY file, as the sheet writes it
    std::vector<CueTrack> tracks;
};

// Reads a sheet of one BINARY file with tracks numbered from 1 on, their places in order. Titles and the
// other texts of a sheet are passed over. Empty when the sheet is anything else.
std::optional<CueSheet> parse_cue_sheet(std::string_view text);

}  // namespace ink::host
