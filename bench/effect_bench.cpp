// The copies with an effect beside memcpy, a bare table loop, and the peers that have the like.
#include "inkstone/effect.h"

#include "inkstone/draw.h"
#include "stage.h"

using bench::add;
using bench::kHeight;
using bench::kWidth;
using bench::Stage;

namespace {

constexpr std::uint8_t kNoTable[256] = {};

// Glass with nothing around it.
void remap_rows(const Stage &stage, int x, int y, const std::uint8_t *table) {
    for (int row = 0; row < stage.h; ++row) {
        std::uint8_t *to = stage.screen + (y + row) * kWidth + x;
        for (int column = 0; column < stage.w; ++column) to[column] = table[to[column]];
    }
}

[[maybe_unused]] const bool registered = [] {
    const auto copy = [](Stage &s, int x, int y) { bench::copy_rows(s, s.screen, x, y); };
    for (const char *name : {"mask", "mesh", "turn", "reverse", "key_pest", "key_put"})
        add(name, "memcpy", copy);
    add("mask", "inkstone", [](Stage &s, int x, int y) { BUF_mask_pest_image(x, y, s.image, s.screen, 3); });
    add("mesh", "inkstone",
        [](Stage &s, int x, int y) { BUF_mesh_pest_image(x, y, s.image, 255, s.screen); });
    add("turn", "inkstone",
        [](Stage &s, int x, int y) { MEM_turn_pest_image(x, y, s.image, kWidth, kHeight, s.screen); });
    add("reverse", "inkstone",
        [](Stage &s, int x, int y) { MEM_reverse_pest_image(x, y, s.image, kWidth, kHeight, s.screen); });
    add("key_put", "inkstone",
        [](Stage &s, int x, int y) { BUF_key_put_image(x, y, s.image, s.screen, 3, s.keys); });
    add("key_pest", "inkstone",
        [](Stage &s, int x, int y) { BUF_key_pest_image(x, y, s.image, s.screen, 3, s.keys); });
    add("shadow", "inkstone",
        [](Stage &s, int x, int y) { BUF_shadow_pest_bitmap(x, y, s.w, s.h, s.pixels, s.screen, s.work); });

    const auto table_loop = [](Stage &s, int x, int y) {
        const std::uint8_t *table = kNoTable;
        benchmark::DoNotOptimize(table);
        remap_rows(s, x, y, table);
    };
    add("glass_bar", "table", table_loop);
    add("glass_mask", "table", table_loop);
    add("glass_bar", "inkstone",
        [](Stage &s, int x, int y) { BUF_glass_bar(x, y, x + s.w - 1, y + s.h - 1, 0, s.screen); });
    add("glass_mask", "inkstone",
        [](Stage &s, int x, int y) { BUF_glass_mask_pest_image(x, y, s.image, s.screen, 0); });

    // The limit of the outline: the transparent copy of the picture it has enlarged.
    add(
        "outline", "pest", [](Stage &s, int x, int y) { BUF_pest_image(x - 1, y - 1, s.work, s.screen); },
        [](Stage &s) { BUF_outline_pest_image(0, 0, s.image, 3, 1, s.screen, s.work); });
    add("outline", "inkstone",
        [](Stage &s, int x, int y) { BUF_outline_pest_image(x, y, s.image, 3, 1, s.screen, s.work); });
#if defined(INKSTONE_BENCH_SDL)
    add("key_pest", "sdl", [](Stage &s, int x, int y) {
        SDL_Rect at{x, y, 0, 0};
        SDL_BlitSurface(s.sdl_keyed, nullptr, s.sdl_screen, &at);
    });
#endif
#if defined(INKSTONE_BENCH_ALLEGRO)
    add("mask", "allegro",
        [](Stage &s, int x, int y) { draw_character_ex(s.allegro_screen, s.allegro_sprite, x, y, 3, -1); });
    add("turn", "allegro",
        [](Stage &s, int x, int y) { draw_sprite_h_flip(s.allegro_screen, s.allegro_sprite, x, y); });
    add("reverse", "allegro",
        [](Stage &s, int x, int y) { draw_sprite_v_flip(s.allegro_screen, s.allegro_sprite, x, y); });
    add("key_pest", "allegro",
        [](Stage &s, int x, int y) { draw_sprite(s.allegro_screen, s.allegro_sprite, x, y); });
    static COLOR_MAP map;
    color_map = &map;
    add("glass_bar", "allegro", [](Stage &s, int x, int y) {
        drawing_mode(DRAW_MODE_TRANS, nullptr, 0, 0);
        rectfill(s.allegro_screen, x, y, x + s.w - 1, y + s.h - 1, 3);
        solid_mode();
    });
    add("glass_mask", "allegro",
        [](Stage &s, int x, int y) { draw_trans_sprite(s.allegro_screen, s.allegro_sprite, x, y); });
#endif
    return true;
}();

}  // namespace
