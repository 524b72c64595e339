#include "inkstone/compressed_image.h"

#include <gtest/gtest.h>

#include "support/files.h"
#include "support/guarded.h"

using test::Bytes;
using test::Guarded;

namespace {

Bytes repeat(int count, int pixel) {
    return Bytes(static_cast<std::size_t>(count), static_cast<std::uint8_t>(pixel));
}
Bytes operator+(Bytes a, const Bytes &b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}
Bytes image(int width, int height, const Bytes &pixels) {
    const auto low = [](int n) { return static_cast<std::uint8_t>(n); };
    return Bytes{low(width), low(width >> 8), low(height), low(height >> 8)} + pixels;
}
Bytes block(int type, int width, int height, const Bytes &code, const char *magic = "Cimg") {
    const auto low = [](std::size_t n) { return static_cast<std::uint8_t>(n); };
    return Bytes(magic, magic + 4) + Bytes{low(static_cast<std::size_t>(type)), 0, 0, 0} +
           image(width, height, {low(code.size()), low(code.size() >> 8), 0, 0}) + code;
}

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
        {63, 1, repeat(63, 5), {0xFF, 5}},
        {64, 1, repeat(64, 5), {0xFF, 5, 5}},
        {65, 1, repeat(65, 5), {0xFF, 5, 0xC2, 5}},
        {64, 1, repeat(64, 0xC5), {0xFF, 0xC5, 0xC1, 0xC5}},
        {1, 1, {0xC5}, {0xC1, 0xC5}},
        {2, 1, {0xC5, 0xC5}, {0xC2, 0xC5}},
        {1, 1, {0xBF}, {0xBF}},
        {9, 2, repeat(18, 7), {0xC9, 7, 0xC9, 7}},
        {3, 2, {1, 2, 3, 3, 2, 1}, {1, 2, 3, 3, 2, 1}},
        {20,
         1,
         {1, 2, 3, 4, 5, 6, 7, 8, 9, 0xFF, 1, 2, 3, 4, 5, 6, 7, 8, 8, 8},
         {1, 2, 3, 4, 5, 6, 7, 8, 9, 0xC1, 0xFF, 1, 2, 3, 4, 5, 6, 7, 0xC3, 8}},
        {0, 7, {}, {}},
        {700, 0, {}, {}},
    };
    for (const auto &each : cases) {
        const Bytes whole = image(each.width, each.height, each.pixels);
        for (const int type : {0, 1, 2}) {
            Guarded to(16 + 2 * each.pixels.size());
            const Bytes expected = block(type, each.width, each.height, type == 1 ? Bytes{} : each.code);
            ASSERT_EQ(static_cast<int>(expected.size()),
                      fnCompressImage(whole.data(), to, static_cast<unsigned>(type)));
            EXPECT_EQ(expected, Bytes(to.data(), to.data() + expected.size()));
            EXPECT_TRUE(to.intact());
            EXPECT_EQ(type == 0 ? whole : image(each.width, each.height, Bytes(each.pixels.size(), 0xEE)),
                      expand(expected));
        }
    }
}

TEST(CompressedImage, ExpansionStopsAtTheImageAndAtTheData) {
    EXPECT_EQ(image(4, 1, {9, 9, 9, 9}), expand(block(0, 4, 1, {0xFF, 9, 1, 2})));
    EXPECT_EQ(image(4, 1, {1, 2, 3, 4}), expand(block(0, 4, 1, {1, 2, 3, 4, 5, 6, 7})));
    EXPECT_EQ(image(4, 1, {1, 2, 0xEE, 0xEE}), expand(block(0, 4, 1, {1, 2})));
    EXPECT_EQ(image(4, 1, {1, 0xEE, 0xEE, 0xEE}), expand(block(0, 4, 1, {1, 0xC3})));
    EXPECT_EQ(image(4, 1, {1, 2, 3, 4}), expand(block(0, 4, 1, {1, 0xC0, 77, 2, 3, 4})));
}

TEST(CompressedImage, MagicInAnyCaseAndSizesWithoutIt) {
    for (const char *magic : {"CIMG", "cimg", "cImG"})
        EXPECT_EQ(image(2, 1, {1, 2}), expand(block(0, 2, 1, {1, 2}, magic))) << magic;
    EXPECT_EQ("", test::take_log());
    for (const char *magic : {"Cimx", "#img", "Ci\xCDg"}) {
        EXPECT_EQ(repeat(6, 0xEE), expand(block(0, 2, 1, {1, 2}, magic)));
        EXPECT_EQ("Compress image format error\n", test::take_log());
    }
    const Bytes none = block(3, 20, 10, repeat(1000, 1), "none");
    EXPECT_EQ(1016, fnGetCompressImageSize(none.data()));
    EXPECT_EQ(204, fnGetCompressImageFrameSize(none.data()));
    EXPECT_EQ(0, fnGetCompressImageSize(nullptr));
    EXPECT_EQ(0, fnGetCompressImageFrameSize(nullptr));
}

}  // namespace
