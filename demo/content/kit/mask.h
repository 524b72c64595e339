// Shapes: which part of each pixel they cover.
#pragma once

#include <vector>

#include "kit/path.h"

namespace paint {

struct Mask {
    int left = 0, top = 0, width = 0, height = 0;
    std::vector<float> cover;  // 0 to 1, row by row

    float &at(int x, int y) {
        return cover[static_cast<std::size_t>(y - top) * static_cast<std::size_t>(width) +
                     static_cast<std::size_t>(x - left)];
    }
    float at(int x, int y) const { return const_cast<Mask *>(this)->at(x, y); }
};

// The inside of a closed path.
Mask fill(const Path &path);

// A brush drawn along a path: its width at the start, in the middle and at the end.
Mask stroke(const Path &path, double start, double middle, double end);
inline Mask stroke(const Path &path, double width) {
    return stroke(path, width, width, width);
}

}  // namespace paint
