#include "inkstone/line.h"

#include <cstring>
#include <utility>

#include "draw/surface.h"

namespace ink::draw {
namespace {

// One coordinate of a line: where it starts and which way it steps, on a surface of this size along the axis
// whose neighbouring pixels lie stride bytes apart.
struct Axis {
    std::int64_t start = 0, step = 1;
    std::int64_t size = 0, stride = 0;

    // The numbers of the first and the last step that lie on the surface.
    std::int64_t first() const { return step > 0 ? -start : start - (size - 1); }
    std::int64_t last() const { return step > 0 ? size - 1 - start : start; }
    // The distance in bytes of the coordinate after this many steps from coordinate 0.
    std::int64_t place(std::int64_t steps) const { return (start + steps * step) * stride; }
};

// The pixels of a line, numbered from 0 to length in the order they are walked. The major coordinate takes a
// step from each to the next, so that pixel k lies k major steps and floor(k x rise / length) minor steps
// from the start. Both counts are below 2^32, so their products pass no 64 bits.
struct Line {
    Axis major, minor;
    std::uint64_t length = 0, rise = 0;
};

Line make_line(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2, const Surface &surface) {
    // Sloped lines start at their right-hand end, vertical ones at the top, horizontal ones at the left.
    const bool sloped = x1 != x2 && y1 != y2;
    if (sloped ? x2 > x1 : x2 < x1 || y2 < y1) {
        std::swap(x1, x2);
        std::swap(y1, y2);
    }
    const std::int64_t dx = x2 - x1, dy = y2 - y1;
    const auto ax = static_cast<std::uint64_t>(dx < 0 ? -dx : dx);
    const auto ay = static_cast<std::uint64_t>(dy < 0 ? -dy : dy);
    const Axis x{x1, dx < 0 ? -1 : 1, surface.width, 1};
    const Axis y{y1, dy < 0 ? -1 : 1, surface.height, surface.width};
    return ax >= ay ? Line{x, y, ax, ay} : Line{y, x, ay, ax};
}

// The numbers of the pixels of a line that lie on the surface: none when last is below first.
struct Visible {
    std::int64_t first = 0, last = -1;
};

// The number of the first pixel that lies at least this many minor steps from the start.
std::int64_t first_at(const Line &line, std::int64_t minor_steps) {
    const std::uint64_t product = static_cast<std::uint64_t>(minor_steps) * line.length;
    return static_cast<std::int64_t>((product + line.rise - 1) / line.rise);
}

Visible clip(const Line &line) {
    const auto length = static_cast<std::int64_t>(line.length), rise = static_cast<std::int64_t>(line.rise);
    Visible visible{std::max<std::int64_t>(line.major.first(), 0), std::min(line.major.last(), length)};
    const std::int64_t low = line.minor.first(), high = line.minor.last();
    if (low > rise || high < 0 || high < low) return {};
    if (low > 0) visible.first = std::max(visible.first, first_at(line, low));
    if (high < rise) visible.last = std::min(visible.last, first_at(line, high + 1) - 1);
    return visible;
}

// Hands the place of each visible pixel to draw, in the order of the walk.
template <typename Draw>
void walk(const Line &line, Visible visible, Draw draw) {
    const auto first = static_cast<std::uint64_t>(visible.first);
    std::int64_t minor = 0;
    std::uint64_t error = 0;
    if (first != 0) {
        minor = static_cast<std::int64_t>(first * line.rise / line.length);
        error = first * line.rise % line.length;
    }
    const std::int64_t major_step = line.major.step * line.major.stride;
    const std::int64_t minor_step = line.minor.step * line.minor.stride;
    std::int64_t place = line.major.place(visible.first) + line.minor.place(minor);
    for (std::int64_t count = visible.last - visible.first + 1; count > 0; --count) {
        draw(place);
        error += line.rise;
        const bool turn = error >= line.length;
        error -= turn ? line.length : 0;
        place += major_step + (turn ? minor_step : 0);
    }
}

void draw_line(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2, std::int32_t colour,
               const Surface &surface) {
    const Line line = make_line(x1, y1, x2, y2, surface);
    const Visible visible = clip(line);
    if (visible.last < visible.first) return;
    const auto pixel = low_byte(colour);
    if (y1 == y2) {
        std::memset(surface.at(line.major.start + visible.first, y1), pixel,
                    static_cast<std::size_t>(visible.last - visible.first + 1));
        return;
    }
    walk(line, visible, [&](std::int64_t place) { surface.pixels[place] = pixel; });
}

void draw_dash_line(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2, std::int32_t colour,
                    std::int64_t length, const Surface &surface) {
    if (length <= 0) return;
    const Line line = make_line(x1, y1, x2, y2, surface);
    const Visible visible = clip(line);
    if (visible.last < visible.first) return;
    // Pixel i is drawn in the second half of each period of (i + 1), also where the first pixels are hidden.
    std::int64_t phase = (visible.first + 1) % (2 * length);
    walk(line, visible, [&](std::int64_t place) {
        if (phase >= length) surface.pixels[place] = low_byte(colour);
        if (++phase == 2 * length) phase = 0;
    });
}

}  // namespace
}  // namespace ink::draw

using namespace ink::draw;

void BUF_line(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, uint8_t *buf) {
    draw_line(x1, y1, x2, y2, colour, screen(buf));
}

void MEM_line(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, int32_t bw, int32_t bh,
              uint8_t *mem) {
    draw_line(x1, y1, x2, y2, colour, memory(mem, bw, bh));
}

void BUF_dash_line(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, int32_t length,
                   uint8_t *buf) {
    draw_dash_line(x1, y1, x2, y2, colour, length, screen(buf));
}

void MEM_dash_line(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, int32_t length, int32_t bw,
                   int32_t bh, uint8_t *mem) {
    draw_dash_line(x1, y1, x2, y2, colour, length, memory(mem, bw, bh));
}
