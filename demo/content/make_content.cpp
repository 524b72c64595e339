// Makes the demo's sounds and its image cursor. Usage: make_content DIRECTORY
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <numbers>
#include <string>
#include <vector>

#include "film/can_file.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

void append(Bytes &to, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) to.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}
void append(Bytes &to, const std::string &text) {
    to.insert(to.end(), text.begin(), text.end());
}

void write(const std::filesystem::path &name, const Bytes &bytes) {
    std::ofstream file(name, std::ios::binary);
    file.write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!file) throw std::runtime_error("cannot write " + name.string());
}

// A wave file of 16-bit mono samples; sample(t) is -1 to 1 at t seconds.
Bytes wave(double seconds, const std::function<double(double)> &sample) {
    constexpr std::uint32_t kRate = 22050;
    const auto count = static_cast<std::uint32_t>(seconds * kRate);
    Bytes file;
    append(file, "RIFF");
    append(file, 36 + 2 * count, 4);
    append(file, "WAVEfmt ");
    append(file, 16, 4);
    append(file, 1, 2);  // PCM
    append(file, 1, 2);  // mono
    append(file, kRate, 4);
    append(file, kRate * 2, 4);
    append(file, 2, 2);
    append(file, 16, 2);
    append(file, "data");
    append(file, 2 * count, 4);
    for (std::uint32_t i = 0; i < count; ++i)
        append(file, static_cast<std::uint32_t>(static_cast<std::int32_t>(32000 * sample(i / double{kRate}))),
               2);
    return file;
}

double tone(double frequency, double t) {
    return std::sin(2 * std::numbers::pi * frequency * t);
}

// A knock on wood, and a struck bowl with its overtones.
double click(double t) {
    return 0.8 * std::exp(-t * 90) * (0.7 * tone(420, t) + 0.3 * tone(1130, t));
}
double chime(double t) {
    return 0.5 * std::exp(-t * 3.2) * tone(523.25, t) + 0.25 * std::exp(-t * 5) * tone(523.25 * 2.76, t) +
           0.12 * std::exp(-t * 8) * tone(523.25 * 5.4, t);
}

// The cursor: a brush whose tip gathers a drop of ink and lets it fall. A letter is a colour.
struct Frame {
    std::int16_t x, y;
    std::vector<std::string> rows;
};

const std::vector<Frame> kFrames = {
    {0,
     0,
     {"k...........", "kk..........", ".kpk........", ".kppk.......", "..kppk......", "...kppg.....",
      "....kgwg....", ".....gwwg...", "......gwwg..", ".......gwwg.", "........gwwr", ".........grr"}},
    {0,
     0,
     {"k...........", "kkk.........", "kkpk........", ".kppk.......", "..kppk......", "...kppg.....",
      "....kgwg....", ".....gwwg...", "......gwwg..", ".......gwwg.", "........gwwr", ".........grr"}},
    {-1,
     0,
     {".k...........", "kkk..........", "kkkpk........", ".kkppk.......", "...kppk......", "....kppg.....",
      ".....kgwg....", "......gwwg...", ".......gwwg..", "........gwwg.", ".........gwwr", "..........grr"}},
    {-1,
     0,
     {".k...........", ".kk..........", "..kpk........", "..kppk.......", "k..kppk......", "kk..kppg.....",
      "kk...kgwg....", "......gwwg...", ".......gwwg..", "........gwwg.", ".........gwwr", "..........grr"}},
};

// The demo's palette: ink, paper, gold, wood and vermilion.
std::uint8_t colour(char letter) {
    switch (letter) {
        case 'k': return 144;
        case 'p': return 92;
        case 'g': return 140;
        case 'w': return 172;
        case 'r': return 106;
        default: return 0;
    }
}

std::vector<ink::tool::IndexedPicture> pictures(const std::vector<Frame> &frames) {
    std::vector<ink::tool::IndexedPicture> all;
    for (const Frame &frame : frames) {
        ink::tool::IndexedPicture &picture = all.emplace_back();
        picture.width = static_cast<int>(frame.rows[0].size());
        picture.height = static_cast<int>(frame.rows.size());
        picture.x = frame.x;
        picture.y = frame.y;
        for (const std::string &row : frame.rows)
            for (const char letter : row) picture.pixels.push_back(colour(letter));
    }
    return all;
}

}  // namespace

int main(int argc, char **argv) try {
    if (argc != 2) throw std::runtime_error("usage: make_content DIRECTORY");
    const std::filesystem::path directory(argv[1]);
    std::filesystem::create_directories(directory);
    write(directory / "click.wav", wave(0.12, click));
    write(directory / "chime.wav", wave(1.5, chime));
    write(directory / "cursor.can", ink::tool::can_file(pictures(kFrames), 0, 0));
    return 0;
} catch (const std::exception &error) {
    std::fprintf(stderr, "make_content: %s\n", error.what());
    return 1;
}
