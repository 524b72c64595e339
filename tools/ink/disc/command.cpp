// ink disc: audio discs out of wave files and music written as notes.
#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "command_line.h"
#include "core/reader.h"
#include "disc/notes.h"
#include "disc/synthesizer.h"
#include "disc/wave_source.h"
#include "files/file.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kFramesPerSector = 588, kSectorsPerSecond = 75, kMostTracks = 99;

struct Song {
    std::string title;
    Track track;
};

Song read_song(const std::string &name) {
    const fs::path path = path_of(name);
    const std::string stem = name_of(path.stem());
    if (ending_of(path) == "notes") {
        const Music music = parse_notes(read_text(path), name);
        return {music.title.empty() ? stem : music.title, play_notes(music)};
    }
    const Bytes file = read_bytes(path);
    try {
        return {stem, decode_wave(file)};
    } catch (const std::runtime_error &error) {
        throw FileError(path, error.what());
    }
}

void append_track(Bytes &bytes, const Track &track) {
    bytes.reserve(bytes.size() + 4 * track.size());
    for (const auto &frame : track)
        for (const std::int16_t sample : frame) {
            bytes.push_back(static_cast<std::uint8_t>(sample));
            bytes.push_back(static_cast<std::uint8_t>(sample >> 8));
        }
}

std::string msf(std::size_t sectors) {
    char text[64];
    std::snprintf(text, sizeof text, "%02zu:%02zu:%02zu", sectors / kSectorsPerSecond / 60,
                  sectors / kSectorsPerSecond % 60, sectors % kSectorsPerSecond);
    return text;
}

void build(const std::vector<std::string> &names, const fs::path &output, double gap) {
    if (output == kStream) throw std::runtime_error("a disc is two files, which no stream can hold");
    if (names.size() > kMostTracks) throw std::runtime_error("a disc has 99 tracks at most");
    const auto gap_sectors = static_cast<std::size_t>(std::lround(gap * kSectorsPerSecond));
    const fs::path image = fs::path(output).replace_extension(".bin");
    std::string sheet = "FILE \"" + name_of(image.filename()) + "\" BINARY\n", report;
    Bytes bytes;
    Progress progress("making tracks", names.size());
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
            bytes.resize(bytes.size() + gap_sectors * kFramesPerSector * 4);
            sector += gap_sectors;
        }
        sheet += "    INDEX 01 " + msf(sector) + "\n";
        append_track(bytes, song.track);
        sector += song.track.size() / kFramesPerSector;
        report +=
            std::to_string(i + 1) + " " + msf(song.track.size() / kFramesPerSector) + " " + song.title + "\n";
        progress.done(i + 1);
    }
    NewFiles files;
    files.add(image, bytes);
    files.add(fs::path(output).replace_extension(".cue"),
              {reinterpret_cast<const std::uint8_t *>(sheet.data()), sheet.size()});
    files.commit();
    std::fputs(report.c_str(), stdout);
}

// As a wave file, for listening.
void render(const std::string &name, const fs::path &output) {
    Bytes samples;
    append_track(samples, read_song(name).track);
    Bytes file(44);
    std::copy_n("RIFF", 4, file.begin());
    put_u32(&file[4], static_cast<std::uint32_t>(file.size() - 8 + samples.size()));
    std::copy_n("WAVEfmt ", 8, file.begin() + 8);
    put_u32(&file[16], 16);
    put_u16(&file[20], 1);
    put_u16(&file[22], 2);
    put_u32(&file[24], kTrackRate);
    put_u32(&file[28], kTrackRate * 4);
    put_u16(&file[32], 4);
    put_u16(&file[34], 16);
    std::copy_n("data", 4, file.begin() + 36);
    put_u32(&file[40], static_cast<std::uint32_t>(samples.size()));
    append(file, samples);
    write_bytes(output, file);
}

struct Options {
    std::vector<std::string> names;
    std::string name, output;
    double gap = 0;
};

}  // namespace

void add_disc(CLI::App &app) {
    auto options = std::make_shared<Options>();
    CLI::App *disc = add_group(app, "disc", "Audio discs: CUE sheet and image");

    CLI::App *building = add_command(*disc, "build", "Make a disc of wave files and music written as notes",
                                     {"ink disc build title.notes cave.wav -o music.cue"});
    building->add_option("tracks", options->names, "Files .wav and .notes, one for each track")->required();
    building->add_option("-o,--output", options->output, "The CUE sheet; the image .bin is written beside it")
        ->required();
    building->add_option("--gap", options->gap, "Seconds of silence between the tracks")
        ->check(CLI::Range(0.0, 60.0));
    building->callback(
        [options] { build(expand_patterns(options->names), path_of(options->output), options->gap); });

    CLI::App *rendering = add_command(*disc, "render", "Write one track as a wave file, for listening",
                                      {"ink disc render title.notes -o title.wav"});
    rendering->add_option("track", options->name, "A file .wav or .notes")->required();
    rendering->add_option("-o,--output", options->output, "The wave file")->required();
    rendering->callback([options] { render(options->name, path_of(options->output)); });
}

}  // namespace ink::tool
