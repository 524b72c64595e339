// The picture side of a machine that is recorded or replayed: everything is shown by the mirror, whose
// handles the program gets, and by the machine behind.
#pragma once

#include <utility>
#include <vector>

#include "host/replay/tape.h"

namespace ink::host {

class TracedDisplay final : public Display {
  public:
    explicit TracedDisplay(Tape &tape) : tape_(tape) {}

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
    // Pairs of the mirror's handles and those of the machine behind.
    template <class Handle>
    using Pairs = std::vector<std::pair<Handle, Handle>>;
    template <class Handle>
    static Handle real(const Pairs<Handle> &pairs, Handle handle);

    Display &mirror() { return tape_.mirror().machine().display; }
    Display *behind() { return tape_.behind() != nullptr ? &tape_.behind()->display : nullptr; }

    Tape &tape_;
    Pairs<DeviceContext> contexts_;
    Pairs<PaletteHandle> palettes_;
};

}  // namespace ink::host
