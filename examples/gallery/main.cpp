// Draws every drawing operation once, each with its name under it, and saves the pages as PNG files in the
// directory given (the current one without).
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>

#include "fades.h"
#include "inkstone/host.h"
#include "page.h"
#include "png/png_file.h"

int main(int argc, char **argv) {
    using namespace gallery;
    try {
        if (argc > 1) {
            std::filesystem::create_directories(argv[1]);
            std::filesystem::current_path(argv[1]);
        }
        HOST_choose("headless");
        Palette palette = make_palette();
        std::transform(palette.begin(), palette.end(), palette.begin(),
                       [](std::uint8_t component) { return static_cast<std::uint8_t>(component * 4); });
        for (const Page &page : {screen_page(), memory_page(), effects_page(), mirrors_page(), scaling_page(),
                                 figures_page(), palettes_page()})
            ink::tool::write_png(std::string(page.name) + ".png", kWidth, kHeight, draw_page(page), palette);
        ink::tool::write_png_rgb("fades.png", kWidth, kHeight, draw_fades_page());
    } catch (const std::exception &error) {
        std::fprintf(stderr, "gallery: %s\n", error.what());
        return 1;
    }
    return 0;
}
