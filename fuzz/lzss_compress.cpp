// Data of any kind is compressed as the plain coder does, in both forms, and comes back when it is expanded.
// The first bytes say how often the rest is repeated and how its bytes are thinned out, so that short inputs
// make long data with many ties.
#include <cstdlib>

#include "inkstone/lzss.h"
#include "scratch.h"
#include "support/files.h"
#include "support/plain_lzss.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static test::PlainLzss plain;
    if (size < 4) return 0;
    const unsigned repeats = data[0] % 32 + 1u, mask = data[1] | 1u, drift = data[2];
    test::Bytes bytes;
    for (unsigned repeat = 0; repeat < repeats; ++repeat)
        for (std::size_t i = 3; i < size && bytes.size() < 20000; ++i)
            bytes.push_back(static_cast<std::uint8_t>((data[i] & mask) + repeat * drift));

    auto length = static_cast<std::uint32_t>(bytes.size());
    std::uint32_t compressed = 0;
    test::Bytes code(bytes.size() + (bytes.size() + 7) / 8), again(bytes.size());
    LZSS_compress_data(bytes.data(), code.data(), &length, &compressed);
    code.resize(compressed);
    if (code != plain.memory_form(bytes)) std::abort();
    LZSS_expand_data(code.data(), again.data(), &compressed, &length);
    if (again != bytes) std::abort();

    if (data[0] < 128) return 0;
    if (LZSS_compress_file(fuzz::as_file(bytes.data(), bytes.size()), "packed") != 0) std::abort();
    if (test::read_file("packed") != plain.file_form(bytes)) std::abort();
    if (LZSS_expand_file("packed", "output") != 0 || test::read_file("output") != bytes) std::abort();
    return 0;
}
