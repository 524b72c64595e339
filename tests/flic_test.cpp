#include "inkstone/flic.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "film/flic_film.h"
#include "inkstone/can.h"
#include "inkstone/pcx.h"
#include "support/files.h"
#include "support/guarded.h"
#if defined(HAS_FLIC_PEER)
#include "bench/flic_peer.h"
#endif

using namespace ink::tool::flic;
using namespace test;
using ink::tool::IndexedPicture;

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

int next_frame() {
    return FLIC_read_flic_data() == 0 ? FLIC_play_flic_frame() : -1;
}

// Pictures of noise, flat areas and stripes of many lengths, each with something new on some of the rows.
std::vector<IndexedPicture> pictures(int count, int width, int height) {
    std::mt19937 random(static_cast<unsigned>(width));
    IndexedPicture now{.width = width, .height = height};
    std::vector<IndexedPicture> all;
    for (int i = 0; i < count; ++i) {
        for (std::size_t at = random() % 9000; at < now.pixels.size(); at += random() % 600) {
            const std::size_t end = std::min(at + random() % 300, now.pixels.size());
            for (const auto kind = random() % 3, colour = random(); at < end; ++at)
                now.pixels[at] = static_cast<std::uint8_t>(kind == 0 ? random() : colour + kind * (at / 2));
        }
        for (std::size_t c = 0; c < 768; c += random() % 40)
            now.palette[c] = static_cast<std::uint8_t>(random() % 64);
        all.push_back(now);
    }
    return all;
}

TEST(Flic, EveryChunkTypeGivesThePicturesThatWereCoded) {
    const int sizes[][3] = {{320, 200, 1}, {640, 480, 0}, {63, 41, 1}, {100, 480, 0}};
    for (const auto &[width, height, small] : sizes) {
        const std::vector<IndexedPicture> expected = pictures(10, width, height);
        const IndexedPicture black{.width = width, .height = height};
        std::vector<Bytes> frames;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const IndexedPicture &now = expected[i], &before = i == 0 ? black : expected[i - 1];
            Bytes dim{1, 0, 0, 0};
            put(dim, Bytes(now.palette.begin(), now.palette.end()));
            const std::vector<Bytes> ways[] = {
                {chunk(COLOR_256, color_256(now)), chunk(BYTE_RUN, *byte_run(now))},
                {chunk(DELTA_FLC, delta_flc(now, before)), chunk(COLOR_64, dim), chunk(PSTAMP, dim)},
                {chunk(COLOR_64, dim), chunk(DELTA_FLI, *delta_fli(now, before))},
                {chunk(FLI_COPY, copy(now)), chunk(COLOR_64, dim)},
                {chunk(BLACK, {}), chunk(DELTA_FLC, delta_flc(now, black)),
                 chunk(COLOR_256, color_256(now))}};
            frames.push_back(frame(ways[i % 5]));
        }
        write_file("film.flc", film(frames, width, height));
        Guarded screen(small ? 64000 : 307200);
        ASSERT_EQ(10, FLIC_open_flic_file("FILM.FLC", small, screen));
#if defined(HAS_FLIC_PEER)
        bench::FlicPeer peer(file_header(10, width, height), width, height);
#endif
        for (std::size_t i = 0; i < frames.size(); ++i) {
            ASSERT_EQ(0, next_frame());
            Bytes shown(screen.size());
            for (int y = 0; y < height; ++y)
                std::copy_n(expected[i].row(y), width, shown.begin() + y * (small ? 320 : 640));
            ASSERT_EQ(shown, screen.contents()) << "frame " << i << " of " << width;
            ASSERT_EQ(Bytes(expected[i].palette.begin(), expected[i].palette.end()), exported());
#if defined(HAS_FLIC_PEER)
            ASSERT_TRUE(peer.decode(frames[i])) << i;
            // The other decoder puts the last pixel of an odd DELTA_FLC row behind the row.
            for (int y = 0, even = width / 2 * 2; y < height; ++y)
                ASSERT_TRUE(std::equal(expected[i].row(y), expected[i].row(y) + even, peer.row(y))) << i;
            for (int c = 0; c < 768; ++c)
                ASSERT_EQ(peer.component(c / 3, c % 3) >> 2, expected[i].palette[static_cast<std::size_t>(c)])
                    << i;
#endif
        }
        FLIC_close_flic_file();
        ASSERT_TRUE(screen.intact());
    }
}

// Chunks on a film of 5 x 3 pixels in the corner of a screen of E's: nothing else of the screen may change.
TEST(Flic, ChunksByHand) {
    const struct {
        int type;
        Bytes data;
        const char *pixels;  // digits, or E where nothing is painted
    } cases[] = {
        {BYTE_RUN, {1, 3, 7, 0, 2, 0xFE, 1, 2, 9, 8}, "777EEEEEEE12888"},
        {BYTE_RUN, {2, 0, 9, 0xFB, 1, 2, 3}, "123EEEEEEEEEEEE"},
        {DELTA_FLI, {1, 0, 5, 0, 1, 1, 2, 4, 5, 2, 0, 255, 6, 2, 128, 7, 1, 0, 1, 9}, "EEEEEE45EE6EE77"},
        {DELTA_FLI, {255, 255, 2, 0, 1, 0, 1, 3, 1, 0, 1, 4}, "4EEEEEEEEEEEEEE"},
        {DELTA_FLC, {1, 0, 254, 255, 1, 0, 1, 1, 3, 4}, "EEEEEEEEEEE34EE"},
        {DELTA_FLC, {2, 0, 9, 128, 1, 0, 0, 253, 1, 2, 255, 255, 0, 0}, "12121EEEEEEEEEE"},
        {DELTA_FLC, {1, 0, 255, 255, 255, 255, 9, 128, 0, 0}, "EEEEEEEEEEEEEE9"},
        {DELTA_FLC, {9, 0, 240, 255, 1, 0, 0, 1, 5, 6}, "EEEEEEEEEEEEEEE"},
        {FLI_COPY, {1, 2, 3, 4, 5, 6, 7}, "1234567EEEEEEEE"},
        {PSTAMP, {1, 2, 3}, "EEEEEEEEEEEEEEE"}};
    for (const auto &[type, data, pixels] : cases) {
        Guarded screen(64000, 'E' - '0');
        write_file("a.fli", film({frame({chunk(type, data)})}, 5, 3, 0));
        ASSERT_EQ(1, FLIC_open_flic_file("a.fli", 1, screen));
        ASSERT_EQ(0, next_frame());
        Bytes expected(64000, 'E' - '0');
        for (std::size_t i = 0; i < 15; ++i)
            expected[i / 5 * 320 + i % 5] = static_cast<std::uint8_t>(pixels[i] - '0');
        EXPECT_EQ(expected, screen.contents()) << pixels;
    }
}

TEST(Flic, PalettesUnknownChunksAndBrokenSizes) {
    Bytes palette(768, 44), packets{2, 0, 1, 0, 3}, no_size = chunk(BLACK, {});
    FLIC_inport_palette(palette.data());
    put(packets, Bytes(767, 255));
    put(packets, Bytes{3, 2, 4, 8, 12, 16, 20, 24});  // entries 1 + 3 and on: a packet of all does not move
    no_size[0] = 0;
    write_file("a.flc", film({frame({chunk(COLOR_64, {2, 0, 1, 2, 1, 2, 3, 4, 5, 200, 254, 9, 7, 8, 9})}),
                              frame({chunk(5, {1}), chunk(COLOR_256, packets)}), frame({no_size, {1, 2}})},
                             640, 480));
    Guarded screen(307200, 1);
    ASSERT_EQ(3, FLIC_open_flic_file("a.flc", 0, screen));
    const Bytes colours[] = {{44, 44, 44, 1, 2, 3, 4, 5, 200, 44, 44, 44, 44, 44, 44, 44},
                             {0, 63, 63, 63, 63, 63, 63, 63, 63, 63, 63, 63, 1, 2, 3, 4}};
    for (const Bytes &first : colours) {
        testing::internal::CaptureStdout();
        ASSERT_EQ(0, next_frame());
        EXPECT_EQ(first[0] == 44 ? "" : "\a\a\a\a\a\n", testing::internal::GetCapturedStdout());
        palette = exported();
        EXPECT_EQ(first, Bytes(palette.begin(), palette.begin() + 16));
    }
    EXPECT_EQ(Bytes(307200, 1), screen.contents());
    // A chunk that states no size is decoded, and is the last.
    ASSERT_EQ(0, next_frame());
    EXPECT_EQ(Bytes(307200), screen.contents());
    FLIC_close_flic_file();
}

TEST(Flic, FramesThatAreReadAndThoseThatAreNot) {
    const Bytes good = frame({chunk(BLACK, {})}), prefix = frame({chunk(9, {1, 2, 3})}, 0xF100);
    const Bytes large = frame({chunk(PSTAMP, Bytes(1000))}), huge = frame({chunk(PSTAMP, Bytes(70000))});
    Bytes no_size = prefix;
    no_size[0] = 0;
    const struct {
        std::vector<Bytes> frames;
        std::vector<int> results;
    } cases[] = {
        {{prefix, prefix, good, prefix, good}, {0, 0, -1, -1}},  // the last lacks 16 bytes, as all do
        {{good, frame({}, 0x1234), good}, {0, -1, -1}},
        {{no_size, good}, {-1}},
        {{large, good}, {0, 0, -1}},  // larger than the picture, and really there
        {{Bytes(large.begin(), large.end() - 1)}, {-1}},
        {{huge}, {-1}},
        {{}, {-1}}};
    Guarded screen(64000, 1);
    for (const auto &[frames, results] : cases) {
        write_file("a.flc", film(frames, 4, 4));
        ASSERT_EQ(static_cast<int>(frames.size()), FLIC_open_flic_file("a.flc", 1, screen));
        for (const int result : results) EXPECT_EQ(result, FLIC_read_flic_data());
        EXPECT_EQ(0, FLIC_play_flic_frame());
    }
    // A file that cannot be opened leaves the one that plays alone.
    EXPECT_EQ("", take_log());
    write_file("a.flc", film({good}, 4, 4));
    ASSERT_EQ(1, FLIC_open_flic_file("a.flc", 1, screen));
    EXPECT_EQ(-1, FLIC_open_flic_file("art\\none.flc", 0, screen));
    EXPECT_EQ("File art\\none.flc open error\n", take_log());
    EXPECT_EQ(0, next_frame());
    EXPECT_EQ(Bytes(64000), screen.contents());
    EXPECT_TRUE(screen.intact());
    FLIC_close_flic_file();
    EXPECT_EQ(-1, FLIC_read_flic_data());
}

// What the tool makes of pictures is what the library reads.
TEST(Ink, BuildsFilmsAndAnimations) {
    const std::string ink = INK_TOOL;
    const std::vector<IndexedPicture> frames = pictures(3, 301, 100);
    for (std::size_t i = 0; const char *name : {"p0.pcx", "p1.pcx", "p2.pcx"}) {
        Bytes source(i);  // what lies to the left of the picture's place, (i, 0)
        put(source, frames[i].pixels);
        PCX_inport_palette(frames[i].palette.data());
        PCX_save_file(name, static_cast<int>(i++), 0, 301, 100, source.data(), 301, 0);
    }
    for (const char *arguments : {" flic build a.flc p0.pcx p1.pcx p2.pcx >log",
                                  " can build --anchor 5 -6 -- a.can p0.pcx p1.pcx p2.pcx >log"})
        ASSERT_EQ(0, std::system((ink + arguments).c_str())) << arguments;
    Guarded screen(64000);
    ASSERT_EQ(3, FLIC_open_flic_file("a.flc", 1, screen));
    ANI_DATA_STRUCT *head = nullptr;
    ASSERT_EQ(3, CAN_read_file("a.can", &head, nullptr));
    const ANI_DATA_STRUCT *record = head->next;
    for (const int i : {0, 1, 2, 0}) {  // the film leads back to its first frame
        const IndexedPicture &now = frames[static_cast<std::size_t>(i)];
        ASSERT_EQ(0, next_frame());
        for (int y = 0; y < 100; ++y)
            ASSERT_TRUE(std::equal(now.row(y), now.row(y) + 301, screen.data() + 320 * y));
        EXPECT_EQ(Bytes(now.palette.begin(), now.palette.end()), exported());
        if (record == nullptr) continue;
        EXPECT_TRUE(std::equal(now.pixels.begin(), now.pixels.end(), record->image + 4));
        EXPECT_TRUE(record->x == i + 5 && record->y == -6);
        record = record->next;
    }
    ANI_free_ani(head);
    FLIC_close_flic_file();
    EXPECT_EQ(0, std::system((ink + " can show -o a.png a.can >log").c_str()));
    EXPECT_EQ(0, std::system((ink + " flic show -o b.png a.flc --frame 4 >log").c_str()));
    EXPECT_TRUE(exists("a.png") && exists("b.png"));
    EXPECT_NE(0, std::system((ink + " flic build b.flc log 2>log").c_str()));
    EXPECT_FALSE(exists("b.flc"));
    EXPECT_EQ("PCX Header check error\n", take_log());
}

}  // namespace
