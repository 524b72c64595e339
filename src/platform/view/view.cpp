#include "inkstone/view.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <span>
#include <utility>

#include "host/host.h"
#include "inkstone/runtime.h"
#include "platform/view/default_palette.h"

namespace {

using ink::host::Bitmap;
using ink::host::Color;
using ink::host::DeviceContext;
using ink::host::Display;
using ink::host::PaletteHandle;

constexpr std::size_t kColors = 256, kPaletteBytes = kColors * 3;

// The whole buffer's description as the platform takes it: its size and the colours its pixels stand for, which
// are the only copy of the current palette. A new WViewInit leaves it as it is.
struct Description {
    std::int32_t width = 0, height = 0;
    Color colors[kColors];
};

struct View {
    HWND window = nullptr;
    std::int16_t x = 0, y = 0;
    std::int32_t width = 0, height = 0;
    std::uint8_t *buffer = nullptr;
    std::unique_ptr<Description> description;
    PaletteHandle palette = PaletteHandle::system;
    PaletteHandle previous = PaletteHandle::system;  // the window's before the view's own

    bool enabled() const { return description != nullptr; }
};

View view;

// The window's device context for the duration of one operation.
class Context {
  public:
    Context() : handle_(display().get_context(window_)) {}
    ~Context() { display().release_context(window_, handle_); }
    Context(const Context &) = delete;
    Context &operator=(const Context &) = delete;

    DeviceContext get() const { return handle_; }
    static Display &display() { return ink::host::machine().display; }

    // Makes the palette the one in effect; the palette that was before, and in changed how many entries
    // changed.
    PaletteHandle use(PaletteHandle palette, std::uint32_t &changed) {
        const PaletteHandle before = display().select_palette(handle_, palette);
        changed = display().realize_palette(handle_);
        return before;
    }

  private:
    HWND window_ = view.window;
    DeviceContext handle_;
};

// Changes the palette in effect outside a present, where other pictures in the window must follow it.
PaletteHandle change_palette(PaletteHandle palette) {
    Context context;
    std::uint32_t changed = 0;
    const PaletteHandle before = context.use(palette, changed);
    if (changed != 0) Context::display().update_colors(context.get());
    return before;
}

std::unique_ptr<Description> describe() {
    std::unique_ptr<Description> description(new (std::nothrow) Description{view.width, view.height, {}});
    if (description == nullptr) return nullptr;
    for (std::size_t i = 0; i < kColors; ++i) {
        const std::uint32_t rgb = ink::view::kDefaultPalette[i];
        description->colors[i] = {static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8),
                                  static_cast<std::uint8_t>(rgb)};
    }
    return description;
}

// Shows a top-left part of pixels whose rows begin stride bytes apart.
void present(std::int32_t x, std::int32_t y, std::int32_t columns, std::int32_t rows, std::int32_t stride,
             const std::uint8_t *pixels) {
    Context context;
    std::uint32_t changed = 0;
    context.use(view.palette, changed);
    const Bitmap bitmap{columns, rows, stride, pixels, view.description->colors};
    Context::display().copy_bitmap(context.get(), x, y, bitmap);
}

// Sets count entries from start on, as far as there are such entries.
void set_colors(std::int32_t start, std::int32_t count, const std::uint8_t *palette) {
    if (!view.enabled()) return;
    const std::int32_t first = std::max(start, 0);
    const std::int32_t end = std::min(start + count, static_cast<std::int32_t>(kColors));
    if (first >= end) return;
    palette += (first - start) * 3;
    for (std::int32_t i = first; i < end; ++i, palette += 3)
        view.description->colors[i] = {palette[0], palette[1], palette[2]};
    Context::display().animate_palette(
        view.palette, first,
        std::span(view.description->colors + first, static_cast<std::size_t>(end - first)));
}

}  // namespace

void WViewInit(HWND window, int16_t x, int16_t y, int32_t width, int32_t height, uint8_t *buffer) {
    view.window = window;
    view.x = x;
    view.y = y;
    view.width = width;
    view.height = height;
    view.buffer = buffer;
}

void WViewEnable(void) {
    const bool again = view.enabled();
    view.description = describe();
    if (view.description == nullptr) fnErrorExit(view.window, "MEMORY ERROR !!!");
    const PaletteHandle own = view.palette;
    view.palette = Context::display().create_palette(view.description->colors);
    const PaletteHandle before = change_palette(view.palette);
    // Enabled again, the window had the view's own palette: the former one is that of the first time.
    if (again)
        Context::display().delete_palette(own);
    else
        view.previous = before;
    if (PushQuitProc(WViewDisable) != 0) {
        view.description.reset();
        fnErrorExit(view.window, "PUSHQUIT ERROR !!!");
    }
}

void WViewDisable(void) {
    if (!view.enabled()) return;
    change_palette(view.previous);
    Context::display().delete_palette(std::exchange(view.palette, PaletteHandle::system));
    view.description.reset();
}

void WViewBuffer2Screen(void) {
    if (!view.enabled()) return;
    // After a new WViewInit the size is the new one and the rows are still as long as described: no more of
    // them are shown than are described, and than the new buffer has bytes for.
    const std::int32_t stride = view.description->width;
    const std::int32_t columns = std::min(view.width, stride);
    std::int32_t rows = std::min(view.height, view.description->height);
    if (view.width != stride && columns > 0 && rows > 0) {
        const std::int64_t bytes = std::int64_t{view.width} * view.height;
        rows = static_cast<std::int32_t>(std::min<std::int64_t>(rows, (bytes - columns) / stride + 1));
    }
    present(view.x, view.y, columns, rows, stride, view.buffer);
}

void WViewRedrawScreen(void) {
    WViewBuffer2Screen();
}

void WViewMoveBuffer2Screen(int16_t x, int16_t y, int16_t width, int16_t height) {
    const std::int32_t left = std::max<std::int32_t>(x, 0), top = std::max<std::int32_t>(y, 0);
    const std::int32_t columns = std::min(x + width, view.width) - left;
    const std::int32_t rows = std::min(y + height, view.height) - top;
    if (!view.enabled() || view.buffer == nullptr || columns <= 0 || rows <= 0) return;

    // The platform's bitmaps have rows of whole 32-bit words.
    const std::int32_t stride = (columns + 3) / 4 * 4;
    const std::unique_ptr<std::uint8_t[]> block(
        new (std::nothrow) std::uint8_t[static_cast<std::size_t>(stride) * static_cast<std::size_t>(rows)]);
    if (block == nullptr) fnErrorExit(view.window, "MEMORY ERROR !!!");
    for (std::int32_t row = 0; row < rows; ++row) {
        std::memcpy(block.get() + std::int64_t{row} * stride,
                    view.buffer + (std::int64_t{top} + row) * view.width + left,
                    static_cast<std::size_t>(columns));
    }
    present(view.x + left, view.y + top, columns, rows, stride, block.get());
}

void WViewSetNowBuffer(uint8_t *buffer) {
    view.buffer = buffer;
}

void WViewSetPalette(const uint8_t *palette) {
    set_colors(0, kColors, palette);
}

void WViewSet1Palette(int16_t index, uint8_t red, uint8_t green, uint8_t blue) {
    const std::uint8_t entry[] = {red, green, blue};
    set_colors(index, 1, entry);
}

void WViewSetPartPalette(int16_t start, int16_t count, const uint8_t *palette) {
    set_colors(start, count, palette);
}

void WViewGetPalette(uint8_t *palette) {
    if (palette == nullptr) return;
    if (view.description == nullptr) {
        std::memset(palette, 0, kPaletteBytes);
        return;
    }
    for (const Color color : view.description->colors) {
        *palette++ = color.red;
        *palette++ = color.green;
        *palette++ = color.blue;
    }
}

void SCR_memory_to_screen(uint8_t *buffer) {
    WViewSetNowBuffer(buffer);
    WViewBuffer2Screen();
}

void SCR_set_palette(const uint8_t *palette) {
    std::uint8_t eight_bit[kPaletteBytes];
    std::transform(palette, palette + kPaletteBytes, eight_bit,
                   [](std::uint8_t value) { return static_cast<std::uint8_t>(value << 2); });
    WViewSetPalette(eight_bit);
}

void SCR_get_palette(uint8_t *palette) {
    if (palette == nullptr) return;
    WViewGetPalette(palette);
    std::transform(palette, palette + kPaletteBytes, palette,
                   [](std::uint8_t value) { return static_cast<std::uint8_t>(value >> 2); });
}
