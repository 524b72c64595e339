// Any bytes as a sequence of drawing calls on the screen, a memory buffer and an image block, one after another on
// what the calls before have left: each leaves what a loop over pixels leaves, and nothing beside its buffers.
#include "support/drawing.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>

#include "numbers.h"
#include "support/guarded.h"
#include "support/walks.h"

namespace {

using namespace test;
using fuzz::Numbers;

constexpr int kBlits = static_cast<int>(std::size(kOperations));
enum Other { kLine = kBlits, kDash, kCircle, kFill, kScale, kZoom, kOutline, kShadow, kGet, kCalls };

void require(bool holds) {
    if (!holds) std::abort();
}

// A buffer and what it must hold, behind the header of an image block.
struct Drawn {
    Drawn(int w, int h, Bytes::const_iterator from)
        : width(w), height(h), expected(from, from + w * h), block(expected.size() + 4) {
        header = image_block(w, h, {});
        std::copy(header.begin(), header.end(), block.data());
        std::copy(expected.begin(), expected.end(), pixels());
    }
    std::uint8_t *pixels() { return block.data() + 4; }
    bool holds() {
        return std::equal(expected.begin(), expected.end(), pixels()) && block.intact() &&
               std::equal(header.begin(), header.end(), block.data());
    }

    int width, height;
    Bytes expected, header;
    Guarded block;
};

// The pixels of a walk, compared on a canvas that borrows those of the buffer.
template <class Walk>
void walk(Drawn &drawn, Walk walk) {
    Canvas canvas{drawn.width, drawn.height, std::move(drawn.expected)};
    walk(canvas);
    drawn.expected = std::move(canvas.pixels);
}

void figure(int which, Numbers &numbers, Drawn &drawn) {
    const int x1 = numbers.number(), y1 = numbers.number(), x2 = numbers.number(), y2 = numbers.number();
    const int colour = numbers.number(), length = numbers.number(), end = numbers.number();
    const int w = drawn.width, h = drawn.height;
    std::uint8_t *const to = drawn.pixels();
    const bool screen = w == kWidth && h == kHeight;
    const NaiveLine line(x1, y1, x2, y2);
    switch (which) {
        case kLine:
            walk(drawn, [&](Canvas &canvas) {
                for (std::int64_t k = 0; k <= line.major; ++k)
                    canvas.write(line.at(k).first, line.at(k).second, colour);
            });
            screen ? BUF_line(x1, y1, x2, y2, colour, to) : MEM_line(x1, y1, x2, y2, colour, w, h, to);
            break;
        case kDash:
            walk(drawn, [&](Canvas &canvas) { naive_dash(canvas, line, colour, length, 0, line.major); });
            screen ? BUF_dash_line(x1, y1, x2, y2, colour, length, to)
                   : MEM_dash_line(x1, y1, x2, y2, colour, length, w, h, to);
            break;
        case kCircle:
            walk(drawn, [&](Canvas &canvas) {
                naive_circle(canvas, x1, y1, x2 % 1024, y2 % 1024, length, end, colour);
            });
            screen ? BUF_circle(x1, y1, x2 % 1024, y2 % 1024, length, end, colour, to)
                   : MEM_circle(x1, y1, x2 % 1024, y2 % 1024, length, end, colour, w, h, to);
            break;
        default:
            walk(drawn, [&](Canvas &canvas) { naive_fill(canvas, x1, y1, colour & 255); });
            screen ? BUF_fill(x1, y1, colour & 255, to) : MEM_fill(x1, y1, colour & 255, w, h, to);
    }
}

void zoom(Numbers &numbers, Drawn &screen) {
    const int hw = numbers.place(), hh = numbers.place(), cx = numbers.place(), cy = numbers.place();
    const auto first = [](std::int64_t centre, std::int64_t half, std::int64_t size) {
        return std::clamp<std::int64_t>(centre - std::max<std::int64_t>(half, 0), 0, size - 1);
    };
    const std::int64_t left = first(cx, hw, kWidth), top = first(cy, hh, kHeight);
    screen.expected =
        zoom_slowly(left, top, std::min<std::int64_t>(left + 2LL * std::max(hw, 0), kWidth),
                    std::min<std::int64_t>(top + 2LL * std::max(hh, 0), kHeight), screen.expected);
    MEM_zoom_control(hw, hh, cx, cy);
    MEM_scale_bitmap(screen.pixels(), screen.pixels());
}

// An outline or a shadow, on the screen by way of a work buffer.
void over_work_buffer(bool shadow, const Call &c, const Bytes &source, Drawn &screen) {
    const int d = c.a & 15;
    const Bytes picture = shadow ? shadow_of(source, c.w, c.h) : outlined(source, c.w, c.h, c.b, d);
    Guarded work(picture.size());
    Call drawn = c;
    drawn.bw = kWidth, drawn.bh = kHeight, drawn.a = 0;
    drawn.w = shadow ? c.w + c.w / 4 : c.w + 2 * d, drawn.h = shadow ? 3 * c.h / 4 : c.h + 2 * d;
    drawn.x = shadow ? c.x - c.w / 4 : c.x - d, drawn.y = shadow ? c.y + c.h / 4 : c.y - d;
    Bytes key(screen.expected.size());
    draw_slowly({"", kSprite, kScreen, shadow ? rule::mesh : rule::pest, nullptr}, drawn, picture,
                screen.expected, key);
    if (shadow)
        BUF_shadow_pest_bitmap(c.x, c.y, c.w, c.h, c.bitmap, screen.pixels(), work);
    else
        BUF_outline_pest_bitmap(c.x, c.y, c.w, c.h, c.bitmap, c.b, d, screen.pixels(), work);
    require(work.intact() && work.contents() == picture);
}

// A part of the buffer comes out as an image block that draws it again; what is not wholly inside stays where it is.
void get(const Call &c, Drawn &from) {
    Guarded image(4 + static_cast<std::size_t>(c.w * c.h));
    MEM_get_image(c.x, c.y, c.w, c.h, image, from.pixels(), from.width, from.height);
    if (c.x >= 0 && c.y >= 0 && c.x + c.w <= from.width && c.y + c.h <= from.height)
        MEM_put_image(c.x, c.y, image, from.pixels(), from.width, from.height);
    else
        require(image.contents() == image_block(c.w, c.h, Bytes(image.size() - 4)));
    require(image.intact());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static Random random;
    static const bool made = (make_glass_tables(random), true);
    static const Bytes pool = random.pixels(kWidth * kHeight + 1000);
    Numbers numbers(data, size);
    const auto start = pool.begin() + numbers.byte();
    Drawn screen(kWidth, kHeight, start), memory(numbers.byte(), numbers.byte() % 64, start);
    Bytes expected_key(screen.expected.size());
    Guarded key(expected_key.size());
    for (int calls = 0; numbers.left() && made && calls < 10; ++calls) {
        const int which = numbers.byte() % kCalls;
        const bool on_screen = which < kBlits   ? kOperations[which].target == kScreen
                               : which < kScale ? numbers.byte() % 2 == 0
                                                : which != kGet;
        Drawn &drawn = on_screen ? screen : memory;
        Call c{};
        c.bw = drawn.width, c.bh = drawn.height, c.buf = drawn.pixels(), c.key = key;
        c.x = numbers.place(), c.y = numbers.place(), c.w = numbers.place(), c.h = numbers.place();
        c.a = numbers.place(), c.b = numbers.place();
        const bool has_source = which >= kBlits || kOperations[which].shape <= kMirrored;
        if (which == kScale) c.bw = c.w, c.bh = c.h;
        if (has_source) c.w &= 255, c.h &= 127;
        Bytes sprite = image_block(c.w, c.h, {});
        if (has_source) {
            const auto from = pool.begin() + numbers.byte();
            sprite.insert(sprite.end(), from, from + c.w * c.h);
        }
        sprite.shrink_to_fit();
        c.image = sprite.data(), c.bitmap = sprite.data() + 4;
        const Bytes source(sprite.begin() + 4, sprite.end());
        if (which < kBlits) {
            draw_slowly(kOperations[which], c, source, drawn.expected, expected_key);
            kOperations[which].call(c);
            require(key.intact() && std::equal(expected_key.begin(), expected_key.end(), key.data()));
        } else if (which < kScale) {
            figure(which, numbers, drawn);
        } else if (which == kScale) {
            const bool pest = (c.a & 1) != 0;
            scale_slowly(screen.expected, c.x, c.y, c.bw, c.bh, c.w, c.h, pest, source);
            pest ? BUF_scale_pest_image(c.x, c.y, c.bw, c.bh, c.image, c.buf)
                 : BUF_scale_put_bitmap(c.x, c.y, c.bw, c.bh, c.w, c.h, c.bitmap, c.buf);
        } else if (which == kZoom) {
            zoom(numbers, screen);
        } else if (which == kGet) {
            get(c, memory);
        } else {
            over_work_buffer(which == kShadow, c, source, screen);
        }
        if (drawn.holds()) continue;
        std::fprintf(stderr, "call %d of a picture of %d x %d at %d %d, numbers %d %d %d %d, on %d x %d\n",
                     which, c.w, c.h, c.x, c.y, c.a, c.b, c.bw, c.bh, drawn.width, drawn.height);
        std::abort();
    }
    return 0;
}
