// What was compressed expands to the same image, and the code fits into the worst case.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "inkstone/compressed_image.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size < 2) return 0;
    const std::size_t width = data[0] + std::size_t{1} + (data[1] & 1) * 256u, height = (size - 2) / width;
    std::vector<std::uint8_t> image{static_cast<std::uint8_t>(width), static_cast<std::uint8_t>(width >> 8),
                                    static_cast<std::uint8_t>(height),
                                    static_cast<std::uint8_t>(height >> 8)};
    image.insert(image.end(), data + 2, data + 2 + width * height);
    std::vector<std::uint8_t> block(16 + 2 * width * height), back(image.size());
    const auto total = static_cast<std::size_t>(fnCompressImage(image.data(), block.data(), 0));
    if (total > block.size()) std::abort();
    block.resize(total);
    block.shrink_to_fit();
    fnUncompressImage(block.data(), back.data());
    if (back != image) std::abort();
    return 0;
}
