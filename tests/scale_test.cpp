// Scaled copies and the zoom, compared with a division for each pixel.
#include "inkstone/scale.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

#include "support/drawing.h"
#include "support/guarded.h"
#include "support/new_process.h"

namespace {

using Pixels = test::Bytes;
constexpr int kMin = std::numeric_limits<int>::min(), kMax = std::numeric_limits<int>::max();

using test::kHeight, test::kWidth, test::Random;

// A picture on the heap of exactly its size, so that the address sanitizer sees any read past its end.
Pixels random_pixels(Random &random, std::size_t size) {
    Pixels pixels(size);
    for (auto &pixel : pixels) pixel = static_cast<std::uint8_t>(random(0, 3) == 0 ? 0 : random(0, 255));
    return pixels;
}

struct Call {
    int x, y, dw, dh, sw, sh;
    bool pest, as_image;
};

void check(const Call &call, const Pixels &source) {
    test::Guarded actual(kWidth * kHeight, 77);
    Pixels expected = actual.contents();
    const auto [x, y, dw, dh, sw, sh, pest, as_image] = call;
    test::scale_slowly(expected, x, y, dw, dh, sw, sh, pest, source);
    if (as_image) {
        Pixels image{static_cast<std::uint8_t>(sw), static_cast<std::uint8_t>(sw >> 8),
                     static_cast<std::uint8_t>(sh), static_cast<std::uint8_t>(sh >> 8)};
        image.insert(image.end(), source.begin(), source.end());
        (pest ? BUF_scale_pest_image : BUF_scale_put_image)(x, y, dw, dh, image.data(), actual);
    } else {
        (pest ? BUF_scale_pest_bitmap : BUF_scale_put_bitmap)(x, y, dw, dh, sw, sh, source.data(), actual);
    }
    ASSERT_TRUE(actual.intact() && actual.contents() == expected)
        << x << " " << y << " " << dw << " " << dh << " " << sw << " " << sh << " " << pest << as_image;
}

}  // namespace

TEST(Scale, EveryPixelIsTheOneTheDivisionGives) {
    Random random(30);
    for (int i = 0; i < 600 && !HasFatalFailure(); ++i) {
        // Enlarged, shrunken a little and a lot; every fourth far larger than the screen.
        const int sw = random(0, i % 3 == 0 ? 300 : 40), sh = random(0, 40);
        const int most = i % 4 == 0 ? (i % 8 == 0 ? kMax : 5000) : 120;
        const int dw = random(-1, most), dh = random(-1, most);
        const Call call{random(i % 4 == 0 ? -most / 2 : -60, 660),
                        random(i % 4 == 0 ? -most / 2 : -60, 500),
                        dw,
                        dh,
                        sw,
                        sh,
                        i % 2 == 0,
                        random(0, 1) == 0};
        check(call, random_pixels(random, static_cast<std::size_t>(sw * sh)));
    }
    // Places hundreds of bytes apart.
    for (const int sw : {500, 3000, 9000})
        check({3, 3, random(16, 40), 2, sw, 3, sw == 500, true},
              random_pixels(random, 3u * static_cast<unsigned>(sw)));
    // The last row and column of the largest picture there is, and products beyond 32 bits.
    const Pixels wide = random_pixels(random, 70'000);
    for (const bool pest : {false, true}) {
        check({640 - kMax, 0, kMax, 3, 70'000, 1, pest, false}, wide);
        check({0, 480 - kMax, 3, kMax, 1, 70'000, pest, false}, wide);
        check({-kMax + 100, -kMax + 100, kMax, kMax, 280, 250, pest, true}, wide);
    }
}

TEST(Scale, AnyArgumentsEndSoonAndStayInside) {
    const int values[] = {kMin, kMin + 1, -1, 0, 1, 50, kMax - 1, kMax};
    test::Guarded screen(kWidth * kHeight);
    Random random(31);
    const auto any = [&] { return values[random(0, 7)]; };
    const Pixels source(4096, 9), image{3, 0, 2, 0, 1, 2, 3, 4, 5, 6};
    for (int i = 0; i < 1000; ++i) {
        BUF_scale_put_bitmap(any(), any(), any(), any(), any() % 64, any() % 64, source.data(), screen);
        BUF_scale_pest_bitmap(any(), any(), any(), any(), kMax, std::min(any(), -1), source.data(), screen);
        BUF_scale_pest_image(any(), any(), any(), any(), image.data(), screen);
        MEM_zoom_control(any(), any(), any(), any());
        if (i % 16 == 0) MEM_scale_bitmap(screen, Pixels(kWidth * kHeight).data());
    }
    EXPECT_TRUE(screen.intact());
}

TEST_IN_NEW_PROCESS(Scale, ZoomShowsItsWindow) {
    Random random(32);
    const Pixels source = random_pixels(random, kWidth * kHeight);
    test::Guarded actual(kWidth * kHeight);
    MEM_scale_bitmap(actual, source.data());
    EXPECT_EQ(actual.contents(), source);  // before a window is set it is the whole screen

    struct Window {
        int hw, hh, cx, cy;
        std::int64_t left, top, right, bottom;
    };
    std::vector<Window> windows{
        {160, 120, 320, 240, 160, 120, 480, 360}, {160, 120, 600, 240, 440, 120, 640, 360},
        {100, 100, -50, 700, 0, 479, 200, 480},   {0, 0, 5, 6, 5, 6, 5, 6},
        {-3, -3, 700, 470, 639, 470, 639, 470},   {kMax, kMax, 0, 0, 0, 0, 640, 480},
    };
    for (int i = 0; i < 60; ++i) {
        const int hw = random(0, 320), hh = random(0, 240), cx = random(hw, 640 - hw),
                  cy = random(hh, 480 - hh);
        if (cx - hw < 640 && cy - hh < 480)
            windows.push_back({hw, hh, cx, cy, cx - hw, cy - hh, cx + hw, cy + hh});
    }
    for (const Window &window : windows) {
        MEM_zoom_control(window.hw, window.hh, window.cx, window.cy);
        MEM_scale_bitmap(actual, source.data());
        const Pixels expected =
            test::zoom_slowly(window.left, window.top, window.right, window.bottom, source);
        // A screen may be magnified in place.
        Pixels same = source;
        MEM_scale_bitmap(same.data(), same.data());
        ASSERT_TRUE(actual.contents() == expected && same == expected && actual.intact())
            << window.hw << " " << window.hh << " " << window.cx << " " << window.cy;
    }
}
