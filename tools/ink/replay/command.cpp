// ink replay: records of programs shown, cut, run again, and made into pictures, sound and videos.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>
#include <random>

#include "command_line.h"
#include "core/reader.h"
#include "host/replay/record_reader.h"
#include "info/report.h"
#include "png/png_file.h"
#include "replay/performance.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;
using host::Answer;
using host::Kind;
using host::RecordReader;

constexpr int kRate = 44100;
constexpr int kUsualPictures = 30;

struct Arguments {
    std::string file, output;
    double until = 0;
    bool answers = false;
    int rate = 0;
    std::vector<std::string> program;
};

std::unique_ptr<RecordReader> open(const fs::path &name) {
    std::string reason;
    auto reader = RecordReader::open(read_bytes(name), reason);
    if (reader == nullptr) throw FileError(name, reason);
    return reader;
}

// ---- Looking at a record ----

void show(const Arguments &arguments) {
    const fs::path name = path_of(arguments.file);
    const auto report = describe_record(read_bytes(name));
    if (!report) throw FileError(name, "is no record");
    std::cout << page_of(arguments.file, *report);
    if (!report->faults.empty()) throw FileError(name, "is damaged");
    if (!arguments.answers) return;
    const auto reader = open(name);
    for (Answer answer; reader->next(answer);) {
        const host::KindFacts &facts = host::facts_of(answer.kind);
        std::printf("%12.6f %s", static_cast<double>(reader->time()) / 1e6, facts.name);
        for (std::size_t i = 0; i < facts.values; ++i)
            std::printf(" %lld", static_cast<long long>(answer.values[i]));
        std::printf("%s%s\n", facts.text ? " " : "", answer.text.c_str());
    }
}

// A record up to a mark is one of a program that ended there by force.
void cut(const Arguments &arguments) {
    const fs::path name = path_of(arguments.file);
    const Bytes file = read_bytes(name);
    const auto reader = open(name);
    std::size_t end = reader->block_end();
    for (Answer answer; reader->next(answer);)
        if (answer.kind == Kind::mark && static_cast<double>(reader->time()) <= arguments.until * 1e6)
            end = reader->block_end();
    write_bytes(path_of(arguments.output), std::span(file).first(end));
}

// ---- Pictures and sound ----

Bytes wave_of(const std::vector<std::int16_t> &stereo) {
    Bytes file(44 + 2 * stereo.size());
    std::copy_n("RIFF", 4, file.begin());
    put_u32(&file[4], static_cast<std::uint32_t>(file.size() - 8));
    std::copy_n("WAVEfmt ", 8, file.begin() + 8);
    put_u32(&file[16], 16);
    put_u16(&file[20], 1);
    put_u16(&file[22], 2);
    put_u32(&file[24], kRate);
    put_u32(&file[28], kRate * 4);
    put_u16(&file[32], 4);
    put_u16(&file[34], 16);
    std::copy_n("data", 4, file.begin() + 36);
    put_u32(&file[40], static_cast<std::uint32_t>(2 * stereo.size()));
    for (std::size_t i = 0; i < stereo.size(); ++i)
        put_u16(&file[44 + 2 * i], static_cast<std::uint16_t>(stereo[i]));
    return file;
}

// The record itself, or where the program is named another one of it, with what is asked for.
class Recording {
  public:
    Recording(const Arguments &arguments, int rate) : name_(path_of(arguments.file)) {
        if (arguments.program.empty()) return;
        const Capture capture{fs::temp_directory_path() / ("ink-" + std::to_string(std::random_device()())),
                              rate};
        captured_ = capture.file;
        perform(arguments.program, name_, &capture);
        name_ = captured_;
    }
    ~Recording() {
        std::error_code ignored;
        if (!captured_.empty()) fs::remove(captured_, ignored);
    }
    Recording(const Recording &) = delete;
    Recording &operator=(const Recording &) = delete;

    std::unique_ptr<RecordReader> read() const { return open(name_); }

  private:
    fs::path name_, captured_;
};

using Look = std::function<void(const host::Picture &, std::int64_t mark, bool fresh)>;

// Every mark's picture and all of the sound.
std::vector<std::int16_t> watch(RecordReader &reader, const Look &look) {
    std::vector<std::int16_t> heard;
    for (Answer answer; reader.next(answer);) {
        if (answer.kind != Kind::mark) continue;
        const auto more = reader.sound();
        heard.insert(heard.end(), more.begin(), more.end());
        const bool fresh = reader.has_new_picture();
        const host::Picture *picture = reader.picture();
        if (look && picture != nullptr && !picture->panes.empty()) look(*picture, answer.values[0], fresh);
    }
    return heard;
}

std::array<std::uint8_t, 768> colours_of(const host::Picture &picture) {
    std::array<std::uint8_t, 768> colours{};
    for (std::size_t i = 0; i < picture.palette.size(); ++i) {
        colours[3 * i] = picture.palette[i].red;
        colours[3 * i + 1] = picture.palette[i].green;
        colours[3 * i + 2] = picture.palette[i].blue;
    }
    return colours;
}

void save_pictures(const Arguments &arguments) {
    const fs::path folder = path_of(arguments.output);
    fs::create_directories(folder);
    const Recording recording(arguments, std::max(arguments.rate, 1));
    int saved = 0;
    watch(*recording.read(), [&](const host::Picture &picture, std::int64_t mark, bool fresh) {
        if (!fresh) return;
        ++saved;
        for (std::size_t i = 0; i < picture.panes.size(); ++i) {
            const host::Pane &pane = picture.panes[i];
            char name[64];
            std::snprintf(name, sizeof name, i == 0 ? "%06lld.png" : "%06lld-%zu.png",
                          static_cast<long long>(mark), i + 1);
            write_png(folder / name, pane.width, pane.height, pane.pixels, colours_of(picture));
        }
    });
    if (saved == 0) throw FileError(path_of(arguments.file), "keeps no pictures; name the program to run it");
    std::cout << saved << " pictures in " << arguments.output << '\n';
}

void save_sound(const Arguments &arguments) {
    const Recording recording(arguments, 1);
    const auto reader = recording.read();
    if (!reader->header().sound)
        throw FileError(path_of(arguments.file), "keeps no sound; name the program to run it");
    write_bytes(path_of(arguments.output), wave_of(watch(*reader, nullptr)));
}

// The picture of the window that was opened first, as rows of red, green and blue.
Bytes rgb_of(const host::Picture &picture) {
    Bytes rgb;
    const host::Pane &pane = picture.panes.front();
    rgb.reserve(3 * pane.pixels.size());
    for (const std::uint8_t pixel : pane.pixels) {
        const host::Color colour = picture.palette[pixel];
        rgb.insert(rgb.end(), {colour.red, colour.green, colour.blue});
    }
    return rgb;
}

void save_video(const Arguments &arguments) {
#if defined(_WIN32)
    const auto open_pipe = [](const char *command) { return _popen(command, "wb"); };
    const auto close_pipe = _pclose;
    constexpr const char *kQuiet = "ffmpeg -version >NUL 2>&1";
#else
    const auto open_pipe = [](const char *command) { return popen(command, "w"); };
    const auto close_pipe = pclose;
    constexpr const char *kQuiet = "ffmpeg -version >/dev/null 2>&1";
#endif
    if (std::system(kQuiet) != 0)
        throw std::runtime_error("videos are made by the program ffmpeg, which is not installed");
    const Recording recording(arguments, arguments.rate > 0 ? arguments.rate : kUsualPictures);
    const auto sound = recording.read();
    const int rate = sound->header().marks_per_second;
    host::Picture first;
    const auto heard = watch(*sound, [&](const host::Picture &picture, std::int64_t, bool) {
        if (first.panes.empty()) first = picture;
    });
    if (first.panes.empty())
        throw FileError(path_of(arguments.file), "keeps no pictures; name the program to run it");
    const fs::path wave =
        fs::temp_directory_path() / ("ink-" + std::to_string(std::random_device()()) + ".wav");
    write_bytes(wave, wave_of(heard));
    const host::Pane shape = first.panes.front();
    std::vector<std::string> words{
        "ffmpeg",    "-y",
        "-loglevel", "error",
        "-f",        "rawvideo",
        "-pix_fmt",  "rgb24",
        "-s",        std::to_string(shape.width) + "x" + std::to_string(shape.height),
        "-r",        std::to_string(rate),
        "-i",        "-"};
    if (!heard.empty()) words.insert(words.end(), {"-i", name_of(wave)});
    words.insert(words.end(), {"-pix_fmt", "yuv420p", arguments.output});
    std::FILE *pipe = open_pipe(command_line_of(words).c_str());
    if (pipe == nullptr) throw std::runtime_error("ffmpeg cannot be started");
    // A mark that was left out shows what the one before it showed.
    std::int64_t shown = 0;
    Bytes rgb = rgb_of(first);
    watch(*recording.read(), [&](const host::Picture &picture, std::int64_t mark, bool) {
        const host::Pane &pane = picture.panes.front();
        for (; shown < mark - 1; ++shown) std::fwrite(rgb.data(), 1, rgb.size(), pipe);
        if (pane.width == shape.width && pane.height == shape.height) rgb = rgb_of(picture);
        for (; shown < mark; ++shown) std::fwrite(rgb.data(), 1, rgb.size(), pipe);
    });
    const int result = close_pipe(pipe);
    fs::remove(wave);
    if (result != 0) throw std::runtime_error("ffmpeg has failed");
}

}  // namespace

void add_replay(CLI::App &app) {
    CLI::App *group = add_group(app, "replay", "Records of programs");
    const auto arguments = std::make_shared<Arguments>();
    const auto add = [&](const char *name, const char *what, std::vector<std::string> examples,
                         void (*work)(const Arguments &), const char *more = "") {
        CLI::App *command = add_command(*group, name, what, examples, more);
        command->add_option("file", arguments->file, "The record")->required();
        command->callback([arguments, work] { work(*arguments); });
        return command;
    };
    const auto add_output = [&](CLI::App *command, const char *what) {
        command->add_option("-o,--output", arguments->output, what)->required();
    };
    const auto add_program = [&](CLI::App *command) {
        return command->add_option("program", arguments->program,
                                   "Behind --, the program that was recorded and its arguments");
    };
    const auto add_rate = [&](CLI::App *command, const char *what) {
        command->add_option("--rate", arguments->rate, what)->check(CLI::Range(1, 60));
    };
    constexpr const char *kProgram =
        "Without a program the file's own are taken; with it the program is run from the record on the "
        "headless "
        "machine, and what it shows and plays is taken.";

    add("show", "Say what a record holds", {"ink replay show play.rec", "ink replay show --answers play.rec"},
        show)
        ->add_flag("--answers", arguments->answers, "List every answer with its time in seconds");
    CLI::App *cutter = add("cut", "Keep the beginning of a record",
                           {"ink replay cut play.rec -o short.rec --until 20"}, cut);
    add_output(cutter, "The record to write");
    cutter->add_option("--until", arguments->until, "The second up to which it is kept")->required();
    add_program(
        add(
            "verify", "Run a program from its record and compare",
            {"ink replay verify play.rec -- ./game --small"},
            [](const Arguments &given) { perform(given.program, path_of(given.file)); },
            "The command fails when picture or sound differ, and says in which second they first did."))
        ->required();
    CLI::App *pictures = add("pictures", "Save the pictures of a record, each in which something changed",
                             {"ink replay pictures play.rec -o shots",
                              "ink replay pictures play.rec -o shots --rate 10 -- ./game"},
                             save_pictures, kProgram);
    add_output(pictures, "The folder for the PNG pictures, which are named by their marks");
    add_rate(pictures, "Pictures a second (1)");
    add_program(pictures);
    CLI::App *sound = add("sound", "Save what was heard", {"ink replay sound play.rec -o play.wav -- ./game"},
                          save_sound, kProgram);
    add_output(sound, "The wave file");
    add_program(sound);
    CLI::App *video = add("video", "Make a video, with the program ffmpeg",
                          {"ink replay video play.rec -o play.mp4 -- ./game"}, save_video, kProgram);
    add_output(video, "The video, of any kind that ffmpeg makes");
    add_rate(video, "Pictures a second (30)");
    add_program(video);
}

}  // namespace ink::tool
