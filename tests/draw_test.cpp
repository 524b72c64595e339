// Every blit against a loop over single pixels that knows nothing of clipping, rows or vectors. Run once for
// each instruction set the kernels are built for.
#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cstdlib>
#include <string_view>

#include "draw/kernels.h"
#include "support/drawing.h"
#include "support/guarded.h"
#include "support/new_process.h"

using namespace test;

TEST(Draw, TakesTheKernelsAskedFor) {
    using namespace ink::draw;
    const char *variable = std::getenv("INKSTONE_CPU");
    [[maybe_unused]] const std::string_view asked = variable != nullptr ? variable : "avx512vbmi";
    const Kernels *expected = &kernels_baseline;
#if defined(INKSTONE_WIDE_KERNELS)
    if (asked != "baseline" && __builtin_cpu_supports("avx2")) expected = &kernels_avx2;
    if (asked == "avx512vbmi" && __builtin_cpu_supports("avx512vbmi2")) expected = &kernels_avx512vbmi;
#endif
    EXPECT_EQ(kernels.copy, expected->copy);
}

TEST_IN_NEW_PROCESS(Draw, GlassThatWasNeverMadeIsBlack) {
    Bytes white(kWidth * kHeight, 15);
    BUF_glass_bar(0, 0, 9, 9, 3, white.data());
    EXPECT_EQ(std::count(white.begin(), white.end(), 0), 100);
}

TEST(Draw, AgreesWithALoopOverPixels) {
    test::Random random;
    make_glass_tables(random);
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
                if (op.rule == rule::glass || op.rule == rule::glass_mask) c.a = random(-1, 8);
                const Bytes source(sprite.begin() + 4, sprite.end());
                draw_slowly(op, c, source, expected, expected_key);
                op.call(c);
                ASSERT_TRUE(std::equal(expected.begin(), expected.end(), c.buf) &&
                            std::equal(start.begin(), start.begin() + 4, block.data()) &&
                            std::equal(expected_key.begin(), expected_key.end(), c.key) && block.intact() &&
                            key.intact())
                    << op.name << " x " << c.x << " y " << c.y << " w " << c.w << " h " << c.h << " a " << c.a
                    << " b " << c.b << " on " << c.bw << " x " << c.bh;
            }
        }
}

// Scrolling, and pictures that lie anywhere in the buffer they are drawn on.
TEST(Draw, CopiesWithinOneBufferAsItWasBefore) {
    test::Random random(5);
    make_glass_tables(random);
    for (const Operation &op : kOperations)
        for (int i = 0; i < 60 && op.shape <= kMirrored; ++i) {
            Call c{};
            c.bw = op.target == kScreen ? kWidth : random(1, 100);
            c.bh = op.target == kScreen ? kHeight : random(2, 40);
            c.w = c.bw, c.h = c.bh, c.x = random(-70, 70) / 8, c.y = random(-3, 3), c.a = random(0, 7);
            int at = -4;  // where the image block stands: this one is the whole buffer
            if (i % 2 != 0) {
                c.w = random(1, std::min(c.bw, 99)), c.h = random(1, c.bh / 2);
                at = random(0, c.bw * c.bh - 4 - c.w * c.h);
                if (at < 0) continue;
                c.x = at % c.bw + random(-9, 9), c.y = at / c.bw + random(-2, 2);
            }
            Bytes whole = image_block(c.bw, c.bh, random.pixels(c.bw * c.bh));
            const Bytes header = image_block(c.w, c.h, {});
            std::copy(header.begin(), header.end(), whole.begin() + 4 + at);
            Guarded block(whole.size()), key(static_cast<std::size_t>(c.bw * c.bh));
            std::copy(whole.begin(), whole.end(), block.data());
            c.buf = block.data() + 4, c.key = key, c.image = c.buf + at, c.bitmap = c.image + 4;
            const Bytes source(c.bitmap, c.bitmap + c.w * c.h);
            Bytes expected(whole.begin() + 4, whole.end()), expected_key(expected.size());
            draw_slowly(op, c, source, expected, expected_key);
            op.call(c);
            ASSERT_TRUE(std::equal(expected.begin(), expected.end(), c.buf) &&
                        key.contents() == expected_key && block.intact() && key.intact())
                << op.name << " x " << c.x << " y " << c.y << " w " << c.w << " h " << c.h << " at " << at
                << " of " << c.bw << " x " << c.bh;
        }
}

TEST(Draw, EndsOfTheNumberRangeAreSafe) {
    constexpr int kEnds[] = {INT_MIN, INT_MIN + 1, -1, 0, 3, INT_MAX - 1, INT_MAX};
    Bytes sprite = image_block(5, 5, Bytes(25, 1));
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
}

TEST(Draw, KnownCases) {
    Bytes screen(kWidth * kHeight);
    U8 *buf = screen.data();
    // Everything drawn since the last time, from the top left, as "x,y=colour ".
    const auto drawn = [&] {
        std::string text;
        for (int i = 0; i < kWidth * kHeight; ++i)
            if (U8 &pixel = screen[static_cast<std::size_t>(i)]; pixel != 0) {
                text += std::to_string(i % kWidth) + "," + std::to_string(i / kWidth) + "=" +
                        std::to_string(pixel) + " ";
                pixel = 0;
            }
        return text;
    };
    BUF_put_pixel(5, 5, 0x1FF, buf);
    BUF_put_pixel(640, 0, 1, buf);
    EXPECT_EQ(BUF_get_pixel(5, 5, buf), 255);
    EXPECT_EQ(BUF_get_pixel(-635, 6, buf), 0);
    EXPECT_EQ(drawn(), "5,5=255 ");
    BUF_bar(-5, -1, 0, 0, 7, buf);
    EXPECT_EQ(drawn(), "0,0=7 ");
    BUF_box(-5, 0, 0, 10, 7, buf);  // its right edge is column 0
    BUF_box(10, 10, 9, 20, 7, buf);
    BUF_bar(10, 10, 5, 20, 7, buf);
    EXPECT_EQ(drawn(), "");
    BUF_mesh_bar(1, 1, 3, 2, 7, buf);
    EXPECT_EQ(drawn(), "1,1=7 3,1=7 2,2=7 ");
    BUF_dash_box(0, 0, 5, 4, 7, 4, buf);
    EXPECT_EQ(drawn(), "0,0=7 1,0=7 4,0=7 5,0=7 0,1=7 5,1=7 0,2=7 5,2=7 0,4=7 1,4=7 4,4=7 5,4=7 ");
    BUF_dash_box(0, 0, 5, 4, 7, 1, buf);
    BUF_dash_box(0, 0, 5, 4, 7, -4, buf);
    EXPECT_EQ(drawn(), "");
    MEM_draw_point_cross(0, 479, 3, kWidth, kHeight, buf);
    EXPECT_EQ(drawn(), "0,477=3 0,478=3 0,479=3 1,479=3 2,479=3 ");
    MEM_draw_point_cross(5, 5, 3, kWidth, kHeight, buf);
    EXPECT_EQ(drawn(), "5,3=3 5,4=3 3,5=3 4,5=3 5,5=3 6,5=3 7,5=3 5,6=3 5,7=3 ");
    BUF_put_pixel(0, 0, 3, buf);
    BUF_change_color(2, 2, 0, 0, 3, 4, buf);
    EXPECT_EQ(drawn(), "0,0=4 ");
    BUF_put_bitmap(kWidth - 3000, kHeight - 1000, 3000, 1000, Bytes(3'000'000, 9).data(), buf);
    EXPECT_EQ(std::count(screen.begin(), screen.end(), 9), kWidth * kHeight);
    drawn();
    Bytes picture = image_block(2, 2, {0x3C, 0x3C, 0x3C, 0x3C});
    BUF_mesh_pest_image(1, 0, picture.data(), 0x0F, buf);
    EXPECT_EQ(drawn(), "2,0=12 1,1=12 ");
    picture = image_block(4, 2, {1, 2, 3, 4, 5, 6, 7, 8});
    MEM_turn_pest_image(-1, 478, picture.data(), kWidth, kHeight, buf);
    EXPECT_EQ(drawn(), "0,478=3 1,478=2 2,478=1 0,479=7 1,479=6 2,479=5 ");
    MEM_reverse_pest_image(637, -1, picture.data(), kWidth, kHeight, buf);
    EXPECT_EQ(drawn(), "637,0=1 638,0=2 639,0=3 ");

    // A memory buffer's size may be any, and one that is null has no pixels.
    MEM_put_pixel(3, 3, 7, kWidth, 100'000'000, buf);
    EXPECT_EQ(MEM_get_pixel(3, 3, kWidth, INT_MAX, buf), 7);
    EXPECT_EQ(MEM_get_pixel(3, 3, kWidth, 3, buf), 0);
    EXPECT_EQ(MEM_get_pixel(3, -1, kWidth, kHeight, buf + 4 * kWidth), 0);
    EXPECT_EQ(drawn(), "3,3=7 ");
    MEM_put_pixel(0, 0, 1, 5, 5, nullptr);
    MEM_box(0, 0, 3, 3, 1, 5, 5, nullptr);
    MEM_put_image(0, 0, picture.data(), nullptr, 5, 5);
    MEM_draw_point_cross(0, 0, 1, 5, 5, nullptr);
    EXPECT_EQ(MEM_get_pixel(0, 0, 5, 5, nullptr), 0);
    MEM_get_image(0, 0, 2, 2, buf, nullptr, 5, 5);
    EXPECT_EQ(drawn(), "0,0=2 2,0=2 ");
    int corners[] = {0, 0, 3, 3};
    MEM_operate_image_size(&corners[0], &corners[1], &corners[2], &corners[3], 5, 5, nullptr);
    EXPECT_EQ(std::to_array(corners), (std::array{3, 3, 0, 0}));
    MEM_operate_image_size(nullptr, nullptr, nullptr, nullptr, 5, 5, buf);
    EXPECT_EQ(IMG_get_image_size(picture.data(), nullptr, nullptr), 12);
    int w = 0, h = 0;
    EXPECT_EQ(IMG_get_image_size(picture.data(), &w, &h), 12);
    EXPECT_EQ(w * 10 + h, 42);
    EXPECT_EQ(static_cast<uint32_t>(IMG_get_image_size(image_block(65535, 65535, {}).data(), &w, &h)),
              65535u * 65535u + 4);
}

TEST(Draw, GetsOnlyWhatIsWhollyInside) {
    test::Random random;
    Bytes screen = random.pixels(kWidth * kHeight);
    for (int i = 0; i < 2000; ++i) {
        // The screen, or its bytes as a memory buffer of another size.
        const int bw = i % 2 == 0 ? kWidth : random(1, 200), bh = i % 2 == 0 ? kHeight : random(1, 200);
        const bool all = i % 100 == 0;
        const int w = all ? bw : random(-1, 80), h = all ? bh : random(-1, 60),
                  x = all ? 0 : random.place(w, bw), y = all ? 0 : random.place(h, bh);
        const bool inside = w > 0 && h > 0 && x >= 0 && y >= 0 && x + w <= bw && y + h <= bh;
        Bytes pixels;
        for (int j = 0; inside && j < h; ++j)
            pixels.insert(pixels.end(), &screen[static_cast<std::size_t>((y + j) * bw + x)],
                          &screen[static_cast<std::size_t>((y + j) * bw + x)] + w);
        const Bytes untouched(static_cast<std::size_t>(std::max(w * h, 0)), 9);
        const auto got = [&](const auto &get, std::size_t header) {
            Guarded to(untouched.size() + header, 9);
            get(to.data());
            EXPECT_TRUE(to.intact());
            return to.contents();
        };
        // A failed get leaves a 0 x 0 image block, a bitmap that begins with four zeros, or a header alone.
        const bool sized = w >= 0 && h >= 0;
        const Bytes memory = got([&](U8 *to) { MEM_get_image(x, y, w, h, to, screen.data(), bw, bh); }, 4);
        ASSERT_EQ(memory,
                  inside ? image_block(w, h, pixels) : image_block(sized ? w : 0, sized ? h : 0, untouched))
            << i;
        if (bw != kWidth) continue;
        const Bytes image = got([&](U8 *to) { BUF_get_image(x, y, w, h, to, screen.data()); }, 4);
        ASSERT_EQ(image, inside ? memory : image_block(0, 0, untouched)) << i;
        // A bitmap of less than four pixels has room for four, which are set to 0 before.
        Bytes bitmap(untouched.size() < 4 ? 4 : untouched.size(), 9);
        std::fill_n(bitmap.begin(), 4, U8{0});
        std::copy(pixels.begin(), pixels.end(), bitmap.begin());
        Guarded to(bitmap.size(), 9);
        BUF_get_bitmap(x, y, w, h, to, screen.data());
        ASSERT_TRUE(to.contents() == bitmap && to.intact()) << i;
    }
}

TEST(Draw, FindsTheRectangleAroundThePixels) {
    test::Random random;
    for (int i = 0; i < 3000; ++i) {
        const int bw = random(0, 20), bh = random(0, 20);
        Guarded mem(static_cast<std::size_t>(bw * bh));
        for (int dots = random(0, 3); dots > 0; --dots)
            MEM_put_pixel(random(0, 20), random(0, 20), random(1, 255), bw, bh, mem);
        int x1 = random(-3, 22), y1 = random(-3, 22), x2 = random(-3, 30), y2 = random(-3, 30);
        if (i == 0) x1 = y1 = INT_MIN, x2 = y2 = INT_MAX;
        int box[] = {x1, y1, x2, y2};
        const auto expected = rectangle_around(x1, y1, x2, y2, bw, bh, mem.contents());
        MEM_operate_image_size(&box[0], &box[1], &box[2], &box[3], bw, bh, mem);
        ASSERT_EQ(std::to_array(box), expected) << i;
    }
}

TEST(Effect, OutlineAndShadowLeaveTheirPictureInTheWorkBuffer) {
    test::Random random;
    Bytes screen = random.pixels(kWidth * kHeight), expected = screen;
    for (int i = 0; i < 600; ++i) {
        const int w = random.size() / 2, h = random.size() / 2,
                  d = random(0, 9) == 0 ? random(0, 60) : random(0, 4);
        const int x = random.place(w, kWidth), y = random.place(h, kHeight), colour = random(-1, 256);
        const bool shadow = i % 3 == 2;
        Bytes sprite = image_block(w, h, random.pixels(w * h));
        const int width = shadow ? w + w / 4 : w + 2 * d, height = shadow ? 3 * h / 4 : h + 2 * d;
        const Bytes source(sprite.begin() + 4, sprite.end());
        const Bytes picture = shadow ? shadow_of(source, w, h) : outlined(source, w, h, colour, d);
        // Drawn by the operations the test above has compared.
        const std::size_t header = i % 3 == 0 ? 4 : 0;
        Guarded work(picture.size() + header, 0xEE);
        if (shadow) {
            BUF_mesh_pest_bitmap(x - w / 4, y + h / 4, width, height, picture.data(), 0, expected.data());
            BUF_shadow_pest_bitmap(x, y, w, h, sprite.data() + 4, screen.data(), work);
        } else {
            BUF_pest_bitmap(x - d, y - d, width, height, picture.data(), expected.data());
            if (header != 0)
                BUF_outline_pest_image(x, y, sprite.data(), colour, d, screen.data(), work);
            else
                BUF_outline_pest_bitmap(x, y, w, h, sprite.data() + 4, colour, d, screen.data(), work);
        }
        ASSERT_EQ(work.contents(), header != 0 ? image_block(width, height, picture) : picture) << i;
        ASSERT_TRUE(work.intact() && screen == expected) << i << ": " << w << " x " << h << " " << d;
    }
}

TEST(Effect, OutlineAndShadowOfImpossibleSizesDrawNothing) {
    Bytes screen(kWidth * kHeight), sprite = image_block(5, 5, Bytes(25, 1));
    Guarded work(400);
    constexpr int kSizes[] = {INT_MIN, -1, 40'000, INT_MAX};
    for (const int size : kSizes) {
        BUF_outline_pest_image(9, 9, sprite.data(), 1, size, screen.data(), work);
        BUF_outline_pest_bitmap(9, 9, 5, 5, sprite.data(), 1, size, screen.data(), work);
        BUF_outline_pest_bitmap(9, 9, -5, 5, sprite.data(), 1, 5, screen.data(), work);
        if (size == 40'000) continue;
        BUF_outline_pest_bitmap(9, 9, size, size, sprite.data(), 1, 1, screen.data(), work);
        BUF_shadow_pest_bitmap(9, 9, size, size, sprite.data(), screen.data(), work);
        BUF_shadow_pest_bitmap(size, size, 5, 5, sprite.data(), screen.data(), work);
        BUF_outline_pest_image(size == -1 ? -9 : size, size, sprite.data(), 1, 2, screen.data(), work);
        int32_t sides[] = {size, 3};
        for (const int w : sides) MEM_get_image(w, size, size, w, work, screen.data(), size, w);
    }
    EXPECT_EQ(screen, Bytes(kWidth * kHeight));
    EXPECT_TRUE(work.intact());
    // A bitmap has no header that could not say its width.
    Guarded wide(70'002 * 3);
    BUF_outline_pest_bitmap(639 - 69'999, 9, 70'000, 1, Bytes(70'000, 4).data(), 7, 1, screen.data(), wide);
    EXPECT_EQ(screen[8 * kWidth + 639] * 10 + screen[9 * kWidth + 639], 74);
    EXPECT_TRUE(wide.intact());
}
