#include "text/fonts.h"

#include <algorithm>
#include <limits>
#include <new>

#include "core/log.h"
#include "core/reader.h"
#include "host/input_file.h"
#include "inkstone/lzss.h"

namespace ink::text {

std::uint8_t *Fonts::allocate(Font owner, std::size_t size) {
    auto &block = blocks_[owner];
    block.reset(new (std::nothrow) std::uint8_t[size]());
    return block.get();
}

bool Fonts::load_files() {
    for (const Font font : {kAscii24, kAscii16, kChinese24, kChinese16}) {
        const FontLayout &layout = kFontLayouts[font];
        std::uint8_t *const bitmap = allocate(font, layout.bytes());
        if (!bitmap) {
            log_error("memory alloc error in CHINE_init");
            return false;
        }
        host::InputFile file(layout.file_name);
        if (!file.is_open()) {
            log_error_format("File %s open error", layout.file_name);
            return false;
        }
        file.read(0, {bitmap, layout.bytes()});
        bitmaps_[font] = {bitmap, layout.bytes()};
    }
    return true;
}

bool Fonts::load_pack() {
    // Expanding empties the pack before it looks for what to expand, and an older pack serves when there is
    // nothing.
    if (host::InputFile(kCompressedPackFile).is_open())
        LZSS_expand_file(kCompressedPackFile, kPackFile);
    else
        log_error_format("ERROR : file %s open error(LZSS_expand_file)", kCompressedPackFile);
    host::InputFile file(kPackFile);
    if (!file.is_open()) {
        log_error_format("ERROR : open file %s error", kPackFile);
        return false;
    }
    std::array<std::uint8_t, kPackDataOffset> directory{};
    file.read(0, directory);
    const auto count = static_cast<std::int32_t>(get_u32(directory.data() + kPackCountOffset));
    if (count != kFontCount) {
        log_error_format("ERROR : total files %d error", count);
        return false;
    }
    std::array<std::uint64_t, kFontCount> sizes;
    std::uint64_t total = 0;
    for (std::size_t font = 0; font < kFontCount; ++font) {
        sizes[font] = get_u32(directory.data() + kPackHeaderBytes + font * kPackEntryBytes + kPackSizeOffset);
        total += sizes[font];
    }
    // Only what is there is kept, however much the directory promises. A promise that no signed number holds
    // is refused as a block that cannot be had.
    const auto present = static_cast<std::size_t>(file.present(kPackDataOffset, total));
    std::uint8_t *const block =
        total <= std::numeric_limits<std::int32_t>::max() ? allocate(kAscii16, present) : nullptr;
    if (!block) {
        log_error("ERROR : memory alloc error");
        return false;
    }
    std::span<const std::uint8_t> left(block, file.read(kPackDataOffset, {block, present}));
    for (std::size_t font = 0; font < kFontCount; ++font) {
        bitmaps_[font] =
            left.first(static_cast<std::size_t>(std::min<std::uint64_t>(sizes[font], left.size())));
        left = left.subspan(bitmaps_[font].size());
    }
    return true;
}

Glyph Fonts::glyph(Font font, std::size_t index) const {
    const FontLayout &layout = kFontLayouts[font];
    const std::span<const std::uint8_t> bitmap = bitmaps_[font];
    const std::size_t start =
        std::min(index < layout.glyphs ? index * layout.glyph_bytes() : bitmap.size(), bitmap.size());
    return font_glyph(bitmap.subspan(start), layout.width, layout.height);
}

}  // namespace ink::text
