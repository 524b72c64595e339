#include "inkstone/compressed_image.h"

#include <gtest/gtest.h>

#include <random>

#include "support/blocks.h"
#include "support/guarded.h"

using namespace test;

namespace {

// Expands into guarded memory of the stated size, filled with 0xEE.
Bytes expand(const Bytes &from) {
    Guarded to(static_cast<std::size_t>(fnGetCompressImageFrameSize(from.data())), 0xEE);
    fnUncompressImage(from.data(), to);
    EXPECT_TRUE(to.intact());
    return to.contents();
}

TEST(CompressedImage, FormsOfImagesBothWays) {
    const struct {
        int width, height;
        Bytes pixels, code;
    } cases[] = {
        {63, 1, Bytes(63, 5), {0xFF, 5}},
        {64, 1, Bytes(64, 5), {0xFF, 5, 5}},
        {65, 1, Bytes(65, 5), {0xFF, 5, 0xC2, 5}},
        {64, 1, Bytes(64, 0xC5), {0xFF, 0xC5, 0xC1, 0xC5}},
        {2, 1, {0xC5, 0xC5}, {0xC2, 0xC5}},
        {1, 1, {0xBF}, {0xBF}},
        {9, 2, Bytes(18, 7), {0xC9, 7, 0xC9, 7}},
        {3, 2, {1, 2, 3, 3, 2, 1}, {1, 2, 3, 3, 2, 1}},
        {13, 1, {1, 2, 3, 4, 5, 6, 7, 8, 9, 0xFF, 1, 1, 1}, {1, 2, 3, 4, 5, 6, 7, 8, 9, 0xC1, 0xFF, 0xC3, 1}},
        {0, 7, {}, {}},
        {700, 0, {}, {}},
    };
    for (const auto &[width, height, pixels, code] : cases) {
        const Bytes image = image_block(width, height, pixels);
        for (const unsigned type : {0u, 1u, 2u, 256u, 257u}) {
            Guarded to(16 + 2 * pixels.size());
            const Bytes block =
                compressed_block(width, height, type == 1 ? Bytes() : code, static_cast<int>(type));
            ASSERT_EQ(static_cast<int>(block.size()), fnCompressImage(image.data(), to, type));
            EXPECT_EQ(block, Bytes(to.data(), to.data() + block.size()));
            EXPECT_TRUE(to.intact());
            const Bytes unfilled = image_block(width, height, Bytes(pixels.size(), 0xEE));
            EXPECT_EQ(type == 0 ? image : unfilled, expand(block));
        }
    }
}

// Stretches of many lengths and colours, short ones in every other picture, beside the code as it is defined, a pixel
// at a time; then that code damaged and cut short, and with a length stated that is far beyond the block.
TEST(CompressedImage, DoesAsThePlainCoder) {
    std::mt19937 random(1);
    for (int i = 0; i < 200; ++i) {
        // The second is a pixel and three of the longest runs, 7 bytes: no more may be looked at.
        const int width = i == 0 ? 400 : i == 1 ? 190 : 1 + static_cast<int>(random() % 200);
        const int height = i == 0 ? 300 : i == 1 ? 1 : 1 + i % 9 * (i % 9);
        const unsigned longest = i == 0 ? 1 : 1 + static_cast<unsigned>(random() % (i % 2 == 0 ? 9 : 150));
        Bytes pixels, code;
        while (pixels.size() < static_cast<std::size_t>(width * height))
            pixels.resize(pixels.size() + 1 + random() % longest, static_cast<std::uint8_t>(random()));
        pixels.resize(static_cast<std::size_t>(width * height));
        if (i == 1) pixels.assign(190, 1), pixels[0] = 2;
        for (int y = 0; y < height; ++y) {
            const std::uint8_t *row = &pixels[static_cast<std::size_t>(y * width)];
            for (int x = 0, n = 1; x < width; x += n) {
                for (n = 1; x + n < width && n < 63 && row[x] == row[x + n];) ++n;
                if (n > 1 || row[x] >= 0xC0) put(code, 0xC0 + n, 1);
                put(code, row[x], 1);
            }
        }
        const Bytes image = image_block(width, height, pixels);
        Bytes block(16 + 2 * pixels.size()), expected = compressed_block(width, height, code);
        block.resize(static_cast<std::size_t>(fnCompressImage(image.data(), block.data(), 0)));
        ASSERT_EQ(expected, block) << i;
        for (std::size_t at = 12; at < 15; ++at) expected[at] = 0xFF;
        ASSERT_EQ(image, expand(Bytes(expected))) << i;  // a copy has no room behind it

        // Counts among them that no coder writes.
        for (int damage = i % 3 == 0 ? 0 : i; damage > 0; --damage)
            code[random() % code.size()] = static_cast<std::uint8_t>(0xC0 + random() % 3 * (random() % 30));
        code.resize(random() % code.size());
        pixels.clear();
        for (std::size_t at = 0; at < code.size(); ++at) {
            const bool run = code[at] >= 0xC0;
            const std::size_t count = run ? code[at++] & 0x3Fu : 1;
            if (at < code.size()) pixels.insert(pixels.end(), count, code[at]);
        }
        pixels.resize(static_cast<std::size_t>(width * height), 0xEE);
        ASSERT_EQ(image_block(width, height, pixels), expand(compressed_block(width, height, code))) << i;
    }
}

TEST(CompressedImage, ExpansionStopsAtTheImageAndAtTheData) {
    const Bytes cases[][2] = {{{0xFF, 9, 1, 2}, {9, 9, 9, 9}},
                              {{1, 2, 3, 4, 5, 6, 7}, {1, 2, 3, 4}},
                              {{1, 2}, {1, 2, 0xEE, 0xEE}},
                              {{1, 0xC3}, {1, 0xEE, 0xEE, 0xEE}},
                              {{1, 0xC0, 77, 2, 3, 4}, {1, 2, 3, 4}}};
    for (const auto &[code, pixels] : cases)
        EXPECT_EQ(image_block(4, 1, pixels), expand(compressed_block(4, 1, code)));
    // A long one, which ends in runs of none.
    Bytes code(300, 3), pixels(300, 3);
    for (int i = 0; i < 100; ++i) put(code, Bytes{0xC0, 9});
    pixels.resize(400, 0xEE);
    EXPECT_EQ(image_block(400, 1, pixels), expand(compressed_block(400, 1, code)));
}

TEST(CompressedImage, MagicInAnyCaseAndSizesWithoutIt) {
    for (const char *magic : {"CIMG", "cimg", "cImG"})
        EXPECT_EQ(image_block(2, 1, {1, 2}), expand(compressed_block(2, 1, {1, 2}, 0, magic)));
    EXPECT_EQ("", take_log());
    for (const char *magic : {"Cimx", "#img", "Ci\xCDg"}) {
        EXPECT_EQ(Bytes(6, 0xEE), expand(compressed_block(2, 1, {1, 2}, 0, magic)));
        EXPECT_EQ("Compress image format error\n", take_log());
    }
    const Bytes none = compressed_block(20, 10, Bytes(1000), 3, "none");
    EXPECT_EQ(1016, fnGetCompressImageSize(none.data()));
    EXPECT_EQ(204, fnGetCompressImageFrameSize(none.data()));
    EXPECT_EQ(0, fnGetCompressImageSize(nullptr));
    EXPECT_EQ(0, fnGetCompressImageFrameSize(nullptr));
}

}  // namespace
