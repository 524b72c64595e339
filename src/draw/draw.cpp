// The basic drawing operations.
#include "inkstone/draw.h"

#include <algorithm>
#include <utility>

#include "draw/blit.h"

using namespace ink::draw;

static_assert(INK_SCREEN_WIDTH == kScreenWidth && INK_SCREEN_HEIGHT == kScreenHeight);

namespace {

void put_pixel(const Surface &target, std::int64_t x, std::int64_t y, std::int32_t colour) {
    if (target.contains(x, y)) *target.at(x, y) = low_byte(colour);
}

bool holds(const Sprite &source, std::int64_t x, std::int64_t y, std::int64_t w, std::int64_t h) {
    return x >= 0 && y >= 0 && w > 0 && h > 0 && x + w <= source.width && y + h <= source.height;
}

std::int32_t get_pixel(const Sprite &source, std::int64_t x, std::int64_t y) {
    return holds(source, x, y, 1, 1) ? *source.at(x, y) : 0;
}

// Copies a w x h rectangle out of a buffer, unless it is not wholly inside: false then.
bool get(const Sprite &source, std::int64_t x, std::int64_t y, std::int64_t w, std::int64_t h,
         std::uint8_t *pixels) {
    if (!holds(source, x, y, w, h)) return false;
    put({pixels, w, h}, -x, -y, source);
    return true;
}

void box(const Surface &target, const Box &corners, std::int32_t colour) {
    for_each_edge(clamp_box(corners, target.width, target.height),
                  [&](const Box &edge) { kernels.fill(area(target, edge), low_byte(colour)); });
}

}  // namespace

void BUF_put_pixel(int32_t x, int32_t y, int32_t colour, uint8_t *buf) {
    put_pixel(screen(buf), x, y, colour);
}

int32_t BUF_get_pixel(int32_t x, int32_t y, const uint8_t *buf) {
    return get_pixel(whole_screen(buf), x, y);
}

void BUF_bar(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, uint8_t *buf) {
    fill(screen(buf), {x1, y1, x2, y2}, low_byte(colour));
}

void BUF_mesh_bar(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, uint8_t *buf) {
    const Box bar = clamp_bar({x1, y1, x2, y2}, kScreenWidth, kScreenHeight);
    if (bar.empty()) return;
    kernels.fill_mesh(area(screen(buf), bar), mesh_phase(bar.x1, bar.y1), low_byte(colour));
}

void BUF_box(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, uint8_t *buf) {
    box(screen(buf), {x1, y1, x2, y2}, colour);
}

void BUF_dash_box(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, int32_t period,
                  uint8_t *buf) {
    const Surface target = screen(buf);
    const Box edge = clamp_box({x1, y1, x2, y2}, target.width, target.height);
    const std::int64_t dash = period / 2;
    if (edge.empty() || dash < 1) return;
    const std::uint8_t pixel = low_byte(colour);
    for (std::int64_t x = edge.x1; x <= edge.x2; x += period) {
        const std::int64_t end = std::min(x + dash - 1, edge.x2);
        kernels.fill(area(target, {x, edge.y1, end, edge.y1}), pixel);
        kernels.fill(area(target, {x, edge.y2, end, edge.y2}), pixel);
    }
    for (std::int64_t y = edge.y1 + 1; y < edge.y2; ++y)
        if ((y - edge.y1 - 1) % period < dash) *target.at(edge.x1, y) = *target.at(edge.x2, y) = pixel;
}

void BUF_put_image(int32_t x, int32_t y, const uint8_t *picture, uint8_t *buf) {
    put(screen(buf), x, y, image(picture));
}

void BUF_pest_image(int32_t x, int32_t y, const uint8_t *picture, uint8_t *buf) {
    pest(screen(buf), x, y, image(picture));
}

void BUF_put_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *pixels, uint8_t *buf) {
    put(screen(buf), x, y, bitmap(pixels, w, h));
}

void BUF_pest_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *pixels, uint8_t *buf) {
    pest(screen(buf), x, y, bitmap(pixels, w, h));
}

void BUF_get_image(int32_t x, int32_t y, int32_t w, int32_t h, uint8_t *picture, const uint8_t *buf) {
    put_image_header(picture, 0, 0);
    if (get(whole_screen(buf), x, y, w, h, picture + kImageHeader))
        put_image_header(picture, static_cast<std::uint32_t>(w), static_cast<std::uint32_t>(h));
}

void BUF_get_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, uint8_t *pixels, const uint8_t *buf) {
    put_image_header(pixels, 0, 0);
    get(whole_screen(buf), x, y, w, h, pixels);
}

void BUF_change_color(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t from, int32_t to,
                      uint8_t *buf) {
    if (x1 >= kScreenWidth || y1 >= kScreenHeight || x2 < 0 || y2 < 0) return;
    Box rectangle{std::max(x1, 0), std::max(y1, 0), std::min(x2, kScreenWidth - 1),
                  std::min(y2, kScreenHeight - 1)};
    if (rectangle.x1 > rectangle.x2) std::swap(rectangle.x1, rectangle.x2);
    if (rectangle.y1 > rectangle.y2) std::swap(rectangle.y1, rectangle.y2);
    kernels.replace(area(screen(buf), rectangle), low_byte(from), low_byte(to));
}

void MEM_put_pixel(int32_t x, int32_t y, int32_t colour, int32_t bw, int32_t bh, uint8_t *mem) {
    put_pixel(memory(mem, bw, bh), x, y, colour);
}

int32_t MEM_get_pixel(int32_t x, int32_t y, int32_t bw, int32_t bh, const uint8_t *mem) {
    return get_pixel(whole_memory(mem, bw, bh), x, y);
}

void MEM_box(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colour, int32_t bw, int32_t bh,
             uint8_t *mem) {
    box(memory(mem, bw, bh), {x1, y1, x2, y2}, colour);
}

void MEM_put_image(int32_t x, int32_t y, const uint8_t *picture, uint8_t *mem, int32_t bw, int32_t bh) {
    put(memory(mem, bw, bh), x, y, image(picture));
}

void MEM_pest_image(int32_t x, int32_t y, const uint8_t *picture, uint8_t *mem, int32_t bw, int32_t bh) {
    pest(memory(mem, bw, bh), x, y, image(picture));
}

void MEM_put_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *pixels, uint8_t *mem,
                    int32_t bw, int32_t bh) {
    put(memory(mem, bw, bh), x, y, bitmap(pixels, w, h));
}

void MEM_pest_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *pixels, uint8_t *mem,
                     int32_t bw, int32_t bh) {
    pest(memory(mem, bw, bh), x, y, bitmap(pixels, w, h));
}

void MEM_get_image(int32_t x, int32_t y, int32_t w, int32_t h, uint8_t *picture, const uint8_t *mem,
                   int32_t bw, int32_t bh) {
    const bool possible = w >= 0 && h >= 0 && w <= kLargestImage && h <= kLargestImage;
    put_image_header(picture, possible ? static_cast<std::uint32_t>(w) : 0,
                     possible ? static_cast<std::uint32_t>(h) : 0);
    if (possible) get(whole_memory(mem, bw, bh), x, y, w, h, picture + kImageHeader);
}

void MEM_draw_point_cross(int32_t x, int32_t y, int32_t colour, int32_t bw, int32_t bh, uint8_t *mem) {
    const Surface target = memory(mem, bw, bh);
    for (std::int64_t away = -2; away <= 2; ++away) {
        put_pixel(target, x, y + away, colour);
        put_pixel(target, x + away, y, colour);
    }
}

void MEM_operate_image_size(int32_t *x1, int32_t *y1, int32_t *x2, int32_t *y2, int32_t bw, int32_t bh,
                            const uint8_t *mem) {
    if (x1 == nullptr || y1 == nullptr || x2 == nullptr || y2 == nullptr) return;
    const Sprite source = whole_memory(mem, bw, bh);
    const std::int32_t right = std::min(*x2, bw), bottom = std::min(*y2, bh);
    std::int32_t min_x = right, min_y = bottom, max_x = *x1, max_y = *y1;
    const std::int32_t left = std::max(*x1, 0),
                       end = std::min(right, static_cast<std::int32_t>(source.width));
    const std::int32_t last_row = std::min(bottom, static_cast<std::int32_t>(source.height));
    const auto drawn = [](std::uint8_t pixel) { return pixel != 0; };
    for (std::int32_t y = std::max(*y1, 0); y < last_row && left < end; ++y) {
        const std::uint8_t *row = source.at(0, y);
        const std::uint8_t *first = std::find_if(row + left, row + end, drawn);
        if (first == row + end) continue;
        const auto last =
            std::find_if(std::reverse_iterator(row + end), std::reverse_iterator(row + left), drawn);
        min_x = std::min(min_x, static_cast<std::int32_t>(first - row));
        max_x = std::max(max_x, static_cast<std::int32_t>(last.base() - row) - 1);
        min_y = std::min(min_y, y);
        max_y = std::max(max_y, y);
    }
    *x1 = min_x;
    *y1 = min_y;
    *x2 = max_x;
    *y2 = max_y;
}

void IMG_put_image(int32_t x, int32_t y, const uint8_t *src, uint8_t *dst) {
    put(image_surface(dst), x, y, image(src));
}

void IMG_pest_image(int32_t x, int32_t y, const uint8_t *src, uint8_t *dst) {
    pest(image_surface(dst), x, y, image(src));
}

int32_t IMG_get_image_size(const uint8_t *picture, int32_t *w, int32_t *h) {
    const Sprite sprite = image(picture);
    if (w != nullptr) *w = static_cast<std::int32_t>(sprite.width);
    if (h != nullptr) *h = static_cast<std::int32_t>(sprite.height);
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(sprite.width * sprite.height) + kImageHeader);
}
