#include "inkstone/flic.h"

#include <gtest/gtest.h>

#include <random>

#include "bench/flic_film.h"
#include "support/files.h"
#include "support/guarded.h"
#if defined(HAS_FLIC_PEER)
#include "bench/flic_peer.h"
#endif

using namespace flic;
using test::Guarded;

namespace {

Bytes film(const std::vector<Bytes> &frames, int width, int height, int depth = 8) {
    Bytes file = file_header(static_cast<int>(frames.size()), width, height, depth);
    for (const Bytes &each : frames) put(file, each);
    return file;
}
Bytes exported() {
    Bytes palette(768);
    FLIC_export_palette(palette.data());
    return palette;
}

TEST(Flic, EveryChunkTypeGivesThePicturesThatWereCoded) {
    const struct {
        int width, height, small;
    } sizes[] = {{320, 200, 1}, {640, 480, 0}, {63, 41, 1}, {100, 480, 0}};
    for (const auto &[width, height, small] : sizes) {
        std::mt19937 random(static_cast<unsigned>(width));
        Picture now{width, height}, before = now;
        std::vector<Picture> pictures;
        std::vector<Bytes> frames;
        for (int i = 0; i < 12; ++i, before = now) {
            for (std::size_t at = random() % 9000; at < now.pixels.size(); at += random() % 600) {
                const std::size_t end = std::min(at + random() % 300, now.pixels.size());
                for (const auto kind = random() % 3, colour = random(); at < end; ++at)
                    now.pixels[at] =
                        static_cast<std::uint8_t>(kind == 0 ? random() : colour + kind * (at / 2));
            }
            Bytes colours{2, 0, static_cast<std::uint8_t>(i), 2, 1, 2, 3, 63, 62, 61, 9, 200};
            for (int c = 0; c < 600; ++c) colours.push_back(static_cast<std::uint8_t>(random() % 64));
            const std::vector<Bytes> ways[] = {
                {chunk(COLOR_256, colours), chunk(BYTE_RUN, byte_run(now))},
                {chunk(DELTA_FLC, delta_flc(now, before)), chunk(PSTAMP, colours)},
                {chunk(COLOR_64, colours), chunk(DELTA_FLI, delta_fli(now, before))},
                {chunk(FLI_COPY, copy(now))},
                {chunk(BLACK, {}), chunk(DELTA_FLC, delta_flc(now, {width, height}))},
            };
            frames.push_back(frame(ways[i % 5]));
            pictures.push_back(now);
        }
        test::write_file("film.flc", film(frames, width, height));
        Guarded screen(small ? 64000 : 307200);
        FLIC_inport_palette(screen);
        ASSERT_EQ(12, FLIC_open_flic_file("FILM.FLC", small, screen));
#if defined(HAS_FLIC_PEER)
        Peer peer(file_header(12, width, height), width, height);
#endif
        for (std::size_t i = 0; i < frames.size(); ++i) {
            ASSERT_EQ(0, FLIC_read_flic_data());
            ASSERT_EQ(0, FLIC_play_flic_frame());
            Bytes expected(screen.size());
            for (int y = 0; y < height; ++y)
                std::copy_n(pictures[i].row(y), width,
                            &expected[static_cast<std::size_t>(y * (small ? 320 : 640))]);
            ASSERT_EQ(expected, screen.contents()) << "frame " << i << " of " << width;
            ASSERT_TRUE(screen.intact());
#if defined(HAS_FLIC_PEER)
            ASSERT_TRUE(peer.decode(frames[i])) << i;
            // The other decoder puts the last pixel of an odd DELTA_FLC row behind the row.
            for (int y = 0, even = width / 2 * 2; y < height; ++y)
                ASSERT_TRUE(std::equal(pictures[i].row(y), pictures[i].row(y) + even, peer.row(y)))
                    << i << ' ' << y;
            for (int c = 0; c < 768; ++c)
                ASSERT_EQ(peer.component(c / 3, c % 3) >> 2, exported()[static_cast<std::size_t>(c)])
                    << i << ' ' << c;
#endif
        }
        FLIC_close_flic_file();
    }
#if !defined(HAS_FLIC_PEER)
    GTEST_SKIP()
        << "compared with what was coded only: needs libavcodec's development files for the other decoder";
#endif
}

// Chunks on a film of 5 x 3 pixels in the corner of a screen of E's: nothing else of the screen may change.
TEST(Flic, ChunksByHand) {
    constexpr std::uint8_t E = 0xEE;
    const struct {
        int type;
        Bytes data, pixels;
    } cases[] = {
        {BYTE_RUN, {1, 3, 7, 0, 2, 0xFE, 1, 2, 9, 8}, {7, 7, 7, E, E, E, E, E, E, E, 1, 2, 8, 8, 8}},
        {BYTE_RUN, {2, 0, 9, 0xFB, 1, 2, 3}, {1, 2, 3, E, E, E, E, E, E, E, E, E, E, E, E}},
        {DELTA_FLI,
         {1, 0, 5, 0, 1, 1, 2, 4, 5, 2, 0, 0xFF, 6, 2, 0x80, 7, 1, 0, 1, 9},
         {E, E, E, E, E, E, 4, 5, E, E, 6, E, E, 7, 7}},
        {DELTA_FLI,
         {0xFF, 0xFF, 2, 0, 1, 0, 1, 3, 1, 0, 1, 4},
         {4, E, E, E, E, E, E, E, E, E, E, E, E, E, E}},
        {DELTA_FLC, {1, 0, 0xFE, 0xFF, 1, 0, 1, 1, 3, 4}, {E, E, E, E, E, E, E, E, E, E, E, 3, 4, E, E}},
        {DELTA_FLC,
         {2, 0, 9, 0x80, 1, 0, 0, 0xFD, 1, 2, 0xFF, 0xFF, 0, 0},
         {1, 2, 1, 2, 1, E, E, E, E, E, E, E, E, E, E}},
        {DELTA_FLC,
         {1, 0, 0xFF, 0xFF, 0xFF, 0xFF, 9, 0x80, 0, 0},
         {E, E, E, E, E, E, E, E, E, E, E, E, E, E, 9}},
        {DELTA_FLC, {9, 0, 0xF0, 0xFF, 1, 0, 0, 1, 5, 6}, Bytes(15, E)},
        {FLI_COPY, {1, 2, 3, 4, 5, 6, 7}, {1, 2, 3, 4, 5, 6, 7, E, E, E, E, E, E, E, E}},
        {PSTAMP, {1, 2, 3}, Bytes(15, E)},
    };
    for (const auto &each : cases) {
        Guarded screen(64000, E);
        test::write_file("a.fli", film({frame({chunk(each.type, each.data)})}, 5, 3, 0));
        ASSERT_EQ(1, FLIC_open_flic_file("a.fli", 1, screen));
        ASSERT_EQ(0, FLIC_read_flic_data());
        FLIC_play_flic_frame();
        Bytes expected(64000, E);
        for (std::size_t i = 0; i < 15; ++i) expected[i / 5 * 320 + i % 5] = each.pixels[i];
        EXPECT_EQ(expected, screen.contents()) << &each - cases;
    }
}

TEST(Flic, PalettesUnknownChunksAndBrokenSizes) {
    Bytes palette(768, 44), all(768, 255), expected = palette;
    FLIC_inport_palette(palette.data());
    all[0] = 3;
    put(all, Bytes{3, 2, 4, 8, 12, 16, 20, 24});  // entries 3 and 4: the index has not moved
    Bytes packets{2, 0, 77, 0}, endless = chunk(BLACK, {});
    put(packets, all);
    endless[0] = 0;
    test::write_file("a.flc",
                     film({frame({chunk(COLOR_64, {2, 0, 10, 2, 1, 2, 3, 4, 5, 200, 243, 9, 7, 8, 9})}),
                           frame({chunk(5, {1}), chunk(COLOR_256, packets)}), frame({endless, {1, 2}})},
                          640, 480));
    Guarded screen(307200, 1);
    ASSERT_EQ(3, FLIC_open_flic_file("a.flc", 0, screen));
    const Bytes colours[] = {{1, 2, 3, 4, 5, 200, 44}, {63, 63, 63, 63, 63, 63, 63}};
    for (const Bytes &ten : colours) {
        ASSERT_EQ(0, FLIC_read_flic_data());
        testing::internal::CaptureStdout();
        FLIC_play_flic_frame();
        EXPECT_EQ(ten[0] == 1 ? "" : "\a\a\a\a\a\n", testing::internal::GetCapturedStdout());
        palette = exported();
        EXPECT_EQ(ten, Bytes(&palette[30], &palette[37]));
    }
    EXPECT_EQ((Bytes{0, 63, 63}), Bytes(&palette[0], &palette[3]));
    EXPECT_EQ(Bytes(307200, 1), screen.contents());
    ASSERT_EQ(0, FLIC_read_flic_data());
    FLIC_play_flic_frame();  // a chunk that states no size is decoded, and is the last
    EXPECT_EQ(Bytes(307200), screen.contents());
    FLIC_close_flic_file();
}

TEST(Flic, FramesThatAreReadAndThoseThatAreNot) {
    const Bytes good = frame({chunk(BLACK, {})}), prefix = frame({chunk(9, {1, 2, 3})}, 0xF100);
    Bytes no_size = prefix, large = frame({chunk(PSTAMP, Bytes(1000))});
    no_size[0] = 0;
    Bytes missing = large, huge = frame({chunk(PSTAMP, Bytes(70000))});
    missing.resize(600);
    const struct {
        std::vector<Bytes> frames;
        std::vector<int> results;
    } cases[] = {
        {{prefix, prefix, good, prefix, good},
         {0, 0, -1, -1}},  // the last is cut short by 16 bytes, as all are
        {{good, frame({}, 0x1234), good}, {0, -1, -1}},
        {{no_size, good}, {-1}},
        {{large, good}, {0, 0, -1}},  // larger than the picture, and really there
        {{missing}, {-1}},
        {{huge}, {-1}},
        {{}, {-1}},
    };
    Guarded screen(64000, 1);
    for (const auto &each : cases) {
        test::write_file("a.flc", film(each.frames, 4, 4));
        ASSERT_EQ(static_cast<int>(each.frames.size()), FLIC_open_flic_file("a.flc", 1, screen));
        for (const int result : each.results) EXPECT_EQ(result, FLIC_read_flic_data()) << &each - cases;
        EXPECT_EQ(0, FLIC_play_flic_frame());
    }
    EXPECT_EQ("", test::take_log());
    // A file that cannot be opened leaves the one that plays alone.
    test::write_file("a.flc", film({good}, 4, 4));
    ASSERT_EQ(1, FLIC_open_flic_file("a.flc", 1, screen));
    EXPECT_EQ(-1, FLIC_open_flic_file("art\\none.flc", 0, screen));
    EXPECT_EQ("File art\\none.flc open error\n", test::take_log());
    EXPECT_EQ(0, FLIC_read_flic_data());
    FLIC_play_flic_frame();
    EXPECT_EQ(Bytes(64000), screen.contents());
    EXPECT_TRUE(screen.intact());
    FLIC_close_flic_file();
    EXPECT_EQ(-1, FLIC_read_flic_data());
}

}  // namespace
