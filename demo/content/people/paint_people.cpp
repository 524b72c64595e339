// Paints the people of the game and the things they carry. Usage: paint_people DIRECTORY
#include <cstdio>
#include <exception>

#include "film/can_file.h"
#include "people.h"
#include "picture/picture_file.h"
#include "portrait.h"
#include "things.h"

namespace {

using namespace people;

// The picture in the nearest of the colours that are the same in every light.
ink::tool::IndexedPicture in_fixed_colours(ink::tool::IndexedPicture picture) {
    static const ink::tool::Palette palette = paint::palette_of(paint::Light::day);
    for (std::uint8_t &pixel : picture.pixels) {
        int best = 0, best_distance = 1 << 20;
        for (int fixed = paint::kBlack; fixed <= paint::kWhite && pixel != 0; ++fixed) {
            int distance = 0;
            for (int c = 0; c < 3; ++c) {
                const int difference = palette[static_cast<std::size_t>(pixel * 3 + c)] -
                                       palette[static_cast<std::size_t>(fixed * 3 + c)];
                distance += difference * difference;
            }
            if (distance < best_distance) {
                best = fixed;
                best_distance = distance;
            }
        }
        pixel = static_cast<std::uint8_t>(best);
    }
    return picture;
}

class Output {
  public:
    explicit Output(std::filesystem::path directory) : directory_(std::move(directory)) {
        std::filesystem::create_directories(directory_);
    }
    void figure(const char *name, const std::vector<FigureCanvas> &frames) const {
        ink::tool::write_bytes(directory_ / name, ink::tool::can_file(frames_by_feet(frames), 0, 0));
    }
    void image(const char *name, const Canvas &canvas, double dither) const {
        ink::tool::write_bytes(directory_ / name, ink::tool::image_block(canvas.picture(dither)));
    }

    // All frames of a cursor have one size: its hot spot stays where it is. Its colours are those that no light
    // changes, so that it is found by night.
    void cursor(const char *name, const std::vector<Canvas> &frames) const {
        std::vector<ink::tool::IndexedPicture> pictures;
        for (const Canvas &frame : frames) pictures.push_back(in_fixed_colours(frame.picture(0)));
        ink::tool::write_bytes(directory_ / name, ink::tool::can_file(pictures, 0, 0));
    }

  private:
    std::filesystem::path directory_;
};

void write_people(const Output &output) {
    output.figure("hero.can", hero());
    output.figure("master.can", master());
    output.figure("seller.can", seller());
    output.figure("girl.can", girl());
    output.figure("boatman.can", boatman());
    output.image("p_hero.img", hero_portrait(), 0.5);
    output.image("p_master.img", master_portrait(), 0.5);
    output.image("p_seller.img", seller_portrait(), 0.5);
    output.image("p_girl.img", girl_portrait(), 0.5);
    output.image("p_boat.img", boatman_portrait(), 0.5);
}

void write_things(const Output &output) {
    output.image("i_stone.img", inkstone(), 0.4);
    output.image("i_tea.img", teapot(), 0.4);
    output.image("i_kite.img", kite(), 0);
    output.image("i_oil.img", oil_jar(), 0.4);
    output.image("i_brush.img", brush(), 0.2);
    output.image("i_paper.img", paper(), 0.4);
    output.image("i_ink.img", ink_stick(), 0.4);
    output.image("i_moon.img", painted_moon(), 0.4);
    output.image("kite.img", hanging_kite(), 0);
    output.image("boat.img", boat(), 0.4);
    output.cursor("c_arrow.can", arrow_cursor());
    output.cursor("c_walk.can", walk_cursor());
    output.cursor("c_hand.can", hand_cursor());
    output.cursor("c_talk.can", talk_cursor());
}

}  // namespace

int main(int argc, char **argv) try {
    if (argc != 2) throw std::runtime_error("usage: paint_people DIRECTORY");
    const Output output(argv[1]);
    write_people(output);
    write_things(output);
    return 0;
} catch (const std::exception &error) {
    std::fprintf(stderr, "paint_people: %s\n", error.what());
    return 1;
}
