// Expands any block into an image of exactly the size that its header states, from exactly the bytes there
// are.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "inkstone/compressed_image.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size < 16) return 0;
    std::vector<std::uint8_t> block(data, data + size);
    block[9] &= 3;
    block[11] &= 3;
    const auto code = static_cast<std::uint32_t>(size - 16);
    for (unsigned i = 0; i < 4; ++i) block[12 + i] = static_cast<std::uint8_t>(code >> (8 * i));
    if (fnGetCompressImageSize(block.data()) != static_cast<std::int32_t>(size)) std::abort();
    std::vector<std::uint8_t> image(static_cast<std::size_t>(fnGetCompressImageFrameSize(block.data())));
    fnUncompressImage(block.data(), image.data());
    return 0;
}
