#include "draw/palette.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "draw/glass.h"
#include "draw/surface.h"
#include "inkstone/palette.h"

namespace ink::draw {
namespace {

// The search ends with the first colour that is closer than this.
constexpr int kCloseEnough = 16;

constexpr std::uint8_t kSystemColours[][kComponents] = {
    {0, 0, 0},    {63, 0, 0}, {0, 63, 0},   {0, 0, 63},   {63, 63, 0},  {0, 63, 63},  {63, 0, 63},
    {63, 63, 63}, {0, 0, 0},  {13, 13, 13}, {26, 26, 26}, {39, 39, 39}, {51, 51, 51}, {63, 63, 63},
};

// A component far outside those of palettes, where all entries lie on one side of it: moving it there changes all
// distances alike and leaves none below kCloseEnough, so it may be no farther and a distance fits 32 bits.
int near_component(std::int64_t component) {
    constexpr std::int64_t kFar = 1 << 10;
    return static_cast<int>(std::clamp(component, -kFar, kFar));
}

struct Colour {
    int red, green, blue;

    int distance(const std::uint8_t *entry) const {
        return std::abs(entry[0] - red) + std::abs(entry[1] - green) + std::abs(entry[2] - blue);
    }
};

// A range of palette entries, the last excluded.
struct Range {
    std::int32_t first, last;

    std::int32_t count() const { return last - first; }
};

// Looks at sixteen colours at once, in vectors of their components: what each is apart and what the two behind it are
// is added up, and a sum that begins within a colour left out.
class Nearest {
  public:
    Nearest(const Colour &wanted, const std::uint8_t *palette) : palette_(palette) {
        const int components[] = {wanted.red, wanted.green, wanted.blue};
        fits_ = std::ranges::all_of(components, [](int part) { return part >= 0 && part <= kHighest; });
        for (std::size_t phase = 0; phase < kComponents; ++phase)
            for (std::size_t i = 0; i < kComponents; ++i)
                wanted_[phase] |= ~kWithin[(phase + kComponents - i) % kComponents] & low_byte(components[i]);
    }

    // The few colours among which the search ends; all of them where that cannot be told.
    Range narrow(const Range &all) const {
        if (!fits_ || all.count() <= kColours) return all;
        Vector best = Vector{} + kNone, best_block{}, highest{};
        const auto block = [&](int number) {
            const std::int32_t first = std::min(all.first + number * kColours, all.last - kColours);
            return Range{first, first + kColours};
        };
        for (int number = 0; number * kColours < all.count(); ++number) {
            const std::uint8_t *const colours =
                palette_ + static_cast<std::size_t>(block(number).first) * kComponents;
            // The last vector is moved back to end with the colours.
            const Vector least =
                lesser(lesser(sums<0>(colours, highest), sums<1>(colours + kVector, highest)),
                       sums<0>(colours + 2 * kVector - 2, highest));
            const Vector closer = least < best;
            best = closer ? least : best;
            best_block = closer ? Vector{} + low_byte(number) : best_block;
            if (any(least < kCloseEnough)) return any(highest > kHighest) ? all : block(number);
        }
        if (any(highest > kHighest)) return all;
        int nearest = 0xFFFF;
        for (std::size_t i = 0; i < kVector; ++i) nearest = std::min(nearest, best[i] << 8 | best_block[i]);
        return block(nearest & 0xFF);
    }

  private:
    static constexpr std::int32_t kColours = 16;
    static constexpr std::size_t kVector = 16;
    using Vector [[gnu::vector_size(kVector)]] = std::uint8_t;
    // Of three components up to this, 63 being the highest that palettes have, the sum stays below what stands for none.
    static constexpr std::uint8_t kHighest = 84, kNone = 255;

    // From a phase on, 0 where a colour begins and kNone elsewhere.
    static constexpr Vector kWithin[] = {
        {0, kNone, kNone, 0, kNone, kNone, 0, kNone, kNone, 0, kNone, kNone, 0, kNone, kNone, 0},
        {kNone, kNone, 0, kNone, kNone, 0, kNone, kNone, 0, kNone, kNone, 0, kNone, kNone, 0, kNone},
        {kNone, 0, kNone, kNone, 0, kNone, kNone, 0, kNone, kNone, 0, kNone, kNone, 0, kNone, kNone}};

    static Vector lesser(Vector a, Vector b) { return a < b ? a : b; }
    static Vector greater(Vector a, Vector b) { return a > b ? a : b; }
    static bool any(Vector lanes) {
        std::uint64_t halves[2];
        std::memcpy(halves, &lanes, sizeof halves);
        return (halves[0] | halves[1]) != 0;
    }

    // The sums from sixteen components on, the first being red (phase 0), green or blue.
    template <std::size_t phase>
    Vector sums(const std::uint8_t *from, Vector &highest) const {
        Vector sum{};
        for (std::size_t i = 0; i < kComponents; ++i) {
            Vector there;
            std::memcpy(&there, from + i, kVector);
            if (i != 1) highest |= there;  // the others reach all of them
            const Vector &here = wanted_[(phase + i) % kComponents];
            sum += greater(there, here) - lesser(there, here);
        }
        return sum | kWithin[phase];
    }

    const std::uint8_t *palette_;
    Vector wanted_[kComponents]{};  // repeated, from each of its components on
    bool fits_;
};

std::int32_t find_colour(std::int32_t first, std::int32_t last, std::int64_t wanted_red,
                         std::int64_t wanted_green, std::int64_t wanted_blue, const std::uint8_t *palette) {
    const Colour wanted{near_component(wanted_red), near_component(wanted_green),
                        near_component(wanted_blue)};
    const Range range =
        Nearest(wanted, palette).narrow({std::max(first, 0), std::min(last, kPaletteEntries)});
    std::int32_t best = 0;
    int best_distance = std::numeric_limits<int>::max();
    for (std::int32_t i = range.first; i < range.last && best_distance >= kCloseEnough; ++i) {
        const int distance = wanted.distance(palette + i * static_cast<std::int32_t>(kComponents));
        if (distance >= best_distance) continue;
        best = i;
        best_distance = distance;
    }
    return best;
}

// What a brightness turns into under glass: below the middle level towards black, above it towards white.
std::int64_t under_glass(std::int64_t brightness, std::int64_t level) {
    constexpr std::int64_t kUnchanged = 64, kWhite = 63;
    if (level < kUnchanged) return brightness * level / kUnchanged;
    return (brightness - kWhite) * kUnchanged / level + kWhite;
}

}  // namespace
}  // namespace ink::draw

using namespace ink::draw;

int32_t PAL_find_color(int32_t first, int32_t last, int32_t red, int32_t green, int32_t blue,
                       const uint8_t *palette) {
    return find_colour(first, last, red, green, blue, palette);
}

void PAL_make_glass_table(int32_t first, int32_t last, int32_t n, int32_t level, const uint8_t *palette) {
    std::uint8_t *table = glass_table(n);
    if (table == nullptr) return;
    for (std::size_t colour = 0; colour < kPaletteEntries; ++colour) {
        const std::int64_t grey = under_glass(palette[colour * kComponents], level);
        table[colour] = static_cast<std::uint8_t>(find_colour(first, last, grey, grey, grey, palette));
    }
}

void PAL_make_system_color(uint8_t *palette) {
    std::copy_n(&kSystemColours[0][0], sizeof kSystemColours, palette);
}
