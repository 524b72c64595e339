// Any bytes as a sequence of drawing calls on the screen, a memory buffer and an image block, one after another on
// what the calls before have left: each leaves what a loop over pixels leaves, and nothing beside its buffers.
#include "support/drawing.h"

#include <algorithm>
#include <array>
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
enum Other { kLine = kBlits, kDash, kCircle, kFill, kScale, kZoom, kOutline, kShadow, kGet, kPoints, kCalls };

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
    bool is_screen() const { return width == kWidth && height == kHeight; }
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
    const bool screen = drawn.is_screen();
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
    const bool image = !shadow && (c.a & 16) != 0;
    Guarded work(picture.size() + (image ? 4 : 0));
    Call drawn = c;
    drawn.bw = kWidth, drawn.bh = kHeight, drawn.a = 0;
    drawn.w = shadow ? c.w + c.w / 4 : c.w + 2 * d, drawn.h = shadow ? 3 * c.h / 4 : c.h + 2 * d;
    drawn.x = shadow ? c.x - c.w / 4 : c.x - d, drawn.y = shadow ? c.y + c.h / 4 : c.y - d;
    Bytes key(screen.expected.size());
    draw_slowly({"", kSprite, kScreen, shadow ? rule::mesh : rule::pest, nullptr}, drawn, picture,
                screen.expected, key);
    if (shadow)
        BUF_shadow_pest_bitmap(c.x, c.y, c.w, c.h, c.bitmap, screen.pixels(), work);
    else if (image)
        BUF_outline_pest_image(c.x, c.y, c.image, c.b, d, screen.pixels(), work);
    else
        BUF_outline_pest_bitmap(c.x, c.y, c.w, c.h, c.bitmap, c.b, d, screen.pixels(), work);
    require(work.intact() && work.contents() == (image ? image_block(drawn.w, drawn.h, picture) : picture));
}

// A part of the buffer comes out as an image block, or a bitmap, that draws it again; what is not wholly inside
// stays where it is.
void get(const Call &c, Drawn &from) {
    Guarded image(4 + static_cast<std::size_t>(c.w * c.h));
    const bool inside =
        c.x >= 0 && c.y >= 0 && c.w > 0 && c.h > 0 && c.x + c.w <= from.width && c.y + c.h <= from.height;
    const bool bitmap = from.is_screen() && (c.a & 1) != 0;
    if (bitmap)
        BUF_get_bitmap(c.x, c.y, c.w, c.h, image, from.pixels());
    else if (from.is_screen())
        BUF_get_image(c.x, c.y, c.w, c.h, image, from.pixels());
    else
        MEM_get_image(c.x, c.y, c.w, c.h, image, from.pixels(), from.width, from.height);
    if (inside && bitmap)
        MEM_put_bitmap(c.x, c.y, c.w, c.h, image, from.pixels(), from.width, from.height);
    else if (inside)
        MEM_put_image(c.x, c.y, image, from.pixels(), from.width, from.height);
    else
        require(image.contents() ==
                image_block(from.is_screen() ? 0 : c.w, from.is_screen() ? 0 : c.h, Bytes(image.size() - 4)));
    require(image.intact());
}

// Single pixels and a cross, and the rectangle around all that is drawn within another.
void points(const Call &c, Drawn &drawn) {
    const int w = drawn.width, h = drawn.height;
    int seen = 0, box[] = {c.x, c.y, c.w, c.h};
    walk(drawn, [&](Canvas &canvas) {
        for (std::int64_t away = -2; away <= 2; ++away)
            canvas.write(c.x, c.y + away, c.b), canvas.write(c.x + away, c.y, c.b);
        canvas.write(c.x, c.y, c.a);
        seen = canvas.read(c.x, c.y);
    });
    MEM_draw_point_cross(c.x, c.y, c.b, w, h, drawn.pixels());
    if (drawn.is_screen())
        BUF_put_pixel(c.x, c.y, c.a, drawn.pixels());
    else
        MEM_put_pixel(c.x, c.y, c.a, w, h, drawn.pixels());
    require(MEM_get_pixel(c.x, c.y, w, h, drawn.pixels()) == seen);
    require(!drawn.is_screen() || BUF_get_pixel(c.x, c.y, drawn.pixels()) == seen);
    const auto expected = rectangle_around(box[0], box[1], box[2], box[3], w, h, drawn.expected);
    MEM_operate_image_size(&box[0], &box[1], &box[2], &box[3], w, h, drawn.pixels());
    require(std::to_array(box) == expected);
}

// Lets the picture stand in the buffer that it is drawn on, if it fits.
void put_inside(Call &c, Drawn &drawn, Bytes &source, unsigned place) {
    if (source.size() + 4 > drawn.expected.size()) return;
    const std::size_t at = place % (drawn.expected.size() - source.size() - 3);
    const Bytes block = image_block(c.w, c.h, source);
    std::copy(block.begin(), block.begin() + 4, drawn.expected.begin() + static_cast<std::ptrdiff_t>(at));
    std::copy(block.begin(), block.begin() + 4, drawn.pixels() + at);
    c.image = drawn.pixels() + at, c.bitmap = c.image + 4;
    source.assign(c.bitmap, c.bitmap + source.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static Random random;
    static const bool made = (make_glass_tables(random), true);
    static const Bytes pool = random.pixels(kWidth * kHeight + 1000);
    Numbers numbers(data, size);
    const auto start = pool.begin() + numbers.byte();
    Drawn screen(kWidth, kHeight, start);
    Drawn memory{numbers.byte(), numbers.byte() % 64, start};  // the braces: its width comes first
    Bytes expected_key(screen.expected.size());
    Guarded key(expected_key.size());
    for (int calls = 0; numbers.left() && made && calls < 10; ++calls) {
        const int which = numbers.byte() % kCalls;
        const bool on_screen = which < kBlits                    ? kOperations[which].target == kScreen
                               : which < kScale || which >= kGet ? numbers.byte() % 2 == 0
                                                                 : true;
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
        Bytes source(sprite.begin() + 4, sprite.end());
        require(!has_source ||
                IMG_get_image_size(c.image, nullptr, nullptr) == static_cast<int>(sprite.size()));
        if (which < kBlits) {
            if (const unsigned inside = numbers.byte(); has_source && inside % 4 == 1)
                put_inside(c, drawn, source, inside << 8 | numbers.byte());
            draw_slowly(kOperations[which], c, source, drawn.expected, expected_key);
            kOperations[which].call(c);
            require(key.intact() && std::equal(expected_key.begin(), expected_key.end(), key.data()));
        } else if (which < kScale) {
            figure(which, numbers, drawn);
        } else if (which == kScale) {
            const bool pest = (c.a & 1) != 0;
            scale_slowly(screen.expected, c.x, c.y, c.bw, c.bh, c.w, c.h, pest, source);
            if ((c.a & 2) != 0)
                (pest ? BUF_scale_pest_image : BUF_scale_put_image)(c.x, c.y, c.bw, c.bh, c.image, c.buf);
            else
                (pest ? BUF_scale_pest_bitmap : BUF_scale_put_bitmap)(c.x, c.y, c.bw, c.bh, c.w, c.h,
                                                                      c.bitmap, c.buf);
        } else if (which == kZoom) {
            zoom(numbers, screen);
        } else if (which == kGet) {
            get(c, drawn);
        } else if (which == kPoints) {
            points(c, drawn);
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
