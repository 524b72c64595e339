#include "host/sdl/sdl_window.h"

#include <algorithm>
#include <array>

namespace ink::host {
namespace {

// The largest whole enlargement that leaves room for the desktop around the window.
int comfortable_scale(std::int32_t width, std::int32_t height) {
    SDL_Rect desktop{};
    if (SDL_GetDisplayUsableBounds(0, &desktop) != 0) return 1;
    return std::max(1, std::min(desktop.w * 9 / 10 / width, desktop.h * 9 / 10 / height));
}

}  // namespace

std::unique_ptr<SdlWindow> SdlWindow::open(const Window &window, const char *title) {
    std::unique_ptr<SdlWindow> made(new SdlWindow);
    made->handle_ = window.handle;
    made->width_ = window.width;
    made->height_ = window.height;
    const int scale = comfortable_scale(window.width, window.height);
    made->window_.reset(SDL_CreateWindow(title, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                         window.width * scale, window.height * scale, SDL_WINDOW_RESIZABLE));
    if (made->window_ == nullptr) return nullptr;
    made->renderer_.reset(SDL_CreateRenderer(made->window_.get(), -1, 0));
    if (made->renderer_ == nullptr) return nullptr;
    made->texture_.reset(SDL_CreateTexture(made->renderer_.get(), SDL_PIXELFORMAT_ARGB8888,
                                           SDL_TEXTUREACCESS_STREAMING, window.width, window.height));
    if (made->texture_ == nullptr) return nullptr;
    SDL_SetTextureScaleMode(made->texture_.get(), SDL_ScaleModeNearest);
    return made;
}

void SdlWindow::scan_out(const Window &window, const Palette &palette) {
    std::array<std::uint32_t, 256> colors;
    std::transform(palette.begin(), palette.end(), colors.begin(), [](Color color) {
        return 0xFF000000U | std::uint32_t{color.red} << 16 | std::uint32_t{color.green} << 8 | color.blue;
    });
    void *pixels = nullptr;
    int pitch = 0;
    if (SDL_LockTexture(texture_.get(), nullptr, &pixels, &pitch) != 0) return;
    const std::uint8_t *from = window.pixels.data();
    for (std::int32_t y = 0; y < height_; ++y) {
        auto *to = reinterpret_cast<std::uint32_t *>(static_cast<std::uint8_t *>(pixels) + y * pitch);
        for (std::int32_t x = 0; x < width_; ++x) to[x] = colors[*from++];
    }
    SDL_UnlockTexture(texture_.get());

    SDL_SetRenderDrawColor(renderer_.get(), 0, 0, 0, SDL_ALPHA_OPAQUE);
    SDL_RenderClear(renderer_.get());
    const SDL_Rect place = viewport();
    SDL_RenderCopy(renderer_.get(), texture_.get(), nullptr, &place);
    SDL_RenderPresent(renderer_.get());
}

void SdlWindow::toggle_fullscreen() {
    const bool full = (SDL_GetWindowFlags(window_.get()) & SDL_WINDOW_FULLSCREEN_DESKTOP) != 0;
    SDL_SetWindowFullscreen(window_.get(), full ? 0 : SDL_WINDOW_FULLSCREEN_DESKTOP);
}

SDL_Rect SdlWindow::viewport() const {
    int width = 0, height = 0;
    SDL_GetWindowSize(window_.get(), &width, &height);
    const int scale = std::min(width / width_, height / height_);
    SDL_Rect place{0, 0, width_ * scale, height_ * scale};
    if (scale == 0) {
        // A window smaller than the picture shows all of it, reduced.
        const double reduced =
            std::min(static_cast<double>(width) / width_, static_cast<double>(height) / height_);
        place.w = std::max(1, static_cast<int>(width_ * reduced));
        place.h = std::max(1, static_cast<int>(height_ * reduced));
    }
    place.x = (width - place.w) / 2;
    place.y = (height - place.h) / 2;
    return place;
}

Point SdlWindow::to_client(Point position) const {
    const SDL_Rect place = viewport();
    const auto axis = [](int at, int start, int length, std::int32_t pixels) {
        const std::int64_t pixel = std::int64_t{std::clamp(at - start, 0, length - 1)} * pixels / length;
        return static_cast<std::int32_t>(pixel);
    };
    return {axis(position.x, place.x, place.w, width_), axis(position.y, place.y, place.h, height_)};
}

Point SdlWindow::from_client(Point position) const {
    const SDL_Rect place = viewport();
    // The middle of the enlarged pixel.
    const auto axis = [](std::int32_t pixel, int start, int length, std::int32_t pixels) {
        return static_cast<std::int32_t>(start + (2 * std::int64_t{pixel} + 1) * length / (2 * pixels));
    };
    return {axis(position.x, place.x, place.w, width_), axis(position.y, place.y, place.h, height_)};
}

std::int64_t SdlWindow::frame_time() const {
    SDL_DisplayMode mode{};
    const int display = SDL_GetWindowDisplayIndex(window_.get());
    if (display < 0 || SDL_GetCurrentDisplayMode(display, &mode) != 0 || mode.refresh_rate <= 0)
        mode.refresh_rate = 60;
    return 1000000 / mode.refresh_rate;
}

}  // namespace ink::host
