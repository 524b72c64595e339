#include "host/sound/wave_file.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

#include "core/reader.h"

namespace ink::host {
namespace {

// A PCM format has 16 bytes, and 18 where the size of further fields, none, is told with it. Eighteen are
// read of either, as far as the file goes: the last two say nothing about the sound.
constexpr std::uint64_t kFormatBytes = 16, kFormatRead = 18;

}  // namespace

std::optional<WaveFile::Fault> WaveFile::open(InputFile file) {
    file_ = std::move(file);
    if (!file_.is_open()) return Fault::open;
    RiffReader riff(file_);

    const auto wave = riff.find(0, file_.size(), "RIFF", "WAVE");
    if (!wave) return Fault::not_wave;
    const auto chunk = riff.find(wave->begin, wave->end, "fmt ");
    if (!chunk) return Fault::no_format;

    std::uint8_t bytes[kFormatRead];
    if (chunk->size() < kFormatBytes || !riff.read(chunk->begin, bytes, sizeof bytes))
        return Fault::format_short;
    Reader reader(bytes, sizeof bytes);
    format_.tag = reader.u16();
    format_.channels = reader.u16();
    format_.samples_per_second = reader.u32();
    format_.average_bytes_per_second = reader.u32();
    format_.block_align = reader.u16();
    format_.bits_per_sample = reader.u16();
    if (format_.tag != 1) return Fault::not_pcm;

    const auto next = riff.after(*chunk);
    if (!next) return Fault::ascend;
    const auto data = riff.find(*next, wave->end, "data");
    if (!data) return Fault::no_data;
    data_ = *data;
    // Of a file that was never finished, the samples are all that follows.
    if (wave->unfinished && data->unfinished)
        data_.end =
            std::min<std::uint64_t>(file_.size(), data_.begin + std::numeric_limits<std::uint32_t>::max());
    return std::nullopt;
}

std::optional<WaveFile::Fault> WaveFile::read(std::unique_ptr<std::uint8_t[]> &samples) {
    if (file_.present(data_.begin, data_.size()) < data_.size()) return Fault::data_short;
    samples.reset(new (std::nothrow) std::uint8_t[size()]);
    if (samples == nullptr) return Fault::memory;
    return RiffReader(file_).read(data_.begin, samples.get(), size()) ? std::nullopt
                                                                      : std::optional(Fault::data_short);
}

}  // namespace ink::host
