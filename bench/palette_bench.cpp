// Colours: searches, glass tables, fades, and the palette of the view. Each call does the same at every size.
#include "inkstone/palette.h"

#include "call.h"
#include "inkstone/view.h"
#include "stage.h"

using namespace bench;

namespace {

constexpr int kColours = 256;

// As many colours as there are, all different.
std::uint8_t *colours() {
    static std::vector<std::uint8_t> palette = [] {
        std::vector<std::uint8_t> made;
        for (int i = 0; i < kColours; ++i)
            for (const int part : {i * 5 % 64, i * 11 % 64, i * 23 % 64})
                made.push_back(static_cast<std::uint8_t>(part));
        return made;
    }();
    return palette.data();
}

// The limit of a search: every distance worked out and the least one kept.
const Rival kDistances{"limit distances", [](Stage &, int x, int y) {
                           const std::uint8_t *colour = colours();
                           benchmark::DoNotOptimize(colour);
                           int least = 1 << 30;
                           for (int i = 0; i < kColours; ++i, colour += 3) {
                               const int red = colour[0] - x % 64, green = colour[1] - y % 64,
                                         blue = colour[2] - 63;
                               const int distance = red * red + green * green + blue * blue;
                               least = distance < least ? distance : least;
                           }
                           benchmark::DoNotOptimize(least);
                       }};
Rivals search_peers() {
    Rivals peers{kDistances};
#if defined(INKSTONE_BENCH_SDL)
    peers.push_back({"SDL2", [](Stage &s, int x, int y) {
                         const SDL_PixelFormat *format = static_cast<SDL_Surface *>(s.sdl_sprite)->format;
                         benchmark::DoNotOptimize(
                             SDL_MapRGB(format, static_cast<Uint8>(x % 64), static_cast<Uint8>(y % 64), 63));
                     }});
#endif
#if defined(INKSTONE_BENCH_ALLEGRO)
    peers.push_back({"Allegro 4", [](Stage &, int x, int y) {
                         static const std::vector<RGB> palette = [] {
                             std::vector<RGB> all;
                             for (const std::uint8_t *c = colours(); c < colours() + 3 * kColours; c += 3)
                                 all.push_back({c[0], c[1], c[2], 0});
                             return all;
                         }();
                         benchmark::DoNotOptimize(bestfit_color(palette.data(), x % 64, y % 64, 63));
                     }});
#endif
    return peers;
}

// SDL2 searches the colours of a surface.
void load_sdl_colours([[maybe_unused]] Stage &s) {
#if defined(INKSTONE_BENCH_SDL)
    for (int i = 0; i < kColours; ++i) {
        const SDL_Color colour{colours()[3 * i], colours()[3 * i + 1], colours()[3 * i + 2], 255};
        SDL_SetPaletteColors(static_cast<SDL_Surface *>(s.sdl_sprite)->format->palette, &colour, i, 1);
    }
#endif
}

void prepare(Stage &s) {
    WViewInit(nullptr, 0, 0, kWidth, kHeight, s.screen);
    static const bool enabled = (WViewEnable(), true);
    (void)enabled;
    PAL_fade_init(colours(), nullptr);
}

[[maybe_unused]] const bool registered = add_whole(
    "Palettes", {{"PAL_find_color",
                  CALL(benchmark::DoNotOptimize(PAL_find_color(0, kColours, x % 64, y % 64, 63, colours()))),
                  search_peers(), load_sdl_colours},
                 {"PAL_make_glass_table", CALL(PAL_make_glass_table(0, kColours, 1, x % 128, colours()))},
                 {"PAL_make_system_color", CALL(PAL_make_system_color(s.work))},
                 {"PAL_step_fade_effect", CALL(PAL_step_fade_effect(x % 64)), {}, prepare},
                 {"SCR_set_palette", CALL(SCR_set_palette(colours())), {}, prepare},
                 {"SCR_get_palette", CALL(SCR_get_palette(s.work)), {}, prepare},
                 {"WViewSetPalette", CALL(WViewSetPalette(colours())), {}, prepare},
                 {"WViewSet1Palette",
                  CALL(WViewSet1Palette(static_cast<std::int16_t>(x % kColours), 1, 2, 3)),
                  {},
                  prepare},
                 {"WViewSetPartPalette", CALL(WViewSetPartPalette(16, 16, colours())), {}, prepare},
                 {"WViewGetPalette", CALL(WViewGetPalette(s.work)), {}, prepare}});

}  // namespace
