#include "host/machine/screen.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace ink::host {
namespace {

// What the hardware shows while no program has put a palette of its own into it: three bits of red and green
// and two of blue.
Palette system_palette() {
    Palette palette;
    for (unsigned i = 0; i < palette.size(); ++i) {
        palette[i] = {static_cast<std::uint8_t>((i >> 5) * 255 / 7),
                      static_cast<std::uint8_t>((i >> 2 & 7) * 255 / 7),
                      static_cast<std::uint8_t>((i & 3) * 255 / 3)};
    }
    return palette;
}

}  // namespace

Screen::Screen() : palettes_{system_palette()}, hardware_(*palettes_[0]) {}

Window *Screen::open(std::int32_t width, std::int32_t height, HOST_WINDOW_PROCEDURE procedure) try {
    auto window = std::make_unique<Window>();
    window->handle = reinterpret_cast<HWND>(++last_handle_);
    window->width = width;
    window->height = height;
    window->procedure = procedure;
    window->pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    windows_.push_back(std::move(window));
    return windows_.back().get();
} catch (const std::bad_alloc &) {
    return nullptr;
}

void Screen::close(HWND handle) {
    std::erase_if(windows_, [handle](const auto &window) { return window->handle == handle; });
}

Window *Screen::find(HWND handle) {
    for (const auto &window : windows_)
        if (window->handle == handle) return window.get();
    return nullptr;
}

void Screen::read_picture(const Window &window, std::uint8_t *rgb) const {
    for (const std::uint8_t pixel : window.pixels) {
        const Color color = hardware_[pixel];
        *rgb++ = color.red;
        *rgb++ = color.green;
        *rgb++ = color.blue;
    }
}

DeviceContext Screen::get_context(HWND window) {
    return static_cast<DeviceContext>(reinterpret_cast<std::uintptr_t>(window));
}

void Screen::release_context(HWND, DeviceContext) {}

Palette *Screen::find(PaletteHandle handle) {
    const auto number = static_cast<std::size_t>(handle);
    return number < palettes_.size() && palettes_[number] ? &*palettes_[number] : nullptr;
}

PaletteHandle Screen::create_palette(std::span<const Color> colors) try {
    const auto number = static_cast<std::size_t>(std::find(palettes_.begin(), palettes_.end(), std::nullopt) -
                                                 palettes_.begin());
    if (number == palettes_.size()) palettes_.emplace_back();
    Palette &palette = palettes_[number].emplace();
    std::copy_n(colors.begin(), std::min(colors.size(), palette.size()), palette.begin());
    return static_cast<PaletteHandle>(number);
} catch (const std::bad_alloc &) {
    return PaletteHandle::system;
}

void Screen::delete_palette(PaletteHandle palette) {
    if (palette == PaletteHandle::system || palette == selected_ || palette == realized_) return;
    if (find(palette) != nullptr) palettes_[static_cast<std::size_t>(palette)].reset();
}

PaletteHandle Screen::select_palette(DeviceContext, PaletteHandle palette) {
    const PaletteHandle before = selected_;
    if (find(palette) != nullptr) selected_ = palette;
    return before;
}

std::uint32_t Screen::realize_palette(DeviceContext) {
    realized_ = selected_;
    const Palette &wanted = *find(realized_);
    std::uint32_t changed = 0;
    for (std::size_t i = 0; i < wanted.size(); ++i) changed += wanted[i] != hardware_[i];
    if (changed != 0) {
        hardware_ = wanted;
        mark_all_changed();
    }
    return changed;
}

// A screen whose pixels are indices needs no repainting when its palette changes.
void Screen::update_colors(DeviceContext) {}

void Screen::animate_palette(PaletteHandle handle, std::int32_t start, std::span<const Color> colors) {
    // The system's own is nobody's to change: who could not get a palette shows in its colours.
    Palette *palette = handle != PaletteHandle::system ? find(handle) : nullptr;
    if (palette == nullptr || start < 0 || start >= 256) return;
    const std::size_t count = std::min(colors.size(), palette->size() - static_cast<std::size_t>(start));
    std::copy_n(colors.begin(), count, palette->begin() + start);
    if (handle != realized_) return;
    std::copy_n(colors.begin(), count, hardware_.begin() + start);
    mark_all_changed();
}

void Screen::copy_bitmap(DeviceContext context, std::int32_t x, std::int32_t y, const Bitmap &bitmap) {
    const HWND handle = reinterpret_cast<HWND>(static_cast<std::uintptr_t>(context));
    Window *window = find(handle);
    if (window == nullptr || bitmap.pixels == nullptr) return;
    const std::int64_t left = std::max<std::int64_t>(x, 0), top = std::max<std::int64_t>(y, 0);
    const std::int64_t right = std::min<std::int64_t>(std::int64_t{x} + bitmap.width, window->width);
    const std::int64_t bottom = std::min<std::int64_t>(std::int64_t{y} + bitmap.height, window->height);
    if (left >= right) return;
    for (std::int64_t row = top; row < bottom; ++row) {
        std::memcpy(window->pixels.data() + row * window->width + left,
                    bitmap.pixels + (row - y) * bitmap.stride + (left - x),
                    static_cast<std::size_t>(right - left));
    }
    window->changed = true;
    if (changed_) changed_();
}

void Screen::mark_all_changed() {
    for (const auto &window : windows_) window->changed = true;
    if (changed_) changed_();
}

}  // namespace ink::host
