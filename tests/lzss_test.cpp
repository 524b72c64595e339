// LZSS in both forms, against the tokens worked out by hand and against the plain compressor.
#include "inkstone/lzss.h"

#include <gtest/gtest.h>

#include <random>

#include "support/files.h"
#include "support/guarded.h"
#include "support/plain_lzss.h"

using test::Bytes;

namespace {

Bytes compress(const Bytes &data) {
    const auto length = static_cast<std::uint32_t>(data.size());
    test::Guarded to(data.size() + (data.size() + 7) / 8);
    std::uint32_t compressed = 0xDEADBEEF;
    EXPECT_EQ(LZSS_compress_data(data.data(), to, &length, &compressed), 0);
    EXPECT_TRUE(to.intact());
    Bytes result = to.contents();
    result.resize(compressed);
    return result;
}

Bytes expand(const Bytes &code, std::uint32_t expected) {
    const auto length = static_cast<std::uint32_t>(code.size());
    test::Guarded to(expected, 0xEE);
    std::uint32_t expanded = expected;
    EXPECT_EQ(LZSS_expand_data(code.data(), to, &length, &expanded), 0);
    EXPECT_EQ(expanded, expected);
    EXPECT_TRUE(to.intact());
    return to.contents();
}

Bytes compress_file(const Bytes &data) {
    test::write_file("plain", data);
    EXPECT_EQ(LZSS_compress_file("plain", "packed"), 0);
    return test::read_file("packed");
}

Bytes expand_file(const Bytes &code) {
    test::write_file("packed", code);
    EXPECT_EQ(LZSS_expand_file("packed", "plain"), 0);
    return test::read_file("plain");
}

// Data of many kinds: few and many different bytes, runs, ramps, repeats near and far, two periods.
Bytes sample(std::mt19937 &random, unsigned kind) {
    const auto below = [&random](unsigned n) { return static_cast<unsigned>(random() % n); };
    Bytes data(kind % 3 == 0 ? below(40) : below(14000));
    const unsigned values = 1 + below(1u << below(9)), period = 1 + below(300);
    for (std::size_t i = 0; i < data.size(); ++i) {
        unsigned byte = below(values);
        if (kind % 7 == 1) byte = static_cast<unsigned>(i / period);
        if (kind % 7 == 2 && i > 0 && below(30) != 0) byte = data[i - 1];
        if (kind % 7 == 3 && i >= period && below(50) != 0) byte = data[i - period];
        if (kind % 7 == 4) byte = i % 4 < 2 ? 0 : static_cast<unsigned>(i / 4 >> (i % 4 == 3 ? 8 : 0));
        if (kind % 7 == 5) byte = static_cast<unsigned>(i % period * values);
        data[i] = static_cast<std::uint8_t>(byte);
    }
    return data;
}

}  // namespace

TEST(Lzss, CodesAsWorkedOutByHand) {
    const struct {
        Bytes data, file_form, memory_form;
    } rows[] = {
        {{}, {0x00, 0x00}, {}},
        {{0x41}, {0xA0, 0x80, 0x00}, {0x01, 0x41}},
        {Bytes(5, 0x41), {0xA0, 0x80, 0x04, 0x80, 0x00}, {0x01, 0x41, 0x20, 0x01}},
        {{0x41, 0x42, 0x41, 0x42, 0x41, 0x42, 0x41, 0x42},
         {0xA0, 0xD0, 0x80, 0x02, 0x80, 0x00},
         {0x03, 0x41, 0x42, 0x40, 0x01}},
        {Bytes(40, 0x41),
         {0xA0, 0x80, 0x07, 0xC0, 0x25, 0xE0, 0x23, 0x30, 0x00, 0x00},
         {0x01, 0x41, 0xF0, 0x01, 0xF0, 0x12, 0x30, 0x23}},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(compress(row.data), row.memory_form);
        EXPECT_EQ(expand(row.memory_form, static_cast<std::uint32_t>(row.data.size())), row.data);
        EXPECT_EQ(compress_file(row.data), row.file_form);
        EXPECT_EQ(expand_file(row.file_form), row.data);
    }
}

// One plain compressor goes along with all calls: what a call leaves in the window decides some ties of the
// next.
TEST(Lzss, DecidesAsThePlainSearch) {
    std::mt19937 random(1);
    test::PlainLzss plain;
    for (unsigned i = 0; i < 300; ++i) {
        const Bytes data = sample(random, i);
        const bool in_memory = random() % 2 == 0;
        const Bytes code = in_memory ? compress(data) : compress_file(data);
        ASSERT_EQ(code, in_memory ? plain.memory_form(data) : plain.file_form(data)) << i;
        ASSERT_EQ(in_memory ? expand(code, static_cast<std::uint32_t>(data.size())) : expand_file(code), data)
            << i;
    }
}
