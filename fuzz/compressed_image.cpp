// Expands any block into an image of exactly the size that its header states, from exactly the bytes there
// are, and compares with the plainest way to do so.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "inkstone/compressed_image.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size < 16) return 0;
    std::vector<std::uint8_t> block(data, data + size);
    for (const int i : {0, 1, 2, 3})
        block[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>("CiMg"[i]);
    block[4] &= 1;
    for (const std::size_t i : {5u, 6u, 7u}) block[i] = 0;
    block[9] &= 1;
    block[11] &= 1;
    for (unsigned i = 0; i < 4; ++i) block[12 + i] = static_cast<std::uint8_t>((size - 16) >> (8 * i));
    if (fnGetCompressImageSize(block.data()) != static_cast<std::int32_t>(size)) std::abort();
    const auto image_size = static_cast<std::size_t>(fnGetCompressImageFrameSize(block.data()));
    std::vector<std::uint8_t> image(image_size, 0xEE), expected(&block[8], &block[12]);
    for (std::size_t at = 16; at < size && block[4] == 0; ++at) {
        std::size_t count = 1;
        if (block[at] >= 0xC0) count = block[at++] & 0x3F;
        if (at < size) expected.insert(expected.end(), count, block[at]);
    }
    expected.resize(image_size, 0xEE);
    fnUncompressImage(block.data(), image.data());
    if (image != expected) std::abort();
    return 0;
}
