// What a record of a program holds, for ink info.
#include <array>

#include "host/replay/record_reader.h"
#include "info/report.h"

namespace ink::tool {

std::optional<Report> describe_record(const Bytes &file) {
    using namespace host;
    if (!as_text(file).starts_with("INKREC\x1A")) return std::nullopt;
    Report report("record of a program");
    std::string reason;
    const auto reader = RecordReader::open(file, reason);
    if (reader == nullptr) {
        report.faults.push_back(reason);
        return report;
    }
    const RecordHeader &header = reader->header();
    report.add("version", file[7]);
    report.add("machine", header.host);
    report.add("clock", std::string(header.simulated ? "simulated" : "real"));
    report.add("marks a second", header.marks_per_second);
    if (!header.disc.empty()) report.add("disc", header.disc);
    std::array<std::int64_t, kKinds> counts{};
    std::int64_t idle = 0, pictures = 0, frames = 0;
    bool ended = false;
    for (Answer answer; reader->next(answer);) {
        ++counts[static_cast<std::size_t>(answer.kind)];
        idle += static_cast<std::int64_t>(answer.idle);
        ended = answer.kind == Kind::end;
        if (answer.kind != Kind::mark) continue;
        frames += static_cast<std::int64_t>(reader->sound().size() / 2);
        if (!reader->has_new_picture()) continue;
        ++pictures;
        const Picture *picture = reader->picture();
        if (check_value_of(*picture) != static_cast<std::uint32_t>(answer.values[1]))
            report.fault(reader->block_end(), "the picture before is not the one that was seen");
    }
    report.add("seconds", static_cast<double>(reader->time()) / 1e6);
    report.add("ends", std::string(ended ? "with the program" : "before the program did"));
    report.add("pictures", pictures);
    if (header.sound) report.add("frames of sound", frames);
    report.add("times the queue had nothing", idle);
    report.items = "answers";
    report.columns = {"kind", "count"};
    for (std::uint32_t i = 0; i < kKinds; ++i)
        if (counts[i] != 0) report.rows.push_back({facts_of(static_cast<Kind>(i)).name, number(counts[i])});
    if (reader->damaged())
        report.fault(reader->block_end(), "what the block before says is nothing that is written");
    return report;
}

}  // namespace ink::tool
