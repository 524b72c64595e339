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
    return 0;
}
