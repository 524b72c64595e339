// What a film holds, for ink info.
#include "core/reader.h"
#include "info/report.h"

namespace ink::tool {
namespace {

constexpr std::size_t kHeader = 128, kFrameHeader = 16, kChunkHeader = 6;
constexpr std::uint16_t kFli = 0xAF11, kFlc = 0xAF12, kFrame = 0xF1FA, kPrefix = 0xF100;

std::string chunk_name(std::uint16_t type) {
    constexpr std::pair<std::uint16_t, const char *> kNames[] = {
        {4, "COLOR_256"}, {7, "DELTA_FLC"}, {11, "COLOR_64"}, {12, "DELTA_FLI"},
        {13, "BLACK"},    {15, "BYTE_RUN"}, {16, "FLI_COPY"}, {18, "PSTAMP"}};
    for (const auto &[number, name] : kNames)
        if (number == type) return name;
    return std::to_string(type);
}

std::string chunks_of(Report &report, Reader chunks, std::size_t offset, int count) {
    std::string names;
    for (int i = 0; i < count; ++i) {
        const std::size_t at = offset + chunks.position();
        const std::uint32_t size = chunks.u32();
        const std::uint16_t type = chunks.u16();
        if (!chunks.ok() || size < kChunkHeader || size - kChunkHeader > chunks.left()) {
            report.fault(at, "a chunk ends behind its frame");
            break;
        }
        names += (names.empty() ? "" : " ") + chunk_name(type);
        chunks.skip(size - kChunkHeader);
    }
    return names;
}

}  // namespace

std::optional<Report> describe_flic(const Bytes &file) {
    Reader reader(file);
    const std::uint32_t stated = reader.u32();
    const std::uint16_t mark = reader.u16();
    if (file.size() < kHeader || (mark != kFli && mark != kFlc)) return std::nullopt;
    const int frames = reader.i16(), width = reader.i16(), height = reader.i16(), depth = reader.i16();
    reader.skip(2);
    const std::uint32_t speed = reader.u32();
    Report report(mark == kFli ? "FLI film" : "FLC film");
    report.add("size", size_text(width, height));
    report.add("depth", depth);
    report.add("frames", frames);
    // The older kind counts seventieths of a second.
    report.add("milliseconds", mark == kFli ? speed * 1000 / 70 : speed);
    if (stated != file.size())
        report.fault(
            0, "the file has " + std::to_string(file.size()) + " bytes and states " + std::to_string(stated));
    if (frames < 1 || width < 1 || height < 1) report.fault(6, "it has no frames or no size");
    report.items = "frame list";
    report.columns = {"frame", "offset", "bytes", "chunks"};
    const std::int64_t most = std::int64_t{width} * height * depth / 8 + 512;
    std::int64_t number_of_frame = 0;
    for (std::size_t at = kHeader; file.size() - at >= kFrameHeader;) {
        reader.seek(at);
        const std::uint32_t size = reader.u32();
        const std::uint16_t type = reader.u16();
        const int chunks = reader.i16();
        if (size < kFrameHeader || size > file.size() - at) {
            report.fault(at, "a frame ends behind the file");
            break;
        }
        if (type == kFrame) {
            if (std::int64_t{size} + static_cast<std::int64_t>(kFrameHeader) > most)
                report.fault(at, "this frame is larger than is read: " + std::to_string(size) +
                                     " bytes of at most " +
                                     std::to_string(most - static_cast<std::int64_t>(kFrameHeader)));
            const auto contents = std::span(file).subspan(at + kFrameHeader, size - kFrameHeader);
            report.rows.push_back({number(number_of_frame++), number(static_cast<std::int64_t>(at)),
                                   number(size),
                                   chunks_of(report, Reader(contents), at + kFrameHeader, chunks)});
        } else if (type != kPrefix) {
            report.fault(at, "this is no frame");
        }
        at += size;
    }
    if (number_of_frame < frames)
        report.fault(6, "only " + std::to_string(number_of_frame) + " frames are there");
    return report;
}

}  // namespace ink::tool
