// LZSS in both forms, against the tokens worked out by hand and against the plain compressor.
#include "inkstone/lzss.h"

#include <gtest/gtest.h>

#include <random>

#include "support/files.h"
#include "support/guarded.h"
#include "support/injection.h"
#include "support/new_process.h"
#include "support/plain_lzss.h"

namespace fs = std::filesystem;
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
    Bytes data(kind % 3 == 0 ? below(40) : kind % 16 == 1 ? 80000 : below(14000));
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

// One plain coder goes along with all calls: what a call leaves in the window decides some ties of the next,
// and is what broken code copies from places that were not written yet.
TEST_IN_NEW_PROCESS(Lzss, DoesAsThePlainCoder) {
    std::mt19937 random(1);
    test::PlainLzss plain;
    for (unsigned i = 0; i < 150; ++i) {
        const Bytes data = sample(random, i);
        const auto size = static_cast<std::uint32_t>(data.size());
        const Bytes code = i % 2 == 0 ? compress(data) : compress_file(data);
        ASSERT_EQ(code, i % 2 == 0 ? plain.memory_form(data) : plain.file_form(data)) << i;
        ASSERT_EQ(i % 2 == 0 ? expand(code, size) : expand_file(code), data) << i;
        ASSERT_EQ(test::take_log(), "");

        Bytes broken = code;
        for (std::uint8_t &byte : broken)
            if (random() % 16 == 0) byte = static_cast<std::uint8_t>(random());
        broken.resize(random() % (broken.size() + 1));
        Bytes expected = plain.expand_memory_form(broken, size);
        expected.resize(size, 0xEE);
        ASSERT_EQ(expand(broken, size), expected) << i;
        std::string failed;
        ASSERT_EQ(expand_file(broken), (expected = plain.expand_file_form(broken, failed))) << i;
        ASSERT_EQ(test::take_log(), failed.empty() ? "" : failed + " error\n") << i;
    }
}

// Code at the end of the destination is expanded in place as by a coder that goes byte by byte, also where
// the output runs into code that is still to be read.
TEST(Lzss, ExpandsInPlace) {
    std::mt19937 random(2);
    test::PlainLzss plain;
    for (unsigned i = 0; i < 200; ++i) {
        const Bytes data = sample(random, i);
        const Bytes code = compress(data);
        ASSERT_EQ(code, plain.memory_form(data)) << i;
        const std::size_t shift = random() % (i % 2 == 0 ? 40 : 4000);
        const std::size_t size = std::max(data.size(), code.size()) + shift, at = size - code.size();
        test::Guarded block(size);
        std::copy(code.begin(), code.end(), block.data() + at);
        Bytes expected = block.contents();
        plain.expand_memory_form(&expected[at], expected.data() + size, expected.data(), data.size());
        const auto length = static_cast<std::uint32_t>(code.size());
        auto expanded = static_cast<std::uint32_t>(data.size());
        LZSS_expand_data(block.data() + at, block, &length, &expanded);
        ASSERT_EQ(expected, block.contents()) << i;
        const bool enough = shift > data.size() / 8;
        ASSERT_TRUE(!enough || std::equal(data.begin(), data.end(), block.data())) << i;
    }
}

TEST(Lzss, TellsWhichFileCannotBeOpened) {
    test::write_text("here", "here");
    // Functions of a DLL have more than one address, so none is compared with another.
    struct {
        bool expand;
        const char *input, *output, *named;
    } const rows[] = {{false, "missing", "out", "missing"}, {false, "here", "no/out", "no/out"},
                      {false, nullptr, "out", ""},          {false, "here", nullptr, ""},
                      {false, "here", "HERE", "HERE"},      {true, "here", "no/out", "no/out"},
                      {true, "HERE", "here", "here"},       {true, "here", nullptr, ""},
                      {true, "missing", "out", "missing"}};
    for (const auto &[expand, input, output, named] : rows) {
        EXPECT_FALSE(test::exists("out"));
        EXPECT_EQ((expand ? LZSS_expand_file : LZSS_compress_file)(input, output), -1);
        const char *name = expand ? "LZSS_expand_file" : "LZSS_compress_file";
        EXPECT_EQ(test::take_log(), std::string("ERROR : file ") + named + " open error(" + name + ")\n");
    }
    EXPECT_EQ(test::read_file("out"), Bytes());
    EXPECT_TRUE(test::exists("out"));
    EXPECT_EQ(test::read_text("here"), "here");

    std::uint32_t length = 4;
    EXPECT_EQ(LZSS_compress_data(nullptr, nullptr, nullptr, &length), 0);
    EXPECT_EQ(LZSS_expand_data(nullptr, nullptr, &length, nullptr), 0);
    EXPECT_EQ(length, 4u);
}

TEST(Lzss, BearsEveryRefusal) {
    const char *const packed = "a_name_of_more_than_fifteen_letters";
    test::write_text("here", "here");
    std::int32_t result = 0;
    const auto outcome = [&](const char *name, const std::string &right) {
        const std::string made = test::read_text(name);
        return std::to_string(result) + (made == right             ? " whole"
                                         : right.starts_with(made) ? " begun"
                                                                   : " another");
    };
    LZSS_compress_file("here", packed);
    const std::string code = test::read_text(packed);
    test::inject(
        {.group = "LZSS_compress_file",
         .use = [&] { result = LZSS_compress_file("here", packed); },
         .outcome = [&] { return outcome(packed, code); },
         .right = "0 whole",
         .memory =
             {"-1 begun| ERROR : file a_name_of_more_than_fifteen_letters open error(LZSS_compress_file)"},
         .files =
             {"-1 another", "-1 begun| BITIO_close_output_bit_file error",
              "-1 begun| ERROR : file a_name_of_more_than_fifteen_letters open error(LZSS_compress_file)",
              "-1 begun| ERROR : file here open error(LZSS_compress_file)", "-1 whole", "0 another",
              "0 begun| BITIO_close_output_bit_file error", "0 whole| BITIO_close_output_bit_file error"},
         .prepare = [&] { fs::remove(packed); }});
    test::inject(
        {.group = "LZSS_expand_file",
         .use = [&] { result = LZSS_expand_file(packed, "out"); },
         .outcome = [&] { return outcome("out", "here"); },
         .right = "0 whole",
         .memory =
             {"-1 begun| ERROR : file a_name_of_more_than_fifteen_letters open error(LZSS_expand_file)"},
         .files = {"-1 begun| ERROR : file a_name_of_more_than_fifteen_letters open error(LZSS_expand_file)",
                   "-1 begun| ERROR : file out open error(LZSS_expand_file)", "0 begun",
                   "0 begun| BITIO_input_bit error", "0 begun| BITIO_input_bits error"},
         .prepare = [] { fs::remove("out"); }});
}
