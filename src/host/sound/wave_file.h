// Wave files: the format and the samples of a sound.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "host/host.h"
#include "host/input_file.h"
#include "host/sound/riff.h"

namespace ink::host {

class WaveFile {
  public:
    // What can be wrong with a file, in the order in which it is found.
    enum class Fault {
        open,
        not_wave,
        no_format,
        format_short,
        not_pcm,
        ascend,
        no_data,
        memory,
        data_short
    };

    // Finds everything in the file but reads no samples.
    std::optional<Fault> open(InputFile file);
    const WaveFormat &format() const { return format_; }
    // The samples: where they begin in the file, and their bytes.
    std::uint64_t begin() const { return data_.begin; }
    std::uint32_t size() const { return static_cast<std::uint32_t>(data_.size()); }
    // Reads all samples. Memory is taken only for what the file really holds.
    std::optional<Fault> read(std::unique_ptr<std::uint8_t[]> &samples);
    // Gives the file back, or only closes it.
    InputFile take() { return std::move(file_); }

  private:
    InputFile file_;
    WaveFormat format_;
    RiffReader::Chunk data_{};
};

}  // namespace ink::host
