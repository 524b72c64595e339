#include "inkstone/pcx.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <memory>
#include <new>
#include <span>

#include "core/log.h"
#include "core/reader.h"
#include "draw/surface.h"
#include "formats/run_length.h"
#include "host/input_file.h"

namespace ink::formats {
namespace {

using Palette = std::array<std::uint8_t, 768>;
using Memory = std::unique_ptr<std::uint8_t[]>;

// The header: where its fields stand, and what those hold that tell this kind of picture.
constexpr std::size_t kHeaderSize = 128;
constexpr std::size_t kManufacturerAt = 0, kVersionAt = 1, kEncodingAt = 2, kBitsAt = 3, kBoundsAt = 4,
                      kResolutionAt = 12, kPlanesAt = 65, kBytesPerLineAt = 66;
constexpr std::uint8_t kManufacturer = 10, kVersion = 5, kRunLength = 1, kBits = 8, kPlanes = 1;

// The end of the file: a marker and the palette.
constexpr std::uint8_t kPaletteMarker = 12;
constexpr std::size_t kTrailerSize = 1 + std::tuple_size_v<Palette>;

Palette kept_palette{};

struct PcxSize {
    std::int32_t width = 0, height = 0;
    std::size_t row_length = 0;  // as coded: the width and perhaps padding

    std::int64_t pixels() const { return std::int64_t{width} * height; }
};

// Checks the header of an open file; false, and a log line, when it is refused.
bool read_header(host::InputFile &file, PcxSize &size) {
    std::array<std::uint8_t, kHeaderSize> header{};
    file.read(0, header);
    if (header[kManufacturerAt] != kManufacturer) {
        log_error("PCX Header check error");
        return false;
    }
    Reader bounds(&header[kBoundsAt], 8);
    const std::int32_t x_min = bounds.i16(), y_min = bounds.i16();
    const std::int32_t x_max = bounds.i16(), y_max = bounds.i16();
    size.width = x_max - x_min + 1;
    size.height = y_max - y_min + 1;
    size.row_length =
        static_cast<std::size_t>(std::max<std::int32_t>(size.width, get_u16(&header[kBytesPerLineAt])));
    const bool supported =
        header[kEncodingAt] == kRunLength && header[kBitsAt] == kBits && header[kPlanesAt] == kPlanes;
    const bool sound =
        size.width >= 0 && size.height >= 0 && size.pixels() <= std::numeric_limits<std::int32_t>::max();
    if (!supported || !sound) {
        log_error("PCX format not support");
        return false;
    }
    return true;
}

// Decodes rows that are padded: runs may go on from a row into its padding and from there into the next row.
// row has room for one of them.
void decode_padded(RunDecoder decoder, const PcxSize &size, std::uint8_t *row, std::uint8_t *pixels) {
    const auto width = static_cast<std::size_t>(size.width);
    for (std::int32_t y = 0; y < size.height; ++y, pixels += width)
        std::copy_n(row, std::min(decoder.decode(row, size.row_length), width), pixels);
}

}  // namespace
}  // namespace ink::formats

using namespace ink;
using namespace ink::formats;

int32_t PCX_get_image_size(const char *file_name, int32_t *width, int32_t *height) {
    if (width == nullptr || height == nullptr) return -2;
    host::InputFile file(file_name);
    if (!file.is_open()) {
        log_open_error(file_name);
        return -1;
    }
    PcxSize size;
    if (!read_header(file, size)) return -2;
    *width = size.width;
    *height = size.height;
    return static_cast<int32_t>(size.pixels());
}

int32_t PCX_read_file(const char *file_name, uint8_t *destination) {
    host::InputFile file(file_name);
    if (!file.is_open()) {
        log_open_error(file_name);
        return -2;
    }
    PcxSize size;
    if (!read_header(file, size)) return -2;

    constexpr std::uint64_t kLeast = kHeaderSize + kTrailerSize;
    const auto code_size = static_cast<std::size_t>(std::max(file.size(), kLeast) - kLeast);
    const bool is_padded = size.row_length > static_cast<std::size_t>(size.width);
    const Memory code(new (std::nothrow) std::uint8_t[code_size]);
    const Memory row(new (std::nothrow) std::uint8_t[is_padded ? size.row_length : 0]);
    if (!code || !row) {
        log_error("Memory not enough");
        return -2;
    }
    RunDecoder decoder({code.get(), file.read(kHeaderSize, {code.get(), code_size})});
    std::array<std::uint8_t, kTrailerSize> trailer;
    if (file.read(kHeaderSize + code_size, trailer) != trailer.size() || trailer[0] != kPaletteMarker) {
        log_error("Palete check error");
        return -2;
    }
    std::transform(trailer.begin() + 1, trailer.end(), kept_palette.begin(),
                   [](std::uint8_t component) { return static_cast<std::uint8_t>(component >> 2); });
    if (is_padded)
        decode_padded(decoder, size, row.get(), destination);
    else
        decoder.decode(destination, static_cast<std::size_t>(size.pixels()));
    return 0;
}

int32_t PCX_save_file(const char *file_name, int32_t x, int32_t y, int32_t width, int32_t height,
                      const uint8_t *source, int32_t row_length, int32_t) {
    const auto columns = static_cast<std::size_t>(std::max(width, 0));
    // Rows are written many at once: that is what a file takes the longest for.
    constexpr std::size_t kBlock = 0x10000;
    const Memory code(new (std::nothrow) std::uint8_t[kBlock + 2 * columns]);
    if (!code) return -1;
    const host::File file = host::open_file(file_name, "w+b");
    if (!file) return -1;

    const auto left = static_cast<std::uint32_t>(x), top = static_cast<std::uint32_t>(y);
    std::array<std::uint8_t, kHeaderSize> header{};
    header[kManufacturerAt] = kManufacturer;
    header[kVersionAt] = kVersion;
    header[kEncodingAt] = kRunLength;
    header[kBitsAt] = kBits;
    put_u16(&header[kBoundsAt], left);
    put_u16(&header[kBoundsAt + 2], top);
    put_u16(&header[kBoundsAt + 4], left + static_cast<std::uint32_t>(width) - 1);
    put_u16(&header[kBoundsAt + 6], top + static_cast<std::uint32_t>(height) - 1);
    put_u16(&header[kResolutionAt], draw::kScreenWidth);
    put_u16(&header[kResolutionAt + 2], draw::kScreenHeight);
    header[kPlanesAt] = kPlanes;
    put_u16(&header[kBytesPerLineAt], static_cast<std::uint32_t>(width));
    std::fwrite(header.data(), 1, header.size(), file.get());

    std::size_t coded = 0;
    for (std::int64_t row = 0; row < height; ++row) {
        const std::uint8_t *pixels = source + (y + row) * row_length + x;
        coded += encode_row({pixels, columns}, code.get() + coded);
        if (coded < kBlock && row + 1 < height) continue;
        std::fwrite(code.get(), 1, coded, file.get());
        coded = 0;
    }

    std::array<std::uint8_t, kTrailerSize> trailer{kPaletteMarker};
    std::transform(kept_palette.begin(), kept_palette.end(), trailer.begin() + 1,
                   [](std::uint8_t component) { return static_cast<std::uint8_t>(component << 2); });
    std::fwrite(trailer.data(), 1, trailer.size(), file.get());
    return 0;
}

int32_t PCX_export_palette(uint8_t *palette) {
    std::copy(kept_palette.begin(), kept_palette.end(), palette);
    return 0;
}

int32_t PCX_inport_palette(const uint8_t *palette) {
    std::copy_n(palette, kept_palette.size(), kept_palette.begin());
    return 0;
}
