// One window on the desktop, into which the palette indices of a client area are scanned out: enlarged by a
// whole number where there is room, in the middle, with black bars around it.
#pragma once

#include <SDL.h>

#include <memory>

#include "host/machine/screen.h"

namespace ink::host {

class SdlWindow {
  public:
    // Null when SDL refuses the window.
    static std::unique_ptr<SdlWindow> open(const Window &window, const char *title);

    HWND handle() const { return handle_; }
    SDL_Window *window() const { return window_.get(); }
    std::uint32_t id() const { return SDL_GetWindowID(window_.get()); }

    void scan_out(const Window &window, const Palette &palette);
    void toggle_fullscreen();
    // From a position in the window to one of the client area; in the bars, to the nearest one.
    Point to_client(Point position) const;
    Point from_client(Point position) const;
    // How long one picture of the display lasts, in microseconds.
    std::int64_t frame_time() const;

  private:
    template <auto destroy>
    struct Destroy {
        template <class T>
        void operator()(T *object) const {
            destroy(object);
        }
    };

    SdlWindow() = default;
    // Where the client area is shown.
    SDL_Rect viewport() const;

    HWND handle_ = nullptr;
    std::int32_t width_ = 0, height_ = 0;
    std::unique_ptr<SDL_Window, Destroy<SDL_DestroyWindow>> window_;
    std::unique_ptr<SDL_Renderer, Destroy<SDL_DestroyRenderer>> renderer_;
    std::unique_ptr<SDL_Texture, Destroy<SDL_DestroyTexture>> texture_;
};

}  // namespace ink::host
