#include "art.h"

#include <algorithm>
#include <cstdlib>

#include "inkstone/palette.h"

namespace gallery {
namespace {

struct Colour {
    int red, green, blue;
};

int between(int from, int to, int step, int steps) {
    return from + (to - from) * step / steps;
}

void set_ramp(Palette &palette, Ramp first, Colour dark, Colour middle, Colour light) {
    for (int i = 0; i < kShades; ++i) {
        const bool lower = i < kShades / 2;
        const Colour &from = lower ? dark : middle, &to = lower ? middle : light;
        const int step = lower ? i : i - kShades / 2, steps = lower ? kShades / 2 : kShades / 2 - 1;
        std::uint8_t *entry = palette.data() + 3 * (first + i);
        entry[0] = static_cast<std::uint8_t>(between(from.red, to.red, step, steps));
        entry[1] = static_cast<std::uint8_t>(between(from.green, to.green, step, steps));
        entry[2] = static_cast<std::uint8_t>(between(from.blue, to.blue, step, steps));
    }
}

int root(int square) {
    int low = 0;
    while ((low + 1) * (low + 1) <= square) ++low;
    return low;
}

Image make_image(int width, int height) {
    Image image{width, height, Bytes(static_cast<std::size_t>(width * height + 4))};
    image.block[0] = static_cast<std::uint8_t>(width);
    image.block[2] = static_cast<std::uint8_t>(height);
    return image;
}

std::uint8_t shade(Ramp ramp, int level) {
    return static_cast<std::uint8_t>(ramp + std::clamp(level, 0, kShades - 1));
}

// A shade in sixteenths of a step, dithered to whole ones.
std::uint8_t dithered(Ramp ramp, int sixteenths, int x, int y) {
    static constexpr int kOrder[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};
    return shade(ramp, (sixteenths + kOrder[y & 3][x & 3]) >> 4);
}

// A smooth wave of the height 256 that repeats after 1,024.
int wave(int angle) {
    const int turned = angle & 511;
    const int half = 4 * 256 * turned / 512 * (512 - turned) / 512;
    return (angle & 512) != 0 ? -half : half;
}

int ridge(int x, int width, int phase, int roughness) {
    const int angle = x * 1024 / width;
    return wave(angle + phase) + wave(3 * angle + 5 * phase) / 3 + wave(7 * angle + 2 * phase) / roughness;
}

Image paint_lantern() {
    constexpr int kWidth = 40, kHeight = 60, kRadiusX = 19, kRadiusY = 18, kMiddleX = 20, kMiddleY = 25;
    Image image = make_image(kWidth, kHeight);
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            std::uint8_t &pixel = image.block[static_cast<std::size_t>(4 + y * kWidth + x)];
            const int dx = x - kMiddleX, dy = y - kMiddleY;
            const int half = std::abs(dy) < kRadiusY
                                 ? kRadiusX * root((kRadiusY * kRadiusY - dy * dy) * 64) / kRadiusY / 8
                                 : 0;
            if (half > 0 && std::abs(dx) <= half) {
                // Lit from the upper left, with ribs that follow the curve.
                const int across = dx * 64 / (half + 1);
                const bool rib = std::abs(std::abs(across) - 22) < 2 || std::abs(std::abs(across) - 45) < 3;
                pixel = shade(kRed, 13 - std::abs(across + 18) / 7 - std::abs(dy + 5) / 5 - (rib ? 3 : 0));
            }
            const bool cap = (std::abs(dy) >= 15 && std::abs(dy) <= 19 && std::abs(dx) <= 9);
            if (cap) pixel = shade(kGold, 12 - std::abs(dx + 3) / 2 - (std::abs(dy) == 15 ? 4 : 0));
            if (y < 7 && (dx == 0 || dx == -1)) pixel = shade(kGold, 9);
            if (y > 44 && std::abs(dx) <= 4 && (dx & 1) == 0 && y < 58 - std::abs(dx) / 2)
                pixel = shade(kGold, 13 - (y - 44) / 2);
            if (y > 44 && y < 48 && std::abs(dx) <= 2) pixel = shade(kRed, 10);
        }
    return image;
}

Image paint_seal() {
    // The character for bright, paper on red.
    static constexpr const char *kStrokes[10] = {
        ".......######", "#####..#....#", "#...#..#....#", "#...#..######", "#####..#....#",
        "#...#..#....#", "#...#..######", "#####..#....#", "......#.....#", ".....##....##",
    };
    constexpr int kSize = 32, kLeft = 3, kTop = 6, kStroke = 2;
    Image image = make_image(kSize, kSize);
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            const int column = (x - kLeft) / kStroke, row = (y - kTop) / kStroke;
            const bool inside = x >= kLeft && y >= kTop && column < 13 && row < 10;
            const bool stroke = inside && kStrokes[row][column] == '#';
            image.block[static_cast<std::size_t>(4 + y * kSize + x)] =
                stroke ? shade(kPaper, 14) : dithered(kRed, 130 - 2 * y, x, y);
        }
    return image;
}

}  // namespace

Palette make_palette() {
    Palette palette{};
    set_ramp(palette, kInk, {3, 4, 7}, {20, 24, 32}, {52, 56, 60});
    set_ramp(palette, kRed, {14, 1, 3}, {50, 8, 6}, {63, 40, 26});
    set_ramp(palette, kGold, {20, 9, 2}, {52, 36, 8}, {63, 60, 36});
    set_ramp(palette, kJade, {2, 12, 11}, {14, 38, 28}, {46, 62, 48});
    set_ramp(palette, kSky, {2, 4, 14}, {12, 24, 44}, {46, 58, 63});
    set_ramp(palette, kDusk, {12, 6, 20}, {44, 20, 30}, {63, 48, 36});
    set_ramp(palette, kPaper, {28, 24, 18}, {52, 47, 38}, {63, 61, 55});
    PAL_make_system_color(palette.data());
    return palette;
}

const Image &lantern() {
    static const Image image = paint_lantern();
    return image;
}

const Image &seal() {
    static const Image image = paint_seal();
    return image;
}

Bytes landscape(int width, int height) {
    Bytes pixels(static_cast<std::size_t>(width * height));
    const auto at = [&](int x, int y) -> std::uint8_t & {
        return pixels[static_cast<std::size_t>(y * width + x)];
    };
    const int horizon = height * 3 / 4;
    const int moon_x = width * 7 / 10, moon_y = height / 4, moon = std::max(height / 11, 3);
    for (int y = 0; y < horizon; ++y)
        for (int x = 0; x < width; ++x) {
            // Night blue above, the last light below.
            const int down = y * 256 / horizon;
            at(x, y) = down < 150 ? dithered(kSky, down * 200 / 150, x, y)
                                  : dithered(kDusk, 96 + (down - 150) * 150 / 106, x, y);
            const int dx = x - moon_x, dy = y - moon_y, apart = dx * dx + dy * dy;
            if (apart <= moon * moon) at(x, y) = dithered(kPaper, 200 + (dx + dy) * -40 / moon, x, y);
        }
    // Three ridges, each nearer one lower and darker.
    for (int layer = 0; layer < 3; ++layer)
        for (int x = 0; x < width; ++x) {
            const int rise = ridge(x, width, 190 + layer * 270, 4 + layer) + 330;
            const int top = horizon - rise * height * (4 - layer) / 6200 - height / 40;
            for (int y = std::max(top, 0); y < horizon; ++y) {
                const int below = (y - top) * 256 / height;
                at(x, y) = dithered(layer == 0 ? kSky : kInk,
                                    (layer == 0 ? 88 : 116 - layer * 40) + below / 2, x, y);
            }
        }
    // The water shows what stands above it, darker and broken by ripples.
    for (int y = horizon; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const int depth = y - horizon,
                      shift = wave(depth * 4096 / height) * (depth * 64 / height + 6) / 2048;
            const int from = std::clamp(x + shift * width / 640, 0, width - 1);
            const int up = std::max(horizon - 1 - depth * 5 / 2, 0);
            const std::uint8_t above = at(from, up);
            const int ramp = above & 0xF0, level = (above & 0x0F) * 3 / 4;
            at(x, y) = static_cast<std::uint8_t>(ramp + level);
        }
    return pixels;
}

}  // namespace gallery
