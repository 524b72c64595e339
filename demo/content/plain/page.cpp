#include "plain/page.h"

#include <inkstone/draw.h>
#include <inkstone/line.h>

#include <algorithm>

namespace plain {
namespace {

// A generator of the painter's own, so that a picture is the same whatever else draws random numbers.
class Noise {
  public:
    explicit Noise(unsigned seed) : state_(seed) {}
    int below(int limit) {
        state_ = state_ * 1664525U + 1013904223U;
        return static_cast<int>((state_ >> 8) % static_cast<unsigned>(std::max(1, limit)));
    }

  private:
    std::uint32_t state_;
};

}  // namespace

Page::Page() : pixels_(INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT) {}

void Page::shade(int left, int top, int right, int bottom, int first, int last) {
    const int steps = (last > first ? last - first : first - last) + 1, way = last > first ? 1 : -1;
    for (int step = 0; step < steps; ++step) {
        const int from = top + (bottom - top + 1) * step / steps,
                  to = top + (bottom - top + 1) * (step + 1) / steps;
        const int colour = first + way * step;
        BUF_bar(left, from, right, to - 1, colour, pixels());
        if (step + 1 < steps) BUF_mesh_bar(left, (from + to) / 2, right, to - 1, colour + way, pixels());
    }
}

void Page::bar(int left, int top, int right, int bottom, int colour) {
    BUF_bar(left, top, right, bottom, colour, pixels());
}

void Page::ellipse(int x, int y, int half_width, int half_height, int colour) {
    for (int row = -half_height; row <= half_height; ++row) {
        int across = 0;
        while ((across + 1) * (across + 1) * half_height * half_height +
                   row * row * half_width * half_width <=
               half_width * half_width * half_height * half_height)
            ++across;
        BUF_line(x - across, y + row, x + across, y + row, colour, pixels());
    }
}

void Page::trapeze(int top, int top_left, int top_right, int bottom, int bottom_left, int bottom_right,
                   int colour) {
    const int rows = std::max(1, bottom - top);
    for (int row = 0; row <= rows; ++row)
        BUF_line(top_left + (bottom_left - top_left) * row / rows, top + row,
                 top_right + (bottom_right - top_right) * row / rows, top + row, colour, pixels());
}

void Page::ridge(unsigned seed, int top, int foot, int roughness, int colour) {
    Noise noise(seed);
    constexpr int kPoints = 1024;
    std::vector<int> height(kPoints + 1);
    height[0] = height[kPoints] = roughness / 2;
    for (int step = kPoints, range = roughness; step > 1; step /= 2, range = range * 5 / 9)
        for (int i = step / 2; i < kPoints; i += step)
            height[static_cast<std::size_t>(i)] = (height[static_cast<std::size_t>(i - step / 2)] +
                                                   height[static_cast<std::size_t>(i + step / 2)]) /
                                                      2 +
                                                  noise.below(range + 1) - range / 2;
    for (int x = 0; x < INK_SCREEN_WIDTH; ++x) {
        const int peak = std::min(foot, top - height[static_cast<std::size_t>(x + 100)]);
        BUF_line(x, peak, x, foot, colour, pixels());
        BUF_line(x, peak, x, std::min(foot, peak + 2 + noise.below(5)), colour + 1, pixels());
    }
    // Mist at the foot.
    for (int y = foot - 40; y < foot; y += 2)
        if (noise.below(40) < y - (foot - 40))
            BUF_mesh_bar(0, y, INK_SCREEN_WIDTH - 1, y, colour + 3, pixels());
}

void Page::water(int left, int top, int right, int bottom) {
    Noise noise(9);
    for (int y = top; y <= bottom; ++y) {
        const int length = 12 + (y - top) / 2;
        for (int x = left, tone = noise.below(16); x <= right; tone = (tone + 1 + noise.below(2)) & 15) {
            const int to = std::min(right, x + length / 2 + noise.below(length));
            BUF_line(x, y, to, y, kWater + tone, pixels());
            x = to + 1;
        }
    }
}

void Page::boards(int top, int bottom, int first, int last) {
    shade(0, top, INK_SCREEN_WIDTH - 1, bottom, first, last);
    for (int y = top, gap = 8; y < bottom; y += gap, gap += 4) {
        BUF_line(0, y, INK_SCREEN_WIDTH - 1, y, first - 2, pixels());
        for (int x = (y * 37) % 160; x < INK_SCREEN_WIDTH; x += 160 + gap)
            BUF_line(x, y, x, y + gap + 3, first - 2, pixels());
    }
}

}  // namespace plain
