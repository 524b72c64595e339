// What an animation holds, for ink info.
#include "core/reader.h"
#include "info/report.h"
#include "picture/picture_file.h"

namespace ink::tool {
namespace {

constexpr std::size_t kRecord = 8, kBlockHeader = 16;
constexpr std::int32_t kMostFrames = 1 << 20;

// Animations have no mark of their own; their frames have one.
bool has_frame(const Bytes &file, std::size_t offset) {
    return offset <= file.size() && file.size() - offset >= kRecord + kBlockHeader &&
           recognise_picture(std::span(file).subspan(offset + kRecord)) == PictureKind::compressed_image;
}

}  // namespace

std::optional<Report> describe_can(const Bytes &file) {
    Reader reader(file);
    reader.seek(12);
    const std::int32_t count = reader.i32();
    const int anchor_x = reader.i16(), anchor_y = reader.i16();
    if (!reader.ok() || count < 1 || count > kMostFrames ||
        reader.left() < 4 * static_cast<std::size_t>(count))
        return std::nullopt;
    std::vector<std::uint32_t> offsets;
    bool known = false;
    for (std::int32_t i = 0; i < count; ++i) {
        offsets.push_back(reader.u32());
        known = known || has_frame(file, offsets.back());
    }
    if (!known) return std::nullopt;

    Report report("CAN animation");
    report.add("frames", count);
    report.add("anchor", place_text(anchor_x, anchor_y));
    report.items = "frame list";
    report.columns = {"frame", "offset", "place", "size", "bytes"};
    for (std::size_t i = 0; i < offsets.size(); ++i) {
        Reader frame(file);
        frame.seek(offsets[i]);
        const int x = frame.i16(), y = frame.i16();
        const std::uint32_t size = frame.u32();
        const auto block = frame.take(size);
        const std::string name = "frame " + std::to_string(i);
        int width = 0, height = 0;
        if (!frame.ok()) report.fault(offsets[i], name + " ends behind the file");
        if (recognise_picture(block) != PictureKind::compressed_image) {
            report.fault(offsets[i] + kRecord, name + " is no compressed image");
        } else {
            width = get_u16(&block[8]);
            height = get_u16(&block[10]);
            if (get_u32(&block[12]) != size - kBlockHeader)
                report.fault(offsets[i] + kRecord + 12, name + " states another length than its record");
            check_code(report, offsets[i] + kRecord + kBlockHeader, block.subspan(kBlockHeader),
                       std::int64_t{width} * height);
        }
        report.rows.push_back({number(static_cast<std::int64_t>(i)), number(offsets[i]),
                               place_text(x + anchor_x, y + anchor_y), size_text(width, height),
                               number(size)});
    }
    return report;
}

}  // namespace ink::tool
