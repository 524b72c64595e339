// What is painted on: every pixel has a material and a tone of it. Where an edge covers a pixel in part, the
// nearest tone of one of the two materials stands for the mixture, so that edges stay smooth in every light.
#pragma once

#include <functional>
#include <vector>

#include "material.h"
#include "shape.h"

namespace people {

// 0 the shade to 1 the light, at a place.
using Tone = std::function<double(double x, double y)>;
Tone flat(double tone);
Tone gradient(Point from, double tone_from, Point to, double tone_to);
// The same with the unevenness of a material: grain of so many pixels across and down.
Tone grained(Tone tone, double amount, double across, double down, std::uint32_t seed = 1);

// Noise between -1 and 1 that changes over about a unit.
double noise(double x, double y, std::uint32_t seed);
// A number from 0 to below 1 for each i, for what is strewn about.
double scatter(int i, std::uint32_t seed);

// A line of the brush: as wide at its beginning, middle and end, and how dry it is, 0 to 1.
struct Brush {
    double begin = 1.2, middle = 1.2, end = 1.2;
    double dry = 0;
};

class Canvas {
  public:
    Canvas(int width, int height);
    int width() const { return width_; }
    int height() const { return height_; }

    void fill(const Path &path, Ramp ramp, const Tone &tone, double opacity = 1);
    void fill(const Path &path, Ramp ramp, double tone, double opacity = 1);
    void line(const Path &path, Ramp ramp, double tone, const Brush &brush, double opacity = 1);
    // An area with a contour of ink.
    void shape(const Path &path, Ramp ramp, const Tone &tone, double contour = 1.3);
    void shape(const Path &path, Ramp ramp, double tone, double contour = 1.3);

    // Makes what is there lighter or darker: within an outline, or most in the middle of an ellipse. With a
    // ramp, only that material.
    void shade(const Path &path, double change, Ramp only = kNothing);
    void glow(double x, double y, double rx, double ry, double change, Ramp only = kNothing);
    // The same with another material laid over: mist, steam, a pool of light.
    void wash(double x, double y, double rx, double ry, Ramp ramp, double tone, double opacity);

    // Takes away what is there.
    void clear(const Path &path);
    // Lays another canvas on this one.
    void lay(const Canvas &other, int left, int top);

    Ramp ramp_at(int x, int y) const { return pixels_[index(x, y)].ramp; }
    double tone_at(int x, int y) const { return pixels_[index(x, y)].tone; }
    void set(int x, int y, Ramp ramp, double tone) { pixels_[index(x, y)] = {ramp, tone}; }
    void blend(int x, int y, Ramp ramp, double tone, double part);

    // As indices of the palette. Dither is how many steps of a ramp a tone may be off.
    ink::tool::IndexedPicture picture(double dither = 0.9) const;

  private:
    struct Pixel {
        Ramp ramp = kNothing;
        double tone = 0;
    };
    std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
    }

    int width_, height_;
    std::vector<Pixel> pixels_;
};

}  // namespace people
