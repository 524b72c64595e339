// The zoom: a window of one screen, magnified to fill another.
#include <algorithm>

#include "draw/scale.h"
#include "inkstone/scale.h"

namespace ink::draw {
namespace {

// The columns or rows of the source that are magnified: from first to end - 1.
struct Span {
    std::int64_t first, end;
};
Span window_columns{0, kScreenWidth}, window_rows{0, kScreenHeight};

Span around(std::int64_t centre, std::int64_t half, std::int64_t size) {
    half = std::max<std::int64_t>(half, 0);
    const std::int64_t first = std::clamp<std::int64_t>(centre - half, 0, size - 1);
    return {first, std::min(first + 2 * half, size)};
}

// The steps are taken in 1/65536 of a pixel.
Scale magnified(const Span &span, std::int64_t size) {
    constexpr std::int64_t kUnit = 65536;
    return {size, (span.end - span.first) * kUnit / size, kUnit};
}

}  // namespace
}  // namespace ink::draw

using namespace ink::draw;

void MEM_zoom_control(int32_t hw, int32_t hh, int32_t cx, int32_t cy) {
    window_columns = around(cx, hw, kScreenWidth);
    window_rows = around(cy, hh, kScreenHeight);
}

void MEM_scale_bitmap(uint8_t *dst, const uint8_t *src) {
    // A window of no columns or rows shows its first one, so the sprite is what lies right of and below the
    // corner.
    const std::int64_t left = window_columns.first, top = window_rows.first;
    const Sprite window{src + top * kScreenWidth + left, kScreenWidth - left, kScreenHeight - top,
                        kScreenWidth};
    draw_scaled(screen(dst), 0, 0, magnified(window_columns, kScreenWidth),
                magnified(window_rows, kScreenHeight), window, Transparency::none);
}
