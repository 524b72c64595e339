// Every blit, effect, bar and box, and the scaled copies, beside a loop over single pixels that knows nothing of clipping, rows or vectors.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

#include "inkstone/inkstone.h"
#include "support/blocks.h"
#include "support/random_pictures.h"

namespace test {

inline constexpr int kWidth = 640, kHeight = 480;

struct Call {
    int x, y, w, h;  // the corners (x, y) and (w, h) where an operation takes a rectangle
    int a, b;        // colour, mask, key, table ...
    int bw, bh;      // the target's size
    uint8_t *image, *bitmap, *buf, *key;
};

// What a pixel s of the source, if there is one, does to the target's pixel t and the key buffer's pixel k.
using Rule = void (*)(const Call &, int x, int y, uint8_t s, uint8_t &t, uint8_t &k);
using U8 = uint8_t;
inline U8 glass_tables[8][256];

namespace rule {
inline const Rule put = [](const Call &, int, int, U8 s, U8 &t, U8 &) { t = s; };
inline const Rule pest = [](const Call &, int, int, U8 s, U8 &t, U8 &) { t = s ? s : t; };
inline const Rule mask = [](const Call &c, int, int, U8 s, U8 &t, U8 &) { t = s ? U8(c.a) : t; };
inline const Rule mesh = [](const Call &c, int x, int y, U8 s, U8 &t, U8 &) {
    t = s && (x + y) % 2 == 0 ? U8(s & c.a) : t;
};
inline const Rule key_put = [](const Call &c, int, int, U8 s, U8 &t, U8 &k) { t = s, k = U8(c.a); };
inline const Rule key_pest = [](const Call &c, int, int, U8 s, U8 &t, U8 &k) {
    if (s) t = s, k = U8(c.a);
};
inline const Rule fill = [](const Call &c, int, int, U8, U8 &t, U8 &) { t = U8(c.a); };
inline const Rule fill_mesh = [](const Call &c, int x, int y, U8, U8 &t, U8 &) {
    t = (x + y) % 2 ? t : U8(c.a);
};
inline const Rule change = [](const Call &c, int, int, U8, U8 &t, U8 &) { t = t == U8(c.a) ? U8(c.b) : t; };
inline const Rule glass = [](const Call &c, int, int, U8, U8 &t, U8 &) {
    t = c.a >= 0 && c.a < 8 ? glass_tables[c.a][t] : t;
};
inline const Rule glass_mask = [](const Call &c, int x, int y, U8 s, U8 &t, U8 &k) {
    if (s) glass(c, x, y, s, t, k);
};
}  // namespace rule

enum Shape { kSprite, kUpsideDown, kMirrored, kBar, kChange, kBox, kDashBox };
enum Target { kScreen, kMemory, kImage };

struct Operation {
    const char *name;
    Shape shape;
    Target target;
    Rule rule;
    void (*call)(const Call &);
};

#define CALL(function, ...) #function, [](const Call &c) { function(__VA_ARGS__); }
inline Operation operation(Shape shape, Target target, Rule rule, const char *name,
                           void (*call)(const Call &)) {
    return {name, shape, target, rule, call};
}
#define XYWH c.x, c.y, c.w, c.h
inline const Operation kOperations[] = {
    operation(kSprite, kScreen, rule::put, CALL(BUF_put_image, c.x, c.y, c.image, c.buf)),
    operation(kSprite, kScreen, rule::pest, CALL(BUF_pest_image, c.x, c.y, c.image, c.buf)),
    operation(kSprite, kScreen, rule::put, CALL(BUF_put_bitmap, XYWH, c.bitmap, c.buf)),
    operation(kSprite, kScreen, rule::pest, CALL(BUF_pest_bitmap, XYWH, c.bitmap, c.buf)),
    operation(kSprite, kMemory, rule::put, CALL(MEM_put_image, c.x, c.y, c.image, c.buf, c.bw, c.bh)),
    operation(kSprite, kMemory, rule::pest, CALL(MEM_pest_image, c.x, c.y, c.image, c.buf, c.bw, c.bh)),
    operation(kSprite, kMemory, rule::put, CALL(MEM_put_bitmap, XYWH, c.bitmap, c.buf, c.bw, c.bh)),
    operation(kSprite, kMemory, rule::pest, CALL(MEM_pest_bitmap, XYWH, c.bitmap, c.buf, c.bw, c.bh)),
    operation(kSprite, kImage, rule::put, CALL(IMG_put_image, c.x, c.y, c.image, c.buf - 4)),
    operation(kSprite, kImage, rule::pest, CALL(IMG_pest_image, c.x, c.y, c.image, c.buf - 4)),
    operation(kSprite, kScreen, rule::mask, CALL(BUF_mask_pest_image, c.x, c.y, c.image, c.buf, c.a)),
    operation(kSprite, kScreen, rule::mesh, CALL(BUF_mesh_pest_image, c.x, c.y, c.image, c.a, c.buf)),
    operation(kSprite, kScreen, rule::mesh, CALL(BUF_mesh_pest_bitmap, XYWH, c.bitmap, c.a, c.buf)),
    operation(kSprite, kScreen, rule::glass_mask,
              CALL(BUF_glass_mask_pest_image, c.x, c.y, c.image, c.buf, c.a)),
    operation(kSprite, kScreen, rule::glass_mask,
              CALL(BUF_glass_mask_pest_bitmap, XYWH, c.bitmap, c.buf, c.a)),
    operation(kSprite, kScreen, rule::key_put, CALL(BUF_key_put_image, c.x, c.y, c.image, c.buf, c.a, c.key)),
    operation(kSprite, kScreen, rule::key_pest,
              CALL(BUF_key_pest_image, c.x, c.y, c.image, c.buf, c.a, c.key)),
    operation(kUpsideDown, kMemory, rule::pest,
              CALL(MEM_reverse_pest_image, c.x, c.y, c.image, c.bw, c.bh, c.buf)),
    operation(kUpsideDown, kMemory, rule::pest,
              CALL(MEM_reverse_pest_bitmap, XYWH, c.bitmap, c.bw, c.bh, c.buf)),
    operation(kMirrored, kMemory, rule::pest,
              CALL(MEM_turn_pest_image, c.x, c.y, c.image, c.bw, c.bh, c.buf)),
    operation(kMirrored, kMemory, rule::pest, CALL(MEM_turn_pest_bitmap, XYWH, c.bitmap, c.bw, c.bh, c.buf)),
    operation(kUpsideDown, kMemory, rule::mask,
              CALL(MEM_shadow_mask_pest_image, c.a, c.x, c.y, c.image, c.bw, c.bh, c.buf)),
    operation(kUpsideDown, kMemory, rule::mask,
              CALL(MEM_shadow_mask_pest_bitmap, c.a, XYWH, c.bitmap, c.bw, c.bh, c.buf)),
    operation(kBar, kScreen, rule::fill, CALL(BUF_bar, XYWH, c.a, c.buf)),
    operation(kBar, kScreen, rule::fill_mesh, CALL(BUF_mesh_bar, XYWH, c.a, c.buf)),
    operation(kBar, kScreen, rule::glass, CALL(BUF_glass_bar, XYWH, c.a, c.buf)),
    operation(kChange, kScreen, rule::change, CALL(BUF_change_color, XYWH, c.a, c.b, c.buf)),
    operation(kBox, kScreen, rule::fill, CALL(BUF_box, XYWH, c.a, c.buf)),
    operation(kBox, kMemory, rule::fill, CALL(MEM_box, XYWH, c.a, c.bw, c.bh, c.buf)),
    operation(kBox, kScreen, rule::glass, CALL(BUF_glass_box, XYWH, c.a, c.buf)),
    operation(kDashBox, kScreen, rule::fill, CALL(BUF_dash_box, XYWH, c.a, c.b, c.buf)),
};
#undef CALL
#undef XYWH

// The operation, pixel by pixel.
inline void draw_slowly(const Operation &op, const Call &c, const Bytes &bitmap, Bytes &target, Bytes &key) {
    const auto pixel = [&](int x, int y, U8 s) {
        if (x < 0 || x >= c.bw || y < 0 || y >= c.bh) return;
        const auto at = static_cast<std::size_t>(y * c.bw + x);
        op.rule(c, x, y, s, target[at], key[at]);
    };
    if (op.shape <= kMirrored) {
        for (int j = 0; j < c.h; ++j)
            for (int i = 0; i < c.w; ++i) {
                const int from_x = op.shape == kMirrored ? c.w - 1 - i : i;
                const int from_y = op.shape == kUpsideDown ? c.h - 1 - j : j;
                pixel(c.x + i, c.y + j, bitmap[static_cast<std::size_t>(from_y * c.w + from_x)]);
            }
        return;
    }
    int x1 = c.x, y1 = c.y, x2 = c.w, y2 = c.h;
    if (op.shape == kChange && (x1 >= c.bw || y1 >= c.bh || x2 < 0 || y2 < 0)) return;
    if (op.shape >= kBox && (x1 >= c.bw || y1 >= c.bh || x2 <= 0 || y2 <= 0)) return;
    x1 = std::max(x1, 0), y1 = std::max(y1, 0), x2 = std::min(x2, c.bw - 1), y2 = std::min(y2, c.bh - 1);
    if (op.shape == kChange && x1 > x2) std::swap(x1, x2);
    if (op.shape == kChange && y1 > y2) std::swap(y1, y2);
    if (x1 > x2 || y1 > y2) return;
    const int half = c.b / 2, period = op.shape == kDashBox ? c.b : 1;
    const auto dashed = [&](int n) { return op.shape == kBox || (period > 0 && n % period < half); };
    if (op.shape < kBox) {
        for (int y = y1; y <= y2; ++y)
            for (int x = x1; x <= x2; ++x) pixel(x, y, 0);
        return;
    }
    for (int x = x1; x <= x2; ++x)
        if (dashed(x - x1)) pixel(x, y1, 0), pixel(x, y2, 0);
    for (int y = y1 + 1; y < y2; ++y)
        if (dashed(y - y1 - 1)) {
            pixel(x1, y, 0);
            if (x2 > x1) pixel(x2, y, 0);
        }
}

// What an outline d pixels thick leaves in the work buffer: the picture's shape in the colour four times, and the
// picture over it.
inline Bytes outlined(const Bytes &source, int w, int h, int colour, int d) {
    Bytes picture(static_cast<std::size_t>((w + 2 * d) * (h + 2 * d)));
    const auto set = [&](int column, int row, int pixel) {
        picture[static_cast<std::size_t>(row * (w + 2 * d) + column)] = static_cast<U8>(pixel);
    };
    for (const bool outline : {true, false})
        for (int r = 0; r < h; ++r)
            for (int c = 0; c < w; ++c) {
                const U8 pixel = source[static_cast<std::size_t>(r * w + c)];
                if (pixel == 0) continue;
                if (!outline)
                    set(c + d, r + d, pixel);
                else
                    set(c + d, r, colour), set(c + d, r + 2 * d, colour), set(c, r + d, colour),
                        set(c + 2 * d, r + d, colour);
            }
    return picture;
}

// The picture's shadow: three quarters as high, slanted to the right by a quarter of the width.
inline Bytes shadow_of(const Bytes &source, int w, int h) {
    const int width = w + w / 4, height = 3 * h / 4;
    Bytes picture(static_cast<std::size_t>(width * height));
    for (int r = 0; r < height; ++r)
        for (int c = 0; c < w; ++c)
            picture[static_cast<std::size_t>(r * width + r * w / height / 4 + c)] =
                source[static_cast<std::size_t>(4 * r / 3 * w + c)];
    return picture;
}

// The rectangle around the pixels that are drawn within a part of a buffer; turned inside out when there is none.
inline std::array<int, 4> rectangle_around(int x1, int y1, int x2, int y2, int bw, int bh,
                                           const Bytes &pixels) {
    x2 = std::min(x2, bw), y2 = std::min(y2, bh);
    int left = x2, top = y2, right = x1, bottom = y1;
    for (int y = std::max(y1, 0); y < y2; ++y)
        for (int x = std::max(x1, 0); x < x2; ++x)
            if (pixels[static_cast<std::size_t>(y * bw + x)] != 0) {
                left = std::min(left, x), right = std::max(right, x);
                top = std::min(top, y), bottom = std::max(bottom, y);
            }
    return {left, top, right, bottom};
}

// The source pixel of each destination pixel by a division.
inline void scale_slowly(Bytes &screen, std::int64_t left, std::int64_t top, std::int64_t dw, std::int64_t dh,
                         std::int64_t sw, std::int64_t sh, bool pest, const Bytes &source) {
    if (sw <= 0 || sh <= 0) return;
    for (std::int64_t y = std::max<std::int64_t>(top, 0); y < std::min<std::int64_t>(top + dh, kHeight); ++y)
        for (std::int64_t x = std::max<std::int64_t>(left, 0); x < std::min<std::int64_t>(left + dw, kWidth);
             ++x) {
            const U8 pixel =
                source[static_cast<std::size_t>((y - top) * sh / dh * sw + (x - left) * sw / dw)];
            if (!pest || pixel != 0) screen[static_cast<std::size_t>(y * kWidth + x)] = pixel;
        }
}

// A screen that shows the window from (left, top) to before (right, bottom), in steps of 1/65536 of a pixel.
inline Bytes zoom_slowly(std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom,
                         const Bytes &source) {
    const std::int64_t step_x = (right - left) * 65536 / kWidth, step_y = (bottom - top) * 65536 / kHeight;
    Bytes screen;
    for (std::int64_t y = 0; y < kHeight; ++y)
        for (std::int64_t x = 0; x < kWidth; ++x)
            screen.push_back(source[static_cast<std::size_t>((top + y * step_y / 65536) * kWidth + left +
                                                             x * step_x / 65536)]);
    return screen;
}

inline void make_glass_tables(Random &random) {
    for (int n = 0; n < 8; ++n) {
        Bytes palette(768);
        for (std::size_t c = 0; c < 768; c += 3)
            palette[c] = palette[c + 1] = palette[c + 2] = static_cast<U8>(random(0, 63));
        PAL_make_glass_table(0, 256, n, 64, palette.data());
        for (int c = 0; c < 256; ++c) {  // the first grey that is near enough
            U8 &entry = glass_tables[n][c] = 0;
            while (std::abs(palette[3u * entry] - palette[3u * static_cast<unsigned>(c)]) > 5) ++entry;
        }
    }
}

}  // namespace test
