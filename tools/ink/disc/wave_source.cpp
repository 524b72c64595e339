#include "disc/wave_source.h"

#include <bit>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "core/reader.h"
#include "disc/resample.h"

namespace ink::tool {
namespace {

constexpr std::uint16_t kPcm = 1, kFloat = 3, kExtensible = 0xFFFE;
constexpr std::uint32_t kSlowest = 200, kFastest = 1'000'000;
constexpr double kFullScale = 1 << 23;  // samples are 24-bit numbers on the way

struct Format {
    std::uint16_t tag, channels, bits;
    std::uint32_t rate;
    bool known() const {
        const bool integer = tag == kPcm && (bits == 8 || bits == 16 || bits == 24 || bits == 32);
        const bool floating = tag == kFloat && (bits == 32 || bits == 64);
        return (integer || floating) && channels >= 1 && rate >= kSlowest && rate <= kFastest;
    }
    std::size_t frame_size() const { return std::size_t{channels} * bits / 8; }
};

struct Chunk {
    std::string_view name;
    std::span<const std::uint8_t> contents;
    bool whole;
};

std::string_view take_name(Reader &reader) {
    const auto bytes = reader.take(4);
    return {reinterpret_cast<const char *>(bytes.data()), bytes.size()};
}

// The next chunk; they are padded to an even length.
std::optional<Chunk> next_chunk(Reader &reader) {
    if (reader.left() < 8) return std::nullopt;
    const std::string_view name = take_name(reader);
    const std::uint32_t size = reader.u32();
    const bool whole = size <= reader.left();
    const auto contents = reader.take(size);
    if (size % 2 != 0 && reader.left() > 0) reader.skip(1);
    return Chunk{name, contents, whole};
}

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

std::int32_t sample(Reader &reader, const Format &format) {
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

// Left and right by turns, 1 is full scale.
std::vector<float> samples_of(std::span<const std::uint8_t> data, const Format &format) {
    std::vector<float> samples;
    for (; data.size() >= format.frame_size(); data = data.subspan(format.frame_size())) {
        for (std::size_t side = 0; side < 2; ++side) {
            Reader reader(data);
            reader.skip(std::min<std::size_t>(side, format.channels - 1U) * format.bits / 8);
            samples.push_back(static_cast<float>(sample(reader, format) / kFullScale));
        }
    }
    return samples;
}

}  // namespace

Track decode_wave(std::span<const std::uint8_t> file) {
    // The size that the file states for itself is passed over: programs that were broken off leave it 0.
    Reader reader(file);
    const bool riff = take_name(reader) == "RIFF";
    reader.skip(4);
    if (!riff || take_name(reader) != "WAVE") throw std::runtime_error("is no wave file");
    std::optional<Chunk> format_chunk, data_chunk;
    while (const auto chunk = next_chunk(reader)) {
        if (chunk->name == "fmt " && !format_chunk) format_chunk = chunk;
        if (chunk->name == "data" && !data_chunk) data_chunk = chunk;
    }
    if (!format_chunk || !data_chunk) throw std::runtime_error("is a wave file without sound");
    if (!format_chunk->whole || !data_chunk->whole) throw std::runtime_error("the file is cut short");
    const Format format = read_format(Reader(format_chunk->contents));
    if (!format.known()) throw std::runtime_error("is a wave file of a form that is not known here");

    const std::vector<float> samples = resampled(samples_of(data_chunk->contents, format), format.rate);
    Track track;
    for (std::size_t i = 0; i + 1 < samples.size(); i += 2)
        track.push_back({to_sample(samples[i]), to_sample(samples[i + 1])});
    return track;
}

}  // namespace ink::tool
