#include "formats/flic_chunks.h"

#include <algorithm>
#include <cstdio>
#include <span>

namespace ink::formats {
namespace {

enum ChunkType : std::uint16_t {
    kColor256 = 4,
    kDeltaFlc = 7,
    kColor64 = 11,
    kDeltaFli = 12,
    kBlack = 13,
    kByteRun = 15,
    kFliCopy = 16,
    kPostageStamp = 18,
};

// A row of the destination, painted from left to right. Columns and rows are 16-bit numbers, as they are in
// the file.
class Row {
  public:
    Row(const FlicScreen &screen, std::int16_t y) {
        if (y < 0 || y >= screen.destination.height) return;
        pixels_ = screen.destination.at(0, y);
        width_ = screen.destination.width;
    }

    void move(int columns) { x_ = static_cast<std::int16_t>(x_ + columns); }

    void copy(std::span<const std::uint8_t> from) {
        const auto [first, last] = clip(from.size());
        if (first < last) std::copy_n(from.data() + (first - x_), last - first, pixels_ + first);
        move(static_cast<int>(from.size()));
    }
    void fill(std::uint8_t pixel, int count) {
        const auto [first, last] = clip(static_cast<std::size_t>(count));
        if (first < last) std::fill(pixels_ + first, pixels_ + last, pixel);
        move(count);
    }
    void fill_words(std::uint8_t low, std::uint8_t high, int count) {
        if (low == high) return fill(low, 2 * count);
        std::array<std::uint8_t, 256> pixels;
        for (std::size_t i = 0; i < 2 * static_cast<std::size_t>(count); i += 2) {
            pixels[i] = low;
            pixels[i + 1] = high;
        }
        copy(std::span(pixels).first(2 * static_cast<std::size_t>(count)));
    }

  private:
    struct Columns {
        std::int64_t first, last;
    };
    Columns clip(std::size_t count) const {
        return {std::max<std::int64_t>(x_, 0), std::min(x_ + static_cast<std::int64_t>(count), width_)};
    }

    std::uint8_t *pixels_ = nullptr;
    std::int64_t width_ = 0;  // 0 for a row that is not on the screen
    std::int16_t x_ = 0;
};

std::int16_t row_number(std::int32_t y) {
    return static_cast<std::int16_t>(y);
}

void decode_palette(Reader data, unsigned shift, FlicScreen &screen) {
    constexpr std::size_t kColours = 256;
    std::size_t index = 0;
    for (std::int32_t packets = data.i16(); packets > 0 && data.left() > 0; --packets) {
        index += data.u8();
        const std::size_t count = data.u8();
        const std::size_t first = count == 0 ? 0 : std::min(index, kColours);
        const auto components = data.take(3 * (count == 0 ? kColours : count));
        const std::size_t colours = std::min(components.size() / 3, kColours - first);
        for (std::size_t i = 0; i < 3 * colours; ++i)
            screen.palette[3 * first + i] = static_cast<std::uint8_t>(components[i] >> shift);
        index += count;
    }
}

void decode_byte_run(Reader data, const FlicScreen &screen) {
    const std::int64_t rows = std::min(screen.film_height, screen.destination.height);
    for (std::int32_t y = 0; y < rows && data.left() > 0; ++y) {
        Row row(screen, row_number(y));
        for (int packets = data.u8(); packets > 0 && data.left() > 1; --packets) {
            const int count = data.i8();
            if (count < 0) {
                row.copy(data.take(static_cast<std::size_t>(-count)));
            } else {
                row.fill(data.u8(), count);
            }
        }
    }
}

void decode_delta_fli(Reader data, const FlicScreen &screen) {
    const std::int32_t first = data.i16();
    const std::int32_t rows = data.i16();
    for (std::int32_t i = 0; i < rows && data.left() > 0; ++i) {
        Row row(screen, row_number(first + i));
        for (int packets = data.u8(); packets > 0 && data.left() > 2; --packets) {
            row.move(data.u8());
            const int count = data.i8();
            if (count < 0) {
                row.fill(data.u8(), -count);
            } else {
                row.copy(data.take(static_cast<std::size_t>(count)));
            }
        }
    }
}

// Reads the words before a line of DELTA_FLC up to its packet count, which is returned. The two top bits tell
// them apart: 11 skips rows, 10 paints the last pixel of a row of odd width, which words cannot reach.
std::int32_t read_line_words(Reader &data, const FlicScreen &screen, std::int16_t &y) {
    for (;;) {
        const std::int32_t word = data.i16();
        if (word >= 0) return word;
        if ((word & 0x4000) != 0) {
            y = row_number(y - word);
        } else {
            Row row(screen, y);
            row.move(static_cast<int>(screen.film_width) - 1);
            row.fill(static_cast<std::uint8_t>(word), 1);
        }
    }
}

void decode_delta_flc(Reader data, const FlicScreen &screen) {
    std::int16_t y = 0;
    for (std::int32_t lines = data.i16(); lines > 0 && data.left() > 1; --lines, ++y) {
        std::int32_t packets = read_line_words(data, screen, y);
        Row row(screen, y);
        for (; packets > 0 && data.left() > 2; --packets) {
            row.move(data.u8());
            const int count = data.i8();
            if (count < 0) {
                const auto word = data.take(2);
                if (word.size() < 2) return;
                row.fill_words(word[0], word[1], -count);
            } else {
                row.copy(data.take(static_cast<std::size_t>(2 * count)));
            }
        }
    }
}

void decode_copy(Reader data, const FlicScreen &screen) {
    if (screen.film_width <= 0) return;
    const auto width = static_cast<std::size_t>(screen.film_width);
    // Some writers pad the rows to a multiple of four bytes, which shows in the size alone.
    const std::size_t padded = (width + 3) / 4 * 4;
    const bool is_padded = static_cast<std::int64_t>(data.left() / padded) >= screen.film_height;
    for (std::int32_t y = 0; y < screen.film_height && data.left() > 0; ++y) {
        Row(screen, row_number(y)).copy(data.take(width));
        if (is_padded) data.skip(padded - width);
    }
}

void clear(const draw::Surface &surface) {
    std::fill_n(surface.pixels, surface.width * surface.height, std::uint8_t{0});
}

}  // namespace

void decode_flic_chunk(std::uint16_t type, Reader data, FlicScreen &screen) {
    switch (type) {
        case kColor256: return decode_palette(data, 2, screen);
        case kColor64: return decode_palette(data, 0, screen);
        case kDeltaFlc: return decode_delta_flc(data, screen);
        case kDeltaFli: return decode_delta_fli(data, screen);
        case kBlack: return clear(screen.destination);
        case kByteRun: return decode_byte_run(data, screen);
        case kFliCopy: return decode_copy(data, screen);
        case kPostageStamp: return;
        default: std::fputs("\a\a\a\a\a\n", stdout);
    }
}

}  // namespace ink::formats
