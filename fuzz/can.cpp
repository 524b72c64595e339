// Reads any file with both CAN readers, which must agree; each frame alone is read into an image of exactly
// its size.
#include "inkstone/can.h"

#include <algorithm>
#include <vector>

#include "scratch.h"
#include "support/allocation.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const char *name = fuzz::as_file(data, size);
    ANI_DATA_STRUCT *head = nullptr;
    std::uint8_t none[4096] = {};  // enough for what so short a file could hold
    std::int32_t left = 0, top = 0;
    if (CAN_read_file("nothing", &head, nullptr) >= 0 || head != nullptr ||
        CAN_read_frame("nothing", 0, &left, &top, none, nullptr) >= 0)
        std::abort();
    // Whichever allocation fails, no half of a list is left, and no frame.
    for (std::size_t failing = 0; failing < 4 && size < 1024; ++failing) {
        test::FailingAllocation refusal(failing);
        const std::int32_t read = CAN_read_file(name, &head, nullptr);
        if (refusal.disarm() && read > 0) std::abort();
        ANI_free_ani(head);
        head = nullptr;
    }
    for (std::size_t failing = 0; failing < 2; ++failing) {
        test::FailingAllocation refusal(failing);
        if (size < 64) CAN_read_frame(name, 0, &left, &top, none, nullptr);
    }
    const std::int32_t count = CAN_read_file(name, &head, nullptr);
    if (head == nullptr) return 0;
    std::int32_t index = 0;
    for (const ANI_DATA_STRUCT *record = head; record->next != nullptr; ++index) {
        if (record->next->prev != record) std::abort();
        record = record->next;
        if (index > 20) continue;
        const std::size_t pixels = (record->image[0] + 256u * record->image[1]) *
                                   std::size_t{record->image[2] + 256u * record->image[3]};
        std::vector<std::uint8_t> image(4 + pixels);
        std::int32_t x = 0, y = 0;
        if (CAN_read_frame(name, index, &x, &y, image.data(), nullptr) != count) std::abort();
        if (x != record->x || y != record->y) std::abort();
        const bool broken = image[0] + image[1] + image[2] + image[3] == 0;
        if (!broken && !std::equal(image.begin(), image.end(), record->image)) std::abort();
    }
    if (index != std::max(count, 0)) std::abort();
    ANI_free_ani(head);
    return 0;
}
