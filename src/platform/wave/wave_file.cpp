#include "platform/wave/wave_file.h"

#include <new>

#include "core/reader.h"

namespace ink::wave {
namespace {

// A PCM format has 16 bytes, and 18 where the size of further fields, none, is told with it. Eighteen are
// read of either, as far as the file goes: the last two say nothing about the sound.
constexpr std::uint64_t kFormatBytes = 16, kFormatRead = 18;

}  // namespace

std::optional<Fault> WaveFile::open(const char *file_name) {
    file_ = host::open_file(file_name, "rb");
    if (!file_) return Fault::open;
    RiffReader riff(file_.get());

    const auto wave = riff.find(0, riff.whole().end, "RIFF", "WAVE");
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
    return std::nullopt;
}

std::optional<Fault> WaveFile::read(std::unique_ptr<std::uint8_t[]> &samples) {
    RiffReader riff(file_.get());
    if (!riff.holds(data_.begin, data_.size())) return Fault::data_short;
    samples.reset(new (std::nothrow) std::uint8_t[data_.size()]);
    if (samples == nullptr) return Fault::memory;
    return riff.read(data_.begin, samples.get(), data_.size()) ? std::nullopt
                                                               : std::optional(Fault::data_short);
}

}  // namespace ink::wave
