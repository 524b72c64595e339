#include "can/reader.h"

#include <memory>
#include <stdexcept>

#include "core/reader.h"
#include "files/workshop.h"
#include "info/report.h"
#include "inkstone/can.h"

namespace ink::tool {
namespace {

struct FreeAnimation {
    void operator()(ANI_DATA_STRUCT *head) const { ANI_free_ani(head); }
};

}  // namespace

Animation read_can(const Bytes &file) {
    const auto report = describe_can(file);
    if (!report) throw std::runtime_error("is no CAN animation");
    if (!report->faults.empty()) throw std::runtime_error("is damaged: " + report->faults.front());
    const Workshop workshop;
    workshop.put("input", file);
    Bytes work(file.size());
    ANI_DATA_STRUCT *head = nullptr;
    const int count = CAN_read_file("input", &head, work.data());
    const std::unique_ptr<ANI_DATA_STRUCT, FreeAnimation> list(head);
    if (count < 1) throw std::runtime_error("cannot be read: " + workshop.log());
    Animation animation;
    Reader header(file);
    header.seek(16);
    animation.anchor_x = header.i16();
    animation.anchor_y = header.i16();
    for (const ANI_DATA_STRUCT *frame = head->next; frame != nullptr; frame = frame->next) {
        const std::size_t size = 4 + std::size_t{get_u16(frame->image)} * get_u16(frame->image + 2);
        Frame made{picture_of_block({frame->image, size})};
        if (made.picture.pixels.empty()) throw std::runtime_error("has a frame without a pixel");
        made.picture.x = frame->x - animation.anchor_x;
        made.picture.y = frame->y - animation.anchor_y;
        animation.frames.push_back(std::move(made));
    }
    return animation;
}

}  // namespace ink::tool
