// Draws a page of Chinese text and saves it as a PNG file: chinese_text [picture [directory of the fonts]].
// The fonts are made by `ink font build`.
#include <inkstone/chine.h>
#include <inkstone/draw.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <vector>

#include "chinese_page.h"
#include "png/png_file.h"

int main(int argc, char **argv) {
    namespace fs = std::filesystem;
    try {
        const fs::path picture = fs::absolute(argc > 1 ? argv[1] : "chinese_text.png");
        if (argc > 2) fs::current_path(argv[2]);
        if (CHINE_init(0) != 0) {
            std::fputs("chinese_text: there are no fonts here; make some with `ink font build`\n", stderr);
            return 1;
        }
        std::vector<std::uint8_t> screen(640 * 480);
        chinese_text::draw_page(screen.data());
        auto palette = chinese_text::make_palette();
        for (std::uint8_t &component : palette) component = static_cast<std::uint8_t>(component * 4);
        ink::tool::write_png(picture, 640, 480, screen, palette);
        CHINE_free();
    } catch (const std::exception &error) {
        std::fprintf(stderr, "chinese_text: %s\n", error.what());
        return 1;
    }
    return 0;
}
