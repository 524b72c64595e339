// Any bytes as a file of bits, read in codes of the lengths that the first bytes give, beside a walk over its bits;
// what was read makes the same file when it is written.
#include "inkstone/bitio.h"

#include <bitset>
#include <cstdlib>
#include <vector>

#include "numbers.h"
#include "scratch.h"
#include "support/files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size < 8) return 0;
    const test::Bytes file(data + 8, data + size);
    BIT_FILE_STRUCT *const in = BITIO_open_input_bit_file(fuzz::as_file(file.data(), file.size()));
    BIT_FILE_STRUCT *const out = BITIO_open_output_bit_file("written");
    if (in == nullptr || out == nullptr) std::abort();
    std::size_t at = 0;
    // Past the end of the file there are ones.
    const auto bit = [&] {
        const bool set = at / 8 >= file.size() || (file[at / 8] >> (7 - at % 8) & 1) != 0;
        return ++at, set;
    };
    for (std::size_t turn = 0; at < 8 * file.size(); ++turn) {
        const int count = static_cast<std::int8_t>(data[turn % 8]) % 40;
        std::uint32_t code = 0;
        for (int i = 0; i < count && count <= 32; ++i) code = code << 1 | (bit() ? 1 : 0);
        if (BITIO_input_bits(in, count) != code) std::abort();
        BITIO_output_bits(out, code, count);
        const bool single = bit();
        if (BITIO_input_bit(in) != single) std::abort();
        BITIO_output_bit(out, single ? -1 : 0);
    }
    std::FILE *const digits = std::fopen("digits", "wb");
    BITIO_file_print_binary(digits, data[0], 8);
    std::fclose(digits);
    if (test::read_text("digits") != std::bitset<8>(data[0]).to_string()) std::abort();
    BITIO_close_input_bit_file(in);
    BITIO_close_output_bit_file(out);
    test::Bytes expected = file;
    for (std::size_t byte = file.size(); 8 * byte < at; ++byte)
        expected.push_back(static_cast<std::uint8_t>(0xFF00 >> std::min<std::size_t>(at - 8 * byte, 8)));
    if (test::read_file("written") != expected) std::abort();
    return 0;
}
