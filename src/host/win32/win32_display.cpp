#include "host/win32/win32_display.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace ink::host {
namespace {

// The one display of the process, for the procedure that windows call.
Win32Display *the_display = nullptr;

HDC context_of(DeviceContext context) {
    return reinterpret_cast<HDC>(static_cast<std::uintptr_t>(context));
}
HPALETTE palette_of(PaletteHandle palette) {
    if (palette == PaletteHandle::system) return static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
    return reinterpret_cast<HPALETTE>(static_cast<std::uintptr_t>(palette));
}

// Entries that can be changed in place.
void fill(std::span<const Color> colors, PALETTEENTRY *entries) {
    for (const Color color : colors) *entries++ = {color.red, color.green, color.blue, PC_RESERVED};
}

// Rows of whole 32-bit words, as the system's bitmaps have them.
constexpr std::int32_t row_bytes(std::int32_t width) {
    return (width + 3) / 4 * 4;
}

struct Description {
    BITMAPINFOHEADER header{};
    RGBQUAD colors[256];

    // Top-down: the first row is the upper one.
    Description(std::int32_t width, std::int32_t height, std::span<const Color> palette) {
        header.biSize = sizeof header;
        header.biWidth = width;
        header.biHeight = -height;
        header.biPlanes = 1;
        header.biBitCount = 8;
        header.biCompression = BI_RGB;
        header.biClrUsed = 256;
        for (std::size_t i = 0; i < palette.size() && i < 256; ++i)
            colors[i] = {palette[i].blue, palette[i].green, palette[i].red, 0};
    }
    const BITMAPINFO *info() const { return reinterpret_cast<const BITMAPINFO *>(this); }
};

void stretch(HDC context, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
             const void *pixels, const Description &description) {
    StretchDIBits(context, x, y, width, height, 0, 0, width, height, pixels, description.info(),
                  DIB_RGB_COLORS, SRCCOPY);
}

}  // namespace

// What was presented in a window's client area.
struct Win32Display::Picture {
    HWND window;
    WNDPROC procedure;  // the window's own
    bool unicode;
    std::int32_t width = 0, height = 0, stride = 0;
    std::vector<std::uint8_t> pixels;
    RECT presented{};  // what is not in it was never drawn

    std::uint8_t *row(std::int32_t y) { return pixels.data() + std::ptrdiff_t{y} * stride; }
    const std::uint8_t *row(std::int32_t y) const { return pixels.data() + std::ptrdiff_t{y} * stride; }

    // Takes the client area's size, with what lies in both the old and the new one.
    void fit() {
        RECT client{};
        GetClientRect(window, &client);
        if (client.right == width && client.bottom == height) return;
        Picture fitted{window, procedure, unicode, client.right, client.bottom, row_bytes(client.right),
                       {},     {}};
        fitted.pixels.resize(static_cast<std::size_t>(fitted.stride) *
                             static_cast<std::size_t>(fitted.height));
        for (std::int32_t y = 0; y < std::min(height, fitted.height); ++y)
            std::memcpy(fitted.row(y), row(y), static_cast<std::size_t>(std::min(width, fitted.width)));
        IntersectRect(&fitted.presented, &presented, &client);
        *this = std::move(fitted);
    }
};

Win32Display::Win32Display() {
    the_display = this;
    const HDC screen = GetDC(nullptr);
    has_palette_ = (GetDeviceCaps(screen, RASTERCAPS) & RC_PALETTE) != 0;
    ReleaseDC(nullptr, screen);
}

Win32Display::~Win32Display() = default;

// No window is not the whole screen here.
DeviceContext Win32Display::get_context(HWND window) {
    if (window == nullptr) return DeviceContext::none;
    return static_cast<DeviceContext>(reinterpret_cast<std::uintptr_t>(GetDC(window)));
}

void Win32Display::release_context(HWND window, DeviceContext context) {
    if (context != DeviceContext::none) ReleaseDC(window, context_of(context));
}

PaletteHandle Win32Display::create_palette(std::span<const Color> colors) {
    struct {
        WORD version = 0x300, count = 0;
        PALETTEENTRY entries[256];
    } logical;
    logical.count = static_cast<WORD>(std::min(colors.size(), std::size(logical.entries)));
    fill(colors.first(logical.count), logical.entries);
    const HPALETTE palette = CreatePalette(reinterpret_cast<const LOGPALETTE *>(&logical));
    return static_cast<PaletteHandle>(reinterpret_cast<std::uintptr_t>(palette));
}

void Win32Display::delete_palette(PaletteHandle palette) {
    if (palette == PaletteHandle::system) return;
    DeleteObject(palette_of(palette));
    if (realized_ == palette) realized_ = PaletteHandle::system;
}

PaletteHandle Win32Display::select_palette(DeviceContext context, PaletteHandle palette) {
    selected_ = palette;
    const HPALETTE before = SelectPalette(context_of(context), palette_of(palette), FALSE);
    return static_cast<PaletteHandle>(reinterpret_cast<std::uintptr_t>(before));
}

std::uint32_t Win32Display::realize_palette(DeviceContext context) {
    const UINT changed = RealizePalette(context_of(context));
    if (realized_ != selected_) {
        realized_ = selected_;
        // The system's own palette has some twenty colours, which are no game's.
        PALETTEENTRY entries[256];
        if (GetPaletteEntries(palette_of(realized_), 0, 256, entries) == 256) {
            std::array<Color, 256> colors;
            std::transform(std::begin(entries), std::end(entries), colors.begin(),
                           [](const PALETTEENTRY &entry) {
                               return Color{entry.peRed, entry.peGreen, entry.peBlue};
                           });
            take_colors(0, colors);
        }
    }
    return changed != GDI_ERROR ? changed : 0;
}

void Win32Display::update_colors(DeviceContext context) {
    UpdateColors(context_of(context));
}

void Win32Display::animate_palette(PaletteHandle palette, std::int32_t start, std::span<const Color> colors) {
    if (start < 0 || start >= 256) return;
    colors = colors.first(std::min(colors.size(), 256 - static_cast<std::size_t>(start)));
    PALETTEENTRY entries[256];
    fill(colors, entries);
    AnimatePalette(palette_of(palette), static_cast<UINT>(start), static_cast<UINT>(colors.size()), entries);
    if (palette == realized_) take_colors(start, colors);
}

// Shows the rows anew in which there are pixels of colours that change.
void Win32Display::take_colors(std::int32_t start, std::span<const Color> colors) {
    const auto first = std::mismatch(colors.begin(), colors.end(), colors_.begin() + start);
    if (first.first == colors.end()) return;
    start += static_cast<std::int32_t>(first.first - colors.begin());
    colors = {first.first, colors.end()};
    std::copy(colors.begin(), colors.end(), colors_.begin() + start);
    if (has_palette_) return;

    const auto changes = [start, count = colors.size()](std::uint8_t pixel) {
        return static_cast<std::size_t>(pixel) - static_cast<std::size_t>(start) < count;
    };
    for (const auto &picture : pictures_) {
        const auto changed = [&](std::int32_t y) {
            const std::uint8_t *row = picture->row(y);
            return std::count_if(row + picture->presented.left, row + picture->presented.right, changes) != 0;
        };
        std::int32_t top = picture->presented.top, bottom = picture->presented.bottom;
        while (top < bottom && !changed(top)) ++top;
        while (top < bottom && !changed(bottom - 1)) --bottom;
        if (top == bottom) continue;
        const HDC context = GetDC(picture->window);
        show(*picture, context, top, bottom);
        ReleaseDC(picture->window, context);
    }
}

void Win32Display::copy_bitmap(DeviceContext context, std::int32_t x, std::int32_t y, const Bitmap &bitmap) {
    const HDC target = context_of(context);
    if (target == nullptr || bitmap.pixels == nullptr || bitmap.width < 1 || bitmap.height < 1) return;
    const auto to_palette = std::min(bitmap.colors.size(), colors_.size());
    std::copy_n(bitmap.colors.begin(), to_palette, colors_.begin());
    const Description description(bitmap.width, bitmap.height, bitmap.colors);
    if (bitmap.stride == row_bytes(bitmap.width)) {
        stretch(target, x, y, bitmap.width, bitmap.height, bitmap.pixels, description);
    } else {
        // A bitmap whose rows the system could not tell apart: row by row.
        const Description row(bitmap.width, 1, bitmap.colors);
        for (std::int32_t i = 0; i < bitmap.height; ++i)
            stretch(target, x, y + i, bitmap.width, 1, bitmap.pixels + std::ptrdiff_t{i} * bitmap.stride,
                    row);
    }

    Picture *picture = keep(WindowFromDC(target));
    if (picture == nullptr) return;
    const RECT placed{x, y, x + bitmap.width, y + bitmap.height},
        client{0, 0, picture->width, picture->height};
    RECT seen{};
    if (!IntersectRect(&seen, &placed, &client)) return;
    for (LONG row = seen.top; row < seen.bottom; ++row)
        std::memcpy(picture->row(row) + seen.left,
                    bitmap.pixels + std::ptrdiff_t{row - y} * bitmap.stride + (seen.left - x),
                    static_cast<std::size_t>(seen.right - seen.left));
    UnionRect(&picture->presented, &picture->presented, &seen);
}

void Win32Display::read_indices(HWND window, std::int32_t width, std::int32_t height,
                                std::uint8_t *indices) const {
    const auto columns = static_cast<std::size_t>(width);
    std::memset(indices, 0, columns * static_cast<std::size_t>(height));
    const Picture *picture = find(window);
    if (picture == nullptr) return;
    for (std::int32_t y = 0; y < std::min(height, picture->height); ++y)
        std::memcpy(indices + columns * static_cast<std::size_t>(y), picture->row(y),
                    static_cast<std::size_t>(std::min(width, picture->width)));
}

Win32Display::Picture *Win32Display::find(HWND window) const {
    for (const auto &picture : pictures_)
        if (picture->window == window) return picture.get();
    return nullptr;
}

// The window's picture, of the size of its client area. The first time the window's messages are led past
// here. Null for a window of another program, and where there is no memory: it is then as if nobody kept
// anything.
Win32Display::Picture *Win32Display::keep(HWND window) try {
    Picture *picture = find(window);
    if (picture == nullptr) {
        if (GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId()) return nullptr;
        const bool unicode = IsWindowUnicode(window) != FALSE;
        pictures_.reserve(pictures_.size() + 1);
        auto made = std::make_unique<Picture>(Picture{window, nullptr, unicode, 0, 0, 0, {}, {}});
        const auto set = unicode ? SetWindowLongPtrW : SetWindowLongPtrA;
        made->procedure = reinterpret_cast<WNDPROC>(
            set(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(receive))));
        if (made->procedure == nullptr) return nullptr;
        pictures_.push_back(std::move(made));
        picture = pictures_.back().get();
    }
    picture->fit();
    return picture;
} catch (const std::bad_alloc &) {
    return nullptr;
}

void Win32Display::show(const Picture &picture, HDC context, std::int32_t top, std::int32_t bottom) const {
    if (top >= bottom) return;
    const Description description(picture.width, bottom - top, colors_);
    const RECT &seen = picture.presented;
    StretchDIBits(context, seen.left, top, seen.right - seen.left, bottom - top, seen.left, 0,
                  seen.right - seen.left, bottom - top, picture.row(top), description.info(), DIB_RGB_COLORS,
                  SRCCOPY);
}

LRESULT CALLBACK Win32Display::receive(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    Picture *picture = the_display->find(window);
    return picture != nullptr ? the_display->receive(*picture, message, wparam, lparam)
                              : DefWindowProcA(window, message, wparam, lparam);
}

// What is presented is what the client area is filled with before the game paints in it, so a part that was
// covered looks as it did, whether the game paints anything or not.
LRESULT Win32Display::receive(Picture &picture, UINT message, WPARAM wparam, LPARAM lparam) {
    const auto call = picture.unicode ? CallWindowProcW : CallWindowProcA;
    const WNDPROC procedure = picture.procedure;
    const HWND window = picture.window;
    if (message == WM_NCDESTROY)
        std::erase_if(pictures_, [&](const auto &kept) { return kept.get() == &picture; });
    if (message != WM_ERASEBKGND || IsRectEmpty(&picture.presented))
        return call(procedure, window, message, wparam, lparam);

    const HDC context = reinterpret_cast<HDC>(wparam);
    const RECT presented = picture.presented;
    const int saved = SaveDC(context);
    ExcludeClipRect(context, presented.left, presented.top, presented.right, presented.bottom);
    call(procedure, window, message, wparam, lparam);
    RestoreDC(context, saved);
    if (const Picture *kept = find(window)) {
        const HPALETTE before = SelectPalette(context, palette_of(realized_), FALSE);
        show(*kept, context, kept->presented.top, kept->presented.bottom);
        SelectPalette(context, before, FALSE);
    }
    return 1;
}

}  // namespace ink::host
