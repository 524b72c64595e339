// The basic drawing: pages of the screen buffer, and of memory buffers and image blocks.
#include "inkstone/draw.h"

#include "page.h"

namespace gallery {
namespace {

// A picture in the middle of the cell.
int left_of(const Cell &cell, int width) {
    return cell.x + (cell.width - width) / 2;
}
int top_of(const Cell &cell, int height) {
    return cell.y + (cell.height - height) / 2;
}

void put_pixel(const Cell &cell) {
    // A field of stars, scattered by a small multiplicative sequence.
    unsigned state = 7;
    for (int i = 0; i < 160; ++i) {
        state = state * 1664525U + 1013904223U;
        const int x = static_cast<int>(state >> 16) % cell.width,
                  y = static_cast<int>(state >> 4 & 0xFFF) % cell.height;
        BUF_put_pixel(cell.x + x, cell.y + y, kPaper + static_cast<int>(state >> 28), cell.screen);
    }
}

void get_pixel(const Cell &cell) {
    // Every pixel of the lantern, read and drawn again as a block of three by two.
    BUF_put_image(cell.x + 4, top_of(cell, 60), lantern().block.data(), cell.screen);
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 20; ++x) {
            const int colour = BUF_get_pixel(cell.x + 4 + x * 2, top_of(cell, 60) + y * 2, cell.screen);
            BUF_bar(cell.x + 52 + x * 3, cell.y + 6 + y * 3, cell.x + 53 + x * 3, cell.y + 7 + y * 3, colour,
                    cell.screen);
        }
}

void bar(const Cell &cell) {
    for (int i = 0; i < kShades; ++i)
        BUF_bar(cell.x + 8 + i * 6, cell.bottom() - 12 - i * 5, cell.x + 12 + i * 6, cell.bottom() - 8,
                kJade + i, cell.screen);
}

void mesh_bar(const Cell &cell) {
    landscape_ground(cell);
    BUF_mesh_bar(cell.x + 12, cell.y + 12, cell.middle_x() + 10, cell.middle_y() + 10, 0, cell.screen);
    BUF_mesh_bar(cell.middle_x() - 10, cell.middle_y() - 10, cell.right() - 12, cell.bottom() - 12,
                 kGold + 13, cell.screen);
}

void box(const Cell &cell) {
    for (int i = 0; i < 12; ++i)
        BUF_box(cell.x + 6 + i * 4, cell.y + 5 + i * 4, cell.right() - 6 - i * 4, cell.bottom() - 5 - i * 4,
                kSky + 15 - i, cell.screen);
}

void dash_box(const Cell &cell) {
    for (int i = 0; i < 5; ++i)
        BUF_dash_box(cell.x + 6 + i * 10, cell.y + 5 + i * 10, cell.right() - 6 - i * 10,
                     cell.bottom() - 5 - i * 10, kGold + 14 - i, 2 << i, cell.screen);
}

void change_color(const Cell &cell) {
    for (int i = 0; i < 2; ++i)
        BUF_put_image(cell.x + 8 + i * 60, top_of(cell, 60), lantern().block.data(), cell.screen);
    for (int i = 0; i < kShades; ++i)
        BUF_change_color(cell.x + 60, cell.y, cell.right(), cell.bottom(), kRed + i, kJade + i, cell.screen);
}

void put_image(const Cell &cell) {
    checkered_ground(cell);
    BUF_put_image(left_of(cell, 40), top_of(cell, 60), lantern().block.data(), cell.screen);
}

void pest_image(const Cell &cell) {
    checkered_ground(cell);
    BUF_pest_image(left_of(cell, 40), top_of(cell, 60), lantern().block.data(), cell.screen);
}

void put_bitmap(const Cell &cell) {
    // The rows of the lantern from its body on.
    checkered_ground(cell);
    BUF_put_bitmap(left_of(cell, 40), top_of(cell, 40), 40, 40, lantern().bitmap() + 40 * 5, cell.screen);
}

void pest_bitmap(const Cell &cell) {
    checkered_ground(cell);
    BUF_pest_bitmap(left_of(cell, 40), top_of(cell, 40), 40, 40, lantern().bitmap() + 40 * 5, cell.screen);
}

// The picture drawn at the upper left is taken and put down again elsewhere.
void get_image(const Cell &cell) {
    landscape_ground(cell);
    Bytes taken(48 * 40 + 4);
    BUF_get_image(cell.x + 50, cell.y + 8, 48, 40, taken.data(), cell.screen);
    BUF_box(cell.x + 49, cell.y + 7, cell.x + 98, cell.y + 48, kGold + 13, cell.screen);
    BUF_put_image(cell.x + 8, cell.bottom() - 48, taken.data(), cell.screen);
    BUF_box(cell.x + 7, cell.bottom() - 49, cell.x + 56, cell.bottom() - 8, kPaper + 14, cell.screen);
}

void get_bitmap(const Cell &cell) {
    // The same rectangle's pixels laid down as a bitmap of half its width and twice its height.
    landscape_ground(cell);
    Bytes taken(48 * 40);
    BUF_get_bitmap(cell.x + 50, cell.y + 8, 48, 40, taken.data(), cell.screen);
    BUF_box(cell.x + 49, cell.y + 7, cell.x + 98, cell.y + 48, kGold + 13, cell.screen);
    BUF_put_bitmap(cell.x + 12, cell.bottom() - 88, 24, 80, taken.data(), cell.screen);
    BUF_box(cell.x + 11, cell.bottom() - 89, cell.x + 36, cell.bottom() - 8, kPaper + 14, cell.screen);
}

void memory_put_pixel(const Cell &cell) {
    Memory memory(cell);
    for (int y = 0; y < memory.height(); ++y)
        for (int x = 0; x < memory.width(); ++x)
            if ((x ^ y) % 5 == 0)
                MEM_put_pixel(x, y, kDusk + (x + y) / 16, memory.width(), memory.height(), memory.data());
}

void memory_get_pixel(const Cell &cell) {
    // The lower half mirrors the upper one, pixel by pixel.
    landscape_ground(cell);
    Memory memory(cell);
    const int width = memory.width(), height = memory.height();
    for (int y = height / 2; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const int above = MEM_get_pixel(x, height - 1 - y, width, height, memory.data());
            MEM_put_pixel(x, y, above, width, height, memory.data());
        }
}

void memory_box(const Cell &cell) {
    Memory memory(cell);
    for (int i = 0; i < 14; ++i)
        MEM_box(4 + i * 2, 4 + i * 6, memory.width() - 34 + i * 2, 18 + i * 6, kRed + 15 - i, memory.width(),
                memory.height(), memory.data());
}

void memory_put_image(const Cell &cell) {
    checkered_ground(cell);
    Memory memory(cell);
    for (int i = 0; i < 3; ++i)
        MEM_put_image(-12 + i * 48, 6 + i * 20, lantern().block.data(), memory.data(), memory.width(),
                      memory.height());
}

void memory_pest_image(const Cell &cell) {
    checkered_ground(cell);
    Memory memory(cell);
    for (int i = 0; i < 3; ++i)
        MEM_pest_image(-12 + i * 48, 6 + i * 20, lantern().block.data(), memory.data(), memory.width(),
                       memory.height());
}

void memory_put_bitmap(const Cell &cell) {
    checkered_ground(cell);
    Memory memory(cell);
    for (int i = 0; i < 3; ++i)
        MEM_put_bitmap(-12 + i * 48, 10 + i * 24, 40, 38, lantern().bitmap() + 40 * 6, memory.data(),
                       memory.width(), memory.height());
}

void memory_pest_bitmap(const Cell &cell) {
    checkered_ground(cell);
    Memory memory(cell);
    for (int i = 0; i < 3; ++i)
        MEM_pest_bitmap(-12 + i * 48, 10 + i * 24, 40, 38, lantern().bitmap() + 40 * 6, memory.data(),
                        memory.width(), memory.height());
}

void memory_get_image(const Cell &cell) {
    landscape_ground(cell);
    Memory memory(cell);
    Bytes taken(36 * 30 + 4);
    MEM_get_image(60, 12, 36, 30, taken.data(), memory.data(), memory.width(), memory.height());
    for (int i = 0; i < 3; ++i) {
        const int x = 6 + i * 36, y = memory.height() - 36 - i * 4;
        MEM_put_image(x, y, taken.data(), memory.data(), memory.width(), memory.height());
        MEM_box(x, y, x + 35, y + 29, kPaper + 14, memory.width(), memory.height(), memory.data());
    }
}

void draw_point_cross(const Cell &cell) {
    Memory memory(cell);
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 7; ++x)
            MEM_draw_point_cross(x * 18 + (y & 1) * 9, 8 + y * 18, kGold + 4 + x + y, memory.width(),
                                 memory.height(), memory.data());
}

void operate_image_size(const Cell &cell) {
    // A picture somewhere in an empty buffer, and the rectangle found around it.
    BUF_bar(cell.x, cell.y, cell.right(), cell.bottom(), 0, cell.screen);
    Memory memory(cell);
    MEM_pest_image(52, 22, lantern().block.data(), memory.data(), memory.width(), memory.height());
    std::int32_t left = 0, top = 0, right = memory.width(), bottom = memory.height();
    MEM_operate_image_size(&left, &top, &right, &bottom, memory.width(), memory.height(), memory.data());
    MEM_box(left - 1, top - 1, right + 1, bottom + 1, kGold + 13, memory.width(), memory.height(),
            memory.data());
}

void image_put_image(const Cell &cell) {
    Image target = lantern();
    IMG_put_image(20, 28, seal().block.data(), target.block.data());
    checkered_ground(cell);
    BUF_pest_image(left_of(cell, 40), top_of(cell, 60), target.block.data(), cell.screen);
}

void image_pest_image(const Cell &cell) {
    Bytes target(80 * 72 + 4);
    landscape_ground(cell);
    BUF_get_image(cell.x, cell.y, 80, 72, target.data(), cell.screen);
    for (int i = 0; i < 3; ++i)
        IMG_pest_image(-14 + i * 34, -20 + i * 24, lantern().block.data(), target.data());
    checkered_ground(cell);
    BUF_put_image(left_of(cell, 80), top_of(cell, 72), target.data(), cell.screen);
}

void image_get_image_size(const Cell &cell) {
    std::int32_t width = 0, height = 0;
    const std::int32_t size = IMG_get_image_size(lantern().block.data(), &width, &height);
    const int x = cell.x + 10, y = top_of(cell, height);
    BUF_pest_image(x, y, lantern().block.data(), cell.screen);
    BUF_box(x - 1, y - 1, x + width, y + height, kInk + 9, cell.screen);
    print(cell.right() - 32, y + 6, std::to_string(width) + " x", kPaper + 14, cell.screen);
    print(cell.right() - 32, y + 22, std::to_string(height), kPaper + 14, cell.screen);
    print(cell.right() - 32, y + 42, std::to_string(size), kGold + 13, cell.screen);
}

}  // namespace

Page screen_page() {
    return {"screen",
            "The screen buffer",
            5,
            3,
            2,
            {{"BUF_put_pixel", put_pixel},
             {"BUF_get_pixel", get_pixel},
             {"BUF_bar", bar},
             {"BUF_mesh_bar", mesh_bar},
             {"BUF_box", box},
             {"BUF_dash_box", dash_box},
             {"BUF_change_color", change_color},
             {"BUF_put_image", put_image},
             {"BUF_pest_image", pest_image},
             {"BUF_put_bitmap", put_bitmap},
             {"BUF_pest_bitmap", pest_bitmap},
             {"BUF_get_image", get_image},
             {"BUF_get_bitmap", get_bitmap}}};
}

Page memory_page() {
    return {"memory",
            "Memory buffers and image blocks",
            5,
            3,
            2,
            {{"MEM_put_pixel", memory_put_pixel},
             {"MEM_get_pixel", memory_get_pixel},
             {"MEM_box", memory_box},
             {"MEM_put_image", memory_put_image},
             {"MEM_pest_image", memory_pest_image},
             {"MEM_put_bitmap", memory_put_bitmap},
             {"MEM_pest_bitmap", memory_pest_bitmap},
             {"MEM_get_image", memory_get_image},
             {"MEM_draw_point_cross", draw_point_cross},
             {"MEM_operate_image_size", operate_image_size},
             {"IMG_put_image", image_put_image},
             {"IMG_pest_image", image_pest_image},
             {"IMG_get_image_size", image_get_image_size}}};
}

}  // namespace gallery
