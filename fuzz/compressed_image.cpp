// Expands any code into an image of exactly the size that the header states, compares with the plainest way
// to do so, and compresses the image, which must expand to itself again.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "inkstone/compressed_image.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size < 4) return 0;
    const std::size_t width = data[0] + (data[1] & 1) * 256u, height = data[2] + (data[3] & 1) * 256u;
    std::vector<std::uint8_t> block{'C', 'i', 'M', 'g', 0, 0, 0, 0}, image(4 + width * height, 0xEE),
        expected;
    for (const std::size_t part :
         {width, width >> 8, height, height >> 8, size - 4, (size - 4) >> 8, (size - 4) >> 16})
        block.push_back(static_cast<std::uint8_t>(part));
    block.push_back(0);
    expected.assign(&block[8], &block[12]);
    block.insert(block.end(), data + 4, data + size);
    block.shrink_to_fit();
    if (static_cast<std::size_t>(fnGetCompressImageSize(block.data())) != block.size() ||
        static_cast<std::size_t>(fnGetCompressImageFrameSize(block.data())) != image.size())
        std::abort();
    for (std::size_t at = 16; at < block.size(); ++at) {
        std::size_t count = 1;
        if (block[at] >= 0xC0) count = block[at++] & 0x3F;
        if (at < block.size()) expected.insert(expected.end(), count, block[at]);
    }
    expected.resize(image.size(), 0xEE);
    fnUncompressImage(block.data(), image.data());
    if (image != expected) std::abort();

    block.assign(16 + 2 * width * height, 0);
    block.resize(static_cast<std::size_t>(fnCompressImage(image.data(), block.data(), 0)));
    block.shrink_to_fit();
    std::fill(image.begin(), image.end(), std::uint8_t{0xEE});
    fnUncompressImage(block.data(), image.data());
    if (image != expected) std::abort();
    return 0;
}
