// What lies in a disc drive: tracks and their sound, sector by sector.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace ink::host {

// Sectors (also called frames) of a disc in a second.
inline constexpr std::uint32_t kSectorsPerSecond = 75;
// Stereo frames of signed 16-bit little-endian samples in a sector, at kMixRate.
inline constexpr std::uint32_t kFramesPerSector = 588;
using Sector = std::array<std::uint8_t, kFramesPerSector * 4>;

class DiscContents {
  public:
    // A track reaches from its start to where the next begins, and so has the gap before that one at its end,
    // as the table of contents of a disc has it.
    struct Track {
        std::uint32_t start, length;  // sectors, counted from the first track's start
    };

    // The disc in the system's own drive when name is a device, else the one that a CUE sheet and its image
    // make up. Null when there is none. Throws std::bad_alloc.
    static std::unique_ptr<DiscContents> open(const char *name);

    virtual ~DiscContents() = default;
    // One or more.
    const std::vector<Track> &tracks() const { return tracks_; }
    std::uint32_t end() const { return tracks_.back().start + tracks_.back().length; }
    // False when the sector is still being fetched. Data is silent, and so is what cannot be read.
    virtual bool read(std::uint32_t sector, Sector &sound) = 0;

  protected:
    std::vector<Track> tracks_;
};

}  // namespace ink::host
