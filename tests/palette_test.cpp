// Palettes: the search, glass, files and fades.
#include "inkstone/palette.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <random>
#include <vector>

#include "inkstone/draw.h"
#include "inkstone/effect.h"
#include "inkstone/host.h"
#include "inkstone/timer.h"
#include "inkstone/view.h"
#include "support/files.h"
#include "support/guarded.h"
#include "support/injection.h"
#include "support/new_process.h"

namespace {

using Palette = std::array<std::uint8_t, 768>;

Palette filled(std::uint8_t component) {
    Palette palette;
    palette.fill(component);
    return palette;
}
void set(Palette &palette, int entry, int red, int green, int blue) {
    const auto at = static_cast<std::size_t>(entry * 3);
    palette[at] = static_cast<std::uint8_t>(red), palette[at + 1] = static_cast<std::uint8_t>(green);
    palette[at + 2] = static_cast<std::uint8_t>(blue);
}
Palette grey_ramp() {
    Palette palette;
    for (int i = 0; i < 256; ++i) set(palette, i, i / 4, i / 4, i / 4);
    return palette;
}

// The palettes that reach the hardware, as their 6-bit components, one for each animate_palette call.
std::vector<Palette> shown;
void record_palettes() {
    shown.clear();
    HOST_observe([](const char *call) -> std::int32_t {
        if (std::string(call).starts_with("animate_palette")) shown.emplace_back();
        return 0;
    });
}
Palette hardware() {
    Palette palette;
    HOST_read_palette(palette.data());
    for (auto &component : palette) component = static_cast<std::uint8_t>(component / 4);
    return palette;
}

int pumped = 0;

class Displayed : public ::testing::Test {
  protected:
    void SetUp() override {
        WViewInit(nullptr, 0, 0, 8, 8, pixels_.data());
        WViewEnable();
        pumped = 0;
    }
    void display(const Palette &palette) { SCR_set_palette(palette.data()); }

  private:
    std::array<std::uint8_t, 64> pixels_{};
};
using PaletteFade = Displayed;

}  // namespace

TEST(Palette, SearchTakesTheFirstCloseColourElseTheNearest) {
    Palette palette = filled(63);
    set(palette, 7, 12, 12, 12);
    set(palette, 9, 10, 10, 10);
    set(palette, 20, 30, 0, 0);  // at distance 20 of (10, 0, 0), as is the next
    set(palette, 21, 10, 20, 0);
    set(palette, 22, 10, 15, 0);
    set(palette, 30, 16, 0, 0);  // just not near enough to end the search, as the next is
    set(palette, 31, 0, 15, 0);
    const Palette ramp = grey_ramp();
    const struct {
        const Palette &palette;
        int first, last, red, green, blue, expected;
    } cases[] = {
        {palette, 0, 256, 10, 10, 10, 7},   {palette, 8, 256, 10, 10, 10, 9},
        {palette, 20, 22, 10, 0, 0, 20},    {palette, 20, 23, 10, 0, 0, 22},
        {palette, 30, 32, 0, 0, 0, 31},     {palette, 30, 31, 0, 0, 0, 30},
        {palette, 5, 5, 10, 10, 10, 0},     {palette, 9, 5, 10, 10, 10, 0},
        {palette, 5, 6, 0, 0, 0, 5},        {palette, 5, 6, INT32_MIN, INT32_MAX, INT32_MIN, 5},
        {ramp, 0, 256, 20, 20, 20, 60},     {palette, INT32_MIN, INT32_MAX, 10, 10, 10, 7},
        {palette, 256, 900, 10, 10, 10, 0}, {palette, 255, 256, 1, 1, 1, 255},
    };
    for (const auto &[where, first, last, red, green, blue, expected] : cases)
        EXPECT_EQ(PAL_find_color(first, last, red, green, blue, where.data()), expected)
            << first << " " << last;
}

TEST(Palette, SearchesOfAnyLengthAgreeWithALookAtEachColour) {
    std::mt19937 random(11);
    const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    for (int round = 0; round < 3000; ++round) {
        // Few colours near the one wanted, ties among the others, and at times components no screen shows.
        const int spread = 1 + below(round % 5 == 0 ? 255 : 63), bias = below(64);
        Palette palette;
        for (std::uint8_t &part : palette) part = static_cast<std::uint8_t>((bias + below(spread)) & 0xFF);
        const int first = below(256), last = first + below(257 - first);
        const int wanted[] = {below(100), below(100), below(100) - below(30)};
        int expected = 0, least = 1 << 20;
        for (int i = first; i < last && least >= 16; ++i) {
            int apart = 0;
            for (int part = 0; part < 3; ++part)
                apart += std::abs(palette[static_cast<std::size_t>(3 * i + part)] - wanted[part]);
            if (apart < least) least = apart, expected = i;
        }
        // Nothing beyond the last entry is there to be read.
        const std::vector<std::uint8_t> exact(palette.begin(), palette.begin() + 3 * last);
        ASSERT_EQ(PAL_find_color(first, last, wanted[0], wanted[1], wanted[2], exact.data()), expected)
            << "round " << round << ": " << first << " to " << last;
    }
}

TEST(Palette, GlassTurnsColoursIntoGreysOfTheirRed) {
    Palette palette = grey_ramp();
    set(palette, 200, 20, 63, 1);
    test::Guarded screen(640 * 480, 200);
    const struct {
        int n, level, grey;
    } cases[] = {{0, 64, 20},        {1, 0, 0},     {2, 32, 10}, {3, 128, 42},
                 {7, 1'000'000, 63}, {4, -64, -20}, {5, 63, 19}};
    for (const auto &[n, level, grey] : cases) {
        PAL_make_glass_table(0, 200, n, level, palette.data());
        std::fill_n(screen.data(), 100, std::uint8_t{200});
        BUF_glass_bar(0, 0, 9, 0, n, screen);
        EXPECT_EQ(screen.data()[3], PAL_find_color(0, 200, grey, grey, grey, palette.data())) << level;
        for (int colour = 0; level == 64 && colour < 256; ++colour) {
            BUF_put_pixel(colour, 1, colour, screen);
            BUF_glass_bar(colour, 1, colour, 1, n, screen);
            const int red = palette[static_cast<std::size_t>(3 * colour)];
            EXPECT_EQ(BUF_get_pixel(colour, 1, screen),
                      PAL_find_color(0, 200, red, red, red, palette.data()));
        }
    }
    PAL_make_glass_table(0, 256, 8, 64, palette.data());  // there is no such table
    PAL_make_glass_table(0, 256, -1, 64, palette.data());
    EXPECT_TRUE(screen.intact());
}

TEST(Palette, SystemColoursFillFourteenEntries) {
    Palette palette = filled(9);
    PAL_make_system_color(palette.data());
    const std::vector<int> first{0,  0,  0, 63, 0,  0,  0,  63, 0,  0,  0,  63,
                                 63, 63, 0, 0,  63, 63, 63, 0,  63, 63, 63, 63};
    const std::vector<int> greys{0, 13, 26, 39, 51, 63};
    for (std::size_t i = 0; i < 768; ++i)
        EXPECT_EQ(palette[i], i < 24 ? first[i] : i < 42 ? greys[(i - 24) / 3] : 9) << i;
}

TEST(Palette, FilesKeepTheirEntriesAndNeverWriteOutside) {
    Palette palette;
    std::iota(palette.begin(), palette.end(), std::uint8_t{1});
    PAL_save_palette(16, 32, "part.pal", palette.data());
    test::Bytes bytes(palette.begin() + 44, palette.begin() + 96);
    std::copy_n(std::array<std::uint8_t, 4>{16, 0, 32, 0}.begin(), 4, bytes.begin());
    EXPECT_EQ(test::read_file("part.pal"), bytes);
    PAL_save_palette(0, 256, "whole.pal", palette.data());
    EXPECT_EQ(test::read_file("whole.pal").size(), 772U);
    for (const auto &[first, end] : {std::pair{-1, 3}, {5, 4}, {0, 257}, {INT32_MIN, INT32_MAX}})
        PAL_save_palette(first, end, "bad.pal", palette.data());
    EXPECT_FALSE(test::exists("bad.pal"));
    PAL_save_palette(0, 256, "no/such/place.pal", palette.data());

    // Headers, how many bytes follow them (counting up from 100), and which bytes of the palette they change.
    const struct {
        int first, end;
        std::size_t length;
        std::ptrdiff_t begin, from, changed;
    } cases[] = {
        {16, 32, 48, 48, 0, 48}, {16, 32, 7, 48, 0, 7},      {0, 256, 768, 0, 0, 768},
        {-2, 4, 18, 0, 6, 12},   {254, 300, 138, 762, 0, 6}, {-32768, 32767, 99, 0, 0, 0},
        {9, 3, 60, 0, 0, 0},     {300, 400, 300, 0, 0, 0},   {-9, -3, 18, 0, 0, 0},
        {7, 7, 30, 0, 0, 0},
    };
    for (const auto &[first, end, length, begin, from, changed] : cases) {
        test::Bytes file(4 + length);
        for (std::size_t i = 0; i < 4; ++i)
            file[i] = static_cast<std::uint8_t>((i < 2 ? first : end) >> (i % 2 * 8));
        std::iota(file.begin() + 4, file.end(), std::uint8_t{100});
        test::write_file("x.pal", file);
        test::Guarded read(768, 3);
        test::Bytes expected(768, 3);
        std::copy_n(file.begin() + 4 + from, changed, expected.begin() + begin);
        PAL_read_palette("X.PAL", read);
        EXPECT_TRUE(read.intact() && read.contents() == expected) << first << " to " << end;
    }
    test::write_file("x.pal", {0, 0, 9});  // not even a header
    test::Guarded read(768, 3);
    PAL_read_palette("x.pal", read);
    EXPECT_EQ(test::take_log(), "");
    PAL_read_palette("missing.pal", read);
    EXPECT_EQ(test::take_log(), "FILE missing.pal open error\n");
    PAL_read_palette(nullptr, read);
    PAL_save_palette(0, 256, nullptr, palette.data());
    EXPECT_EQ(test::take_log(), "FILE  open error\n");
    EXPECT_TRUE(read.intact() && read.contents() == test::Bytes(768, 3));
}

TEST(Palette, BearsEveryRefusal) {
    const Palette palette = filled(9);
    Palette read;
    const auto told = [&palette](const Palette &got) {
        return got == palette ? "whole" : got == filled(3) ? "none" : got[0] == 9 ? "begun" : "wrong";
    };
    test::inject({.group = "PAL_save_palette",
                  .use = [&] { PAL_save_palette(0, 256, "x.pal", palette.data()); },
                  .outcome = [&] { return std::to_string(test::read_file("x.pal").size()); },
                  .right = "772",
                  .files = {"0", "386"},
                  .prepare = [] { test::write_file("x.pal", {}); }});
    test::inject({.group = "PAL_read_palette",
                  .use = [&] { PAL_read_palette("x.pal", read.data()); },
                  .outcome = [&] { return told(read); },
                  .right = "whole",
                  .files = {"begun", "none", "none| FILE x.pal open error"},
                  .prepare = [&] { read = filled(3); }});
}

TEST_F(PaletteFade, StepsFromTheDisplayedPaletteToTheTarget) {
    static std::vector<Palette> seen;  // after each step, as the callback of the next one finds it
    seen.clear();
    Palette start = filled(0), target = filled(63);
    set(start, 5, 63, 10, 20), set(target, 5, 0, 11, 20);
    display(start);
    record_palettes();
    PAL_fade_init(target.data(), [] { seen.push_back(hardware()); });
    PAL_fade_effect(0);
    HOST_observe(nullptr);
    EXPECT_EQ(shown.size(), 65U);
    ASSERT_EQ(seen.size(), 64U);
    seen.push_back(hardware());
    for (int step = 0; step < 64; ++step) {
        Palette expected = filled(static_cast<std::uint8_t>(step));
        set(expected, 5, 63 - step, step == 63 ? 11 : 10, 20);
        EXPECT_EQ(seen[static_cast<std::size_t>(step) + 1], expected) << step;
    }
    EXPECT_EQ(seen[0], start);
}

// The target of the moment counts: the callback turns the fade round on its way.
TEST_F(PaletteFade, LastsAsLongAsItsCounterAsksAndFollowsItsTarget) {
    static Palette target;
    target = filled(63);
    display(filled(0));
    PAL_fade_init(target.data(), [] {
        SetTimerTick(15, GetTimerTick(15) + 1);
        if (++pumped == 4 * 60) target = filled(21);
    });
    PAL_fade_effect(4);
    EXPECT_EQ(pumped, 4 * 64);
    EXPECT_EQ(hardware(), target);

    // Paced by the window timer, which moves inside the pump, a step of 3 ticks lasts 165 milliseconds.
    ASSERT_EQ(SetupTimerProc(nullptr), 0);
    PAL_fade_init(target.data(), nullptr);
    const std::uint64_t before = HOST_clock();
    PAL_fade_effect(3);
    const std::uint64_t took = HOST_clock() - before;
    EXPECT_GE(took, 64U * 110'000);
    EXPECT_LE(took, 64U * 166'000);
}

TEST_IN_NEW_PROCESS(Palette, FadeInStepsThatWasNeverStartedIsFromBlack) {
    const Palette bright = filled(63);
    std::array<std::uint8_t, 64> pixels{};
    WViewInit(nullptr, 0, 0, 8, 8, pixels.data());
    WViewEnable();
    SCR_set_palette(filled(40).data());
    PAL_fade_init(bright.data(), nullptr);
    PAL_step_fade_effect(1), PAL_step_fade_effect(1);
    EXPECT_EQ(hardware(), filled(1));
}

TEST_F(PaletteFade, InStepsIsThePaceOfTheCaller) {
    const Palette target = filled(63);
    display(filled(40));
    PAL_fade_init(nullptr, nullptr);
    PAL_step_fade_effect(0);
    for (int i = 0; i < 70; ++i) PAL_step_fade_effect(1);  // no target: not even counted
    PAL_fade_effect(0);
    EXPECT_EQ(hardware(), filled(40));
    PAL_fade_init(target.data(), [] { ++pumped; });
    PAL_step_fade_effect(1), PAL_step_fade_effect(1);
    EXPECT_EQ(hardware(), filled(40));
    PAL_step_fade_effect(1), PAL_step_fade_effect(1), PAL_step_fade_effect(1);
    EXPECT_EQ(hardware(), filled(41));
    for (const int from : {10, 30}) {
        display(filled(static_cast<std::uint8_t>(from)));
        PAL_step_fade_effect(0);
        for (int step = 0; step < 63; ++step) {
            EXPECT_EQ(hardware()[0], step == 0 ? from : from + (63 - from) * (step - 1) / 63) << step;
            PAL_step_fade_effect(-5);
        }
        EXPECT_EQ(hardware(), target);
        display(filled(5));
        PAL_step_fade_effect(1);  // it is over
        EXPECT_EQ(hardware(), filled(5));
    }
    EXPECT_EQ(pumped, 0);
}
