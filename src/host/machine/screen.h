// The picture side of a machine made in software: windows whose client areas hold palette indices, and one
// hardware palette through which all of them are seen, as on a screen of 256 colours. Presenting and palette
// changes mark the picture as changed; who scans it out, and when, is the host's affair.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "host/host.h"

namespace ink::host {

struct Window {
    HWND handle = nullptr;
    std::int32_t width = 0, height = 0;
    HOST_WINDOW_PROCEDURE procedure = nullptr;
    std::vector<std::uint8_t> pixels;
    bool changed = true;
};

using Palette = std::array<Color, 256>;

class Screen final : public Display {
  public:
    Screen();

    // Null when there is no memory for it.
    Window *open(std::int32_t width, std::int32_t height, HOST_WINDOW_PROCEDURE procedure);
    void close(HWND handle);
    // Null for a handle that is not of an open window, whatever it is.
    Window *find(HWND handle);
    // The window that gets keys: the one opened last.
    Window *focus() { return windows_.empty() ? nullptr : windows_.back().get(); }
    const std::vector<std::unique_ptr<Window>> &windows() const { return windows_; }

    // What is done whenever a picture or the palette has changed.
    void on_change(std::function<void()> action) { changed_ = std::move(action); }

    const Palette &hardware_palette() const { return hardware_; }
    // The client area through the hardware palette, three bytes a pixel.
    void read_picture(const Window &window, std::uint8_t *rgb) const;

    DeviceContext get_context(HWND window) override;
    void release_context(HWND window, DeviceContext context) override;
    PaletteHandle create_palette(std::span<const Color> colors) override;
    void delete_palette(PaletteHandle palette) override;
    PaletteHandle select_palette(DeviceContext context, PaletteHandle palette) override;
    std::uint32_t realize_palette(DeviceContext context) override;
    void update_colors(DeviceContext context) override;
    void animate_palette(PaletteHandle palette, std::int32_t start, std::span<const Color> colors) override;
    void copy_bitmap(DeviceContext context, std::int32_t x, std::int32_t y, const Bitmap &bitmap) override;

  private:
    // Null for a palette that is not there.
    Palette *find(PaletteHandle palette);
    void mark_all_changed();

    std::function<void()> changed_;

    std::vector<std::unique_ptr<Window>> windows_;
    std::uintptr_t last_handle_ = 0;
    std::vector<std::optional<Palette>> palettes_;  // by their handles; the system's own first
    PaletteHandle selected_ = PaletteHandle::system;
    PaletteHandle realized_ = PaletteHandle::system;
    Palette hardware_;
};

}  // namespace ink::host
