// Copies within one buffer. Each draws what was there before it began, on every instruction set: scrolling
// goes right in every direction.
#include "draw/blit.h"

#include <cstring>
#include <new>

namespace ink::draw {

std::unique_ptr<std::uint8_t[]> detach(Blit &blit) {
    const std::size_t size = static_cast<std::size_t>(blit.columns) * static_cast<std::size_t>(blit.rows);
    std::unique_ptr<std::uint8_t[]> copy(new (std::nothrow) std::uint8_t[size]);
    if (copy != nullptr) {
        kernels.copy({copy.get(), blit.columns, blit.from, blit.from_step, blit.columns, blit.rows});
        blit.from = copy.get();
        blit.from_step = blit.columns;
    }
    return copy;
}

void move(const Blit &part) {
    Blit blit = part;
    if (blit.from_step != blit.to_step) {
        const std::unique_ptr<std::uint8_t[]> copy = detach(blit);
        if (copy != nullptr) kernels.copy(blit);
        return;
    }
    // Scrolling needs no copy: no row overwrites one that is still to be moved when the rows go the right
    // way.
    std::ptrdiff_t step = blit.to_step;
    if (blit.to > blit.from) {
        blit.to += (blit.rows - 1) * step;
        blit.from += (blit.rows - 1) * step;
        step = -step;
    }
    for (std::ptrdiff_t row = 0; row < blit.rows; ++row, blit.to += step, blit.from += step)
        std::memmove(blit.to, blit.from, static_cast<std::size_t>(blit.columns));
}

}  // namespace ink::draw
