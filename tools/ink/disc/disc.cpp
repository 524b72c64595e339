// ink disc: audio discs out of wave files and music written as notes.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "commands.h"
#include "core/reader.h"
#include "disc/notes.h"
#include "disc/synthesizer.h"
#include "disc/wave_source.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kFramesPerSector = 588, kSectorsPerSecond = 75, kMostTracks = 99;

struct Song {
    std::string title;
    Track track;
};

Song read_song(const std::string &name) {
    if (fs::path(name).extension() != ".notes") return {fs::path(name).stem().string(), read_wave(name)};
    std::ifstream file(name, std::ios::binary);
    if (!file) throw std::runtime_error(name + ": cannot be opened");
    const Music music = parse_notes(std::string(std::istreambuf_iterator<char>(file), {}), name);
    return {music.title.empty() ? fs::path(name).stem().string() : music.title, play_notes(music)};
}

std::string bytes_of(const Track &track) {
    std::string bytes(4 * track.size(), '\0');
    auto *to = reinterpret_cast<std::uint8_t *>(bytes.data());
    for (const auto &frame : track)
        for (const std::int16_t sample : frame) {
            put_u16(to, static_cast<std::uint16_t>(sample));
            to += 2;
        }
    return bytes;
}

void write(const fs::path &name, const std::string &bytes) {
    std::ofstream file(name, std::ios::binary);
    file << bytes;
    if (!file.flush()) throw std::runtime_error(name.string() + ": cannot be written");
}

std::string msf(std::size_t sectors) {
    char text[64];
    std::snprintf(text, sizeof text, "%02zu:%02zu:%02zu", sectors / kSectorsPerSecond / 60,
                  sectors / kSectorsPerSecond % 60, sectors % kSectorsPerSecond);
    return text;
}

void build(const std::vector<std::string> &names, fs::path output, double gap) {
    if (names.size() > kMostTracks) throw std::runtime_error("a disc has 99 tracks at most");
    const auto gap_sectors = static_cast<std::size_t>(std::lround(gap * kSectorsPerSecond));
    const fs::path image = fs::path(output).replace_extension(".bin");
    std::string sheet = "FILE \"" + image.filename().string() + "\" BINARY\n", bytes, report;
    std::size_t sector = 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
        Song song = read_song(names[i]);
        // A track ends with a whole sector.
        song.track.resize((song.track.size() + kFramesPerSector - 1) / kFramesPerSector * kFramesPerSector);
        std::erase(song.title, '"');
        char track[64];
        std::snprintf(track, sizeof track, "  TRACK %02zu AUDIO\n", i + 1);
        sheet += track + ("    TITLE \"" + song.title + "\"\n");
        if (i > 0 && gap_sectors > 0) {
            sheet += "    INDEX 00 " + msf(sector) + "\n";
            bytes.append(gap_sectors * kFramesPerSector * 4, '\0');
            sector += gap_sectors;
        }
        sheet += "    INDEX 01 " + msf(sector) + "\n";
        bytes += bytes_of(song.track);
        sector += song.track.size() / kFramesPerSector;
        report +=
            std::to_string(i + 1) + " " + msf(song.track.size() / kFramesPerSector) + " " + song.title + "\n";
    }
    write(image, bytes);
    write(output.replace_extension(".cue"), sheet);
    std::fputs(report.c_str(), stdout);
}

// As a wave file, for listening.
void render(const std::string &name, const fs::path &output) {
    const std::string samples = bytes_of(read_song(name).track);
    std::uint8_t header[44] = {'R', 'I', 'F', 'F', 0, 0, 0, 0, 'W', 'A', 'V', 'E', 'f', 'm', 't', ' '};
    put_u32(header + 4, static_cast<std::uint32_t>(sizeof header - 8 + samples.size()));
    put_u32(header + 16, 16);
    put_u16(header + 20, 1);
    put_u16(header + 22, 2);
    put_u32(header + 24, kTrackRate);
    put_u32(header + 28, kTrackRate * 4);
    put_u16(header + 32, 4);
    put_u16(header + 34, 16);
    std::copy_n("data", 4, header + 36);
    put_u32(header + 40, static_cast<std::uint32_t>(samples.size()));
    write(output, std::string(reinterpret_cast<const char *>(header), sizeof header) + samples);
}

struct Options {
    std::vector<std::string> names;
    std::string name, output;
    double gap = 0;
};

}  // namespace

void add_disc(CLI::App &app) {
    auto options = std::make_shared<Options>();
    CLI::App *disc = app.add_subcommand("disc", "Audio discs: CUE sheet and image")->require_subcommand(1);

    CLI::App *building =
        disc->add_subcommand("build", "Makes a disc of wave files and music written as notes");
    building->add_option("tracks", options->names, "Files .wav and .notes, one for each track")->required();
    building->add_option("-o,--output", options->output, "The CUE sheet; the image .bin is written beside it")
        ->required();
    building->add_option("--gap", options->gap, "Seconds of silence between the tracks")
        ->check(CLI::Range(0.0, 60.0));
    building->callback([options] { build(options->names, options->output, options->gap); });

    CLI::App *rendering = disc->add_subcommand("render", "Writes one track as a wave file, for listening");
    rendering->add_option("track", options->name, "A file .wav or .notes")->required();
    rendering->add_option("-o,--output", options->output, "The wave file")->required();
    rendering->callback([options] { render(options->name, options->output); });
}

}  // namespace ink::tool
