#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>

#include "core/log.h"
#include "core/reader.h"
#include "draw/palette.h"
#include "host/input_file.h"
#include "inkstone/palette.h"

namespace {

// The first entry stored and one past the last, both signed 16-bit numbers.
constexpr std::size_t kHeaderSize = 4;

}  // namespace

using namespace ink;
using namespace ink::draw;

void PAL_read_palette(const char *file_name, uint8_t *palette) {
    host::InputFile file(file_name);
    if (!file.is_open()) {
        log_error_format("FILE %s open error", text_of(file_name));
        return;
    }
    std::array<std::uint8_t, kHeaderSize> header;
    if (file.read(0, header) != header.size()) return;
    Reader reader(header.data(), header.size());
    const int first = reader.i16(), end = reader.i16();
    const int from = std::max(first, 0), to = std::min(end, kPaletteEntries);
    if (from >= to) return;
    const auto passed_over = static_cast<std::size_t>(from - first) * kComponents;
    file.read(kHeaderSize + passed_over, {palette + static_cast<std::size_t>(from) * kComponents,
                                          static_cast<std::size_t>(to - from) * kComponents});
}

void PAL_save_palette(int32_t first, int32_t end, const char *file_name, const uint8_t *palette) {
    if (first < 0 || first > end || end > kPaletteEntries) return;
    const host::File file = host::open_file(file_name, "wb");
    if (!file) return;
    std::array<std::uint8_t, kHeaderSize> header;
    put_u16(header.data(), static_cast<std::uint32_t>(first));
    put_u16(header.data() + 2, static_cast<std::uint32_t>(end));
    std::fwrite(header.data(), 1, header.size(), file.get());
    std::fwrite(palette + static_cast<std::size_t>(first) * kComponents, kComponents,
                static_cast<std::size_t>(end - first), file.get());
}
