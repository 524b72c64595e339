// The copies with an effect, on two pages.
#include "inkstone/effect.h"

#include <algorithm>

#include "inkstone/draw.h"
#include "inkstone/palette.h"
#include "page.h"

namespace gallery {
namespace {

// Three lanterns across a cell.
constexpr int kPlaces = 3;
int place_x(const Cell &cell, int i) {
    return cell.x + 14 + i * (cell.width - 68) / (kPlaces - 1);
}
int place_y(const Cell &cell) {
    return cell.y + (cell.height - 60) / 2;
}

void mask_image(const Cell &cell) {
    landscape_ground(cell);
    const int colours[kPlaces] = {kInk + 1, kGold + 12, kPaper + 15};
    for (int i = 0; i < kPlaces; ++i)
        BUF_mask_pest_image(place_x(cell, i), place_y(cell), lantern().block.data(), cell.screen, colours[i]);
}

void outline_image(const Cell &cell) {
    landscape_ground(cell);
    Bytes work(60 * 80 + 4);
    for (int i = 0; i < kPlaces; ++i)
        BUF_outline_pest_image(place_x(cell, i), place_y(cell), lantern().block.data(), kPaper + 15, i + 1,
                               cell.screen, work.data());
}

void outline_bitmap(const Cell &cell) {
    landscape_ground(cell);
    Bytes work(60 * 80);
    const int colours[kPlaces] = {kGold + 14, kJade + 14, kSky + 15};
    for (int i = 0; i < kPlaces; ++i)
        BUF_outline_pest_bitmap(place_x(cell, i), place_y(cell), 40, 60, lantern().bitmap(), colours[i], 2,
                                cell.screen, work.data());
}

void mesh_image(const Cell &cell) {
    landscape_ground(cell);
    for (int i = 0; i < kPlaces; ++i)
        BUF_mesh_pest_image(place_x(cell, i), place_y(cell), lantern().block.data(), 255, cell.screen);
}

void mesh_bitmap(const Cell &cell) {
    // Masks that fold the colours: all bits, every other shade's, none.
    landscape_ground(cell);
    const int masks[kPlaces] = {255, 0xFC, 0};
    for (int i = 0; i < kPlaces; ++i)
        BUF_mesh_pest_bitmap(place_x(cell, i), place_y(cell), 40, 60, lantern().bitmap(), masks[i],
                             cell.screen);
}

// Glass 0 to 2: dark, as it is and bright, in greys of the ink.
void make_glass() {
    const Palette palette = make_palette();
    const int levels[kPlaces] = {44, 80, 140};
    for (int n = 0; n < kPlaces; ++n) PAL_make_glass_table(kInk, kRampsEnd, n, levels[n], palette.data());
}

void glass_bar(const Cell &cell) {
    landscape_ground(cell);
    make_glass();
    for (int i = 0; i < kPlaces; ++i)
        BUF_glass_bar(place_x(cell, i) - 4, cell.y + 14, place_x(cell, i) + 44, cell.bottom() - 14, i,
                      cell.screen);
}

void glass_box(const Cell &cell) {
    landscape_ground(cell);
    make_glass();
    for (int i = 0; i < 18; ++i)
        if (i % 6 < 4)
            BUF_glass_box(cell.x + 8 + i, cell.y + 8 + i, cell.right() - 8 - i, cell.bottom() - 8 - i, i / 6,
                          cell.screen);
}

void glass_mask_image(const Cell &cell) {
    landscape_ground(cell);
    make_glass();
    for (int i = 0; i < kPlaces; ++i)
        BUF_glass_mask_pest_image(place_x(cell, i), place_y(cell), lantern().block.data(), cell.screen, i);
}

void glass_mask_bitmap(const Cell &cell) {
    landscape_ground(cell);
    make_glass();
    for (int i = 0; i < kPlaces; ++i)
        BUF_glass_mask_pest_bitmap(place_x(cell, i), place_y(cell) + 10, 40, 40, lantern().bitmap() + 40 * 5,
                                   cell.screen, i);
}

// The pictures on the left, and on the right what the key buffer says was drawn where.
void show_keys(const Cell &cell,
               void (*draw)(int32_t, int32_t, const uint8_t *, uint8_t *, int32_t, uint8_t *)) {
    Bytes keys(kWidth * kHeight, kInk + 2);
    checkered_ground(cell);
    for (int i = 0; i < kPlaces; ++i) {
        const int colours[kPlaces] = {kRed + 10, kGold + 11, kJade + 10};
        draw(cell.x + 6 + i * 20, place_y(cell) - 12 + i * 12, lantern().block.data(), cell.screen,
             colours[i], keys.data());
    }
    Bytes part(static_cast<std::size_t>(cell.width / 2 * cell.height));
    BUF_get_bitmap(cell.x, cell.y, cell.width / 2, cell.height, part.data(), keys.data());
    BUF_put_bitmap(cell.middle_x(), cell.y, cell.width / 2, cell.height, part.data(), cell.screen);
}

void key_put(const Cell &cell) {
    show_keys(cell, BUF_key_put_image);
}
void key_pest(const Cell &cell) {
    show_keys(cell, BUF_key_pest_image);
}

// In the next four the picture as it is stands on the left, and what becomes of it in a memory buffer on the
// right.
int left_x(const Cell &cell) {
    return cell.x + cell.width / 2 - 60;
}
constexpr int kApart = 80;

void reverse_image(const Cell &cell) {
    checkered_ground(cell);
    BUF_pest_image(left_x(cell), place_y(cell), lantern().block.data(), cell.screen);
    Memory memory(cell);
    MEM_reverse_pest_image(left_x(cell) + kApart - cell.x, place_y(cell) - cell.y, lantern().block.data(),
                           memory.width(), memory.height(), memory.data());
}

void reverse_bitmap(const Cell &cell) {
    checkered_ground(cell);
    BUF_pest_bitmap(left_x(cell), place_y(cell), 40, 40, lantern().bitmap(), cell.screen);
    Memory memory(cell);
    MEM_reverse_pest_bitmap(left_x(cell) + kApart - cell.x, place_y(cell) - cell.y, 40, 40,
                            lantern().bitmap(), memory.width(), memory.height(), memory.data());
}

void turn_image(const Cell &cell) {
    checkered_ground(cell);
    BUF_pest_image(left_x(cell), place_y(cell), lantern().block.data(), cell.screen);
    Memory memory(cell);
    MEM_turn_pest_image(left_x(cell) + kApart - cell.x, place_y(cell) - cell.y, lantern().block.data(),
                        memory.width(), memory.height(), memory.data());
}

void turn_bitmap(const Cell &cell) {
    checkered_ground(cell);
    const Image &stamp = seal();
    BUF_put_image(left_x(cell), place_y(cell) + 12, stamp.block.data(), cell.screen);
    Memory memory(cell);
    MEM_turn_pest_bitmap(left_x(cell) + kApart - cell.x, place_y(cell) + 12 - cell.y, 32, 32, stamp.bitmap(),
                         memory.width(), memory.height(), memory.data());
}

// Reflections under the picture.
void shadow_mask_image(const Cell &cell) {
    landscape_ground(cell);
    BUF_pest_image(place_x(cell, 1), cell.y, lantern().block.data(), cell.screen);
    Memory memory(cell);
    MEM_shadow_mask_pest_image(kInk + 2, place_x(cell, 1) - cell.x, 60, lantern().block.data(),
                               memory.width(), memory.height(), memory.data());
}

void shadow_mask_bitmap(const Cell &cell) {
    landscape_ground(cell);
    BUF_pest_bitmap(place_x(cell, 1), cell.y + 10, 40, 45, lantern().bitmap(), cell.screen);
    Memory memory(cell);
    MEM_shadow_mask_pest_bitmap(kDusk + 3, place_x(cell, 1) - cell.x, 55, 40, 45, lantern().bitmap(),
                                memory.width(), memory.height(), memory.data());
}

void shadow_bitmap(const Cell &cell) {
    landscape_ground(cell);
    BUF_bar(cell.x, cell.y + cell.height / 2, cell.right(), cell.bottom(), kPaper + 6, cell.screen);
    Bytes work(50 * 45);
    for (int i = 0; i < kPlaces; ++i) {
        BUF_shadow_pest_bitmap(place_x(cell, i), place_y(cell) + 6, 40, 60, lantern().bitmap(), cell.screen,
                               work.data());
        BUF_pest_image(place_x(cell, i), place_y(cell) + 6, lantern().block.data(), cell.screen);
    }
}

}  // namespace

Page effects_page() {
    return {"effects",
            "In one colour, outlined, as glass",
            3,
            3,
            1,
            {{"BUF_mask_pest_image", mask_image},
             {"BUF_outline_pest_image", outline_image},
             {"BUF_outline_pest_bitmap", outline_bitmap},
             {"BUF_mesh_pest_image", mesh_image},
             {"BUF_mesh_pest_bitmap", mesh_bitmap},
             {"BUF_glass_bar", glass_bar},
             {"BUF_glass_box", glass_box},
             {"BUF_glass_mask_pest_image", glass_mask_image},
             {"BUF_glass_mask_pest_bitmap", glass_mask_bitmap}}};
}

Page mirrors_page() {
    return {"mirrors",
            "With a key, mirrored, as a shadow",
            3,
            3,
            1,
            {{"BUF_key_put_image", key_put},
             {"BUF_shadow_pest_bitmap", shadow_bitmap},
             {"BUF_key_pest_image", key_pest},
             {"MEM_reverse_pest_image", reverse_image},
             {"MEM_shadow_mask_pest_image", shadow_mask_image},
             {"MEM_reverse_pest_bitmap", reverse_bitmap},
             {"MEM_turn_pest_image", turn_image},
             {"MEM_shadow_mask_pest_bitmap", shadow_mask_bitmap},
             {"MEM_turn_pest_bitmap", turn_bitmap}}};
}

}  // namespace gallery
