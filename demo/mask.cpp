#include "mask.h"

#include <inkstone/inkstone.h>

#include <algorithm>
#include <limits>

#include "picture.h"

namespace moon {
namespace {

std::vector<std::uint8_t> place, frame;

// The pixel of a mask with that key that is nearest to (x, y); (-1, -1) when there is none.
Point nearest(const std::vector<std::uint8_t> &in, int key, int x, int y) {
    Point found{-1, -1};
    int best = std::numeric_limits<int>::max();
    for (int row = 0; row < INK_SCREEN_HEIGHT; ++row) {
        for (int column = 0; column < INK_SCREEN_WIDTH; ++column) {
            const int square = (column - x) * (column - x) + (row - y) * (row - y);
            if (square >= best || BUF_get_pixel(column, row, in.data()) != key) continue;
            best = square;
            found = {column, row};
        }
    }
    return found;
}

}  // namespace

void load_mask(const std::string &name) {
    place = frame = read_screen(name);
}

std::uint8_t *begin_mask() {
    frame = place;
    return frame.data();
}

std::vector<std::uint8_t> cut_out(int key) {
    std::vector<std::uint8_t> image(place.size() + 4);
    BUF_get_image(0, 0, INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, image.data(), place.data());
    std::replace_if(
        image.begin() + 4, image.end(), [key](std::uint8_t pixel) { return pixel != key; }, std::uint8_t{0});
    return image;
}

int key_at(int x, int y) {
    return BUF_get_pixel(x, y, frame.data());
}

Point point_of(int key) {
    long long count = 0, sum_x = 0, sum_y = 0;
    for (int y = 0; y < INK_SCREEN_HEIGHT; ++y) {
        for (int x = 0; x < INK_SCREEN_WIDTH; ++x) {
            if (key_at(x, y) != key) continue;
            ++count;
            sum_x += x;
            sum_y += y;
        }
    }
    if (count == 0) return {-1, -1};
    // What is bent may have its middle outside.
    return nearest(frame, key, static_cast<int>(sum_x / count), static_cast<int>(sum_y / count));
}

Point nearest_floor(int x, int y) {
    const Point floor = nearest(place, kFloor, x, y);
    return floor.x < 0 ? Point{x, y} : floor;
}

}  // namespace moon
