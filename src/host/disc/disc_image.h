// A disc out of an image: a CUE sheet and its BINARY file, laid out in sectors as a drive sees them.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "host/disc/cue_sheet.h"
#include "host/disc/disc.h"
#include "host/file_name.h"

namespace ink::host {

class DiscImage final : public DiscContents {
  public:
    // Null when the sheet or the file cannot be opened or do not fit together.
    static std::unique_ptr<DiscContents> open(const char *cue_sheet);

    // Data and gaps that are not in the file are silent.
    void read(std::uint32_t sector, Sector &sound) override;

  private:
    struct Stretch {  // sectors that lie in one piece in the file
        std::uint64_t start, length;
        std::uint64_t offset;  // bytes
        bool audio;
    };

    explicit DiscImage(File file) : file_(std::move(file)) {}
    bool lay_out(const std::vector<CueTrack> &tracks);

    File file_;
    std::vector<Stretch> stretches_;
};

}  // namespace ink::host
