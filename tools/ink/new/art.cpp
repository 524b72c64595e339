#include <array>
#include <cmath>
#include <cstdint>

#include "new/template.h"
#include "png/png_file.h"

namespace ink::tool {
namespace {

constexpr int kWidth = 640, kHeight = 480, kWater = 300;

using Colours = std::array<std::uint8_t, 768>;

struct Drawing {
    int width, height;
    Colours colours{};
    Bytes pixels = Bytes(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    int known = 1;  // entry 0 is what is not there

    std::uint8_t colour(int red, int green, int blue) {
        const auto at = static_cast<std::size_t>(3 * known);
        colours[at] = static_cast<std::uint8_t>(red);
        colours[at + 1] = static_cast<std::uint8_t>(green);
        colours[at + 2] = static_cast<std::uint8_t>(blue);
        return static_cast<std::uint8_t>(known++);
    }
    std::uint8_t &at(int x, int y) {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x)];
    }
    void disc(double x, double y, double radius_x, double radius_y, std::uint8_t colour) {
        for (int row = 0; row < height; ++row)
            for (int column = 0; column < width; ++column) {
                const double dx = (column + 0.5 - x) / radius_x, dy = (row + 0.5 - y) / radius_y;
                if (dx * dx + dy * dy <= 1) at(column, row) = colour;
            }
    }
    // A stroke with round ends.
    void stroke(double x1, double y1, double x2, double y2, double radius, std::uint8_t colour) {
        constexpr int kSteps = 48;
        for (int i = 0; i <= kSteps; ++i) {
            const double part = static_cast<double>(i) / kSteps;
            disc(x1 + (x2 - x1) * part, y1 + (y2 - y1) * part, radius, radius, colour);
        }
    }
    Bytes file(bool transparent) const { return encode_png(width, height, pixels, colours, transparent); }
};

// Night from deep blue to the grey over the water, three ranges of hills, the moon and its light on the lake.
Bytes lake() {
    Drawing picture{kWidth, kHeight};
    constexpr int kTones = 48;
    std::array<std::uint8_t, kTones> sky, water;
    for (int i = 0; i < kTones; ++i) {
        sky[static_cast<std::size_t>(i)] = picture.colour(12 + i, 18 + i * 3 / 2, 44 + i * 3 / 2);
        water[static_cast<std::size_t>(i)] = picture.colour(40 - i * 2 / 3, 60 - i, 84 - i);
    }
    const std::array<std::uint8_t, 3> hills{picture.colour(52, 68, 92), picture.colour(38, 52, 74),
                                            picture.colour(24, 36, 54)};
    const std::uint8_t moon = picture.colour(248, 240, 208), glow = picture.colour(96, 112, 140);
    const std::uint8_t shimmer = picture.colour(208, 204, 184), shore = picture.colour(12, 18, 28);
    const auto ridge = [](std::size_t range, int x) {
        const double at = x * 0.008 * static_cast<double>(range + 1);
        return 250 + 16 * static_cast<int>(range) -
               static_cast<int>(26 * std::sin(at + static_cast<double>(range)) + 12 * std::sin(2.7 * at));
    };
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            // Neighbouring tones are mixed in a pattern, so that no bands show.
            const int mixed = (x % 2 * 2 + (x + y) % 2) * 2;
            if (y < kWater)
                picture.at(x, y) = sky[static_cast<std::size_t>(
                    std::min(kTones - 1, (y * kTones + mixed * 8) / (kWater + 60)))];
            else
                picture.at(x, y) = water[static_cast<std::size_t>(
                    std::min(kTones - 1, ((y - kWater) * kTones + mixed * 8) / (kHeight - kWater + 60)))];
            for (std::size_t range = 0; range < hills.size(); ++range)
                if (y < kWater && y > ridge(range, x)) picture.at(x, y) = hills[range];
        }
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            const double far = std::hypot(x - 430, y - 110);
            if (far < 40)
                picture.at(x, y) = moon;
            else if (far < 64 && (x + y) % 2 == 0)
                picture.at(x, y) = glow;
            const int spread = (y - kWater) / 4 + 14;
            if (y > kWater + 2 && y % 5 < 2 &&
                std::abs(x - 430 + 9 * std::sin(y * 0.7)) <
                    spread * (0.4 + 0.6 * std::abs(std::sin(y * 1.3))))
                picture.at(x, y) = shimmer;
            if (y > 352 + 5 * std::sin(x * 0.02) && y > kWater) picture.at(x, y) = shore;
        }
    return picture.file(false);
}

Bytes lantern() {
    Drawing picture{48, 72};
    const std::uint8_t red = picture.colour(176, 36, 28), light = picture.colour(248, 152, 64),
                       gold = picture.colour(216, 168, 72), core = picture.colour(255, 224, 144),
                       black = picture.colour(0, 0, 0);
    picture.stroke(24, 1, 24, 12, 1.2, black);
    picture.disc(24, 34, 22, 20, red);
    picture.disc(24, 34, 15, 18, light);
    picture.disc(24, 36, 8, 12, core);
    for (const int y : {15, 53}) picture.stroke(16, y, 32, y, 2.5, gold);
    for (const int x : {20, 24, 28}) picture.stroke(x, 56, x, 69, 1, gold);
    return picture.file(true);
}

// Somebody in a robe and a straw hat, at one moment of a step.
Bytes walker(int moment) {
    constexpr double kPi = 3.14159265358979;
    Drawing picture{48, 64};
    const double swing = std::sin(moment * kPi / 2), lift = moment % 2 == 0 ? 0 : 1;
    const std::uint8_t robe = picture.colour(72, 96, 120), dark = picture.colour(40, 56, 76),
                       skin = picture.colour(228, 180, 140), straw = picture.colour(204, 168, 96),
                       black = picture.colour(0, 0, 0), light = picture.colour(255, 224, 144),
                       red = picture.colour(176, 36, 28), cloth = picture.colour(132, 116, 100),
                       shade = picture.colour(100, 88, 80);
    picture.stroke(22, 46 - lift, 22 + 7 * swing, 60, 3, cloth);
    picture.stroke(22, 46 - lift, 22 - 7 * swing, 60, 3, shade);
    for (int i = 0; i < 26; ++i)
        picture.stroke(22 - 4 - i * 0.22, 24 + i - lift, 22 + 4 + i * 0.22, 24 + i - lift, 1, robe);
    picture.disc(23, 17 - lift, 6, 7, skin);
    for (int i = 0; i < 8; ++i)
        picture.stroke(23 - 2 - i * 1.6, 7 + i - lift, 23 + 2 + i * 1.6, 7 + i - lift, 0.9, straw);
    picture.stroke(24, 28 - lift, 38, 33 - lift, 2, dark);
    picture.stroke(38, 33 - lift, 40 + swing, 40 - lift, 0.8, black);
    picture.disc(40 + swing, 46 - lift, 5, 6, red);
    picture.disc(40 + swing, 46 - lift, 3, 4, light);
    return picture.file(true);
}

}  // namespace

std::vector<std::pair<std::string, Bytes>> art_of_game() {
    std::vector<std::pair<std::string, Bytes>> art{{"lake.png", lake()}, {"lantern.png", lantern()}};
    for (int moment = 0; moment < 4; ++moment)
        art.emplace_back("walk-" + std::to_string(moment + 1) + ".png", walker(moment));
    return art;
}

}  // namespace ink::tool
