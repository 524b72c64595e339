// The palette functions that show in the colours of one palette.
#include "inkstone/palette.h"

#include <algorithm>
#include <cstdio>

#include "inkstone/draw.h"
#include "inkstone/effect.h"
#include "page.h"

namespace gallery {
namespace {

// All 256 entries as swatches, sixteen to a row; those that differ from the page's own are left empty.
void show_entries(const Cell &cell, const Palette &entries) {
    const Palette shown = make_palette();
    const int size = (std::min(cell.width, cell.height) - 8) / 16;
    const int left = cell.x + (cell.width - 16 * size) / 2, top = cell.y + (cell.height - 16 * size) / 2;
    for (int i = 0; i < 256; ++i) {
        const int x = left + i % 16 * size, y = top + i / 16 * size;
        const bool same =
            std::equal(entries.begin() + 3 * i, entries.begin() + 3 * i + 3, shown.begin() + 3 * i);
        if (same) BUF_bar(x, y, x + size - 2, y + size - 2, i, cell.screen);
    }
}

void system_colours(const Cell &cell) {
    for (int i = 0; i < 14; ++i) {
        const int x = cell.x + 12 + i % 4 * 48, y = cell.y + 10 + i / 4 * 44;
        BUF_bar(x, y, x + 40, y + 26, i, cell.screen);
        print(x + 20, y + 26, std::to_string(i), kPaper + 10, cell.screen);
    }
}

void find_colour(const Cell &cell) {
    // For each colour of a plane of red and blue, with green in the bands, what the search finds among the
    // ramps.
    const Palette palette = make_palette();
    constexpr int kStep = 4;
    for (int y = 0; y < cell.height; y += kStep)
        for (int x = 0; x < cell.width; x += kStep) {
            const int red = x * 63 / cell.width, green = y * 63 / cell.height, blue = (x + y) % 64 * 32 / 63;
            const int colour = PAL_find_color(kInk, kRampsEnd, red, green, blue, palette.data());
            BUF_bar(cell.x + x, cell.y + y, std::min(cell.x + x + kStep - 1, cell.right()),
                    std::min(cell.y + y + kStep - 1, cell.bottom()), colour, cell.screen);
        }
}

void glass_tables(const Cell &cell) {
    landscape_ground(cell);
    const Palette palette = make_palette();
    constexpr int kLevels[] = {0, 32, 64, 96, 192};
    const int width = cell.width / 5;
    for (int i = 0; i < 5; ++i) {
        PAL_make_glass_table(kInk, kRampsEnd, i, kLevels[i], palette.data());
        const int x = cell.x + i * width;
        BUF_glass_bar(x + 2, cell.y + 24, x + width - 3, cell.bottom() - 24, i, cell.screen);
        print(x + width / 2, cell.y + 4, std::to_string(kLevels[i]), kPaper + 15, cell.screen);
    }
}

constexpr const char *kFile = "gallery.pal";

void save_palette(const Cell &cell) {
    const Palette palette = make_palette();
    PAL_save_palette(kRed, kRampsEnd, kFile, palette.data());
    show_entries(cell, palette);
    const int size = (std::min(cell.width, cell.height) - 8) / 16;
    const int left = cell.x + (cell.width - 16 * size) / 2, top = cell.y + (cell.height - 16 * size) / 2;
    BUF_box(left - 2, top + kRed / 16 * size - 2, left + 16 * size, top + kRampsEnd / 16 * size, kPaper + 15,
            cell.screen);
}

void read_palette(const Cell &cell) {
    // A palette of other colours, into which the file brings the entries that it stores.
    Palette palette;
    palette.fill(1);
    PAL_read_palette(kFile, palette.data());
    std::remove(kFile);
    show_entries(cell, palette);
}

}  // namespace

Page palettes_page() {
    return {"palettes",
            "Palettes and glass tables",
            3,
            2,
            1,
            {{"PAL_make_system_color", system_colours},
             {"PAL_find_color", find_colour},
             {"PAL_make_glass_table", glass_tables},
             {"PAL_save_palette", save_palette},
             {"PAL_read_palette", read_palette}}};
}

}  // namespace gallery
