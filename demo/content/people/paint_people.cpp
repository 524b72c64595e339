// Paints the people of the game and the things they carry. Usage: paint_people DIRECTORY
#include <cstdio>
#include <exception>

#include "film/can_file.h"
#include "people.h"
#include "picture/picture_file.h"
#include "portrait.h"

namespace {

using namespace people;

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

}  // namespace

int main(int argc, char **argv) try {
    if (argc != 2) throw std::runtime_error("usage: paint_people DIRECTORY");
    const Output output(argv[1]);
    write_people(output);
    return 0;
} catch (const std::exception &error) {
    std::fprintf(stderr, "paint_people: %s\n", error.what());
    return 1;
}
