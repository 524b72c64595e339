#include "inkstone/pcx.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/files.h"
#include "support/guarded.h"

using test::Bytes;
using test::Guarded;
using test::put;

namespace {

// The same colours in every picture of these tests, as a file holds them.
Bytes file_palette() {
    Bytes palette(768);
    for (std::size_t i = 0; i < palette.size(); ++i) palette[i] = static_cast<std::uint8_t>(i * 7 % 64 * 4);
    return palette;
}
Bytes kept_palette() {
    Bytes palette(768);
    EXPECT_EQ(0, PCX_export_palette(palette.data()));
    return palette;
}
Bytes divided(Bytes palette) {
    for (std::uint8_t &component : palette) component >>= 2;
    return palette;
}

Bytes pcx_file(int x, int y, int width, int height, int bytes_per_line, const Bytes &code) {
    Bytes file{10, 5, 1, 8};
    for (const int word : {x, y, x + width - 1, y + height - 1, 640, 480}) put(file, word, 2);
    file.resize(65);
    put(file, 1, 1);
    put(file, bytes_per_line, 2);
    file.resize(128);
    put(file, code);
    put(file, 12, 1);
    put(file, file_palette());
    return file;
}

TEST(Pcx, SavedFileByteForByte) {
    Bytes screen(640 * 480, 5);
    screen[50 * 640 + 100] = 0xC8;
    screen[54 * 640 + 109] = 1;
    PCX_inport_palette(divided(file_palette()).data());
    ASSERT_EQ(0, PCX_save_file("part.pcx", 100, 50, 10, 5, screen.data(), 640, -1));
    EXPECT_EQ(pcx_file(100, 50, 10, 5, 10, {0xC1, 0xC8, 0xC9, 5, 0xCA, 5, 0xCA, 5, 0xCA, 5, 0xC9, 5, 1}),
              test::read_file("part.pcx"));
    ASSERT_EQ(0, PCX_save_file("PART.PCX", 3, 4, 10, -2, nullptr, 0, 0));
    EXPECT_EQ(pcx_file(3, 4, 10, -2, 10, {}), test::read_file("part.pcx"));
    EXPECT_EQ(-1, PCX_save_file("none/part.pcx", 0, 0, 1, 1, screen.data(), 1, 0));
    EXPECT_EQ("", test::take_log());

    ASSERT_EQ(0, PCX_save_file("screen.pcx", 0, 0, 640, 480, screen.data(), 640, 0));
    std::int32_t width = 0, height = 0;
    ASSERT_EQ(307200, PCX_get_image_size("SCREEN.pcx", &width, &height));
    EXPECT_TRUE(width == 640 && height == 480);
    Guarded back(307200);
    ASSERT_EQ(0, PCX_read_file("screen.pcx", back));
    EXPECT_EQ(screen, back.contents());
}

TEST(Pcx, ReadsWhatIsThere) {
    const struct {
        int width, height, bytes_per_line;
        Bytes code, pixels;
    } cases[] = {
        {3, 2, 3, {1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6}},
        {3, 2, 4, {1, 2, 3, 0, 4, 5, 6, 0}, {1, 2, 3, 4, 5, 6}},
        {3, 2, 4, {1, 2, 0xC4, 3, 4, 5}, {1, 2, 3, 3, 3, 4}},  // a run through the padding
        {3, 2, 0, {0xC6, 0xFF}, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}},
        {3, 2, 3, {1, 0xFF, 7}, {1, 7, 7, 7, 7, 7}},
        {3, 2, 3, {1, 2}, {1, 2, 0xEE, 0xEE, 0xEE, 0xEE}},
        {3, 2, 3, {1, 2, 0xC3}, {1, 2, 0xEE, 0xEE, 0xEE, 0xEE}},
        {0, 0, 0, {}, {}},
    };
    for (const auto &each : cases) {
        Bytes file = pcx_file(-7, 300, each.width, each.height, each.bytes_per_line, each.code);
        file[1] = 3;
        test::write_file("a.pcx", file);
        std::int32_t width = -1, height = -1;
        EXPECT_EQ(each.width * each.height, PCX_get_image_size("a.pcx", &width, &height));
        EXPECT_TRUE(width == each.width && height == each.height);
        Guarded pixels(each.pixels.size(), 0xEE);
        ASSERT_EQ(0, PCX_read_file("a.pcx", pixels));
        EXPECT_EQ(each.pixels, pixels.contents());
        EXPECT_TRUE(pixels.intact());
        EXPECT_EQ(divided(file_palette()), kept_palette());
    }
}

TEST(Pcx, RefusalsChangeNothing) {
    const Bytes good = pcx_file(0, 0, 3, 2, 3, {1, 2, 3, 4, 5, 6});
    const auto with = [&good](std::size_t at, int value) {
        Bytes file = good;
        file[at] = static_cast<std::uint8_t>(value);
        return file;
    };
    const std::string header = "PCX Header check error\n", format = "PCX format not support\n",
                      palette = "Palete check error\n";
    const struct {
        Bytes file;
        std::string log;
        bool sized;  // only the palette is wrong
    } cases[] = {
        {with(0, 11), header, false},
        {{}, header, false},
        {with(2, 0), format, false},
        {with(3, 4), format, false},
        {with(65, 4), format, false},
        {with(9, 0x80), format, false},
        {with(7, 0x10), format, false},
        {with(134, 11), palette, true},
        {Bytes(good.begin(), good.begin() + 500), palette, true},
        {pcx_file(-32768, -32768, 65536, 65536, 0, {}), format, false},
    };
    const Bytes before(768, 33);
    PCX_inport_palette(before.data());
    Guarded pixels(6, 0xEE);
    for (const auto &each : cases) {
        SCOPED_TRACE(&each - cases);
        test::write_file("a.pcx", each.file);
        std::int32_t width = -1, height = -1;
        EXPECT_EQ(each.sized ? 6 : -2, PCX_get_image_size("a.pcx", &width, &height));
        EXPECT_EQ(each.sized ? "" : each.log, test::take_log());
        EXPECT_TRUE(each.sized || (width == -1 && height == -1));
        EXPECT_EQ(-2, PCX_read_file("a.pcx", pixels));
        EXPECT_EQ(each.log, test::take_log());
    }
    EXPECT_EQ(-1, PCX_get_image_size("art\\none.pcx", nullptr, nullptr));
    EXPECT_EQ(-2, PCX_read_file("art\\none.pcx", pixels));
    EXPECT_EQ("File art\\none.pcx open error\nFile art\\none.pcx open error\n", test::take_log());
    EXPECT_EQ(Bytes(6, 0xEE), pixels.contents());
    EXPECT_EQ(before, kept_palette());
}

// Pictures of odd and even width go through another program in both directions. PPM, three components a
// pixel, is what all understand; the palette's order is the writer's own.
TEST(Pcx, PicturesAreExchangedWithOtherPrograms) {
    const std::string convert = CONVERT_PROGRAM, to_pcx = PPMTOPCX_PROGRAM, from_pcx = PCXTOPPM_PROGRAM;
    int exchanged = 0;
    for (const int width : {37, 64}) {
        constexpr int kHeight = 23;
        Bytes pixels(static_cast<std::size_t>(width * kHeight)), colours = file_palette(), ppm;
        const std::string head = "P6\n" + std::to_string(width) + " 23\n255\n";
        ppm.assign(head.begin(), head.end());
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            pixels[i] = static_cast<std::uint8_t>(i % 50 < 20 ? 200 : i * i / 7);
            ppm.insert(ppm.end(), &colours[3 * pixels[i]], &colours[3 * pixels[i]] + 3);
        }
        test::write_file("in.ppm", ppm);
        PCX_inport_palette(divided(colours).data());
        PCX_save_file("ours.pcx", 0, 0, width, kHeight, pixels.data(), width, 0);
        const struct {
            const std::string &program;
            std::string write, read;
        } peers[] = {
            {convert, convert + " in.ppm -type Palette pcx:theirs.pcx",
             convert + " pcx:ours.pcx -depth 8 out.ppm"},
            {to_pcx, to_pcx + " -8bit in.ppm >theirs.pcx 2>log", from_pcx + " ours.pcx >out.ppm 2>log"},
        };
        for (const auto &peer : peers) {
            if (peer.program.empty()) continue;
            SCOPED_TRACE(peer.write);
            ASSERT_EQ(0, std::system(peer.write.c_str()));
            ASSERT_EQ(0, std::system(peer.read.c_str()));
            EXPECT_EQ(ppm, test::read_file("out.ppm"));

            std::int32_t read_width = 0, read_height = 0;
            ASSERT_EQ(width * kHeight, PCX_get_image_size("theirs.pcx", &read_width, &read_height));
            ASSERT_EQ(width, read_width);
            Guarded read(pixels.size());
            ASSERT_EQ(0, PCX_read_file("theirs.pcx", read));
            EXPECT_TRUE(read.intact());
            const Bytes palette = kept_palette();
            for (std::size_t i = 0; i < pixels.size(); ++i)
                for (std::size_t c = 0; c < 3; ++c)
                    ASSERT_EQ(ppm[head.size() + 3 * i + c], palette[3u * read.data()[i] + c] * 4) << i;
            ++exchanged;
        }
    }
    if (exchanged < 4)
        GTEST_SKIP() << "needs ImageMagick (convert) and netpbm (ppmtopcx, pcxtoppm); " << exchanged
                     << " of 4 done";
}

}  // namespace
