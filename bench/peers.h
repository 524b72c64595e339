// What the benchmarks draw on with the other libraries, where they are installed: 8-bit pictures in memory.
#pragma once

#include <cstdint>
#include <cstring>

#if defined(INKSTONE_BENCH_ALLEGRO)
// Its headers name types and macros freely and are not written for our warnings.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wsign-conversion"
#pragma GCC diagnostic ignored "-Wshadow"
#pragma GCC diagnostic ignored "-Wunused-parameter"
#define ALLEGRO_NO_MAGIC_MAIN
#define ALLEGRO_NO_FIX_ALIASES
#include <allegro.h>
#pragma GCC diagnostic pop
#endif
#if defined(INKSTONE_BENCH_SDL)
#define SDL_MAIN_HANDLED
#include <SDL.h>
#endif

namespace peers {

#if defined(INKSTONE_BENCH_ALLEGRO)
class AllegroBitmap {
  public:
    AllegroBitmap(int width, int height) : bitmap_((start(), create_bitmap_ex(8, width, height))) {
        clear_bitmap(bitmap_);
    }
    ~AllegroBitmap() { destroy_bitmap(bitmap_); }
    AllegroBitmap(const AllegroBitmap &) = delete;
    AllegroBitmap &operator=(const AllegroBitmap &) = delete;

    operator BITMAP *() const { return bitmap_; }
    void load(const std::uint8_t *pixels) {
        for (int y = 0; y < bitmap_->h; ++y)
            std::memcpy(bitmap_->line[y], pixels + y * bitmap_->w, static_cast<std::size_t>(bitmap_->w));
    }

  private:
    static void start() {
        static const bool started = install_allegro(SYSTEM_NONE, &errno, nullptr) == 0;
        (void)started;
    }
    BITMAP *bitmap_;
};
#endif

#if defined(INKSTONE_BENCH_SDL)
class SdlSurface {
  public:
    SdlSurface(int width, int height)
        : surface_(SDL_CreateRGBSurfaceWithFormat(0, width, height, 8, SDL_PIXELFORMAT_INDEX8)) {}
    ~SdlSurface() { SDL_FreeSurface(surface_); }
    SdlSurface(const SdlSurface &) = delete;
    SdlSurface &operator=(const SdlSurface &) = delete;

    operator SDL_Surface *() const { return surface_; }
    void load(const std::uint8_t *pixels) {
        for (int y = 0; y < surface_->h; ++y)
            std::memcpy(static_cast<std::uint8_t *>(surface_->pixels) + y * surface_->pitch,
                        pixels + y * surface_->w, static_cast<std::size_t>(surface_->w));
    }

  private:
    SDL_Surface *surface_;
};
#endif

}  // namespace peers
