#include "content.h"

#include "film/can_file.h"
#include "palette.h"
#include "people.h"
#include "picture/picture_file.h"
#include "portrait.h"

namespace paint {

namespace tool = ink::tool;

void write_palettes(const std::filesystem::path &directory) {
    const char *const names[kLights] = {"day.pal", "dusk.pal", "night.pal", "moon.pal"};
    for (int light = 0; light < kLights; ++light)
        tool::write_bytes(directory / names[light], palette(static_cast<Light>(light)));
}

void write_people(const std::filesystem::path &directory) {
    const auto write = [&directory](const char *name, const std::vector<FigureCanvas> &frames) {
        tool::write_bytes(directory / name, tool::can_file(frames_by_feet(frames), 0, 0));
    };
    write("hero.can", hero());
    write("master.can", master());
    write("seller.can", seller());
    write("girl.can", girl());
    write("boatman.can", boatman());

    const auto write_portrait = [&directory](const char *name, const Canvas &canvas) {
        tool::write_bytes(directory / name, tool::image_block(canvas.picture(0.5)));
    };
    write_portrait("p_hero.img", hero_portrait());
    write_portrait("p_master.img", master_portrait());
    write_portrait("p_seller.img", seller_portrait());
    write_portrait("p_girl.img", girl_portrait());
    write_portrait("p_boat.img", boatman_portrait());
}

}  // namespace paint
