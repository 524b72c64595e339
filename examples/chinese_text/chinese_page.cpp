#include "chinese_page.h"

#include <inkstone/chine.h>
#include <inkstone/draw.h>

#include <cmath>

#include "texts.h"

namespace chinese_text {
namespace {

constexpr int kWidth = 640, kHeight = 480;
constexpr int kTransparent = 1;

// Ramps of 32 colours each, and a few single ones. Colour 0 is the colour of shadows.
enum Colour {
    kShadow,
    kWhite,
    kInk,
    kSeal,
    kPaper,
    kPaperEdge,
    kLabel,
    kSky = 32,
    kHills = 64,
    kGold = 96,
    kJade = 128
};
constexpr int kRamp = 32;

struct Rgb {
    int red, green, blue;
};

using Palette = std::array<std::uint8_t, 768>;

void set(Palette &palette, int index, Rgb colour) {
    const std::size_t at = static_cast<std::size_t>(3 * index);
    palette[at] = static_cast<std::uint8_t>(colour.red);
    palette[at + 1] = static_cast<std::uint8_t>(colour.green);
    palette[at + 2] = static_cast<std::uint8_t>(colour.blue);
}

void set_ramp(Palette &palette, int first, Rgb from, Rgb to) {
    const auto between = [](int a, int b, int i) { return a + (b - a) * i / (kRamp - 1); };
    for (int i = 0; i < kRamp; ++i)
        set(palette, first + i,
            {between(from.red, to.red, i), between(from.green, to.green, i), between(from.blue, to.blue, i)});
}

// A busy ground: a night sky with stars above hills in the haze, all of it grainy.
void draw_ground(std::uint8_t *screen) {
    std::uint32_t state = 7;
    const auto random = [&state](int below) {
        state = state * 214013 + 2531011;
        return static_cast<int>((state >> 16 & 0x7FFF) % static_cast<std::uint32_t>(below));
    };
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            int colour = kSky + std::min(y * kRamp / 300, kRamp - 5) + random(5);
            for (int hill = 0; hill < 3; ++hill) {
                const double wave = std::sin(x * (0.011 + 0.006 * hill) + 2 * hill) +
                                    0.5 * std::sin(x * (0.031 + 0.01 * hill) + 5 * hill);
                const double top = 150 + 50 * hill - 32 * wave;
                if (y > top)
                    colour = kHills + std::max(0, 26 - 9 * hill - static_cast<int>(y - top) / 6) + random(6);
            }
            screen[y * kWidth + x] = static_cast<std::uint8_t>(colour);
        }
    for (int star = 0; star < 90; ++star) screen[random(110) * kWidth + random(kWidth)] = kWhite;
    for (int y = -29; y <= 29; ++y)  // the moon
        for (int x = -29; x <= 29; ++x)
            if (x * x + y * y < 900)
                screen[(30 + y) * kWidth + 604 + x] =
                    static_cast<std::uint8_t>(kGold + kRamp - 1 - (x * x + y * y) / 120 - random(3));
}

// Gives a slot a gradient from the top of the characters to their bottom.
void set_gradient(int slot, int ramp) {
    std::array<std::uint8_t, 24 * 24> pattern;
    for (std::size_t i = 0; i < pattern.size(); ++i)
        pattern[i] = static_cast<std::uint8_t>(ramp + kRamp - 1 - static_cast<int>(i / 24) * kRamp / 30);
    CHINE_set_color_pattern(slot, pattern.data());
}

void draw_poem(std::uint8_t *screen) {
    CHINE_set_text_window(16, 0, kWidth - 10, kHeight);
    set_gradient(0, kGold);
    CHINE_set_color(1, kWhite);
    CHINE_set_color(3, kShadow);
    CHINE_print24(20, 12, "~C0~D0~T0~O1~Z1", kTransparent, screen);
    CHINE_print24(20, 12, TITLE, kTransparent, screen);
    CHINE_print24(20, 12, "~Z0~C1", kTransparent, screen);
    CHINE_print24(232, 12, AUTHOR, kTransparent, screen);
    CHINE_print16(232, 42, PREFACE, kTransparent, screen);
    set_gradient(0, kJade);
    CHINE_print24(16, 76, "~D0~C0", kTransparent, screen);
    int y = 76;
    for (const char *line : {POEM1, POEM2, POEM3, POEM4, POEM5, POEM6}) {
        CHINE_print24(16, y, line, kTransparent, screen);
        y += 30;
    }
    CHINE_print24(16, 76, "~O0~T0", kTransparent, screen);
}

void draw_prose(std::uint8_t *screen) {
    constexpr int kLeft = 16, kTop = 264, kRight = 623, kBottom = 381;
    BUF_bar(kLeft, kTop, kRight, kBottom, kPaper, screen);
    BUF_box(kLeft, kTop, kRight, kBottom, kPaperEdge, screen);
    BUF_box(kLeft + 2, kTop + 2, kRight - 2, kBottom - 2, kPaperEdge, screen);
    CHINE_set_color(0, kInk);
    CHINE_set_color(1, kSeal);
    // 36 characters in a line.
    constexpr int kText = kLeft + 16;
    CHINE_set_text_window(kText, kTop, kText + 36 * 16 + 4, kHeight);
    CHINE_print16(kText, kTop + 8, PROSE, kTransparent, screen);
    CHINE_print24(kText, kTop + 60, RARE, kTransparent, screen);
    CHINE_print24(kText, kTop + 88, ASCII24, kPaper * 256, screen);
    CHINE_set_text_window(0, 0, kWidth, kHeight);
}

// Each effect at both sizes, with its name.
void draw_effects(std::uint8_t *screen) {
    CHINE_set_color(0, kWhite);
    CHINE_set_color(1, kLabel);
    CHINE_set_color(3, kSeal);
    int x = 16;
    for (const char *text : {PLAIN, BOLD, OUTLINE, SHADOW, BOTH}) {
        CHINE_print24(x, 394, text, kTransparent, screen);
        CHINE_print16(x + 8, 424, text, kTransparent, screen);
        x += 60;
    }
    CHINE_print24(x, 394, ON_GROUND, kSeal * 256, screen);
    CHINE_print16(x + 8, 424, ON_GROUND, kSeal * 256, screen);
    set_gradient(0, kGold);
    CHINE_print24(x + 60, 394, GRADIENT, kTransparent, screen);
    CHINE_print16(x + 68, 424, GRADIENT, kTransparent, screen);
    CHINE_print24(x + 120, 394, DOUBLE, kTransparent, screen);
    CHINE_set_color(0, kWhite);
    CHINE_set_color(3, kShadow);
    CHINE_print16(16, 454, "~O1", kTransparent, screen);
    CHINE_print16(16, 454, ASCII16, kTransparent, screen);
    CHINE_print16(16, 454, "~O0", kTransparent, screen);
}

}  // namespace

Palette make_palette() {
    Palette palette{};
    set(palette, kShadow, {2, 2, 6});
    set(palette, kWhite, {63, 63, 63});
    set(palette, kInk, {6, 6, 10});
    set(palette, kSeal, {46, 8, 8});
    set(palette, kPaper, {60, 57, 48});
    set(palette, kPaperEdge, {40, 30, 16});
    set(palette, kLabel, {50, 54, 60});
    set_ramp(palette, kSky, {4, 6, 20}, {36, 30, 44});
    set_ramp(palette, kHills, {3, 9, 10}, {20, 29, 32});
    set_ramp(palette, kGold, {44, 22, 2}, {63, 62, 44});
    set_ramp(palette, kJade, {22, 50, 52}, {60, 63, 62});
    return palette;
}

void draw_page(std::uint8_t *screen) {
    draw_ground(screen);
    draw_poem(screen);
    draw_prose(screen);
    draw_effects(screen);
}

}  // namespace chinese_text
