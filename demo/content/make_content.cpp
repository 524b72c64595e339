// Makes what is painted and computed of the game's content. Usage: make_content DIRECTORY
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "film/can_file.h"
#include "film/flic_film.h"
#include "inkstone/line.h"
#include "inkstone/pcx.h"
#include "plain/figures.h"
#include "plain/lights.h"
#include "plain/places.h"
#include "plain/sounds.h"
#include "plain/things.h"

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

void write_image(const std::string &name, const IndexedPicture &picture) {
    Bytes bytes;
    for (const int number : {picture.width, picture.height})
        for (const int shift : {0, 8}) bytes.push_back(static_cast<std::uint8_t>(number >> shift));
    bytes.insert(bytes.end(), picture.pixels.begin(), picture.pixels.end());
    write(name, bytes);
}

void write_place(const std::string &name, const plain::Place &place) {
    write_page(name + ".pcx", place.picture);
    write_page(name + "_m.pcx", place.mask);
    write_image(name + "_f.img", plain::cut(plain::Page().pixels(), 0, 0, 1, 1, 0, 0));
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
        IndexedPicture frame = plain::cut(page.pixels(), 0, 0, 640, 480, 0, 0);
        frame.palette = ink::tool::bright_palette(plain::light(i < 40 ? plain::kDusk : plain::kNight));
        frames.push_back(std::move(frame));
    }
    return ink::tool::flic::film(frames, 100);
}

void make_all() {
    const char *const lights[] = {"day.pal", "dusk.pal", "night.pal", "moon.pal"};
    for (int i = 0; i < 4; ++i) {
        const auto palette = plain::light(i);
        write(lights[i], Bytes(palette.begin(), palette.end()));
    }
    write_place("study", plain::study());
    write_place("market", plain::market());
    write_place("lake", plain::lake());
    write_page("title.pcx", plain::title());
    write_page("paper.pcx", plain::desk());
    write_page("end.pcx", plain::last_page());
    write("opening.flc", opening());
    write("hero.can", ink::tool::can_file(plain::walking(plain::kHero), 0, 0));
    const struct {
        const char *animation, *portrait;
        plain::Person person;
    } people[] = {{"master.can", "p_master.img", plain::kMaster},
                  {"seller.can", "p_seller.img", plain::kSeller},
                  {"girl.can", "p_girl.img", plain::kGirl},
                  {"boatman.can", "p_boat.img", plain::kBoatman}};
    for (const auto &one : people) {
        write(one.animation, ink::tool::can_file(plain::standing(one.person), 0, 0));
        write_image(one.portrait, plain::portrait(one.person));
    }
    write_image("p_hero.img", plain::portrait(plain::kHero));
    const char *const names[] = {"i_stone.img", "i_tea.img",   "i_kite.img", "i_oil.img",
                                 "i_brush.img", "i_paper.img", "i_ink.img",  "i_moon.img"};
    for (std::size_t i = 0; i < 8; ++i) write_image(names[i], plain::things()[i]);
    write_image("kite.img", plain::kite());
    write_image("boat.img", plain::boat());
    const char *const pointers[] = {"c_arrow.can", "c_walk.can", "c_hand.can", "c_talk.can"};
    for (int i = 0; i < 4; ++i) write(pointers[i], ink::tool::can_file(plain::pointer(i), 0, 0));
    for (const auto &[name, bytes] : plain::sounds()) write(name, bytes);
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
