// Every blit against a loop over single pixels that knows nothing of clipping, rows or vectors. Run once for
// each instruction set the kernels are built for.
#include <gtest/gtest.h>

#include <chrono>
#include <climits>
#include <random>

#include "inkstone/inkstone.h"
#include "support/files.h"
#include "support/guarded.h"

using test::Bytes;
using test::Guarded;

namespace {

constexpr int kWidth = 640, kHeight = 480;

struct Call {
    int x, y, w, h;  // the corners (x, y) and (w, h) where an operation takes a rectangle
    int a, b;        // colour, mask, key, table ...
    int bw, bh;      // the target's size
    uint8_t *image, *bitmap, *buf, *key;
    bool even(int i, int j) const { return (i + j) % 2 == 0; }
};

// What a pixel s of the source, if there is one, does to the target's pixel t and the key buffer's pixel k.
using Rule = void (*)(const Call &, int x, int y, uint8_t s, uint8_t &t, uint8_t &k);
using U8 = uint8_t;
void put(const Call &, int, int, U8 s, U8 &t, U8 &) {
    t = s;
}
void pest(const Call &, int, int, U8 s, U8 &t, U8 &) {
    t = s ? s : t;
}
void mask(const Call &c, int, int, U8 s, U8 &t, U8 &) {
    t = s ? U8(c.a) : t;
}
void mesh(const Call &c, int x, int y, U8 s, U8 &t, U8 &) {
    t = s && c.even(x, y) ? U8(s & c.a) : t;
}
void key_put(const Call &c, int, int, U8 s, U8 &t, U8 &k) {
    t = s, k = U8(c.a);
}
void key_pest(const Call &c, int x, int y, U8 s, U8 &t, U8 &k) {
    if (s) key_put(c, x, y, s, t, k);
}
void fill(const Call &c, int, int, U8, U8 &t, U8 &) {
    t = U8(c.a);
}
void fill_mesh(const Call &c, int x, int y, U8, U8 &t, U8 &) {
    t = c.even(x, y) ? U8(c.a) : t;
}
void change(const Call &c, int, int, U8, U8 &t, U8 &) {
    t = t == U8(c.a) ? U8(c.b) : t;
}
U8 glass_tables[8][256];
void glass(const Call &c, int, int, U8, U8 &t, U8 &) {
    t = c.a >= 0 && c.a < 8 ? glass_tables[c.a][t] : t;
}
void glass_mask(const Call &c, int x, int y, U8 s, U8 &t, U8 &k) {
    if (s) glass(c, x, y, s, t, k);
}

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
Operation operation(Shape shape, Target target, Rule rule, const char *name, void (*call)(const Call &)) {
    return {name, shape, target, rule, call};
}
#define XYWH c.x, c.y, c.w, c.h
const Operation kOperations[] = {
    operation(kSprite, kScreen, put, CALL(BUF_put_image, c.x, c.y, c.image, c.buf)),
    operation(kSprite, kScreen, pest, CALL(BUF_pest_image, c.x, c.y, c.image, c.buf)),
    operation(kSprite, kScreen, put, CALL(BUF_put_bitmap, XYWH, c.bitmap, c.buf)),
    operation(kSprite, kScreen, pest, CALL(BUF_pest_bitmap, XYWH, c.bitmap, c.buf)),
    operation(kSprite, kMemory, put, CALL(MEM_put_image, c.x, c.y, c.image, c.buf, c.bw, c.bh)),
    operation(kSprite, kMemory, pest, CALL(MEM_pest_image, c.x, c.y, c.image, c.buf, c.bw, c.bh)),
    operation(kSprite, kMemory, put, CALL(MEM_put_bitmap, XYWH, c.bitmap, c.buf, c.bw, c.bh)),
    operation(kSprite, kMemory, pest, CALL(MEM_pest_bitmap, XYWH, c.bitmap, c.buf, c.bw, c.bh)),
    operation(kSprite, kImage, put, CALL(IMG_put_image, c.x, c.y, c.image, c.buf - 4)),
    operation(kSprite, kImage, pest, CALL(IMG_pest_image, c.x, c.y, c.image, c.buf - 4)),
    operation(kSprite, kScreen, mask, CALL(BUF_mask_pest_image, c.x, c.y, c.image, c.buf, c.a)),
    operation(kSprite, kScreen, mesh, CALL(BUF_mesh_pest_image, c.x, c.y, c.image, c.a, c.buf)),
    operation(kSprite, kScreen, mesh, CALL(BUF_mesh_pest_bitmap, XYWH, c.bitmap, c.a, c.buf)),
    operation(kSprite, kScreen, glass_mask, CALL(BUF_glass_mask_pest_image, c.x, c.y, c.image, c.buf, c.a)),
    operation(kSprite, kScreen, glass_mask, CALL(BUF_glass_mask_pest_bitmap, XYWH, c.bitmap, c.buf, c.a)),
    operation(kSprite, kScreen, key_put, CALL(BUF_key_put_image, c.x, c.y, c.image, c.buf, c.a, c.key)),
    operation(kSprite, kScreen, key_pest, CALL(BUF_key_pest_image, c.x, c.y, c.image, c.buf, c.a, c.key)),
    operation(kUpsideDown, kMemory, pest, CALL(MEM_reverse_pest_image, c.x, c.y, c.image, c.bw, c.bh, c.buf)),
    operation(kUpsideDown, kMemory, pest, CALL(MEM_reverse_pest_bitmap, XYWH, c.bitmap, c.bw, c.bh, c.buf)),
    operation(kMirrored, kMemory, pest, CALL(MEM_turn_pest_image, c.x, c.y, c.image, c.bw, c.bh, c.buf)),
    operation(kMirrored, kMemory, pest, CALL(MEM_turn_pest_bitmap, XYWH, c.bitmap, c.bw, c.bh, c.buf)),
    operation(kUpsideDown, kMemory, mask,
              CALL(MEM_shadow_mask_pest_image, c.a, c.x, c.y, c.image, c.bw, c.bh, c.buf)),
    operation(kUpsideDown, kMemory, mask,
              CALL(MEM_shadow_mask_pest_bitmap, c.a, XYWH, c.bitmap, c.bw, c.bh, c.buf)),
    operation(kBar, kScreen, fill, CALL(BUF_bar, XYWH, c.a, c.buf)),
    operation(kBar, kScreen, fill_mesh, CALL(BUF_mesh_bar, XYWH, c.a, c.buf)),
    operation(kBar, kScreen, glass, CALL(BUF_glass_bar, XYWH, c.a, c.buf)),
    operation(kChange, kScreen, change, CALL(BUF_change_color, XYWH, c.a, c.b, c.buf)),
    operation(kBox, kScreen, fill, CALL(BUF_box, XYWH, c.a, c.buf)),
    operation(kBox, kMemory, fill, CALL(MEM_box, XYWH, c.a, c.bw, c.bh, c.buf)),
    operation(kBox, kScreen, glass, CALL(BUF_glass_box, XYWH, c.a, c.buf)),
    operation(kDashBox, kScreen, fill, CALL(BUF_dash_box, XYWH, c.a, c.b, c.buf)),
};

// The operation, pixel by pixel.
void draw_slowly(const Operation &op, const Call &c, const Bytes &bitmap, Bytes &target, Bytes &key) {
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
    const auto dashed = [&](int n) { return op.shape == kBox || n % period < half; };
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

class Random {
  public:
    Random() {
        for (U8 &pixel : pool_) pixel = (*this)(0, 2) == 0 ? U8{0} : static_cast<U8>((*this)(0, 255));
    }
    int operator()(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }
    // Pixels out of a pool, one in three of them 0.
    Bytes pixels(int count) {
        const auto start = pool_.begin() + (*this)(0, 1000);
        return Bytes(start, start + count);
    }
    // Mostly of small sprites, now and then of none or beyond any target; multiples of 16 are common.
    int size() {
        const int kind = (*this)(0, 19);
        return kind == 0 ? (*this)(100, 700) : kind < 5 ? 16 * (*this)(0, 5) : (*this)(0, 90);
    }
    // A start from which the length ends up inside, across either border, or beside the target.
    int place(int length, int target) {
        return (*this)(0, 1) == 0 ? near(-length) : near(target - length / 2);
    }
    int near(int at) { return at + (*this)(-40, 40); }

  private:
    std::mt19937 engine_{20240229};
    Bytes pool_ = Bytes(500'000);
};

Bytes image_block(int w, int h, const Bytes &pixels) {
    Bytes block(4 + pixels.size());
    block[0] = U8(w), block[1] = U8(w >> 8), block[2] = U8(h), block[3] = U8(h >> 8);
    std::copy(pixels.begin(), pixels.end(), block.begin() + 4);
    return block;
}

}  // namespace

TEST(Draw, AgreesWithALoopOverPixels) {
    Random random;
    for (int n = 0; n < 8; ++n) {  // what each table does to all colours
        Bytes row(kWidth * kHeight);
        for (std::size_t i = 0; i < 256; ++i) row[i] = static_cast<U8>(i);
        BUF_glass_bar(0, 0, 255, 0, n, row.data());
        std::copy_n(row.begin(), 256, glass_tables[n]);
    }
    for (const Operation &op : kOperations)
        for (int round = 0; round < 12; ++round) {
            Call c{};
            c.bw = op.target == kScreen ? kWidth : random(0, 150);
            c.bh = op.target == kScreen ? kHeight : random(0, 60);
            Bytes expected = random.pixels(c.bw * c.bh), expected_key(expected.size(), U8{7});
            Guarded block(expected.size() + 4), key(expected.size(), 7);
            const Bytes start = image_block(c.bw, c.bh, expected);
            std::copy(start.begin(), start.end(), block.data());
            c.buf = block.data() + 4, c.key = key;
            for (int i = 0; i < 40; ++i) {
                c.w = random.size(), c.h = random.size() / 2;
                c.x = random.place(c.w, c.bw), c.y = random.place(c.h, c.bh);
                Bytes sprite = image_block(c.w, c.h, random.pixels(c.w * c.h));
                c.image = sprite.data(), c.bitmap = sprite.data() + 4;
                if (op.shape >= kBar) c.w += c.x - random(-1, 2), c.h += c.y - random(-1, 2);
                c.a = random(-3, 300), c.b = random(op.shape == kDashBox ? 1 : -300, 40);
                if (op.rule == glass || op.rule == glass_mask) c.a = random(-1, 8);
                const Bytes source(sprite.begin() + 4, sprite.end());
                draw_slowly(op, c, source, expected, expected_key);
                op.call(c);
                const Bytes drawn = block.contents();
                ASSERT_TRUE(std::equal(expected.begin(), expected.end(), drawn.begin() + 4) &&
                            std::equal(start.begin(), start.begin() + 4, drawn.begin()) &&
                            expected_key == key.contents() && block.intact() && key.intact())
                    << op.name << " x " << c.x << " y " << c.y << " w " << c.w << " h " << c.h << " a " << c.a
                    << " b " << c.b << " on " << c.bw << " x " << c.bh;
            }
        }
}

TEST(Draw, EndsOfTheNumberRangeAreSafe) {
    constexpr int kEnds[] = {INT_MIN, INT_MIN + 1, -1, 0, 3, INT_MAX - 1, INT_MAX};
    Bytes sprite = image_block(5, 5, Bytes(25, 1));
    const auto start = std::chrono::steady_clock::now();
    for (const Operation &op : kOperations) {
        Guarded block(kWidth * kHeight + 4), key(kWidth * kHeight);
        const Bytes header = image_block(kWidth, kHeight, {});
        std::copy(header.begin(), header.end(), block.data());
        for (const int x : kEnds)
            for (const int y : kEnds)
                for (const int w : kEnds)
                    for (const int h : kEnds) {
                        op.call({x, y, w, h, h, x, kWidth, kHeight, sprite.data(), sprite.data() + 4,
                                 block.data() + 4, key});
                        // Bitmaps and targets of 3 x 3 exist; of any other of these sizes there is no pixel.
                        if (op.target == kMemory && (w != 3 || h != 3))
                            op.call(
                                {x, y, 3, 3, h, x, w, h, sprite.data(), sprite.data() + 4, nullptr, nullptr});
                    }
        EXPECT_TRUE(block.intact() && key.intact()) << op.name;
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}
