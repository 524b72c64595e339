// What the other libraries have for the drawing operations, on the same stage.
#pragma once

#include "stage.h"

namespace bench {

#if defined(INKSTONE_BENCH_SDL)
#define WITH_SDL(...) [](Stage &s, [[maybe_unused]] int x, [[maybe_unused]] int y) { __VA_ARGS__; }
#else
#define WITH_SDL(...) nullptr
#endif
#if defined(INKSTONE_BENCH_ALLEGRO)
#define WITH_ALLEGRO(...) [](Stage &s, [[maybe_unused]] int x, [[maybe_unused]] int y) { __VA_ARGS__; }
#else
#define WITH_ALLEGRO(...) nullptr
#endif

inline const Rivals kPutPeers{
    {"SDL2", WITH_SDL(SDL_Rect at{x, y, 0, 0}; SDL_BlitSurface(s.sdl_sprite, nullptr, s.sdl_screen, &at))},
    {"Allegro 4", WITH_ALLEGRO(blit(s.allegro_sprite, s.allegro_screen, 0, 0, x, y, s.w, s.h))}};
inline const Rivals kPestPeers{
    {"SDL2", WITH_SDL(SDL_Rect at{x, y, 0, 0}; SDL_BlitSurface(s.sdl_keyed, nullptr, s.sdl_screen, &at))},
    {"Allegro 4", WITH_ALLEGRO(draw_sprite(s.allegro_screen, s.allegro_sprite, x, y))}};
inline const Rivals kGetPeers{
    {"SDL2", WITH_SDL(const SDL_Rect from{x, y, s.w, s.h};
                      SDL_BlitSurface(s.sdl_screen, &from, s.sdl_sprite, nullptr))},
    {"Allegro 4", WITH_ALLEGRO(blit(s.allegro_screen, s.allegro_sprite, x, y, 0, 0, s.w, s.h))}};
inline const Rivals kBarPeers{
    {"SDL2", WITH_SDL(const SDL_Rect bar{x, y, s.w, s.h}; SDL_FillRect(s.sdl_screen, &bar, 3))},
    {"Allegro 4", WITH_ALLEGRO(rectfill(s.allegro_screen, x, y, x + s.w - 1, y + s.h - 1, 3))}};
inline const Rivals kMeshBarPeers{
    {"Allegro 4",
     WITH_ALLEGRO(static const peers::AllegroBitmap pattern(2, 2); putpixel(pattern, 0, 0, 3);
                  putpixel(pattern, 1, 1, 3); drawing_mode(DRAW_MODE_MASKED_PATTERN, pattern, 0, 0);
                  rectfill(s.allegro_screen, x, y, x + s.w - 1, y + s.h - 1, 3); solid_mode())}};
inline const Rivals kBoxPeers{
    {"Allegro 4", WITH_ALLEGRO(rect(s.allegro_screen, x, y, x + s.w - 1, y + s.h - 1, 3))}};
// A row of pixels, one by one.
inline const Rivals kPutPixelPeers{
    {"Allegro 4", WITH_ALLEGRO(for (int i = 0; i < s.w; ++i) putpixel(s.allegro_screen, x + i, y, 3))}};
inline const Rivals kGetPixelPeers{
    {"Allegro 4", WITH_ALLEGRO(for (int i = 0; i < s.w; ++i)
                                   benchmark::DoNotOptimize(getpixel(s.allegro_screen, x + i, y)))}};

inline const Rivals kMaskPeers{
    {"Allegro 4", WITH_ALLEGRO(draw_character_ex(s.allegro_screen, s.allegro_sprite, x, y, 3, -1))}};
inline const Rivals kTurnPeers{
    {"Allegro 4", WITH_ALLEGRO(draw_sprite_h_flip(s.allegro_screen, s.allegro_sprite, x, y))}};
inline const Rivals kReversePeers{
    {"Allegro 4", WITH_ALLEGRO(draw_sprite_v_flip(s.allegro_screen, s.allegro_sprite, x, y))}};
#if defined(INKSTONE_BENCH_ALLEGRO)
inline COLOR_MAP *no_map() {
    static COLOR_MAP map;
    return &map;
}
#endif
inline const Rivals kGlassBarPeers{
    {"Allegro 4", WITH_ALLEGRO(color_map = no_map(); drawing_mode(DRAW_MODE_TRANS, nullptr, 0, 0);
                               rectfill(s.allegro_screen, x, y, x + s.w - 1, y + s.h - 1, 3); solid_mode())}};
inline const Rivals kGlassMaskPeers{
    {"Allegro 4",
     WITH_ALLEGRO(color_map = no_map(); draw_trans_sprite(s.allegro_screen, s.allegro_sprite, x, y))}};

inline const Rivals kLinePeers{
    {"Allegro 4", WITH_ALLEGRO(line(s.allegro_screen, x, y, x + s.w - 1, y + s.h / 3, 3))}};
inline const Rivals kCirclePeers{
    {"Allegro 4", WITH_ALLEGRO(circle(s.allegro_screen, x + s.h / 2, y + s.h / 2, s.h / 2 - 1, 3))}};
inline const Rivals kEllipsePeers{{"Allegro 4", WITH_ALLEGRO(ellipse(s.allegro_screen, x + s.w / 2,
                                                                     y + s.h / 2, s.w / 2 - 1, s.h / 3, 3))}};
inline const Rivals kFillPeers{
    {"Allegro 4", WITH_ALLEGRO(floodfill(s.allegro_screen, 1, 1, getpixel(s.allegro_screen, 1, 1) ^ 1))}};

#undef WITH_SDL
#undef WITH_ALLEGRO

// The limit first, then the peers.
inline Rivals beside(const Rival &limit, Rivals peers = {}) {
    peers.insert(peers.begin(), limit);
    return peers;
}

}  // namespace bench
