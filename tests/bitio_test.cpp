// Files as streams of bits.
#include "inkstone/bitio.h"

#include <gtest/gtest.h>

#include <random>

#include "support/files.h"
#include "support/injection.h"

using test::Bytes;

TEST(BitFile, HoldsExactlyTheBitsWritten) {
    const struct {
        std::vector<std::pair<std::uint32_t, int>> codes;
        Bytes bytes;
    } rows[] = {
        {{}, {}},
        {{{5, 3}}, {0xA0}},
        {{{0x1FF, 9}, {0, 1}}, {0xFF, 0x80}},
        {{{0x12345678, 32}, {0xFFFFFFF0, 8}}, {0x12, 0x34, 0x56, 0x78, 0xF0}},
        {{{1, 1}, {0, 0}, {7, 33}, {7, -1}, {2, 7}}, {0x82}},  // counts that are none write nothing
    };
    for (const auto &row : rows) {
        BIT_FILE_STRUCT *file = BITIO_open_output_bit_file("bits");
        for (const auto &[code, count] : row.codes)
            count == 1 ? BITIO_output_bit(file, code != 0 ? -7 : 0) : BITIO_output_bits(file, code, count);
        BITIO_close_output_bit_file(file);
        EXPECT_EQ(test::read_file("bits"), row.bytes);
    }
    EXPECT_EQ(test::take_log(), "");
}

TEST(BitFile, ReadsBackWhatWasWritten) {
    std::mt19937 random(1);
    BIT_FILE_STRUCT *out = BITIO_open_output_bit_file("bits");
    std::uint32_t total = 0;
    const auto draw = [&random] {
        return std::pair(static_cast<std::uint32_t>(random()), static_cast<int>(1 + random() % 32));
    };
    for (int i = 0; i < 500; ++i) {
        const auto [code, count] = draw();
        BITIO_output_bits(out, code, count);
        total += static_cast<std::uint32_t>(count);
        ASSERT_EQ(out->byte_count, static_cast<std::int32_t>(total / 8));
        ASSERT_EQ(out->bit_mask, 0x80 >> total % 8);
    }
    BITIO_close_output_bit_file(out);
    BIT_FILE_STRUCT *in = BITIO_open_input_bit_file("bits");
    random.seed(1);
    for (int i = 0; i < 500; ++i) {
        const auto [code, count] = draw();
        const std::uint32_t expected = code & (0xFFFFFFFFu >> (32 - count));
        std::uint32_t read = 0;
        if (i % 3 == 0)
            for (int bit = 0; bit < count; ++bit)
                read = read << 1 | static_cast<std::uint32_t>(BITIO_input_bit(in));
        else
            read = BITIO_input_bits(in, count);
        ASSERT_EQ(read, expected) << i;
    }
    BITIO_close_input_bit_file(in);
    EXPECT_EQ(test::take_log(), "");
}

TEST(BitFile, DeliversOnesPastTheEnd) {
    test::write_file("bits", {0xAB, 0xFF, 0xCD});
    BIT_FILE_STRUCT *file = BITIO_open_input_bit_file("bits");
    EXPECT_EQ(BITIO_input_bits(file, 12), 0xABFu);
    EXPECT_EQ(BITIO_input_bits(file, 4), 0xFu);
    EXPECT_EQ(file->byte_count, 2);
    for (const int count : {0, -1, 33, INT32_MIN}) EXPECT_EQ(BITIO_input_bits(file, count), 0u);
    EXPECT_EQ(file->byte_count, 2);
    EXPECT_EQ(BITIO_input_bits(file, 12), 0xCDFu);
    EXPECT_EQ(test::take_log(), "BITIO_input_bits error\n");
    EXPECT_EQ(file->bit_buffer, -1);
    EXPECT_EQ(BITIO_input_bits(file, 4), 0xFu);
    EXPECT_EQ(test::take_log(), "");
    EXPECT_EQ(BITIO_input_bit(file), 1);
    EXPECT_EQ(BITIO_input_bits(file, 15), 0x7FFFu);
    EXPECT_EQ(test::take_log(), "BITIO_input_bit error\nBITIO_input_bits error\n");
    EXPECT_EQ(file->byte_count, 6);  // three of them missed
    BITIO_close_input_bit_file(file);
}

TEST(BitFile, TriesAByteAgainThatCouldNotBeWritten) {
    if (!test::kHasFullDevice) GTEST_SKIP();
    BIT_FILE_STRUCT *file = BITIO_open_output_bit_file("/dev/full");
    std::setvbuf(file->stream, nullptr, _IONBF, 0);
    BITIO_output_bits(file, 0x1A5, 9);  // one bit more than the byte that fails
    EXPECT_EQ(test::take_log(), "BITIO_output_bit error\nBITIO_output_bit error\n");
    EXPECT_EQ(file->bit_mask, 0);
    EXPECT_EQ(file->bit_buffer, 0xD2);
    EXPECT_EQ(file->byte_count, 0);
    BITIO_close_output_bit_file(file);
    EXPECT_EQ(test::take_log(), "BITIO_close_output_bit_file error\n");
}

TEST(BitFile, TellsOfAFullDiskWhenItIsClosed) {
    if (!test::kHasFullDevice) GTEST_SKIP();
    for (const int bits : {3, 8, 800}) {
        BIT_FILE_STRUCT *file = BITIO_open_output_bit_file("/dev/full");
        for (int i = 0; i < bits; ++i) BITIO_output_bit(file, 1);
        EXPECT_EQ(test::take_log(), "") << bits;
        BITIO_close_output_bit_file(file);
        EXPECT_EQ(test::take_log(), "BITIO_close_output_bit_file error\n") << bits;
    }
}

TEST(BitFile, RefusesQuietly) {
    EXPECT_EQ(BITIO_open_input_bit_file("missing"), nullptr);
    EXPECT_EQ(BITIO_open_output_bit_file("missing/file"), nullptr);
    EXPECT_EQ(BITIO_open_input_bit_file(nullptr), nullptr);
    EXPECT_EQ(BITIO_open_output_bit_file(nullptr), nullptr);
    BITIO_output_bits(nullptr, 1, 1);
    EXPECT_EQ(BITIO_input_bits(nullptr, 1), 0u);
    BITIO_close_input_bit_file(nullptr);
    BITIO_close_output_bit_file(nullptr);
    EXPECT_EQ(test::take_log(), "");
}

TEST(BitFile, BearsEveryRefusal) {
    const char *const name = "a_name_of_more_than_fifteen_letters";
    bool opened = false;
    std::uint32_t bits = 0;
    test::inject(
        {.group = "BITIO_open_input_bit_file, BITIO_input_bits, BITIO_input_bit, BITIO_close_input_bit_file",
         .use =
             [&] {
                 BIT_FILE_STRUCT *const file = BITIO_open_input_bit_file(name);
                 opened = file != nullptr;
                 bits = BITIO_input_bits(file, 15) << 1;
                 bits |= static_cast<std::uint32_t>(BITIO_input_bit(file));
                 BITIO_close_input_bit_file(file);
             },
         .outcome = [&] { return opened ? std::to_string(bits) : "null"; },
         .right = "258",
         .memory = {"null"},
         .files = {"511| BITIO_input_bits error", "65281| BITIO_input_bits error",
                   "65535| BITIO_input_bits error, BITIO_input_bits error", "null"},
         .prepare =
             [&] {
                 test::write_file(name, {1, 2});
             }});
    // Without memory a file that is there keeps its contents.
    test::inject(
        {.group =
             "BITIO_open_output_bit_file, BITIO_output_bits, BITIO_output_bit, BITIO_close_output_bit_file",
         .use =
             [&] {
                 BIT_FILE_STRUCT *const file = BITIO_open_output_bit_file(name);
                 opened = file != nullptr;
                 BITIO_output_bits(file, 0x181, 9), BITIO_output_bit(file, 1);
                 BITIO_close_output_bit_file(file);
             },
         .outcome =
             [&] {
                 const Bytes made = test::read_file(name);
                 return std::string(opened ? "" : "null ") + (made == Bytes{1, 2}         ? "as before"
                                                              : made == Bytes{0xC0, 0xC0} ? "written"
                                                              : made.empty()              ? "empty"
                                                                                          : "begun");
             },
         .right = "written",
         .memory = {"null as before"},
         .files = {"begun| BITIO_close_output_bit_file error", "empty| BITIO_close_output_bit_file error",
                   "null as before", "written| BITIO_close_output_bit_file error"},
         .prepare =
             [&] {
                 test::write_file(name, {1, 2});
             }});
}

TEST(BitFile, PrintsBinaryDigits) {
    std::FILE *file = std::fopen("digits", "wb");
    BITIO_file_print_binary(file, 5, 4);
    BITIO_file_print_binary(file, 0x80000001, 32);
    for (const int count : {0, -1, 33}) BITIO_file_print_binary(file, 1, count);
    BITIO_file_print_binary(nullptr, 1, 1);
    std::fclose(file);
    EXPECT_EQ(test::read_text("digits"),
              "0101"
              "10000000000000000000000000000001");
}
