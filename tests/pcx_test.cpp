#include "inkstone/pcx.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/files.h"
#include "support/guarded.h"
#include "support/injection.h"

using namespace test;

namespace {

// The same colours in every picture of these tests, as a file holds them and as the family does.
Bytes file_palette(int factor = 4) {
    Bytes palette;
    for (int i = 0; i < 768; ++i) put(palette, i * 7 % 64 * factor, 1);
    return palette;
}
Bytes kept_palette() {
    Bytes palette(768);
    EXPECT_EQ(0, PCX_export_palette(palette.data()));
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
    PCX_inport_palette(file_palette(1).data());
    ASSERT_EQ(0, PCX_save_file("part.pcx", 100, 50, 10, 5, screen.data(), 640, -1));
    const Bytes code{0xC1, 0xC8, 0xC9, 5, 0xCA, 5, 0xCA, 5, 0xCA, 5, 0xC9, 5, 1};
    EXPECT_EQ(pcx_file(100, 50, 10, 5, 10, code), read_file("part.pcx"));
    ASSERT_EQ(0, PCX_save_file("PART.PCX", 3, 4, 10, -2, nullptr, 0, 0));
    EXPECT_EQ(pcx_file(3, 4, 10, -2, 10, {}), read_file("part.pcx"));
    // The most code there can be: two bytes for each pixel.
    const Bytes bright{0xC0, 0xFF, 0xC0, 0xFF, 0xC0};
    ASSERT_EQ(0, PCX_save_file("part.pcx", 0, 0, 5, 1, bright.data(), 5, 0));
    EXPECT_EQ(pcx_file(0, 0, 5, 1, 5, {0xC1, 0xC0, 0xC1, 0xFF, 0xC1, 0xC0, 0xC1, 0xFF, 0xC1, 0xC0}),
              read_file("part.pcx"));
    EXPECT_EQ(-1, PCX_save_file("none/part.pcx", 0, 0, 1, 1, screen.data(), 1, 0));
    EXPECT_EQ(-1, PCX_save_file(nullptr, 0, 0, 1, 1, screen.data(), 1, 0));
    if (test::kHasFullDevice) {  // write errors are not told
        EXPECT_EQ(0, PCX_save_file("/dev/full", 0, 0, 640, 480, screen.data(), 640, 0));
    }
    EXPECT_EQ("", take_log());

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
        int bytes_per_line;
        Bytes code, pixels;
    } cases[] = {{3, {1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6}},
                 {4, {1, 2, 3, 0, 4, 5, 6, 0}, {1, 2, 3, 4, 5, 6}},
                 {4, {1, 2, 0xC4, 3, 4, 5}, {1, 2, 3, 3, 3, 4}},  // a run through the padding
                 {0, {0xC6, 0xFF}, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}},
                 {3, {1, 0xFF, 7}, {1, 7, 7, 7, 7, 7}},
                 {3, {1, 2}, {1, 2, 0xEE, 0xEE, 0xEE, 0xEE}},
                 {3, {1, 2, 0xC3}, {1, 2, 0xEE, 0xEE, 0xEE, 0xEE}}};
    for (const auto &[bytes_per_line, code, pixels] : cases) {
        Bytes file = pcx_file(-7, 300, 3, 2, bytes_per_line, code);
        file[1] = 3;
        write_file("a.pcx", file);
        std::int32_t width = -1, height = -1;
        EXPECT_EQ(6, PCX_get_image_size("a.pcx", &width, &height));
        EXPECT_TRUE(width == 3 && height == 2);
        Guarded read(6, 0xEE);
        ASSERT_EQ(0, PCX_read_file("a.pcx", read));
        EXPECT_EQ(pixels, read.contents());
        EXPECT_TRUE(read.intact());
        EXPECT_EQ(file_palette(1), kept_palette());
    }
}

TEST(Pcx, RefusalsChangeNothing) {
    const Bytes good = pcx_file(0, 0, 3, 2, 3, {1, 2, 3, 4, 5, 6});
    const std::string header = "PCX Header check error\n", format = "PCX format not support\n",
                      palette = "Palete check error\n";
    const struct {
        std::size_t at;
        std::uint8_t value;
        std::size_t size;
        std::string log;
    } cases[] = {{0, 11, 903, header}, {0, 10, 0, header},      {2, 0, 903, format},
                 {3, 4, 903, format},  {65, 4, 903, format},    {9, 128, 903, format},
                 {7, 16, 903, format}, {134, 11, 903, palette}, {0, 10, 500, palette}};
    const Bytes before(768, 33);
    PCX_inport_palette(before.data());
    Guarded pixels(6, 0xEE);
    for (const auto &[at, value, size, log] : cases) {
        Bytes file = good;
        file[at] = value;
        file.resize(size);
        write_file("a.pcx", file);
        std::int32_t width = -1, height = -1;
        EXPECT_EQ(log == palette ? 6 : -2, PCX_get_image_size("a.pcx", &width, &height)) << at;
        EXPECT_EQ(log == palette ? "" : log, take_log());
        EXPECT_EQ(log == palette ? 3 : -1, width);
        EXPECT_EQ(-2, PCX_read_file("a.pcx", pixels));
        EXPECT_EQ(log, take_log());
    }
    write_file("a.pcx", pcx_file(-32768, -32768, 65536, 65536, 0, {}));
    std::int32_t width = -1, height = -1;
    EXPECT_EQ(-2, PCX_get_image_size("a.pcx", &width, &height));
    EXPECT_EQ(format, take_log());
    for (const char *name : {"art\\none.pcx", static_cast<const char *>(nullptr)}) {
        const std::string line = "File " + std::string(name != nullptr ? name : "") + " open error\n";
        EXPECT_EQ(-1, PCX_get_image_size(name, &width, &height));
        EXPECT_EQ(line, take_log());
        EXPECT_EQ(-2, PCX_read_file(name, pixels));
        EXPECT_EQ(line, take_log());
    }
    write_file("a.pcx", good);
    EXPECT_EQ(-2, PCX_get_image_size("a.pcx", &width, nullptr));
    EXPECT_EQ(-1, width);
    EXPECT_EQ(Bytes(6, 0xEE), pixels.contents());
    EXPECT_EQ(before, kept_palette());
}

TEST(Pcx, BearsEveryRefusal) {
    const Bytes before(768, 33), file = pcx_file(0, 0, 3, 2, 4, {1, 2, 3, 0, 4, 5, 6, 0});
    std::int32_t result = 0, width = 0, height = 0;
    inject({.group = "PCX_get_image_size",
            .use = [&] { result = PCX_get_image_size("a.pcx", &width, &height); },
            .outcome = [&] { return std::to_string(result) + ' ' + std::to_string(10 * width + height); },
            .right = "6 32",
            .files = {"-1 0| File a.pcx open error", "-2 0| PCX Header check error"},
            .prepare = [&] { write_file("a.pcx", file), width = height = 0; }});
    Guarded pixels(6, 0xEE);
    inject({.group = "PCX_read_file",
            .use = [&] { result = PCX_read_file("a.pcx", pixels); },
            .outcome =
                [&] {
                    const Bytes got = pixels.contents();
                    return std::to_string(result) +
                           (kept_palette() == before ? " old colours " : " new colours ") +
                           (got == Bytes{1, 2, 3, 4, 5, 6} ? "whole"
                            : got == Bytes(6, '.')         ? "untouched"
                                                           : "begun");
                },
            .right = "0 new colours whole",
            .memory = {"-2 old colours untouched| Memory not enough"},
            .files = {"-2 old colours untouched| File a.pcx open error",
                      "-2 old colours untouched| PCX Header check error",
                      "-2 old colours untouched| Palete check error"},
            .prepare =
                [&] {
                    PCX_inport_palette(before.data());
                    std::fill_n(pixels.data(), 6, '.');
                }});
    const Bytes old(3, 7);
    Bytes saved;
    inject({.group = "PCX_save_file",
            .use = [&] { result = PCX_save_file("a.pcx", 0, 0, 3, 2, old.data(), 0, 0); },
            .outcome =
                [&] {
                    const Bytes made = read_file("a.pcx");
                    if (saved.empty()) saved = made;
                    return std::to_string(result) + (made == old     ? " old"
                                                     : made == saved ? " new"
                                                     : std::equal(made.begin(), made.end(), saved.begin())
                                                         ? " begun"
                                                         : " wrong");
                },
            .right = "0 new",
            .memory = {"-1 old"},
            .files = {"-1 old", "0 begun"},
            .prepare = [&] { write_file("a.pcx", old); }});
}

// Pictures of odd and even width go through other programs in both directions, as PPM, three components a
// pixel: the order of the colours is the writer's own.
TEST(Pcx, PicturesAreExchangedWithOtherPrograms) {
    const std::string convert = CONVERT_PROGRAM, to_pcx = PPMTOPCX_PROGRAM, from_pcx = PCXTOPPM_PROGRAM;
    if (convert.empty() || to_pcx.empty() || from_pcx.empty())
        GTEST_SKIP() << "needs ImageMagick (convert) and netpbm (ppmtopcx, pcxtoppm)";
    for (const int width : {37, 64}) {
        const std::string head = "P6\n" + std::to_string(width) + " 23\n255\n";
        Bytes pixels, colours = file_palette(), ppm(head.begin(), head.end());
        for (int i = 0; i < width * 23; ++i) {
            put(pixels, i % 50 < 20 ? 200 : i * i / 7, 1);
            put(ppm, Bytes(&colours[3u * pixels.back()], &colours[3u * pixels.back() + 3]));
        }
        write_file("in.ppm", ppm);
        PCX_inport_palette(file_palette(1).data());
        PCX_save_file("ours.pcx", 0, 0, width, 23, pixels.data(), width, 0);
        const std::string commands[][2] = {
            {convert + " in.ppm -type Palette pcx:theirs.pcx", convert + " pcx:ours.pcx -depth 8 out.ppm"},
            {to_pcx + " -8bit in.ppm >theirs.pcx 2>log", from_pcx + " ours.pcx >out.ppm 2>log"}};
        for (const auto &[write, read] : commands) {
            ASSERT_TRUE(std::system(write.c_str()) == 0 && std::system(read.c_str()) == 0) << write;
            EXPECT_EQ(ppm, read_file("out.ppm")) << read;
            std::int32_t theirs_width = 0, theirs_height = 0;
            ASSERT_EQ(width * 23, PCX_get_image_size("theirs.pcx", &theirs_width, &theirs_height));
            Guarded theirs(pixels.size());
            ASSERT_EQ(0, PCX_read_file("theirs.pcx", theirs));
            EXPECT_TRUE(theirs.intact());
            Bytes shown(head.begin(), head.end());
            for (const std::uint8_t pixel : theirs.contents())
                for (const std::size_t i : {0u, 1u, 2u}) put(shown, kept_palette()[3u * pixel + i] * 4, 1);
            EXPECT_EQ(ppm, shown) << write;
        }
    }
}

}  // namespace
