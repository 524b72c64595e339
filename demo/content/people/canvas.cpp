#include "canvas.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace people {
namespace {

std::uint32_t hash(std::uint32_t x, std::uint32_t y, std::uint32_t seed) {
    std::uint32_t h = x * 0x8DA6B343u ^ y * 0xD8163841u ^ seed * 0xCB1AB31Fu;
    h = (h ^ (h >> 15)) * 0x2C1B3C6Du;
    h = (h ^ (h >> 12)) * 0x297A2D39u;
    return h ^ (h >> 15);
}

double grid_value(int x, int y, std::uint32_t seed) {
    return hash(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y), seed) / 2147483648.0 - 1;
}

// The tone of a ramp that comes nearest to a colour, and how far off it is. Between two entries of the
// palette, tones are mixtures.
struct Match {
    double tone, distance;
};
Match nearest(Ramp ramp, const Colour &colour) {
    static const auto table = [] {
        std::array<std::array<Colour, 17>, kRamps> all{};
        for (int r = static_cast<int>(kSky); r < kRamps; ++r)
            for (int i = 0; i <= 16; ++i)
                all[static_cast<std::size_t>(r)][static_cast<std::size_t>(i)] =
                    by_day(static_cast<Ramp>(r), i / 16.0);
        return all;
    }();
    const auto &of_ramp = table[static_cast<std::size_t>(ramp)];
    Match best{0, 1e9};
    for (std::size_t i = 0; i < 16; ++i) {
        const Colour &a = of_ramp[i], &b = of_ramp[i + 1];
        const double dr = b.red - a.red, dg = b.green - a.green, db = b.blue - a.blue;
        const double er = colour.red - a.red, eg = colour.green - a.green, eb = colour.blue - a.blue;
        const double t =
            std::clamp((er * dr + eg * dg + eb * db) / std::max(dr * dr + dg * dg + db * db, 1e-9), 0.0, 1.0);
        const double fr = er - t * dr, fg = eg - t * dg, fb = eb - t * db;
        const double distance = fr * fr + fg * fg + fb * fb;
        if (distance < best.distance) best = {(static_cast<double>(i) + t) / 16, distance};
    }
    return best;
}

// The order in which the pixels of an 8 x 8 square take the next tone, -0.5 to 0.5.
double threshold(int x, int y) {
    int order = 0;
    for (int bit = 0; bit < 3; ++bit) {
        const int bx = (x >> bit) & 1, by = (y >> bit) & 1;
        order |= ((bx ^ by) << (5 - 2 * bit)) | (by << (4 - 2 * bit));
    }
    return (order + 0.5) / 64 - 0.5;
}

double in_ellipse(double x, double y, double cx, double cy, double rx, double ry) {
    const double dx = (x - cx) / rx, dy = (y - cy) / ry, inside = 1 - dx * dx - dy * dy;
    return inside > 0 ? inside * inside : 0;
}

template <typename Each>
void each_in(double x, double y, double rx, double ry, int width, int height, Each each) {
    for (int py = std::max(0, static_cast<int>(y - ry)); py < std::min<double>(height, y + ry); ++py) {
        for (int px = std::max(0, static_cast<int>(x - rx)); px < std::min<double>(width, x + rx); ++px) {
            const double part = in_ellipse(px + 0.5, py + 0.5, x, y, rx, ry);
            if (part > 0) each(px, py, part);
        }
    }
}

}  // namespace

double noise(double x, double y, std::uint32_t seed) {
    const double fx = std::floor(x), fy = std::floor(y);
    const int ix = static_cast<int>(fx), iy = static_cast<int>(fy);
    const auto ease = [](double t) { return t * t * (3 - 2 * t); };
    const double u = ease(x - fx), v = ease(y - fy);
    const double top = grid_value(ix, iy, seed) * (1 - u) + grid_value(ix + 1, iy, seed) * u;
    const double bottom = grid_value(ix, iy + 1, seed) * (1 - u) + grid_value(ix + 1, iy + 1, seed) * u;
    return top * (1 - v) + bottom * v;
}

double scatter(int i, std::uint32_t seed) {
    return hash(static_cast<std::uint32_t>(i), 77, seed) / 4294967296.0;
}

Tone flat(double tone) {
    return [tone](double, double) { return tone; };
}

Tone gradient(Point from, double tone_from, Point to, double tone_to) {
    const double dx = to.x - from.x, dy = to.y - from.y, length = dx * dx + dy * dy;
    return [=](double x, double y) {
        const double t = std::clamp(((x - from.x) * dx + (y - from.y) * dy) / length, 0.0, 1.0);
        return tone_from + (tone_to - tone_from) * t;
    };
}

Tone grained(Tone tone, double amount, double across, double down, std::uint32_t seed) {
    return [=, tone = std::move(tone)](double x, double y) {
        return tone(x, y) + amount * (0.65 * noise(x / across, y / down, seed) +
                                      0.35 * noise(x * 2.3 / across, y * 2.3 / down, seed + 1));
    };
}

Canvas::Canvas(int width, int height)
    : width_(width),
      height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

void Canvas::blend(int x, int y, Ramp ramp, double tone, double part) {
    Pixel &pixel = pixels_[index(x, y)];
    tone = std::clamp(tone, 0.0, 1.0);
    if (part >= 0.996 || (pixel.ramp == kNothing && part >= 0.5)) {
        pixel = {ramp, tone};
    } else if (pixel.ramp == ramp) {
        pixel.tone += (tone - pixel.tone) * part;
    } else if (pixel.ramp != kNothing) {
        const Colour under = by_day(pixel.ramp, pixel.tone), over = by_day(ramp, tone);
        const Colour mixed = {under.red + (over.red - under.red) * part,
                              under.green + (over.green - under.green) * part,
                              under.blue + (over.blue - under.blue) * part};
        const Match below = nearest(pixel.ramp, mixed), above = nearest(ramp, mixed);
        // Of two that are as near, the material that covers more of the pixel.
        const bool takes = above.distance * (1.25 - part / 2) < below.distance * (0.75 + part / 2);
        pixel = takes ? Pixel{ramp, above.tone} : Pixel{pixel.ramp, below.tone};
    }
}

void Canvas::fill(const Path &path, Ramp ramp, const Tone &tone, double opacity) {
    rasterise(path, width_, height_,
              [&](int x, int y, double part) { blend(x, y, ramp, tone(x + 0.5, y + 0.5), part * opacity); });
}

void Canvas::fill(const Path &path, Ramp ramp, double tone, double opacity) {
    fill(path, ramp, flat(tone), opacity);
}

void Canvas::line(const Path &path, Ramp ramp, double tone, const Brush &brush, double opacity) {
    const auto width_at = [&brush](double t) {
        return t < 0.5 ? brush.begin + (brush.middle - brush.begin) * t * 2
                       : brush.middle + (brush.end - brush.middle) * (t * 2 - 1);
    };
    rasterise_line(path, width_at, width_, height_, [&](int x, int y, double part) {
        // A dry brush leaves streaks of what is underneath.
        if (brush.dry > 0) {
            const double bare = noise(x / 9.0, y / 1.7, 5) + 0.6 * noise(x / 2.0, y / 2.0, 6);
            if (bare < brush.dry * 2 - 1.4) return;
        }
        blend(x, y, ramp, tone, part * opacity);
    });
}

void Canvas::shape(const Path &path, Ramp ramp, const Tone &tone, double contour) {
    fill(path, ramp, tone);
    Path closed = path;
    closed.push_back(path.front());
    line(closed, kInk, 0.06, {contour, contour, contour, 0});
}

void Canvas::shape(const Path &path, Ramp ramp, double tone, double contour) {
    shape(path, ramp, flat(tone), contour);
}

void Canvas::shade(const Path &path, double change, Ramp only) {
    rasterise(path, width_, height_, [&](int x, int y, double part) {
        Pixel &pixel = pixels_[index(x, y)];
        if (only == kNothing || pixel.ramp == only)
            pixel.tone = std::clamp(pixel.tone + change * part, 0.0, 1.0);
    });
}

void Canvas::glow(double x, double y, double rx, double ry, double change, Ramp only) {
    each_in(x, y, rx, ry, width_, height_, [&](int px, int py, double part) {
        Pixel &pixel = pixels_[index(px, py)];
        if (only == kNothing || pixel.ramp == only)
            pixel.tone = std::clamp(pixel.tone + change * part, 0.0, 1.0);
    });
}

void Canvas::wash(double x, double y, double rx, double ry, Ramp ramp, double tone, double opacity) {
    each_in(x, y, rx, ry, width_, height_,
            [&](int px, int py, double part) { blend(px, py, ramp, tone, part * opacity); });
}

void Canvas::clear(const Path &path) {
    rasterise(path, width_, height_, [&](int x, int y, double part) {
        if (part >= 0.5) pixels_[index(x, y)] = {};
    });
}

void Canvas::lay(const Canvas &other, int left, int top) {
    for (int y = std::max(0, -top); y < std::min(other.height_, height_ - top); ++y)
        for (int x = std::max(0, -left); x < std::min(other.width_, width_ - left); ++x)
            if (other.ramp_at(x, y) != kNothing)
                pixels_[index(x + left, y + top)] = other.pixels_[other.index(x, y)];
}

ink::tool::IndexedPicture Canvas::picture(double dither) const {
    ink::tool::IndexedPicture result{width_, height_};
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            const Pixel &pixel = pixels_[index(x, y)];
            if (pixel.ramp == kNothing) continue;
            const auto [first, count] = paint::range_of(pixel.ramp);
            const int step =
                static_cast<int>(std::floor(pixel.tone * (count - 1) + 0.5 + dither * threshold(x, y)));
            result.row(y)[x] = static_cast<std::uint8_t>(first + std::clamp(step, 0, count - 1));
        }
    }
    return result;
}

}  // namespace people
