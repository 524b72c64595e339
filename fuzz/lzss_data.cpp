// Any bytes as code in memory: expands as the plain coder does, within blocks of exactly the stated sizes.
#include <algorithm>
#include <cstdlib>
#include <memory>

#include "inkstone/lzss.h"
#include "support/plain_lzss.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static test::PlainLzss plain;
    if (size < 2) return 0;
    std::uint32_t expanded = data[0] * 128u + data[1];
    const test::Bytes code(data + 2, data + size);
    const auto length = static_cast<std::uint32_t>(code.size());
    // Blocks from the heap, so that the address sanitizer sees a read or write beside them.
    const auto block = std::make_unique<std::uint8_t[]>(expanded);
    std::fill_n(block.get(), expanded, 0xEE);
    LZSS_expand_data(code.data(), block.get(), &length, &expanded);
    test::Bytes expected = plain.expand_memory_form(code, expanded);
    expected.resize(expanded, 0xEE);
    if (!std::equal(expected.begin(), expected.end(), block.get())) std::abort();
    // Compressed again it is no longer than a plain coder's.
    std::uint32_t again = 0;
    test::Bytes packed(expanded + expanded / 8 + 1);
    LZSS_compress_data(block.get(), packed.data(), &expanded, &again);
    packed.resize(again);
    if (packed != plain.memory_form(expected)) std::abort();
    return 0;
}
