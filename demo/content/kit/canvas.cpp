#include "kit/canvas.h"

#include <algorithm>

namespace paint {

// An order of 8 x 8 in which neighbours lie far apart.
double Canvas::threshold(int x, int y) {
    int value = 0;
    for (int bit = 0; bit < 3; ++bit) {
        const int across = (x >> bit) & 1, down = (y >> bit) & 1;
        value |= ((across ^ down) * 2 + down) << (4 - 2 * bit);
    }
    return (value + 0.5) / 64;
}

void Canvas::blend(Pixel &pixel, Tone tone, double cover, double limit) {
    const bool takes_over = cover >= limit;
    if (tone.ramp <= Ramp::exact || pixel.ramp <= Ramp::exact) {
        if (!takes_over) return;
        pixel = {tone.ramp, tone.value};
        if (tone.ramp <= Ramp::exact) return;
        cover = 1;
    }
    const Brightness range = brightness_of(tone.ramp);
    const double target = range.dark + (range.light - range.dark) * tone.value;
    pixel.brightness += (target - pixel.brightness) * cover;
    if (takes_over) pixel.ramp = tone.ramp;
}

void Canvas::outline(Tone tone) {
    const std::vector<Pixel> before = pixels_;
    const auto is_there = [&](int x, int y) {
        return x >= 0 && y >= 0 && x < width_ && y < height_ &&
               before[static_cast<std::size_t>(y * width_ + x)].ramp != Ramp::none;
    };
    for (int y = 0; y < height_; ++y)
        for (int x = 0; x < width_; ++x)
            if (!is_there(x, y) &&
                (is_there(x - 1, y) || is_there(x + 1, y) || is_there(x, y - 1) || is_there(x, y + 1)))
                blend(at(x, y), tone, 1, 0.5);
}

ink::tool::IndexedPicture Canvas::picture(double melt) const {
    ink::tool::IndexedPicture picture{width_, height_};
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            const Pixel &pixel = pixels_[static_cast<std::size_t>(y * width_ + x)];
            int index = 0;
            if (pixel.ramp == Ramp::exact) index = static_cast<int>(pixel.brightness);
            if (pixel.ramp > Ramp::exact) {
                const RampRange range = range_of(pixel.ramp);
                const Brightness ends = brightness_of(pixel.ramp);
                const double value = (pixel.brightness - ends.dark) / (ends.light - ends.dark);
                const double step = value * (range.count - 1) + 0.5 + (threshold(x, y) - 0.5) * melt;
                index = range.first + std::clamp(floor_of(step), 0, range.count - 1);
            }
            picture.row(y)[x] = static_cast<std::uint8_t>(index);
        }
    }
    return picture;
}

}  // namespace paint
