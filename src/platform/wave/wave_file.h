// Wave files: the format and the samples of a sound.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "host/file_name.h"
#include "host/host.h"
#include "platform/wave/riff.h"

namespace ink::wave {

// What can be wrong with a file, in the order in which it is found.
enum class Fault { open, not_wave, no_format, format_short, not_pcm, ascend, no_data, memory, data_short };

class WaveFile {
  public:
    // Opens the file and finds everything but reads no samples.
    std::optional<Fault> open(const char *file_name);
    const host::WaveFormat &format() const { return format_; }
    std::uint32_t size() const { return static_cast<std::uint32_t>(data_.size()); }  // of the samples, bytes
    // Reads the samples. Memory is taken only for what the file really holds.
    std::optional<Fault> read(std::unique_ptr<std::uint8_t[]> &samples);
    void close() { file_.reset(); }

  private:
    host::File file_;
    host::WaveFormat format_;
    RiffReader::Chunk data_{};
};

}  // namespace ink::wave
