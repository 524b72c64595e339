// The basic copies and fills beside memcpy, memset, SDL and Allegro.
#include "inkstone/draw.h"

#include "stage.h"

using bench::add;
using bench::Stage;

namespace {

[[maybe_unused]] const bool registered = [] {
    add("put", "memcpy", [](Stage &s, int x, int y) { bench::copy_rows(s, s.screen, x, y); });
    add("put", "inkstone", [](Stage &s, int x, int y) { BUF_put_image(x, y, s.image, s.screen); });
    add("get", "memcpy", [](Stage &s, int x, int y) {
        for (int row = 0; row < s.h; ++row)
            std::memcpy(s.pixels + row * s.w, s.screen + (y + row) * bench::kWidth + x,
                        static_cast<std::size_t>(s.w));
    });
    add("get", "inkstone", [](Stage &s, int x, int y) { BUF_get_image(x, y, s.w, s.h, s.image, s.screen); });
    add("pest", "memcpy", [](Stage &s, int x, int y) { bench::copy_rows(s, s.screen, x, y); });
    add("pest", "inkstone", [](Stage &s, int x, int y) { BUF_pest_image(x, y, s.image, s.screen); });
    add("bar", "memset", [](Stage &s, int x, int y) { bench::fill_rows(s, s.screen, x, y); });
    add("bar", "inkstone",
        [](Stage &s, int x, int y) { BUF_bar(x, y, x + s.w - 1, y + s.h - 1, 3, s.screen); });
    add("mesh_bar", "memset", [](Stage &s, int x, int y) { bench::fill_rows(s, s.screen, x, y); });
    add("mesh_bar", "inkstone",
        [](Stage &s, int x, int y) { BUF_mesh_bar(x, y, x + s.w - 1, y + s.h - 1, 3, s.screen); });
    add("change_color", "memcpy", [](Stage &s, int x, int y) { bench::copy_rows(s, s.screen, x, y); });
    add("change_color", "inkstone",
        [](Stage &s, int x, int y) { BUF_change_color(x, y, x + s.w - 1, y + s.h - 1, 1, 1, s.screen); });
    add("box", "inkstone",
        [](Stage &s, int x, int y) { BUF_box(x, y, x + s.w - 1, y + s.h - 1, 3, s.screen); });
#if defined(INKSTONE_BENCH_SDL)
    add("put", "sdl", [](Stage &s, int x, int y) {
        SDL_Rect at{x, y, 0, 0};
        SDL_BlitSurface(s.sdl_sprite, nullptr, s.sdl_screen, &at);
    });
    add("pest", "sdl", [](Stage &s, int x, int y) {
        SDL_Rect at{x, y, 0, 0};
        SDL_BlitSurface(s.sdl_keyed, nullptr, s.sdl_screen, &at);
    });
    add("bar", "sdl", [](Stage &s, int x, int y) {
        const SDL_Rect bar{x, y, s.w, s.h};
        SDL_FillRect(s.sdl_screen, &bar, 3);
    });
#endif
#if defined(INKSTONE_BENCH_ALLEGRO)
    add("put", "allegro",
        [](Stage &s, int x, int y) { blit(s.allegro_sprite, s.allegro_screen, 0, 0, x, y, s.w, s.h); });
    add("get", "allegro",
        [](Stage &s, int x, int y) { blit(s.allegro_screen, s.allegro_sprite, x, y, 0, 0, s.w, s.h); });
    add("pest", "allegro",
        [](Stage &s, int x, int y) { draw_sprite(s.allegro_screen, s.allegro_sprite, x, y); });
    add("bar", "allegro",
        [](Stage &s, int x, int y) { rectfill(s.allegro_screen, x, y, x + s.w - 1, y + s.h - 1, 3); });
    add("box", "allegro",
        [](Stage &s, int x, int y) { rect(s.allegro_screen, x, y, x + s.w - 1, y + s.h - 1, 3); });
    add("mesh_bar", "allegro", [](Stage &s, int x, int y) {
        static peers::AllegroBitmap pattern(2, 2);
        putpixel(pattern, 0, 0, 3), putpixel(pattern, 1, 1, 3);
        drawing_mode(DRAW_MODE_MASKED_PATTERN, pattern, 0, 0);
        rectfill(s.allegro_screen, x, y, x + s.w - 1, y + s.h - 1, 3);
        solid_mode();
    });
#endif
    return true;
}();

}  // namespace
