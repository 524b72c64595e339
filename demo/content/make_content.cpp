// Makes what is painted and computed of the game's content. Usage: make_content DIRECTORY
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "film/flic_film.h"
#include "inkstone/pcx.h"
#include "plain/lights.h"
#include "plain/pages.h"

namespace {

using ink::tool::Bytes;
using ink::tool::IndexedPicture;

std::filesystem::path directory;

void write(const std::string &name, const Bytes &bytes) {
    std::ofstream file(directory / name, std::ios::binary);
    file.write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!file) throw std::runtime_error("cannot write " + name);
}

void write_page(const std::string &name, plain::Page page) {
    PCX_save_file((directory / name).string().c_str(), 0, 0, 640, 480, page.pixels(), 640, 0);
}

// A drop of ink falls on paper, spreads, and the lake is there.
Bytes opening() {
    constexpr int kFrames = 64;
    const plain::Page lake = plain::title();
    std::vector<IndexedPicture> frames;
    for (int i = 0; i < kFrames; ++i) {
        plain::Page page, view = lake;
        page.bar(0, 0, 639, 479, plain::kPaper + 14);
        if (i < 12) page.ellipse(320, i * 20, 5, 8, plain::kInk + 1);
        const int spread = i < 12 ? 0 : (i - 12) * (i - 12) / 3 + 6;
        for (int y = 0; y < 480; ++y)
            for (int x = 0; x < 640; ++x) {
                const int dx = x - 320, dy = y - 240, far = dx * dx + dy * dy;
                if (far < spread * spread)
                    page.bar(x, y, x, y, view.pixels()[y * 640 + x]);
                else if (far < (spread + 8) * (spread + 8) && i >= 12)
                    page.bar(x, y, x, y, plain::kInk + 2);
            }
        IndexedPicture frame;
        frame.width = 640;
        frame.height = 480;
        frame.pixels = page.all();
        frame.palette = ink::tool::bright_palette(plain::light(i < 40 ? plain::kDusk : plain::kNight));
        frames.push_back(std::move(frame));
    }
    return ink::tool::flic::film(frames, 100);
}

void make_all() {
    write_page("title.pcx", plain::title());
    write_page("paper.pcx", plain::desk());
    write_page("end.pcx", plain::last_page());
    write("opening.flc", opening());
}

}  // namespace

int main(int argc, char **argv) try {
    if (argc != 2) throw std::runtime_error("usage: make_content DIRECTORY");
    directory = argv[1];
    std::filesystem::create_directories(directory);
    make_all();
    return 0;
} catch (const std::exception &error) {
    std::fprintf(stderr, "make_content: %s\n", error.what());
    return 1;
}
