#include "inkstone/can.h"

#include <gtest/gtest.h>

#include "inkstone/draw.h"
#include "support/blocks.h"
#include "support/guarded.h"
#include "support/injection.h"

using namespace test;

namespace {

struct Frame {
    int x, y;
    Bytes block;
};

// A file with anchor (-10, 5), its frame offsets and then its frames, which may all be one.
Bytes can_file(const std::vector<Frame> &frames, std::size_t repeated = 1) {
    Bytes file(12, 0x55), records;
    const std::size_t count = frames.size() * repeated;
    put(file, count, 4);
    put(file, -10, 2);
    put(file, 5, 2);
    for (const Frame &frame : frames) {
        for (std::size_t i = 0; i < repeated; ++i) put(file, 20 + 4 * count + records.size(), 4);
        put(records, frame.x, 2);
        put(records, frame.y, 2);
        put(records, frame.block.size(), 4);
        put(records, frame.block);
    }
    put(file, records);
    return file;
}

// The last stands beyond 64 KiB, and its code is longer than that.
const Bytes kNoise(70000, 7);
const std::vector<Frame> kFrames = {{-3, 7, compressed_block(3, 2, {0xC3, 9, 1, 2, 3})},
                                    {32767, -32768, compressed_block(2, 1, {}, 1)},
                                    {0, 0, compressed_block(700, 100, kNoise)},
                                    {0, 1, compressed_block(1, 2, {0xC1, 0xFE, 4})}};
const Bytes kImages[] = {
    {3, 0, 2, 0, 9, 9, 9, 1, 2, 3}, {2, 0, 1, 0, 0, 0}, image_block(700, 100, kNoise), {1, 0, 2, 0, 0xFE, 4}};
const std::pair<int, int> kPositions[] = {{-13, 12}, {32757, -32763}, {-10, 5}, {-10, 6}};

TEST(Can, ReadsAnAnimationAndItsFramesAlone) {
    std::filesystem::create_directory("art");
    write_file("art/hand.can", can_file(kFrames));
    ANI_DATA_STRUCT *head = nullptr;
    ASSERT_EQ(4, CAN_read_file("ART\\HAND.CAN", &head, nullptr));
    EXPECT_TRUE(head->x == 0 && head->y == 0 && head->image == nullptr && head->prev == nullptr);
    const ANI_DATA_STRUCT *record = head;
    for (int i = 0; i < 4; ++i) {
        ASSERT_EQ(record, record->next->prev);
        record = record->next;
        EXPECT_EQ(kImages[i], Bytes(record->image, record->image + kImages[i].size()));
        EXPECT_EQ(kPositions[i], std::pair(record->x, record->y));
        Guarded image(kImages[i].size());
        std::pair<std::int32_t, std::int32_t> position;
        EXPECT_EQ(4, CAN_read_frame("Art/hand.can", i, &position.first, &position.second, image, nullptr));
        EXPECT_EQ(kImages[i], image.contents());
        EXPECT_EQ(kPositions[i], position);
    }
    EXPECT_EQ(nullptr, record->next);
    ANI_free_ani(head);
    ANI_free_ani(nullptr);
    std::int32_t x = 0, y = 0;
    for (const int index : {-1, 4})
        EXPECT_EQ(-1, CAN_read_frame("art/hand.can", index, &x, &y, nullptr, nullptr));
    EXPECT_EQ(-1, CAN_read_frame("art/hand.can", 0, &x, nullptr, nullptr, nullptr));
    EXPECT_EQ(-1, CAN_read_file("art/hand.can", nullptr, nullptr));
    EXPECT_EQ("", take_log());
}

TEST(Can, BrokenFramesAreBlankAndHostileFilesRefused) {
    const std::string bad_image = "Compress image format error\n",
                      no_memory = "Memory alloc error:CAN_read_file\n";
    std::vector<Frame> renamed = kFrames, cut = kFrames, huge = kFrames, empty = kFrames;
    renamed[1].block = compressed_block(2, 1, {5, 6}, 0, "Cimx");
    cut[1].block = compressed_block(2, 1, {5});
    empty[1].block.clear();
    huge[1].block = compressed_block(65535, 65535, {0xFF, 1});
    Bytes past_end = can_file(kFrames), many = past_end, none = past_end;
    past_end[27] = 0x7F;  // frame 1's offset
    many[14] = 1;         // 65540 frames
    none[15] = 0x80;      // fewer than 0
    const struct {
        Bytes file;
        int result;
        std::string log;
        Bytes second;  // the image of frame 1
    } cases[] = {{can_file(renamed), 4, bad_image, {2, 0, 1, 0, 0, 0}},
                 {can_file(cut), 4, "", {2, 0, 1, 0, 5, 0}},
                 {can_file(empty), 4, bad_image, {0, 0, 0, 0}},
                 {past_end, 4, bad_image, {0, 0, 0, 0}},
                 // Whole screens that share one record are sound, and so are those that have no code.
                 {can_file({{0, 0, compressed_block(640, 480, Bytes(300000, 7))}}, 110), 110, "", {128, 2}},
                 {can_file({{0, 0, compressed_block(640, 480, {}, 1)}}, 300), 300, "", {128, 2}},
                 {can_file(huge), -1, no_memory, {}},
                 {can_file({{0, 0, compressed_block(300, 300, {0xFF, 1})}}, 50000), -1, no_memory, {}},
                 {many, -1, "ERROR : memory alloc error:CAN_read_file\n", {}},
                 {none, -2147483644, "", {}},
                 {{1, 2, 3}, 0, "", {}}};
    for (const auto &[file, result, log, second] : cases) {
        write_file("a.can", file);
        ANI_DATA_STRUCT garbage, *head = &garbage;
        EXPECT_EQ(result, CAN_read_file("a.can", &head, nullptr));
        EXPECT_EQ(log, take_log());
        ASSERT_EQ(result == -1, head == nullptr);
        ASSERT_EQ(result > 0, head != nullptr && head->next != nullptr);
        const std::uint8_t *image = result > 0 ? head->next->next->image : nullptr;
        EXPECT_EQ(second, Bytes(image, image + second.size()));
        ANI_free_ani(head);
    }
    ANI_DATA_STRUCT *head = nullptr;
    EXPECT_EQ(-1, CAN_read_file("art\\none.can", &head, nullptr));
    EXPECT_EQ("CAN file art\\none.can open error:CAN_read_file\n", take_log());

    // A frame alone.
    Guarded image(4, 0xEE);
    std::int32_t x = 0, y = 0;
    const auto read_frame = [&](const char *name) { return CAN_read_frame(name, 1, &x, &y, image, nullptr); };
    EXPECT_EQ(-1, read_frame("art\\none.can"));
    write_file("many.can", many);
    EXPECT_EQ(-1, read_frame("many.can"));
    EXPECT_EQ(Bytes(4, 0xEE), image.contents());
    write_file("a.can", can_file(renamed));
    EXPECT_EQ(4, read_frame("a.can"));
    EXPECT_EQ(Bytes(4, 0xEE), image.contents());
    EXPECT_EQ(std::pair(x, y), kPositions[1]);
    EXPECT_EQ(
        "CAN file art\\none.can open error:CAN_read_frame\nERROR : memory alloc error(CAN_read_frame)\n" +
            bad_image,
        take_log());
}

TEST(Can, BearsEveryRefusal) {
    write_file("a.can", can_file(kFrames));
    ANI_DATA_STRUCT *head = nullptr;
    std::int32_t result = 0, x = 0, y = 0;
    // How many of the images are as they should be.
    const auto good_images = [&head] {
        int good = 0, i = 0;
        for (const ANI_DATA_STRUCT *at = head != nullptr ? head->next : nullptr; at != nullptr;
             at = at->next, ++i) {
            // What came of a frame that could not be read may be a smaller image.
            std::int32_t w = 0, h = 0;
            IMG_get_image_size(at->image, &w, &h);
            good += static_cast<std::size_t>(w * h + 4) == kImages[i].size() &&
                    std::equal(kImages[i].begin(), kImages[i].end(), at->image);
        }
        ANI_free_ani(head);
        return std::to_string(good);
    };
    inject({.group = "CAN_read_file, ANI_free_ani",
            .use = [&] { result = CAN_read_file("a.can", &head, nullptr); },
            .outcome = [&] { return std::to_string(result) + ' ' + good_images(); },
            .right = "4 4",
            .memory = {"-1 0| ERROR : memory alloc error:CAN_read_file",
                       "-1 0| Memory alloc error:CAN_read_file"},
            .files = {"-1 0| CAN file a.can open error:CAN_read_file",
                      "-1 0| ERROR : memory alloc error:CAN_read_file", "0 0",
                      "4 2| Compress image format error", "4 3"}});
    Guarded image(kImages[2].size());
    inject({.group = "CAN_read_frame",
            .use = [&] { result = CAN_read_frame("a.can", 2, &x, &y, image, nullptr); },
            .outcome =
                [&] {
                    const Bytes got = image.contents();
                    return std::to_string(result) + (got == kImages[2]                ? " whole"
                                                     : got == Bytes(got.size(), 0xEE) ? " untouched"
                                                                                      : " begun");
                },
            .right = "4 whole",
            .memory = {"-1 untouched| ERROR : memory alloc error(CAN_read_frame)"},
            .files = {"-1 untouched", "-1 untouched| CAN file a.can open error:CAN_read_frame",
                      "-1 untouched| ERROR : memory alloc error(CAN_read_frame)", "4 begun",
                      "4 untouched| Compress image format error"},
            .prepare = [&] { std::fill_n(image.data(), kImages[2].size(), 0xEE); }});
}

}  // namespace
