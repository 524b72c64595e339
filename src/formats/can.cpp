#include "inkstone/can.h"

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <optional>
#include <vector>

#include "core/log.h"
#include "core/reader.h"
#include "formats/compressed_image.h"
#include "host/input_file.h"

namespace ink::formats {
namespace {

struct CanFrame {
    std::int32_t x = 0, y = 0;
    // What the file has of it; at least a header, of zeros where it has none.
    std::vector<std::uint8_t> block;

    std::size_t code_present() const { return block.size() - kCompressedHeader; }
};

// A CAN file open for reading. The block of a frame is read into memory of its own and not into the caller's
// work buffer: how large that is nobody says, and how much would be written there is for the file to say.
class CanFile {
  public:
    explicit CanFile(const char *name) : file_(name) {
        std::array<std::uint8_t, kHeaderSize> header{};
        file_.read(0, header);
        Reader reader(header);
        reader.seek(kFrameCount);
        frame_count_ = reader.i32();
        anchor_x_ = reader.i16();
        anchor_y_ = reader.i16();
    }

    bool is_open() const { return file_.is_open(); }
    std::uint64_t size() const { return file_.size(); }
    std::int32_t frame_count() const { return frame_count_; }

    // False when there is no memory for the frame offsets, which those that the file cannot hold never get.
    bool read_offsets() try {
        if (frame_count_ <= 0) return true;
        const std::uint64_t length = 4 * static_cast<std::uint64_t>(frame_count_);
        if (file_.present(kOffsets, length) < length) return false;
        offsets_.resize(static_cast<std::size_t>(length));
        return file_.read(kOffsets, offsets_) == length;
    } catch (const std::bad_alloc &) {
        return false;
    }

    // Reads a frame, which must be one of those whose offsets were read; nothing when there is no memory.
    // What the file has not reads as zeros.
    std::optional<CanFrame> read_frame(std::int32_t index) try {
        const std::uint64_t offset = get_u32(offsets_.data() + 4 * static_cast<std::size_t>(index));
        std::array<std::uint8_t, kRecordSize> record{};
        file_.read(offset, record);
        Reader reader(record);
        CanFrame frame;
        frame.x = reader.i16() + anchor_x_;
        frame.y = reader.i16() + anchor_y_;

        const auto length = static_cast<std::size_t>(file_.present(offset + kRecordSize, reader.u32()));
        frame.block.resize(std::max(length, kCompressedHeader));
        file_.read(offset + kRecordSize, std::span(frame.block).first(length));
        return frame;
    } catch (const std::bad_alloc &) {
        return std::nullopt;
    }

  private:
    static constexpr std::size_t kHeaderSize = 24, kFrameCount = 12, kOffsets = 20, kRecordSize = 8;

    host::InputFile file_;
    std::int32_t frame_count_ = 0;
    std::int32_t anchor_x_ = 0, anchor_y_ = 0;
    std::vector<std::uint8_t> offsets_;
};

struct FreeAnimation {
    void operator()(ANI_DATA_STRUCT *head) const { ANI_free_ani(head); }
};
using Animation = std::unique_ptr<ANI_DATA_STRUCT, FreeAnimation>;

ANI_DATA_STRUCT *new_record() {
    return new (std::nothrow) ANI_DATA_STRUCT{};
}

// How much memory the animation of one file may take. Frames with blocks of their own expand to at most 32
// times their code; frames that share one, or have a size and no code, take what they like of a file of any
// length, so there is room for hundreds of whole screens of them. A few bytes that state thousands of huge
// images are refused.
class Allowance {
  public:
    explicit Allowance(std::uint64_t file_size) : left_(std::max(kLeast, 64 * file_size)) {}

    bool take(std::uint64_t bytes) {
        if (bytes > left_) return false;
        left_ -= bytes;
        return true;
    }

  private:
    static constexpr std::uint64_t kLeast = std::uint64_t{256} << 20;
    std::uint64_t left_;
};

// The record of the frame, with its image expanded; null when there is no memory for it.
Animation expand_frame(const CanFrame &frame, Allowance &allowance) {
    const std::size_t size = expanded_size(frame.block.data());
    if (!allowance.take(sizeof(ANI_DATA_STRUCT) + size)) return nullptr;
    Animation record(new_record());
    if (!record) return nullptr;
    record->x = frame.x;
    record->y = frame.y;
    // Cleared, so that pixels the block has no code for are blank and not what the memory held before.
    record->image = new (std::nothrow) std::uint8_t[size]{};
    if (record->image == nullptr) return nullptr;
    if (!expand_image(frame.block.data(), frame.code_present(), record->image))
        copy_image_size(frame.block.data(), record->image);
    return record;
}

// Appends all frames of the file to the list; false when there is no memory.
bool append_frames(CanFile &file, ANI_DATA_STRUCT *last) {
    Allowance allowance(file.size());
    for (std::int32_t i = 0; i < file.frame_count(); ++i) {
        const std::optional<CanFrame> frame = file.read_frame(i);
        Animation record = frame ? expand_frame(*frame, allowance) : nullptr;
        if (!record) return false;
        record->prev = last;
        last->next = record.release();
        last = last->next;
    }
    return true;
}

}  // namespace
}  // namespace ink::formats

using namespace ink;
using namespace ink::formats;

int32_t CAN_read_file(const char *file_name, ANI_DATA_STRUCT **head, uint8_t *) {
    if (head == nullptr) return -1;
    *head = nullptr;
    Animation animation(new_record());
    CanFile file(file_name);
    if (!animation) {
        log_error("Memory alloc error:CAN_read_file");
    } else if (!file.is_open()) {
        log_error_format("CAN file %s open error:CAN_read_file", text_of(file_name));
    } else if (!file.read_offsets()) {
        log_error("ERROR : memory alloc error:CAN_read_file");
    } else if (!append_frames(file, animation.get())) {
        log_error("Memory alloc error:CAN_read_file");
    } else {
        *head = animation.release();
        return file.frame_count();
    }
    return -1;
}

int32_t CAN_read_frame(const char *file_name, int32_t index, int32_t *x, int32_t *y, uint8_t *image,
                       uint8_t *) {
    if (x == nullptr || y == nullptr) return -1;
    CanFile file(file_name);
    if (!file.is_open()) {
        log_error_format("CAN file %s open error:CAN_read_frame", text_of(file_name));
        return -1;
    }
    if (index < 0 || index >= file.frame_count()) return -1;
    const std::optional<CanFrame> frame = file.read_offsets() ? file.read_frame(index) : std::nullopt;
    if (!frame) {
        log_error("ERROR : memory alloc error(CAN_read_frame)");
        return -1;
    }
    expand_image(frame->block.data(), frame->code_present(), image);
    *x = frame->x;
    *y = frame->y;
    return file.frame_count();
}

void ANI_free_ani(ANI_DATA_STRUCT *head) {
    while (head != nullptr) {
        ANI_DATA_STRUCT *const next = head->next;
        delete[] head->image;
        delete head;
        head = next;
    }
}
