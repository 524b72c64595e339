// Lines, arcs and fills, each compared with its walk taken pixel by pixel.
#include "inkstone/line.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include "support/guarded.h"
#include "support/random_pictures.h"
#include "support/walks.h"

namespace {

constexpr int kMin = std::numeric_limits<int>::min(), kMax = std::numeric_limits<int>::max();

using namespace test;

enum Operation { kLine, kDash, kCircle, kFill, kOperations };

// Draws the same figure with the library and with the naive walk on a canvas of this size.
void compare(Operation operation, int width, int height, Random &random, int reach) {
    Canvas expected{width, height, std::vector<std::uint8_t>(static_cast<std::size_t>(width * height))};
    // Specks of two colours, more of the first, so that fills find ragged areas.
    const int specks = random(2, 8);
    for (auto &pixel : expected.pixels) pixel = random(0, specks) == 0 ? 9 : 3;
    test::Guarded actual(expected.pixels.size());
    std::copy(expected.pixels.begin(), expected.pixels.end(), actual.data());
    const bool on_screen = width == 640 && height == 480;
    const int x1 = random(-reach, width + reach), y1 = random(-reach, height + reach);
    const int x2 = random(0, 7) != 0 ? random(-reach, width + reach) : x1;
    const int y2 = random(0, 7) != 0 ? random(-reach, height + reach) : y1;
    const int length = random(-1, 9), colour = random(0, 255), rv = random(-4, 90);
    const int rh = random(0, 2) == 0 ? random(-4, 90) : rv;
    const int start = random(-9, 9) * 90 + (random(0, 1) != 0 ? random(0, 89) : 0);
    const int end = random(0, 3) == 0 ? start : random(-9, 9) * 90 + (random(0, 1) != 0 ? random(0, 89) : 0);
    const NaiveLine line(x1, y1, x2, y2);
    switch (operation) {
        case kLine:
            for (std::int64_t k = 0; k <= line.major; ++k)
                expected.write(line.at(k).first, line.at(k).second, colour);
            on_screen ? BUF_line(x1, y1, x2, y2, colour + 256, actual)
                      : MEM_line(x1, y1, x2, y2, colour + 256, width, height, actual);
            break;
        case kDash:
            naive_dash(expected, line, colour, length, 0, line.major);
            on_screen ? BUF_dash_line(x1, y1, x2, y2, colour, length, actual)
                      : MEM_dash_line(x1, y1, x2, y2, colour, length, width, height, actual);
            break;
        case kCircle:
            naive_circle(expected, x1, y1, rv, rh, start, end, colour);
            on_screen ? BUF_circle(x1, y1, rv, rh, start, end, colour, actual)
                      : MEM_circle(x1, y1, rv, rh, start, end, colour, width, height, actual);
            break;
        default:
            naive_fill(expected, x1, y1, colour);
            on_screen ? BUF_fill(x1, y1, colour, actual) : MEM_fill(x1, y1, colour, width, height, actual);
    }
    ASSERT_TRUE(actual.intact());
    ASSERT_TRUE(actual.contents() == expected.pixels)
        << "operation " << operation << " on " << width << " x " << height << ": " << x1 << " " << y1 << " "
        << x2 << " " << y2 << " length " << length << " radii " << rv << " " << rh << " angles " << start
        << " " << end;
}

}  // namespace

TEST(Line, EveryFigureHasThePixelsOfItsWalk) {
    Random random(20);
    for (int operation = 0; operation < kOperations && !HasFatalFailure(); ++operation) {
        for (int i = 0; i < 3000 && !HasFatalFailure(); ++i)
            compare(static_cast<Operation>(operation), random(1, 120), random(1, 120), random,
                    i % 2 == 0 ? 0 : 150);
        for (int i = 0; i < 40 && !HasFatalFailure(); ++i)
            compare(static_cast<Operation>(operation), 640, 480, random, 200);
    }
}

// From straight below a figure is walked in whole numbers, elsewhere in doubles: every radius agrees, up to the
// longest walk that is taken.
TEST(Line, CirclesOfEveryRadiusHaveThePixelsOfTheirWalk) {
    const auto agrees = [](int rv, int rh, int end) {
        Canvas expected{211, 307, std::vector<std::uint8_t>(211 * 307)};
        test::Guarded actual(expected.pixels.size());
        if (std::max(rv, rh) <= 2'097'152) naive_circle(expected, 100, 150 - rv, rv, rh, 0, end, 5);
        MEM_circle(100, 150 - rv, rv, rh, 0, end, 5, 211, 307, actual);
        ASSERT_TRUE(actual.contents() == expected.pixels && actual.intact()) << rv << " " << rh;
    };
    for (int radius = 0; radius <= 4000 && !HasFatalFailure(); radius += radius < 300 ? 1 : 37) {
        const int end = radius % 2 == 0 ? 0 : 311;
        agrees(radius, radius, end);
        agrees(radius, radius * 2 / 3, end);
        agrees(radius / 5, radius, end);
    }
    // Small whole ones, which are drawn from lists.
    for (int rv = 1; rv <= 66 && !HasFatalFailure(); ++rv)
        for (int rh = rv <= 18 ? 1 : rv; rh <= std::max(rv, 18); ++rh) agrees(rv, rh, 0);
    for (const auto &[rv, rh] : {std::pair{40'000, 40'000},
                                 {300'001, 70'000},
                                 {2'097'152, 2'097'152},
                                 {9, 2'097'152},
                                 {2'097'154, 2'097'154},
                                 {8, 2'097'153}})
        agrees(rv, rh, rv % 2 == 0 ? 0 : 311);
}

// Lines whose ends are two thousand million pixels apart show the pixels of the whole walk, the dashes in
// phase.
TEST(Line, FarEndsCostOnlyTheVisiblePixels) {
    Random random(21);
    for (int i = 0; i < 2000; ++i) {
        Canvas expected{97, 61, std::vector<std::uint8_t>(97 * 61)};
        test::Guarded actual(expected.pixels.size());
        // Through the canvas or near it, with ends anywhere beyond.
        const auto away = [&](int centre) {
            return random(0, 1) == 0 ? random(kMin, centre) : random(centre, kMax);
        };
        int ends[4] = {away(0), away(0), away(50), away(50)};
        if (i % 4 != 0) {
            const int run = random(-900'000'000, 900'000'000), rise = random(-900'000'000, 900'000'000);
            ends[0] = random(0, 96) - run, ends[1] = random(0, 60) - rise;
            ends[2] = random(0, 96) + run, ends[3] = random(0, 60) + rise;
        }
        if (i == 0) ends[0] = ends[1] = kMin, ends[2] = ends[3] = kMax;
        const NaiveLine line(ends[0], ends[1], ends[2], ends[3]);
        // The major coordinate says which numbers can be visible; a margin of them is looked at one by one.
        const bool flat = std::abs(line.x2 - line.x1) >= std::abs(line.y2 - line.y1);
        const std::int64_t start = flat ? line.x1 : line.y1,
                           step = (flat ? line.x2 : line.y2) < start ? -1 : 1;
        const std::int64_t first = std::max(std::int64_t{0}, step > 0 ? -start : start - 100),
                           last = first + 210;
        const int length = i % 2 == 0 ? random(1, 20) : random(1, kMax);
        naive_dash(expected, line, 4, length, first, std::min(last, line.major));
        MEM_dash_line(ends[0], ends[1], ends[2], ends[3], 4, length, 97, 61, actual);
        ASSERT_TRUE(actual.contents() == expected.pixels && actual.intact()) << i;
    }
}

TEST(Line, AnyArgumentsEndSoonAndStayInside) {
    const int values[] = {kMin, kMin + 1, -1, 0, 7, 2'097'152, kMax - 1, kMax};
    test::Guarded buffer(64 * 48);
    Random random(22);
    const auto any = [&] { return values[random(0, 7)]; };
    for (int i = 0; i < 400; ++i) {
        const int a = any(), b = any(), c = any(), d = any(), e = any(), f = any();
        MEM_line(a, b, c, d, e, 64, 48, buffer);
        MEM_dash_line(a, b, c, d, e, f, 64, 48, buffer);
        MEM_fill(a, b, c, 64, 48, buffer);
        MEM_fill(7, 7, c, 64, 48, buffer);
        MEM_line(a, b, c, d, e, f < 8 ? f : 0, 48, nullptr);
        MEM_fill(0, 0, 5, 64, 48, nullptr);
        MEM_fill(0, 0, 5, -1, any(), buffer);
        // The longest walks are left to the plain build, the others are as long as the sanitizers' patience.
        MEM_circle(a, b, c, d, e, f, 1, 64, 48, buffer);
        ASSERT_TRUE(buffer.intact()) << a << " " << b << " " << c << " " << d << " " << e << " " << f;
    }
}

// Teeth of a comb each leave a segment pending: beyond a thousand of them the rest stays unfilled, as in the
// walk.
TEST(Line, FillDropsWhatExceedsItsStack) {
    Canvas expected{6001, 7, std::vector<std::uint8_t>(6001 * 7)};
    for (int y = 0; y < 7; ++y)
        for (int x = 0; x < 6001; x += 2) expected.write(x, y == 2 ? -1 : y, 1);
    test::Guarded actual(expected.pixels.size());
    std::copy(expected.pixels.begin(), expected.pixels.end(), actual.data());
    naive_fill(expected, 3000, 2, 8);
    MEM_fill(3000, 2, 8, 6001, 7, actual);
    EXPECT_GT(std::count(expected.pixels.begin(), expected.pixels.end(), 0), 0);
    EXPECT_TRUE(actual.contents() == expected.pixels && actual.intact());
}
