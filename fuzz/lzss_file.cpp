// Any bytes as a packed file: expands as the plain coder does.
#include <cstdlib>
#include <string>

#include "inkstone/lzss.h"
#include "scratch.h"
#include "support/files.h"
#include "support/plain_lzss.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static test::PlainLzss plain;
    std::string failed;
    if (LZSS_expand_file(fuzz::as_file(data, size), "output") != 0) std::abort();
    if (test::read_file("output") != plain.expand_file_form({data, data + size}, failed)) std::abort();
    // Any bytes are a file to pack, too. What one call leaves in the window the next one sees.
    const test::Bytes bytes(data, data + size);
    if (LZSS_compress_file("nothing", "packed") == 0 || LZSS_expand_file("nothing", "output") == 0 ||
        LZSS_compress_file("input", "packed") != 0)
        std::abort();
    const test::Bytes packed = plain.file_form(bytes);
    if (test::read_file("packed") != packed || LZSS_expand_file("packed", "output") != 0) std::abort();
    if (test::read_file("output") != bytes || plain.expand_file_form(packed, failed) != bytes) std::abort();
    return 0;
}
