#include "host/replay/traced_display.h"

#include <algorithm>
#include <new>

namespace ink::host {

// The pair that was made last counts. What has none stands for the machine's own.
template <class Handle>
Handle TracedDisplay::real(const Pairs<Handle> &pairs, Handle handle) {
    const auto found = std::find_if(pairs.rbegin(), pairs.rend(),
                                    [handle](const auto &pair) { return pair.first == handle; });
    return found != pairs.rend() ? found->second : Handle{};
}

DeviceContext TracedDisplay::get_context(HWND window) try {
    const DeviceContext context = mirror().get_context(tape_.mirrored(window));
    if (behind() != nullptr) {
        contexts_.reserve(contexts_.size() + 1);
        contexts_.emplace_back(context, behind()->get_context(tape_.real(window)));
    }
    return context;
} catch (const std::bad_alloc &) {
    return DeviceContext::none;
}

void TracedDisplay::release_context(HWND window, DeviceContext context) {
    mirror().release_context(tape_.mirrored(window), context);
    const auto found = std::find_if(contexts_.rbegin(), contexts_.rend(),
                                    [context](const auto &pair) { return pair.first == context; });
    if (behind() == nullptr || found == contexts_.rend()) return;
    behind()->release_context(tape_.real(window), found->second);
    contexts_.erase(std::next(found).base());
}

PaletteHandle TracedDisplay::create_palette(std::span<const Color> colors) try {
    const PaletteHandle palette = mirror().create_palette(colors);
    if (behind() != nullptr) palettes_.emplace_back(palette, behind()->create_palette(colors));
    return palette;
} catch (const std::bad_alloc &) {
    return PaletteHandle::system;
}

void TracedDisplay::delete_palette(PaletteHandle palette) {
    mirror().delete_palette(palette);
    if (palette == PaletteHandle::system || behind() == nullptr) return;
    behind()->delete_palette(real(palettes_, palette));
    std::erase_if(palettes_, [palette](const auto &pair) { return pair.first == palette; });
}

PaletteHandle TracedDisplay::select_palette(DeviceContext context, PaletteHandle palette) try {
    const PaletteHandle before = mirror().select_palette(context, palette);
    if (behind() != nullptr) {
        palettes_.reserve(palettes_.size() + 1);
        const PaletteHandle real_before =
            behind()->select_palette(real(contexts_, context), real(palettes_, palette));
        // The palette that a window has by itself is not made here, and yet put back at the end.
        if (real(palettes_, before) != real_before) palettes_.emplace_back(before, real_before);
    }
    return before;
} catch (const std::bad_alloc &) {
    return PaletteHandle::system;
}

std::uint32_t TracedDisplay::realize_palette(DeviceContext context) {
    const Answer answer = tape_.ask(Kind::realize_palette, [&](Machine &machine, Answer &told) {
        told.values[0] = machine.display.realize_palette(real(contexts_, context));
    });
    mirror().realize_palette(context);
    return static_cast<std::uint32_t>(answer.values[0]);
}

void TracedDisplay::update_colors(DeviceContext context) {
    mirror().update_colors(context);
    if (behind() != nullptr) behind()->update_colors(real(contexts_, context));
}

void TracedDisplay::animate_palette(PaletteHandle palette, std::int32_t start,
                                    std::span<const Color> colors) {
    mirror().animate_palette(palette, start, colors);
    if (behind() != nullptr) behind()->animate_palette(real(palettes_, palette), start, colors);
}

void TracedDisplay::copy_bitmap(DeviceContext context, std::int32_t x, std::int32_t y, const Bitmap &bitmap) {
    mirror().copy_bitmap(context, x, y, bitmap);
    if (behind() != nullptr) behind()->copy_bitmap(real(contexts_, context), x, y, bitmap);
}

}  // namespace ink::host
