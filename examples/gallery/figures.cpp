// Scaled copies and the zoom; lines, arcs and fills.
#include <algorithm>

#include "inkstone/draw.h"
#include "inkstone/line.h"
#include "inkstone/scale.h"
#include "page.h"

namespace gallery {
namespace {

// The same picture from half its size to three times.
using ScaleImage = void (*)(int32_t, int32_t, int32_t, int32_t, const uint8_t *, uint8_t *);
void show_scaled(const Cell &cell, ScaleImage scale) {
    checkered_ground(cell);
    int x = cell.x + 6;
    for (const int halves : {1, 2, 5}) {
        scale(x, cell.bottom() - 8 - 30 * halves, 20 * halves, 30 * halves, lantern().block.data(),
              cell.screen);
        x += 20 * halves + 8;
    }
}

void scale_put_image(const Cell &cell) {
    show_scaled(cell, BUF_scale_put_image);
}
void scale_pest_image(const Cell &cell) {
    show_scaled(cell, BUF_scale_pest_image);
}

void scale_put_bitmap(const Cell &cell) {
    // A small picture enlarged, and a large one shrunk to small ones.
    const Bytes small = landscape(64, 48), large = landscape(320, 240);
    const int height = cell.width * 3 / 4;
    BUF_scale_put_bitmap(cell.x, cell.y, cell.width, height, 64, 48, small.data(), cell.screen);
    for (int i = 0; i < 4; ++i)
        BUF_scale_put_bitmap(cell.x + 4 + i * 50, cell.y + height + 5, 44, cell.height - height - 10, 320,
                             240, large.data(), cell.screen);
}

void scale_pest_bitmap(const Cell &cell) {
    landscape_ground(cell);
    for (int i = 0; i < 5; ++i)
        BUF_scale_pest_bitmap(cell.x + 4 + i * 38, cell.y + 10 + i * 14, 34, 150 - i * 28, 40, 60,
                              lantern().bitmap(), cell.screen);
}

// The zoom fills a screen: its picture is shown at a third of the size.
void show_zoomed(const Cell &cell, int half_width, int half_height, int x, int y) {
    const Bytes whole = landscape(kWidth, kHeight);
    Bytes zoomed(kWidth * kHeight);
    MEM_zoom_control(half_width, half_height, x, y);
    MEM_scale_bitmap(zoomed.data(), whole.data());
    const int height = cell.width * 3 / 4;
    BUF_scale_put_bitmap(cell.x, cell.y + (cell.height - height) / 2, cell.width, height, kWidth, kHeight,
                         zoomed.data(), cell.screen);
}

void zoom_control(const Cell &cell) {
    show_zoomed(cell, 320, 240, 320, 240);
    // Where the window of the next picture lies.
    const int top = cell.y + (cell.height - cell.width * 3 / 4) / 2;
    const auto scaled = [&](int pixels) { return pixels * cell.width / kWidth; };
    BUF_dash_box(cell.x + scaled(248), top + scaled(60), cell.x + scaled(528), top + scaled(270), kGold + 14,
                 6, cell.screen);
}

void zoomed(const Cell &cell) {
    show_zoomed(cell, 140, 105, 388, 165);
}

void line(const Cell &cell) {
    // The strings of a curve.
    for (int i = 0; i <= 24; ++i) {
        const int x = cell.x + 6 + i * (cell.width - 12) / 24, y = cell.y + 6 + i * (cell.height - 12) / 24;
        BUF_line(cell.x + 6, y, x, cell.bottom() - 6, kJade + 4 + i / 3, cell.screen);
        BUF_line(x, cell.y + 6, cell.right() - 6, y, kSky + 5 + i / 3, cell.screen);
    }
}

void memory_line(const Cell &cell) {
    Memory memory(cell);
    for (int i = 0; i < 32; ++i) {
        // A fan whose ends lie outside the buffer.
        MEM_line(memory.width() / 2, memory.height() - 12, -200 + i * 18, -60 + (i - 16) * (i - 16) / 2,
                 kDusk + i / 2, memory.width(), memory.height(), memory.data());
    }
}

void dash_line(const Cell &cell) {
    for (int i = 0; i < 10; ++i)
        BUF_dash_line(cell.x + 8, cell.y + 10 + i * 18, cell.right() - 8, cell.y + 10 + i * 12,
                      kGold + 15 - i, i + 1, cell.screen);
}

void memory_dash_line(const Cell &cell) {
    Memory memory(cell);
    for (int i = 0; i < 20; ++i) {
        MEM_dash_line(8 + i * 7, 8, 8 + i * 7, memory.height() - 8, kSky + 6 + i % 10, i + 1, memory.width(),
                      memory.height(), memory.data());
    }
}

void circle(const Cell &cell) {
    // Each starts further round than the one inside it.
    for (int i = 0; i < 16; ++i)
        BUF_circle(cell.middle_x(), cell.middle_y() - 18, 4 + i * 4, 4 + i * 4, i * 45, i * 45,
                   kRed + 15 - i / 2, cell.screen);
    for (int i = 0; i < 5; ++i)
        BUF_circle(cell.middle_x(), cell.bottom() - 24, 18 - i * 3, 68 - i * 4, i * 90, i * 90,
                   kPaper + 14 - i * 2, cell.screen);
}

void memory_circle(const Cell &cell) {
    // Arcs of all lengths from one side.
    Memory memory(cell);
    for (int i = 0; i < 12; ++i)
        MEM_circle(memory.width() / 2, memory.height() / 2, 8 + i * 7, 6 + i * 5, 90, 90 + 30 * (i + 1),
                   kJade + 4 + i, memory.width(), memory.height(), memory.data());
}

void fill(const Cell &cell) {
    // A window of coloured glass: lines across, and each pane between them filled.
    BUF_box(cell.x, cell.y, cell.right(), cell.bottom(), kPaper + 14, cell.screen);
    const int x[] = {cell.x, cell.middle_x(), cell.right()};
    for (int i = 0; i < 3; ++i) {
        BUF_line(x[i], cell.y, x[(i + 1) % 3], cell.bottom(), kPaper + 14, cell.screen);
        BUF_line(x[i], cell.bottom(), x[(i + 2) % 3], cell.y, kPaper + 14, cell.screen);
        BUF_line(cell.x, cell.y + (i + 1) * cell.height / 4, cell.right(),
                 cell.bottom() - (i + 1) * cell.height / 4, kPaper + 14, cell.screen);
    }
    static constexpr int kColours[] = {kSky + 6,  kRed + 9,  kGold + 10, kJade + 8,
                                       kDusk + 9, kSky + 10, kRed + 6};
    int pane = 0;
    for (int row = cell.y + 3; row < cell.bottom(); row += 4)
        for (int column = cell.x + 3; column < cell.right(); column += 4)
            if (BUF_get_pixel(column, row, cell.screen) == kInk + 4)
                BUF_fill(column, row, kColours[pane++ % 7], cell.screen);
}

void memory_fill(const Cell &cell) {
    // A spiral of walls, filled from its heart up to the way out.
    Memory memory(cell);
    const int width = memory.width(), height = memory.height();
    int left = 8, top = 8, right = width - 9, bottom = height - 9;
    const auto wall = [&](int x1, int y1, int x2, int y2) {
        MEM_line(x1, y1, x2, y2, kGold + 10, width, height, memory.data());
    };
    while (right - left > 16) {
        wall(left, top, right, top);
        wall(right, top, right, bottom);
        wall(right, bottom, left, bottom);
        wall(left, bottom, left, top + 10);
        wall(left, top + 10, left + 10, top + 10);
        left += 10, top += 10, right -= 10, bottom -= 10;
    }
    MEM_fill(width / 2, height / 2, kRed + 8, width, height, memory.data());
}

}  // namespace

Page scaling_page() {
    return {"scaling",
            "Scaled copies and the zoom",
            3,
            2,
            1,
            {{"BUF_scale_put_image", scale_put_image},
             {"BUF_scale_pest_image", scale_pest_image},
             {"BUF_scale_put_bitmap", scale_put_bitmap},
             {"BUF_scale_pest_bitmap", scale_pest_bitmap},
             {"MEM_zoom_control", zoom_control},
             {"MEM_scale_bitmap", zoomed}}};
}

Page figures_page() {
    return {"figures",
            "Lines, circles and fills",
            4,
            2,
            1,
            {{"BUF_line", line},
             {"BUF_dash_line", dash_line},
             {"BUF_circle", circle},
             {"BUF_fill", fill},
             {"MEM_line", memory_line},
             {"MEM_dash_line", memory_dash_line},
             {"MEM_circle", memory_circle},
             {"MEM_fill", memory_fill}}};
}

}  // namespace gallery
