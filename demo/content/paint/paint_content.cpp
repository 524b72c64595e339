// Paints the pictures of the game. Usage: paint_content DIRECTORY
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>

#include "film.h"
#include "film/flic_film.h"
#include "picture/picture_file.h"
#include "scenes.h"

namespace {

using namespace paint;
using ink::tool::IndexedPicture;
using ink::tool::PictureKind;

class Output {
  public:
    explicit Output(std::filesystem::path directory) : directory_(std::move(directory)) {
        std::filesystem::create_directories(directory_);
    }
    void bytes(const std::string &name, const ink::tool::Bytes &bytes) const {
        ink::tool::write_bytes(directory_ / name, bytes);
    }
    // A page carries the palette of the day.
    void page(const std::string &name, const Canvas &canvas) const {
        IndexedPicture picture = canvas.picture();
        picture.palette = palette_of(Light::day);
        bytes(name, ink::tool::encode_picture(picture, PictureKind::pcx));
    }
    void image(const std::string &name, const Canvas &canvas) const {
        bytes(name, ink::tool::image_block(canvas.picture()));
    }
    void scene(const std::string &name, const Scene &scene) const {
        page(name + ".pcx", scene.picture);
        page(name + "_m.pcx", scene.mask);
        image(name + "_f.img", scene.front);
    }

  private:
    std::filesystem::path directory_;
};

void write_palettes(const Output &output) {
    const auto write = [&](const char *name, Light light) {
        const ink::tool::Palette palette = palette_of(light);
        output.bytes(name, {palette.begin(), palette.end()});
    };
    write("day.pal", Light::day);
    write("dusk.pal", Light::dusk);
    write("night.pal", Light::night);
    write("moon.pal", Light::moon);
}

}  // namespace

int main(int argc, char **argv) try {
    if (argc != 2) throw std::runtime_error("usage: paint_content DIRECTORY");
    const Output output(argv[1]);
    write_palettes(output);
    output.scene("study", paint_study());
    output.scene("market", paint_market());
    output.scene("lake", paint_lake());
    output.page("title.pcx", paint_title());
    output.page("end.pcx", paint_end());
    output.page("paper.pcx", paint_paper());
    output.bytes("opening.flc", ink::tool::flic::film(paint_film(), kFilmMilliseconds));
    return 0;
} catch (const std::exception &error) {
    std::fprintf(stderr, "paint_content: %s\n", error.what());
    return 1;
}
