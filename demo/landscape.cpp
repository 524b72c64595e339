#include "landscape.h"

#include <inkstone/inkstone.h>

#include <cmath>
#include <vector>

#include "game.h"

namespace demo {
namespace {

// A generator of the painter's own, so that the picture is the same whatever else draws random numbers.
class Noise {
  public:
    explicit Noise(std::uint32_t seed) : state_(seed) {}
    std::int32_t below(std::int32_t limit) {
        state_ = state_ * 1664525U + 1013904223U;
        return static_cast<std::int32_t>((state_ >> 8) % static_cast<std::uint32_t>(limit));
    }

  private:
    std::uint32_t state_;
};

constexpr std::int32_t kMoonX = 556;

// Bands of colour that melt into each other over a checkerboard.
void paint_sky(std::uint8_t *screen) {
    constexpr std::int32_t kBands = 32, kBand = kShore / kBands + 1;
    for (std::int32_t band = 0; band < kBands; ++band) {
        const std::int32_t top = band * kBand, colour = kSky + band;
        BUF_bar(0, top, INK_SCREEN_WIDTH - 1, top + kBand - 1, colour, screen);
        BUF_mesh_bar(0, top + kBand / 2, INK_SCREEN_WIDTH - 1, top + kBand - 1, colour + (band < kBands - 1),
                     screen);
    }
    Noise noise(7);
    for (int star = 0; star < 90; ++star)
        BUF_put_pixel(noise.below(INK_SCREEN_WIDTH), noise.below(150), kSky + 22 + noise.below(9), screen);
}

void paint_moon(std::uint8_t *screen) {
    constexpr std::int32_t kX = kMoonX, kY = 176, kRadius = 36;
    // The halo: everything around becomes a little brighter.
    for (const std::int32_t radius : {kRadius + 18, kRadius + 10}) {
        for (std::int32_t y = -radius; y <= radius; ++y) {
            const auto half = static_cast<std::int32_t>(std::sqrt(radius * radius - y * y));
            for (std::int32_t x = kX - half; x <= kX + half; ++x) {
                const std::int32_t colour = BUF_get_pixel(x, kY + y, screen);
                if (colour >= kSky && colour < kSky + 31 && ((x + y) & 1) == 0)
                    BUF_put_pixel(x, kY + y, colour + 1, screen);
            }
        }
    }
    BUF_circle(kX, kY, kRadius, kRadius, 0, 0, kPaper + 15, screen);
    // The checkerboard of the halo is no border for a fill: the disc is filled row by row up to its circle.
    for (std::int32_t y = -kRadius + 1; y < kRadius; ++y) {
        const auto half = static_cast<std::int32_t>(std::sqrt(kRadius * kRadius - y * y));
        BUF_line(kX - half, kY + y, kX + half, kY + y, kPaper + 15, screen);
    }
    for (const auto &[x, y, r] : {std::array{-12, -8, 7}, std::array{9, 6, 10}, std::array{-4, 18, 5}}) {
        BUF_circle(kX + x, kY + y, r, r, 0, 0, kPaper + 13, screen);
        BUF_fill(kX + x, kY + y, kPaper + 13, screen);
    }
}

// A ridge by midpoint displacement, below which everything is mountain, paler towards its foot.
void paint_ridge(std::uint8_t *screen, std::uint32_t seed, std::int32_t top, std::int32_t roughness,
                 std::int32_t colour) {
    Noise noise(seed);
    constexpr std::int32_t kPoints = 1024;
    std::vector<std::int32_t> height(kPoints + 1);
    height[0] = height[kPoints] = roughness / 2;
    for (std::int32_t step = kPoints, range = roughness; step > 1; step /= 2, range = range * 5 / 9)
        for (std::int32_t i = step / 2; i < kPoints; i += step)
            height[static_cast<std::size_t>(i)] = (height[static_cast<std::size_t>(i - step / 2)] +
                                                   height[static_cast<std::size_t>(i + step / 2)]) /
                                                      2 +
                                                  noise.below(range + 1) - range / 2;
    for (std::int32_t x = 0; x < INK_SCREEN_WIDTH; ++x) {
        const std::int32_t peak = top - height[static_cast<std::size_t>(x + 100)];
        BUF_line(x, peak, x, kShore, colour, screen);
        BUF_line(x, peak + 1, x, peak + 2 + noise.below(6), colour + 1, screen);
    }
    // Mist at the foot.
    for (std::int32_t y = kShore - 40; y < kShore; y += 2)
        if (noise.below(40) < y - (kShore - 40))
            BUF_mesh_bar(0, y, INK_SCREEN_WIDTH - 1, y, colour + 3, screen);
}

// Ripples: each pixel takes the colour of the ring that its place on the swell gives it.
void paint_water(std::uint8_t *screen) {
    for (std::int32_t y = kShore; y < INK_SCREEN_HEIGHT; ++y) {
        const double depth = 1.0 + (y - kShore) / 24.0;
        for (std::int32_t x = 0; x < INK_SCREEN_WIDTH; ++x) {
            const double swell = 3.0 * std::sin(x / (18.0 * depth) + y * 0.7) + 40.0 / depth * y / 60.0;
            BUF_put_pixel(x, y, kWater + (static_cast<std::int32_t>(swell + 64.0) & 15), screen);
        }
    }
    // The moon's road on the water.
    Noise noise(5);
    for (std::int32_t y = kShore + 3; y < INK_SCREEN_HEIGHT; y += 3) {
        const std::int32_t half = 5 + (y - kShore) / 4;
        for (int glint = 0; glint < 4; ++glint) {
            const std::int32_t x = kMoonX - half + noise.below(2 * half);
            BUF_line(x, y, x + 2 + noise.below(8), y, kPaper + 8 + noise.below(7), screen);
        }
    }
}

void paint_boat(std::uint8_t *screen) {
    constexpr std::int32_t kX = 150, kY = 392;
    for (std::int32_t row = 0; row < 9; ++row)
        BUF_line(kX + row * 2, kY + row, kX + 86 - row * 2, kY + row, kInk + 1, screen);
    BUF_line(kX - 6, kY - 3, kX + 10, kY + 3, kInk + 1, screen);
    BUF_line(kX + 92, kY - 3, kX + 76, kY + 3, kInk + 1, screen);
    BUF_circle(kX + 40, kY, 15, 20, 90, 270, kInk + 2, screen);  // the mat roof: the upper half of an ellipse
    BUF_line(kX + 20, kY, kX + 60, kY, kInk + 2, screen);
    BUF_fill(kX + 40, kY - 5, kInk + 2, screen);
    BUF_bar(kX + 66, kY - 12, kX + 70, kY, kInk, screen);  // the boatman, his hat and his pole
    BUF_line(kX + 60, kY - 11, kX + 68, kY - 17, kInk, screen);
    BUF_line(kX + 68, kY - 17, kX + 76, kY - 11, kInk, screen);
    BUF_line(kX + 60, kY - 11, kX + 76, kY - 11, kInk, screen);
    BUF_line(kX + 72, kY - 26, kX + 96, kY + 22, kInk, screen);
    BUF_bar(kX + 32, kY - 6, kX + 35, kY - 2, kGold + 14, screen);  // a lantern
}

}  // namespace

void paint_landscape(std::uint8_t *screen) {
    paint_sky(screen);
    paint_moon(screen);
    paint_ridge(screen, 3, 235, 120, kMountain + 9);
    paint_ridge(screen, 11, 270, 110, kMountain + 6);
    paint_ridge(screen, 29, 305, 90, kMountain + 2);
    paint_water(screen);
    paint_boat(screen);
}

}  // namespace demo
