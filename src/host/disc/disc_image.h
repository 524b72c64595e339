// A disc out of an image: a CUE sheet and its files, laid out in sectors as a drive sees them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/disc/cue_sheet.h"
#include "host/disc/disc.h"
#include "host/input_file.h"

namespace ink::host {

class DiscImage final : public DiscContents {
  public:
    // Null when the sheet or a file cannot be opened or they do not fit together. Throws std::bad_alloc.
    static std::unique_ptr<DiscContents> open(const char *cue_sheet);

    // Data and gaps that are in no file are silent, and so is the rest of a sector at the end of a wave file.
    bool read(std::uint32_t sector, Sector &sound) override;

  private:
    struct Source {
        InputFile file;
        std::uint64_t begin, end;  // of the sectors in the file
        bool wave;
    };
    struct Stretch {  // sectors that lie in one piece in a file
        std::uint64_t start, length;
        std::size_t source;
        std::uint64_t offset;  // bytes
        bool audio;
    };

    bool open_sources(const std::string &sheet, const std::vector<CueFile> &files);
    bool lay_out(const std::vector<CueTrack> &tracks);

    std::vector<Source> sources_;
    std::vector<Stretch> stretches_;
};

}  // namespace ink::host
