#include "inkstone/can.h"

#include <gtest/gtest.h>

#include "support/files.h"
#include "support/guarded.h"

using test::Bytes;
using test::Guarded;
using test::put;

namespace {

struct Frame {
    int x, y;
    Bytes block;
};

Bytes block(int width, int height, const Bytes &code, int type = 0, const char *magic = "Cimg") {
    Bytes bytes(magic, magic + 4);
    put(bytes, type, 4);
    put(bytes, width, 2);
    put(bytes, height, 2);
    put(bytes, code.size(), 4);
    put(bytes, code);
    return bytes;
}

// A file with anchor (10, -5); the first frame's record starts behind the frame offsets.
Bytes can_file(const std::vector<Frame> &frames) {
    Bytes file(12, 0x55), records;
    put(file, frames.size(), 4);
    put(file, 10, 2);
    put(file, -5, 2);
    for (const Frame &frame : frames) {
        put(file, 20 + 4 * frames.size() + records.size(), 4);
        put(records, frame.x, 2);
        put(records, frame.y, 2);
        put(records, frame.block.size(), 4);
        put(records, frame.block);
    }
    put(file, records);
    return file;
}

const std::vector<Frame> kFrames = {
    {-3, 7, block(3, 2, {0xC3, 9, 1, 2, 3})},
    {32767, -32768, block(2, 1, {}, 1)},
    {0, 0, block(1, 2, {0xC1, 0xFE, 4})},
};
const Bytes kImages[] = {{3, 0, 2, 0, 9, 9, 9, 1, 2, 3}, {2, 0, 1, 0, 0, 0}, {1, 0, 2, 0, 0xFE, 4}};
const int kPositions[][2] = {{7, 2}, {32777, -32773}, {10, -5}};

TEST(Can, ReadsAnAnimationAndItsFramesAlone) {
    std::filesystem::create_directory("art");
    test::write_file("art/hand.can", can_file(kFrames));
    ANI_DATA_STRUCT *head = nullptr;
    ASSERT_EQ(3, CAN_read_file("ART\\HAND.CAN", &head, nullptr));
    EXPECT_TRUE(head->x == 0 && head->y == 0 && head->image == nullptr && head->prev == nullptr);
    const ANI_DATA_STRUCT *record = head;
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(record, record->next->prev);
        record = record->next;
        EXPECT_EQ(kImages[i], Bytes(record->image, record->image + kImages[i].size()));
        EXPECT_TRUE(record->x == kPositions[i][0] && record->y == kPositions[i][1]);

        Guarded image(kImages[i].size());
        std::int32_t x = 0, y = 0;
        EXPECT_EQ(3, CAN_read_frame("Art/hand.can", i, &x, &y, image, nullptr));
        EXPECT_EQ(kImages[i], image.contents());
        EXPECT_TRUE(image.intact() && x == kPositions[i][0] && y == kPositions[i][1]);
    }
    EXPECT_EQ(nullptr, record->next);
    ANI_free_ani(head);
    ANI_free_ani(nullptr);
    for (const int index : {-1, 3})
        EXPECT_EQ(-1, CAN_read_frame("art/hand.can", index, nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ("", test::take_log());
}

TEST(Can, BrokenFramesAreBlankAndHostileFilesRefused) {
    const std::string bad_image = "Compress image format error\n",
                      no_table = "ERROR : memory alloc error:CAN_read_file\n",
                      no_memory = "Memory alloc error:CAN_read_file\n";
    std::vector<Frame> not_compressed = kFrames, cut = kFrames, huge = kFrames;
    not_compressed[1].block = block(2, 1, {5, 6}, 0, "Cimx");
    cut[1].block = block(2, 1, {5});
    huge[1].block = block(65535, 65535, {0xFF, 1});
    Bytes past_end = can_file(kFrames), long_block = past_end, many = past_end, none = past_end;
    past_end[25] = 0x7F;    // frame 1's offset
    long_block[20] = 80;    // frame 0's offset: its block runs past the end,
    long_block[87] = 0x7F;  // by what its size says
    many[14] = 1;           // 65539 frames
    none[15] = 0x80;        // fewer than 0
    Bytes shared(12);
    put(shared, 50000, 4);
    put(shared, 0, 4);
    for (int i = 0; i < 50000; ++i) put(shared, 20 + 4 * 50000, 4);
    const Bytes one = can_file({{0, 0, block(300, 300, {0xFF, 1})}});
    put(shared, Bytes(one.begin() + 24, one.end()));
    const struct {
        Bytes file;
        int result;
        std::string log;
        Bytes second;  // image of frame 1
    } cases[] = {
        {can_file(not_compressed), 3, bad_image, {2, 0, 1, 0, 0, 0}},
        {can_file(cut), 3, "", {2, 0, 1, 0, 5, 0}},
        {past_end, 3, bad_image, {0, 0, 0, 0}},
        {can_file(huge), -1, no_memory, {}},
        {many, -1, no_table, {}},
        {shared, -1, no_memory, {}},
        {can_file({}), 0, "", {}},
        {none, -2147483645, "", {}},
        {{1, 2, 3}, 0, "", {}},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(&each - cases);
        test::write_file("a.can", each.file);
        ANI_DATA_STRUCT garbage, *head = &garbage;
        EXPECT_EQ(each.result, CAN_read_file("a.can", &head, nullptr));
        EXPECT_EQ(each.log, test::take_log());
        EXPECT_EQ(each.result == -1, head == nullptr);
        if (!each.second.empty()) {
            const std::uint8_t *image = head->next->next->image;
            EXPECT_EQ(each.second, Bytes(image, image + each.second.size()));
        } else if (head != nullptr) {
            EXPECT_EQ(nullptr, head->next);
        }
        ANI_free_ani(head);
    }
    ANI_DATA_STRUCT *head = nullptr;
    EXPECT_EQ(-1, CAN_read_file("art\\none.can", &head, nullptr));
    EXPECT_EQ("CAN file art\\none.can open error:CAN_read_file\n", test::take_log());
    Guarded image(4, 0xEE);
    std::int32_t x = 0, y = 0;
    EXPECT_EQ(-1, CAN_read_frame("art\\none.can", 0, &x, &y, image, nullptr));
    EXPECT_EQ("CAN file art\\none.can open error:CAN_read_frame\n", test::take_log());
    test::write_file("a.can", many);
    EXPECT_EQ(-1, CAN_read_frame("a.can", 0, &x, &y, image, nullptr));
    EXPECT_EQ("ERROR : memory alloc error(CAN_read_frame)\n", test::take_log());
    EXPECT_EQ(Bytes(4, 0xEE), image.contents());
    test::write_file("a.can", can_file(not_compressed));
    EXPECT_EQ(3, CAN_read_frame("a.can", 1, &x, &y, image, nullptr));
    EXPECT_EQ(bad_image, test::take_log());
    EXPECT_EQ(Bytes(4), image.contents());
}

}  // namespace
