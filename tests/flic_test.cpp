#include "inkstone/flic.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "film/flic_film.h"
#include "inkstone/can.h"
#include "inkstone/pcx.h"
#include "support/allocation.h"
#include "support/files.h"
#include "support/guarded.h"
#include "support/injection.h"
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
    const int sizes[][3] = {{320, 200, 1}, {640, 480, 0}, {63, 41, 1}, {100, 480, 0}, {400, 300, 1}};
    for (const auto &[width, height, small] : sizes) {
        std::vector<IndexedPicture> expected = pictures(10, width, height);
        // A copy leaves no room for a palette beside it.
        for (const std::size_t i : {3u, 8u}) expected[i].palette = expected[i - 1].palette;
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
                {chunk(FLI_COPY, copy(now))},
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
            const int row = small ? 320 : 640;
            for (int y = 0; y < std::min(height, small ? 200 : 480); ++y)
                std::copy_n(expected[i].row(y), std::min(width, row), shown.begin() + y * row);
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

// Chunks of a film of so many columns and 3 rows in the corner of a screen of E's: nothing else may change.
TEST(Flic, ChunksByHand) {
    std::string words;
    for (int i = 0; i < 128; ++i) words += "12";
    Bytes far_left{1, 0, 2, 1};  // 258 packets that lead round to column -2
    for (int i = 0; i < 256; ++i) put(far_left, Bytes{255, 0});
    put(far_left, Bytes{254, 0, 0, 3, 1, 2, 3, 4, 5, 6});
    const struct {
        int width, type;
        Bytes data;
        std::vector<std::string> rows;  // digits, or E where nothing is painted, up to the last that is
    } cases[] = {
        {5, BYTE_RUN, {1, 3, 7, 0, 2, 0xFE, 1, 2, 9, 8}, {"777", "", "12888888888"}},
        {5, BYTE_RUN, {2, 0, 9, 0xFB, 1, 2, 3}, {"123"}},
        {5,
         DELTA_FLI,
         {1, 0, 5, 0, 1, 1, 2, 4, 5, 2, 0, 255, 6, 2, 128, 7, 1, 0, 1, 9},
         {"", "E45", "6EE" + std::string(128, '7'), "9"}},
        {5, DELTA_FLI, {255, 255, 2, 0, 1, 0, 1, 3, 1, 0, 1, 4}, {"4"}},
        {5, DELTA_FLC, {1, 0, 254, 255, 1, 0, 1, 1, 3, 4}, {"", "", "E34"}},
        {5, DELTA_FLC, {2, 0, 9, 128, 1, 0, 0, 255, 1, 2, 255, 255, 0, 0}, {"12EE9"}},
        {5, DELTA_FLC, {1, 0, 1, 0, 2, 128, 1, 2}, {"EE" + words}},  // -128 words are 256 pixels
        {5, DELTA_FLC, {1, 0, 255, 255, 255, 255, 9, 128, 0, 0}, {"", "", "EEEE9"}},
        {5, DELTA_FLC, {9, 0, 56, 255, 1, 0, 0, 1, 5, 6}, {}},  // row 200
        {320, DELTA_FLC, far_left, {"3456"}},
        {0, DELTA_FLI, {2, 0, 1, 0, 1, 3, 253, 6}, {"", "", "EEE666"}},  // whatever size the film states
        {0, FLI_COPY, {1, 2, 3}, {}},
        {5, FLI_COPY, {1, 2, 3, 4, 5, 6, 7}, {"12345", "67"}},
        {5, PSTAMP, {1, 2, 3}, {}}};
    for (const auto &[width, type, data, rows] : cases) {
        Guarded screen(64000, 'E' - '0');
        write_file("a.fli", film({frame({chunk(type, data)})}, width, 3, 0));
        ASSERT_EQ(1, FLIC_open_flic_file("a.fli", 1, screen));
        ASSERT_EQ(0, next_frame());
        Bytes expected(64000, 'E' - '0');
        for (std::size_t y = 0; y < rows.size(); ++y)
            for (std::size_t x = 0; x < rows[y].size(); ++x)
                expected[y * 320 + x] = static_cast<std::uint8_t>(rows[y][x] - '0');
        EXPECT_EQ(expected, screen.contents()) << testing::PrintToString(data);
        EXPECT_TRUE(screen.intact());
    }
}

TEST(Flic, PalettesUnknownChunksAndBrokenSizes) {
    Bytes palette(768, 44), packets{2, 0, 1, 0, 3}, no_size = chunk(BLACK, {});
    FLIC_inport_palette(palette.data());
    put(packets, Bytes(767, 255));
    put(packets, Bytes{3, 2, 4, 8, 12, 16, 20, 24});  // entries 1 + 3 and on: a packet of all does not move
    no_size[0] = 0;
    write_file("a.flc", film({frame({chunk(COLOR_64, {2, 0, 1, 2, 1, 2, 3, 4, 5, 200, 254, 9, 7, 8, 9})}),
                              frame({chunk(5, {1}), chunk(0x100 + BLACK, {}), chunk(COLOR_256, packets)}),
                              // Two colours from 255 on, and one at 257: only the first is there.
                              frame({chunk(COLOR_64, {2, 0, 255, 2, 11, 12, 13, 5, 5, 5, 0, 1, 6, 6, 6})}),
                              frame({no_size, {1, 2}})},
                             640, 480));
    Guarded screen(307200, 1);
    ASSERT_EQ(4, FLIC_open_flic_file("a.flc", 0, screen));
    const Bytes colours[] = {{44, 44, 44, 1, 2, 3, 4, 5, 200, 44, 44, 44, 44, 44, 44, 44},
                             {0, 63, 63, 63, 63, 63, 63, 63, 63, 63, 63, 63, 1, 2, 3, 4}};
    for (const Bytes &first : colours) {
        testing::internal::CaptureStdout();
        ASSERT_EQ(0, next_frame());
        EXPECT_EQ(first[0] == 44 ? "" : "\a\a\a\a\a\n\a\a\a\a\a\n", testing::internal::GetCapturedStdout());
        palette = exported();
        EXPECT_EQ(first, Bytes(palette.begin(), palette.begin() + 16));
    }
    ASSERT_EQ(0, next_frame());
    std::copy_n(Bytes{11, 12, 13}.begin(), 3, palette.end() - 3);
    EXPECT_EQ(palette, exported());
    EXPECT_EQ(Bytes(307200, 1), screen.contents());
    // A chunk that states no size is decoded, and is the last.
    ASSERT_EQ(0, next_frame());
    EXPECT_EQ(Bytes(307200), screen.contents());
    FLIC_close_flic_file();
}

TEST(Flic, FramesThatAreReadAndThoseThatAreNot) {
    const Bytes good = frame({chunk(BLACK, {})}), prefix = frame({chunk(9, {1, 2, 3})}, 0xF100);
    // A film of 4 x 4 has room for 528 bytes, and a frame needs 16 more than its own.
    const Bytes largest = frame({chunk(PSTAMP, Bytes(490))}), too_large = frame({chunk(PSTAMP, Bytes(491))});
    Bytes no_size = prefix, small = good;
    no_size[0] = 0;
    small[0] = 15;
    const struct {
        std::vector<Bytes> frames;
        std::vector<int> results;
    } cases[] = {
        {{prefix, prefix, good, prefix, good}, {0, 0, -1, -1}},  // the last lacks 16 bytes, as all do
        {{good, frame({}, 0x1234), good}, {0, -1, -1}},
        {{frame({}, 0x12FA), frame({}, 0xF134), frame({}, 0xFA12)}, {0, 0, -1}},
        {{no_size, good}, {-1}},
        {{small, good}, {-1}},  // which would come again for ever
        {{largest, too_large}, {0, -1}},
        {{Bytes(largest.begin(), largest.end() - 1)}, {0, -1}},
        {{}, {-1}}};
    Guarded screen(64000, 1);
    for (const auto &[frames, results] : cases) {
        write_file("a.flc", film(frames, 4, 4));
        ASSERT_EQ(static_cast<int>(frames.size()), FLIC_open_flic_file("a.flc", -2, screen));
        for (const int result : results) EXPECT_EQ(result, FLIC_read_flic_data());
        EXPECT_EQ(0, FLIC_play_flic_frame());
    }
    EXPECT_EQ(Bytes(64000, 1), screen.contents());  // a frame that was closed is not played
    // A file that cannot be opened leaves the one that plays alone.
    EXPECT_EQ("", take_log());
    write_file("a.flc", film({good}, 4, 4));
    ASSERT_EQ(1, FLIC_open_flic_file("a.flc", -2, screen));  // any number but 0 is small
    EXPECT_EQ(-1, FLIC_open_flic_file("art\\none.flc", 0, screen));
    EXPECT_EQ("File art\\none.flc open error\n", take_log());
    EXPECT_EQ(0, next_frame());
    EXPECT_EQ(Bytes(64000), screen.contents());
    EXPECT_TRUE(screen.intact());
    FLIC_close_flic_file();
    EXPECT_EQ(-1, FLIC_read_flic_data());
}

// Films whose frames do not compress take one frame for the palette and one for the picture.
TEST(Flic, FilmsOfNoiseArePlayed) {
    for (const auto &[width, height] : {std::pair(320, 200), {301, 200}}) {
        std::mt19937 random(1);
        std::vector<IndexedPicture> shown(3, {.width = width, .height = height});
        for (IndexedPicture &each : shown) {
            for (std::uint8_t &pixel : each.pixels) pixel = static_cast<std::uint8_t>(random());
            each.palette.fill(static_cast<std::uint8_t>(random() % 64));
        }
        shown[1].palette = shown[0].palette;
        write_file("a.flc", ink::tool::flic::film(shown, 70));
        Guarded screen(64000);
        ASSERT_EQ(5, FLIC_open_flic_file("a.flc", 1, screen));
        std::size_t next = 0;
        for (int i = 0; i < 5; ++i) {
            ASSERT_EQ(0, next_frame());
            bool equal = exported()[0] == shown[next].palette[0];
            for (int y = 0; y < height; ++y)
                equal = equal &&
                        std::equal(shown[next].row(y), shown[next].row(y) + width, screen.data() + 320 * y);
            next += equal;
        }
        EXPECT_EQ(3u, next);
        ASSERT_EQ(0, next_frame());  // behind the last stands the first again
        EXPECT_EQ(shown[0].palette[0], exported()[0]);
        EXPECT_EQ(-1, FLIC_read_flic_data());
    }
}

// A frame that is not all there shows what of it is there, and closing frees all that a film took.
TEST(Flic, BearsEveryRefusal) {
    constexpr std::size_t kPixels = 320 * 12;
    const Bytes first(kPixels, 8), second(kPixels, 9);
    write_file("a_film_of_a_long_name.flc",
               film({frame({chunk(FLI_COPY, first)}), frame({chunk(FLI_COPY, second)})}, 320, 12));
    Guarded screen(64000);
    std::int32_t opened = 0;
    int shown = 0;
    std::size_t kept = 0;
    const auto picture = [&] {
        const std::uint8_t *const end = screen.data() + kPixels;
        const std::uint8_t *const rest = std::find_if(screen.data(), screen.data() + kPixels,
                                                      [&](int pixel) { return pixel != 7 + shown; });
        const bool is_before = std::all_of(rest, end, [&](int pixel) { return pixel == 6 + shown; });
        return !is_before ? " wrong" : rest == end ? " whole" : " begun";
    };
    inject({.group = "FLIC_open_flic_file, FLIC_read_flic_data, FLIC_play_flic_frame, FLIC_close_flic_file, "
                     "FLIC_export_palette, FLIC_inport_palette",
            .use =
                [&] {
                    const std::size_t before = living_allocations();
                    opened = FLIC_open_flic_file("a_film_of_a_long_name.flc", 1, screen);
                    for (shown = 0; shown < 3 && next_frame() == 0;) ++shown;
                    FLIC_close_flic_file();
                    kept = living_allocations() - before;
                },
            .outcome =
                [&] {
                    return std::to_string(opened) + ' ' + std::to_string(shown) + picture() +
                           (kept != 0 ? " and keeps memory" : "");
                },
            .right = "2 2 whole",
            .memory = {"-1 0 whole| File a_film_of_a_long_name.flc open error", "2 0 whole"},
            .files = {"-1 0 whole| File a_film_of_a_long_name.flc open error", "0 0 whole", "2 1 begun",
                      "2 1 whole"},
            .prepare = [&] { std::fill_n(screen.data(), screen.size(), 7); }});
    EXPECT_EQ(-1, FLIC_open_flic_file(nullptr, 1, screen));
    EXPECT_EQ("File  open error\n", take_log());
}

// What the tool makes of pictures is what the library reads.
TEST(Ink, BuildsFilmsAndAnimations) {
#if defined(_WIN32)
    GTEST_SKIP() << "this ink knows no animated files";
#endif
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
    EXPECT_EQ(0, std::system((ink + " can extract -o a.gif a.can >log").c_str()));
    EXPECT_EQ(0, std::system((ink + " view --png b.png a.flc --frame 3 >log").c_str()));
    EXPECT_TRUE(exists("a.gif") && exists("b.png"));
    EXPECT_NE(0, std::system((ink + " flic build b.flc log 2>log").c_str()));
    EXPECT_FALSE(exists("b.flc"));
    EXPECT_EQ("", take_log());
}

}  // namespace
