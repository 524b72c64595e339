// What sounds and discs are, for ink info.
#include <algorithm>
#include <sstream>

#include "core/reader.h"
#include "files/source.h"
#include "info/report.h"
#include "inkstone/host.h"

namespace ink::tool {

std::optional<Report> describe_wave(const Bytes &file) {
    const std::string_view text = as_text(file);
    if (file.size() < 12 || !text.starts_with("RIFF") || text.substr(8, 4) != "WAVE") return std::nullopt;
    Report report("wave sound");
    Reader reader(file);
    reader.seek(4);
    if (const std::uint32_t stated = reader.u32(); stated != file.size() - 8)
        report.fault(4, "the file has " + std::to_string(file.size() - 8) + " more bytes and states " +
                            std::to_string(stated));
    reader.seek(12);
    double bytes_per_second = 0;
    bool has_format = false, has_data = false;
    while (reader.left() >= 8) {
        const std::size_t at = reader.position();
        const std::string_view name = text.substr(at, 4);
        reader.skip(4);
        const std::uint32_t size = reader.u32();
        if (size > reader.left()) {
            report.fault(at, "a chunk ends behind the file");
            break;
        }
        Reader chunk = reader.sub(size);
        if (name == "fmt " && !has_format) {
            has_format = true;
            const int tag = chunk.u16(), channels = chunk.u16();
            const std::uint32_t rate = chunk.u32();
            chunk.skip(6);
            const int bits = chunk.u16();
            bytes_per_second = 1.0 * rate * channels * bits / 8;
            report.add("frames a second", rate);
            report.add("channels", channels);
            report.add("bits", bits);
            if (!chunk.ok()) report.fault(at, "the format chunk is too short");
            if (tag != 1)
                report.fault(at + 8, "only PCM is played, and this is format " + std::to_string(tag));
            else if (channels < 1 || channels > 2 || (bits != 8 && bits != 16) || rate < 100 || rate > 200000)
                report.fault(at + 10,
                             "one or two channels of 8 or 16 bits are sure to be played, 100 to 200000 "
                             "frames a second");
        } else if (name == "data" && !has_data) {
            has_data = true;
            report.add("bytes", size);
            if (bytes_per_second > 0) report.add("seconds", size / bytes_per_second);
            if (!has_format) report.fault(at, "the sound stands before its format");
        }
        if (size % 2 != 0 && reader.left() > 0) reader.skip(1);
    }
    if (!has_format || !has_data)
        report.fault(12, has_format ? "there is no data chunk" : "there is no format chunk");
    return report;
}

std::optional<Report> describe_cue(const Bytes &file, const std::filesystem::path &name) {
    const std::string_view text = as_text(file);
    if (file.size() > 1 << 20 || text.find("FILE ") == std::string_view::npos ||
        text.find("TRACK ") == std::string_view::npos)
        return std::nullopt;
    Report report("disc (CUE sheet)");
    report.items = "tracks";
    report.columns = {"track", "kind", "title", "start"};
    for (const Place &line : lines_of(name_of(name), text)) {
        std::istringstream words(line.line);
        std::string word, first, second;
        words >> word;
        if (word == "FILE") {
            std::string rest;
            std::getline(words >> std::ws, rest);
            report.add("image", rest);
        } else if (word == "TRACK" && words >> first >> second) {
            report.rows.push_back({first, second, "", ""});
        } else if (word == "INDEX" && words >> first >> second && first == "01" && !report.rows.empty()) {
            report.rows.back()[3] = second;
        } else if (word == "TITLE" && !report.rows.empty()) {
            std::getline(words >> std::ws, first);
            std::erase(first, '"');
            report.rows.back()[2] = first;
        }
    }
    if (report.rows.empty() || report.facts.empty()) return std::nullopt;
    // What a game's drive says to it.
    if (name != kStream && HOST_choose("headless") == 0 && HOST_insert_disc(name.string().c_str()) != 0)
        report.faults.emplace_back("the sheet and its image do not fit together: no drive takes them");
    return report;
}

}  // namespace ink::tool
