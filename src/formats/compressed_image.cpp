#include "formats/compressed_image.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "core/log.h"
#include "core/reader.h"
#include "draw/surface.h"
#include "formats/run_length.h"
#include "inkstone/compressed_image.h"

namespace ink::formats {
namespace {

// Where the fields of the header stand.
constexpr std::size_t kTypeAt = 4, kWidthAt = 8, kHeightAt = 10, kDataLengthAt = 12;
constexpr std::uint32_t kCoded = 0, kHeaderOnly = 1;

constexpr char kMagic[] = {'C', 'i', 'm', 'g'};

bool has_magic(const std::uint8_t *block) {
    // Bit 5 is what tells a small letter from its capital.
    return std::equal(std::begin(kMagic), std::end(kMagic), block,
                      [](char letter, std::uint8_t byte) { return (letter | 0x20) == (byte | 0x20); });
}

}  // namespace

std::size_t expanded_size(const std::uint8_t *block) {
    return draw::kImageHeader + std::size_t{get_u16(block + kWidthAt)} * get_u16(block + kHeightAt);
}

void copy_image_size(const std::uint8_t *block, std::uint8_t *image) {
    std::memcpy(image, block + kWidthAt, draw::kImageHeader);
}

bool expand_image(const std::uint8_t *block, std::size_t code_present, std::uint8_t *image) {
    if (!has_magic(block)) {
        log_error("Compress image format error");
        return false;
    }
    copy_image_size(block, image);
    if (get_u32(block + kTypeAt) != kCoded) return true;

    const std::size_t length = std::min<std::size_t>(get_u32(block + kDataLengthAt), code_present);
    RunDecoder(std::span(block + kCompressedHeader, length))
        .decode(image + draw::kImageHeader, expanded_size(block) - draw::kImageHeader);
    return true;
}

}  // namespace ink::formats

using namespace ink;
using namespace ink::formats;

int32_t fnCompressImage(const uint8_t *image, uint8_t *block, uint32_t type) {
    std::memcpy(block, kMagic, sizeof kMagic);
    put_u32(block + kTypeAt, type);
    std::memcpy(block + kWidthAt, image, draw::kImageHeader);

    std::uint8_t *code = block + kCompressedHeader;
    if (type != kHeaderOnly) {
        const draw::Sprite sprite = draw::image(image);
        for (std::int64_t y = 0; y < sprite.height; ++y)
            code += encode_row(std::span(sprite.at(0, y), static_cast<std::size_t>(sprite.width)), code);
    }
    const auto total = static_cast<std::uint32_t>(code - block);
    put_u32(block + kDataLengthAt, total - static_cast<std::uint32_t>(kCompressedHeader));
    return static_cast<std::int32_t>(total);
}

void fnUncompressImage(const uint8_t *block, uint8_t *image) {
    expand_image(block, std::numeric_limits<std::size_t>::max(), image);
}

int32_t fnGetCompressImageSize(const uint8_t *block) {
    if (block == nullptr) return 0;
    return static_cast<std::int32_t>(kCompressedHeader + get_u32(block + kDataLengthAt));
}

int32_t fnGetCompressImageFrameSize(const uint8_t *block) {
    return block == nullptr ? 0 : static_cast<std::int32_t>(expanded_size(block));
}
