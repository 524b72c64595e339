// Lines, arcs and fills walked pixel by pixel.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

namespace test {

struct Canvas {
    int width, height;
    std::vector<std::uint8_t> pixels;

    bool inside(std::int64_t x, std::int64_t y) const { return x >= 0 && x < width && y >= 0 && y < height; }
    int read(std::int64_t x, std::int64_t y) const {
        return inside(x, y) ? pixels[static_cast<std::size_t>(y * width + x)] : 0;
    }
    void write(std::int64_t x, std::int64_t y, int colour) {
        if (inside(x, y)) pixels[static_cast<std::size_t>(y * width + x)] = static_cast<std::uint8_t>(colour);
    }
};

// The place of pixel k of a line and the number of its pixels, from the rule that the minor coordinate has
// taken floor(k x minor / major) steps.
struct NaiveLine {
    std::int64_t x1, y1, x2, y2, major, minor;

    NaiveLine(std::int64_t ax, std::int64_t ay, std::int64_t bx, std::int64_t by)
        : x1(ax), y1(ay), x2(bx), y2(by) {
        if (x2 > x1 || (x2 == x1 && y2 < y1)) std::swap(x1, x2), std::swap(y1, y2);
        if (y1 == y2) std::swap(x1, x2);  // horizontal lines go from left to right
        major = std::max(std::abs(x2 - x1), std::abs(y2 - y1));
        minor = std::min(std::abs(x2 - x1), std::abs(y2 - y1));
    }
    std::pair<std::int64_t, std::int64_t> at(std::int64_t k) const {
        const auto late =
            static_cast<std::int64_t>(static_cast<std::uint64_t>(k) * static_cast<std::uint64_t>(minor) /
                                      static_cast<std::uint64_t>(std::max(major, std::int64_t{1})));
        const bool flat = std::abs(x2 - x1) >= std::abs(y2 - y1);
        return {x1 + (flat ? k : late) * (x2 < x1 ? -1 : 1), y1 + (flat ? late : k) * (y2 < y1 ? -1 : 1)};
    }
};

inline void naive_dash(Canvas &canvas, const NaiveLine &line, int colour, int length, std::int64_t from,
                       std::int64_t to) {
    for (std::int64_t k = from; k <= to; ++k) {
        const auto [x, y] = line.at(k);
        if (length > 0 && (k + 1) % (std::int64_t{2} * length) >= length) canvas.write(x, y, colour);
    }
}

inline double position(double r, std::int64_t t) {
    const std::int64_t q = t >= 90 ? t / 90 : 0;
    const double rest = static_cast<double>(t >= 90 ? t % 90 : t) * (3.1415926 / 180);
    return 2 * r * static_cast<double>(q) + r - r * std::cos(rest) + r * std::sin(rest);
}

inline void naive_circle(Canvas &canvas, int cx, int cy, int rv, int rh, int start, int end, int colour) {
    const double r = std::max(rv, rh), t = start * (3.1415926 / 180);
    const double c0 = std::cos(t) * r + 0.5, s0 = std::sin(t) * r + 0.5;
    std::int64_t span = std::int64_t{end} - start;
    while (span > 360) span -= 360;
    while (span < -360) span += 360;
    if (span == 0) span = 360;
    int du = (s0 > 0) == (span > 0) ? -1 : 1, dv = (c0 > 0) == (span > 0) ? 1 : -1;
    if (s0 == 0) du = c0 > 0 ? -1 : 1;
    if (c0 == 0) dv = s0 > 0 ? -1 : 1;
    const std::int64_t e = start + span;
    const double steps = span > 0 ? position(r, e) - position(r, start) - 1
                         : e >= 0 ? position(r, start) - position(r, e) - 1
                                  : position(r, start) + position(r, -e) - 1;
    double w = 0, ku = 2 * du * c0 + 1, kv = 2 * dv * s0 + 1, au = 0, av = 0;
    bool pu = false, pv = false;
    std::int64_t v = static_cast<std::int64_t>(std::cos(t) * rv + 0.5),
                 h = static_cast<std::int64_t>(std::sin(t) * rh + 0.5);
    const auto plot = [&] { canvas.write(cx - h, cy + v, colour); };
    plot();
    for (std::int64_t n = std::lround(steps); n > 0; --n) {
        if (w >= 0) {
            au += rv;
            if (au >= r) {
                if (pu) plot();
                pu = false;
                v += du;
                au -= r;
                if (pv)
                    plot();
                else
                    pu = true;
                pv = false;
            }
            w -= std::abs(ku);
            ku += 2;
            if (ku >= 0 && ku < 2) dv = -dv, kv = 2 - kv, w = -w;
        } else {
            av += rh;
            if (av >= r) {
                if (pv) plot();
                pv = false;
                h += dv;
                av -= r;
                if (pu)
                    plot();
                else
                    pv = true;
                pu = false;
            }
            w += std::abs(kv);
            kv += 2;
            if (kv >= 0 && kv < 2) du = -du, ku = 2 - ku, w = -w;
        }
    }
    if (pu || pv) plot();
}

inline void naive_fill(Canvas &canvas, int seed_x, int seed_y, int colour) {
    struct Segment {
        int y, l, r, d;
    };
    std::vector<Segment> stack;
    const auto push = [&](int y, int l, int r, int d) {
        if (stack.size() < 1000 && y + d >= 0 && y + d < canvas.height) stack.push_back({y, l, r, d});
    };
    const int old = canvas.read(seed_x, seed_y);
    if (old == colour || !canvas.inside(seed_x, seed_y)) return;
    push(seed_y, seed_x, seed_x, 1);
    push(seed_y + 1, seed_x, seed_x, -1);
    while (!stack.empty()) {
        const auto [py, x1, x2, d] = stack.back();
        stack.pop_back();
        const int y = py + d;
        int x = x1, l = 0;
        for (; x >= 0 && canvas.read(x, y) == old; --x) canvas.write(x, y, colour);
        bool skip = x >= x1;
        if (!skip) {
            l = x + 1;
            if (l < x1) push(y, l, x1 - 1, -d);
            x = x1 + 1;
        }
        do {
            if (!skip) {
                for (; x < canvas.width && canvas.read(x, y) == old; ++x) canvas.write(x, y, colour);
                push(y, l, x - 1, d);
                if (x > x2 + 1) push(y, x2 + 1, x - 1, -d);
            }
            for (++x; x <= x2 && canvas.read(x, y) != old;) ++x;
            l = x;
            skip = false;
        } while (x <= x2);
    }
}

}  // namespace test
