// What is painted on: for each pixel a material and how bright it is. Only the finished picture becomes indices.
#pragma once

#include <vector>

#include "kit/mask.h"
#include "kit/noise.h"
#include "kit/palette.h"

namespace paint {

// A shade of a ramp: 0 is its darkest, 1 its lightest. Of Ramp::exact it is an index.
struct Tone {
    Ramp ramp;
    double value;
};

class Canvas {
  public:
    Canvas(int width, int height) : width_(width), height_(height), pixels_(area()) {}
    int width() const { return width_; }
    int height() const { return height_; }

    // Covers the mask with paint. Where the edge covers a part of a pixel, its brightness lies between and its
    // material is that of the larger part.
    void lay(const Mask &mask, Tone tone, double opacity = 1) {
        lay(
            mask, [&](int, int) { return tone; }, opacity);
    }
    template <class ToneAt>
    void lay(const Mask &mask, const ToneAt &tone_at, double opacity = 1) {
        each(mask, [&](Pixel &pixel, int x, int y, double cover) {
            cover *= opacity;
            if (cover > 0.01) blend(pixel, tone_at(x, y), cover, 0.5);
        });
    }

    // A thin wash: as lay, with the material changing over from pixel to pixel as the wash grows thicker.
    template <class OpacityAt>
    void wash(const Mask &mask, Tone tone, const OpacityAt &opacity_at) {
        each(mask, [&](Pixel &pixel, int x, int y, double cover) {
            cover *= opacity_at(x, y);
            if (cover > 0.01) blend(pixel, tone, cover, threshold(x, y));
        });
    }

    // Makes what is there brighter or, below 0, darker: everything, or only one material.
    void shade(const Mask &mask, double amount, Ramp only = Ramp::none) {
        shade(
            mask, [&](int, int) { return amount; }, only);
    }
    template <class AmountAt>
    void shade(const Mask &mask, const AmountAt &amount_at, Ramp only = Ramp::none) {
        each(mask, [&](Pixel &pixel, int x, int y, double cover) {
            if (pixel.ramp > Ramp::exact && (only == Ramp::none || pixel.ramp == only))
                pixel.brightness += cover * amount_at(x, y);
        });
    }

    // Every pixel that is not there beside one that is.
    void outline(Tone tone);

    // The indices, in ordered steps from shade to shade, which melt into each other by less than a whole one, so that
    // flat planes stay flat.
    ink::tool::IndexedPicture picture(double melt = 0.75) const;

    Mask all() const { return fill(rectangle(0, 0, width_, height_)); }

  private:
    struct Pixel {
        Ramp ramp = Ramp::none;
        double brightness = 0;
    };

    std::size_t area() const { return static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_); }
    Pixel &at(int x, int y) {
        return pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                       static_cast<std::size_t>(x)];
    }
    static double threshold(int x, int y);
    static void blend(Pixel &pixel, Tone tone, double cover, double limit);

    template <class Change>
    void each(const Mask &mask, const Change &change) {
        for (int y = mask.top < 0 ? 0 : mask.top; y < mask.top + mask.height && y < height_; ++y)
            for (int x = mask.left < 0 ? 0 : mask.left; x < mask.left + mask.width && x < width_; ++x)
                change(at(x, y), x, y, static_cast<double>(mask.at(x, y)));
    }

    int width_, height_;
    std::vector<Pixel> pixels_;
};

}  // namespace paint
