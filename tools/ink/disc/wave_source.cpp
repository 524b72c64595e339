#include "disc/wave_source.h"

#include <bit>
#include <stdexcept>

#include "core/reader.h"
#include "host/input_file.h"
#include "host/sound/resampler.h"
#include "host/sound/riff.h"

namespace ink::tool {
namespace {

constexpr std::uint16_t kPcm = 1, kFloat = 3, kExtensible = 0xFFFE;
constexpr std::uint32_t kFastest = 1'000'000;
constexpr double kFullScale = 1 << 23;  // samples are 24-bit numbers on the way

struct Format {
    std::uint16_t tag, channels, bits;
    std::uint32_t rate;
    bool known() const {
        const bool integer = tag == kPcm && (bits == 8 || bits == 16 || bits == 24 || bits == 32);
        const bool floating = tag == kFloat && (bits == 32 || bits == 64);
        return (integer || floating) && channels >= 1 && rate >= 1 && rate <= kFastest;
    }
    std::size_t frame_size() const { return std::size_t{channels} * bits / 8; }
};

Format read_format(Reader reader) {
    Format format{};
    format.tag = reader.u16();
    format.channels = reader.u16();
    format.rate = reader.u32();
    reader.skip(6);
    format.bits = reader.u16();
    reader.skip(8);  // of the extension: its size, the valid bits and the speakers
    if (format.tag == kExtensible) format.tag = reader.u16();
    return format;
}

std::int32_t sample(Reader reader, const Format &format) {
    const auto from_float = [](double value) {
        return static_cast<std::int32_t>(std::lround(std::clamp(value, -1.0, 1.0) * (kFullScale - 1)));
    };
    if (format.tag == kFloat && format.bits == 32) return from_float(std::bit_cast<float>(reader.u32()));
    if (format.tag == kFloat) {
        const std::uint64_t low = reader.u32();
        return from_float(std::bit_cast<double>(low | std::uint64_t{reader.u32()} << 32));
    }
    switch (format.bits) {
        case 8: return (reader.u8() - 128) * (1 << 16);
        case 16: return reader.i16() * (1 << 8);
        case 24: {
            const std::uint32_t low = reader.u16();
            return static_cast<std::int32_t>(low << 8 | std::uint32_t{reader.u8()} << 24) >> 8;
        }
        default: return reader.i32() >> 8;
    }
}

std::vector<std::uint8_t> contents(host::InputFile &file, const host::RiffReader::Chunk &chunk,
                                   const std::string &name) {
    if (file.present(chunk.begin, chunk.size()) < chunk.size())
        throw std::runtime_error(name + ": the file is cut short");
    std::vector<std::uint8_t> bytes(chunk.size());
    if (file.read(chunk.begin, bytes) < bytes.size()) throw std::runtime_error(name + ": cannot be read");
    return bytes;
}

}  // namespace

Track read_wave(const std::string &name) {
    host::InputFile file(name.c_str());
    if (!file.is_open()) throw std::runtime_error(name + ": cannot be opened");
    host::RiffReader riff(file);
    const auto whole = riff.find(0, file.size(), "RIFF", "WAVE");
    const auto format_chunk = whole ? riff.find(whole->begin, whole->end, "fmt ") : std::nullopt;
    const auto data_chunk = whole ? riff.find(whole->begin, whole->end, "data") : std::nullopt;
    if (!format_chunk || !data_chunk) throw std::runtime_error(name + ": not a wave file");
    const std::vector<std::uint8_t> format_bytes = contents(file, *format_chunk, name);
    const Format format = read_format(Reader(format_bytes));
    if (!format.known()) throw std::runtime_error(name + ": a format that is not known here");

    const std::vector<std::uint8_t> data = contents(file, *data_chunk, name);
    const auto frames = static_cast<std::int64_t>(data.size() / format.frame_size());
    const host::Resampler resampler(format.rate, kTrackRate);
    Track track;
    for (host::SamplePosition at; static_cast<std::int64_t>(at.frame) < frames; resampler.advance(at, 1)) {
        auto &frame = track.emplace_back();
        for (std::size_t side = 0; side < 2; ++side) {
            const std::size_t offset = std::min<std::size_t>(side, format.channels - 1U) * format.bits / 8;
            const auto read = [&](std::int64_t index) {
                if (index < 0 || index >= frames) return 0;
                Reader reader(data);
                reader.seek(static_cast<std::size_t>(index) * format.frame_size() + offset);
                return sample(reader, format);
            };
            frame[side] = to_sample(resampler.at(at, read) / kFullScale);
        }
    }
    return track;
}

}  // namespace ink::tool
