// Windows' own drawing: device contexts, palettes and bitmaps, handles and all. On a display of 256 colours
// the system does the rest. A display of true colours has no hardware palette, so the picture last presented
// is kept for each window and shown anew when the palette changes; on either, it is what the window's area is
// filled with when a part of it comes into sight again.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "host/host.h"

namespace ink::host {

class Win32Display final : public Display {
  public:
    Win32Display();
    ~Win32Display();
    Win32Display(const Win32Display &) = delete;
    Win32Display &operator=(const Win32Display &) = delete;

    DeviceContext get_context(HWND window) override;
    void release_context(HWND window, DeviceContext context) override;
    PaletteHandle create_palette(std::span<const Color> colors) override;
    void delete_palette(PaletteHandle palette) override;
    PaletteHandle select_palette(DeviceContext context, PaletteHandle palette) override;
    std::uint32_t realize_palette(DeviceContext context) override;
    void update_colors(DeviceContext context) override;
    void animate_palette(PaletteHandle palette, std::int32_t start, std::span<const Color> colors) override;
    void copy_bitmap(DeviceContext context, std::int32_t x, std::int32_t y, const Bitmap &bitmap) override;

    // The palette indices last presented in the window's client area, 0 where none were: rows of width bytes.
    void read_indices(HWND window, std::int32_t width, std::int32_t height, std::uint8_t *indices) const;
    // The colours of the palette that was realized last.
    const std::array<Color, 256> &colors() const { return colors_; }

  private:
    struct Picture;

    Picture *find(HWND window) const;
    Picture *keep(HWND window);
    void take_colors(std::int32_t start, std::span<const Color> colors);
    void show(const Picture &picture, HDC context, std::int32_t top, std::int32_t bottom) const;
    LRESULT receive(Picture &picture, UINT message, WPARAM wparam, LPARAM lparam);
    static LRESULT CALLBACK receive(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

    bool has_palette_;  // whether the display has a palette of its own
    std::vector<std::unique_ptr<Picture>> pictures_;
    PaletteHandle selected_ = PaletteHandle::system, realized_ = PaletteHandle::system;
    std::array<Color, 256> colors_{};
};

}  // namespace ink::host
