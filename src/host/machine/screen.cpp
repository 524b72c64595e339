#include "host/machine/screen.h"

#include <algorithm>
#include <cstring>

#include "host/observer.h"

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

std::size_t index(PaletteHandle palette) {
    return static_cast<std::size_t>(palette);
}

unsigned number(HWND window) {
    return static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(window));
}

}  // namespace

Screen::Screen() : palettes_{system_palette()}, hardware_(palettes_[0]) {}

Window &Screen::open(std::int32_t width, std::int32_t height, HOST_WINDOW_PROCEDURE procedure) {
    auto window = std::make_unique<Window>();
    window->handle = reinterpret_cast<HWND>(++last_handle_);
    window->width = width;
    window->height = height;
    window->procedure = procedure;
    window->pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    windows_.push_back(std::move(window));
    return *windows_.back();
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
    allowed("get_context %u", number(window));
    return static_cast<DeviceContext>(reinterpret_cast<std::uintptr_t>(window));
}

void Screen::release_context(HWND window, DeviceContext) {
    allowed("release_context %u", number(window));
}

PaletteHandle Screen::create_palette(std::span<const Color> colors) {
    allowed("create_palette %zu", colors.size());
    Palette palette{};
    std::copy_n(colors.begin(), std::min(colors.size(), palette.size()), palette.begin());
    palettes_.push_back(palette);
    return static_cast<PaletteHandle>(palettes_.size() - 1);
}

PaletteHandle Screen::select_palette(DeviceContext, PaletteHandle palette) {
    allowed("select_palette %zu", index(palette));
    const PaletteHandle before = selected_;
    if (index(palette) < palettes_.size()) selected_ = palette;
    return before;
}

std::uint32_t Screen::realize_palette(DeviceContext) {
    allowed("realize_palette");
    realized_ = selected_;
    const Palette &wanted = palettes_[index(realized_)];
    std::uint32_t changed = 0;
    for (std::size_t i = 0; i < wanted.size(); ++i) changed += wanted[i] != hardware_[i];
    if (changed != 0) {
        hardware_ = wanted;
        mark_all_changed();
    }
    return changed;
}

// A screen whose pixels are indices needs no repainting when its palette changes.
void Screen::update_colors(DeviceContext) {
    allowed("update_colors");
}

void Screen::animate_palette(PaletteHandle palette, std::int32_t start, std::span<const Color> colors) {
    allowed("animate_palette %zu %d %zu", index(palette), start, colors.size());
    if (index(palette) >= palettes_.size() || start < 0 || start >= 256) return;
    const auto first = static_cast<std::size_t>(start);
    const std::size_t count = std::min(colors.size(), palettes_[0].size() - first);
    std::copy_n(colors.begin(), count, palettes_[index(palette)].begin() + start);
    if (palette != realized_) return;
    std::copy_n(colors.begin(), count, hardware_.begin() + start);
    mark_all_changed();
}

void Screen::copy_bitmap(DeviceContext context, std::int32_t x, std::int32_t y, const Bitmap &bitmap) {
    const HWND handle = reinterpret_cast<HWND>(static_cast<std::uintptr_t>(context));
    allowed("copy_bitmap %u %d %d %d %d", number(handle), x, y, bitmap.width, bitmap.height);
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
}

void Screen::mark_all_changed() {
    for (const auto &window : windows_) window->changed = true;
}

}  // namespace ink::host
