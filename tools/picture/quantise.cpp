#include "picture/quantise.h"

#include <algorithm>
#include <climits>
#include <stdexcept>
#include <unordered_map>

#include "picture/best_colours.h"

namespace ink::tool {
namespace {

std::size_t key(int red, int green, int blue) {
    return static_cast<std::size_t>(red << 12 | green << 6 | blue);
}

// The colours of the pictures as the palette can hold them, each once, in the order in which they appear; at
// most one more than count.
std::vector<Rgb> different_colours(const std::vector<ColourPicture> &pictures, std::size_t count) {
    std::vector<bool> seen(std::size_t{1} << 18);
    std::vector<Rgb> colours;
    for (const ColourPicture &picture : pictures)
        for (const auto &[red, green, blue, opacity] : picture.pixels) {
            const Rgb dim{red / 4, green / 4, blue / 4};
            const std::size_t at = key(dim[0], dim[1], dim[2]);
            if (opacity < kOpaque || seen[at]) continue;
            seen[at] = true;
            colours.push_back(dim);
            if (colours.size() > count) return colours;
        }
    return colours;
}

class Mapper {
  public:
    Mapper(const Palette &palette, Entries entries) : bright_(bright_palette(palette)), entries_(entries) {
        for (int entry = entries.last; entry >= entries.first; --entry) {
            const std::uint8_t *at = palette.data() + 3 * entry;
            exact_[key(at[0], at[1], at[2])] = static_cast<std::int16_t>(entry);
        }
    }

    // The entry with this colour, as well as 6 bits a component can tell; -1 when none has it.
    int exact(const ColourPicture::Colour &pixel) const {
        return exact_[key(pixel[0] / 4, pixel[1] / 4, pixel[2] / 4)];
    }

    Rgb colour(int entry) const {
        const std::uint8_t *at = bright_.data() + 3 * entry;
        return {at[0], at[1], at[2]};
    }

    // The entry that looks most like the colour; eyes tell greens best and blues worst. The lower of equals.
    int nearest(const Rgb &wanted) {
        const auto [place, fresh] =
            known_.try_emplace(static_cast<std::uint32_t>(wanted[0] << 16 | wanted[1] << 8 | wanted[2]), 0);
        if (!fresh) return place->second;
        int best = entries_.first, least = INT_MAX;
        for (int entry = entries_.first; entry <= entries_.last; ++entry) {
            const Rgb has = colour(entry);
            const int red = has[0] - wanted[0], green = has[1] - wanted[1], blue = has[2] - wanted[2];
            const int far = 3 * red * red + 4 * green * green + 2 * blue * blue;
            if (far < least) least = far, best = entry;
        }
        return place->second = best;
    }

  private:
    const Palette bright_;
    const Entries entries_;
    std::vector<std::int16_t> exact_ = std::vector<std::int16_t>(std::size_t{1} << 18, -1);
    std::unordered_map<std::uint32_t, int> known_;
};

}  // namespace

Palette make_palette(const std::vector<ColourPicture> &pictures, Palette palette, Entries entries) {
    if (entries.count() < 1) throw std::runtime_error("there is no entry of the palette to fill");
    const auto count = static_cast<std::size_t>(entries.count());
    std::vector<Rgb> colours = different_colours(pictures, count);
    if (colours.size() > count) colours = best_colours(pictures, entries.count());
    for (std::size_t i = 0; i < colours.size(); ++i)
        for (std::size_t component = 0; component < 3; ++component)
            palette[3 * (static_cast<std::size_t>(entries.first) + i) + component] =
                static_cast<std::uint8_t>(colours[i][component]);
    return palette;
}

IndexedPicture quantise(const ColourPicture &picture, const Palette &palette, Entries entries, bool dither) {
    IndexedPicture made{picture.width, picture.height};
    made.palette = palette;
    Mapper mapper(palette, entries);
    const auto width = static_cast<std::size_t>(picture.width);
    // In sixteenths of a level: what the pixels above and beside have handed on (Floyd and Steinberg), the
    // rows from the left and from the right by turns.
    using Row = std::vector<Rgb>;
    Row here(width + 2), below(width + 2);
    for (int y = 0; y < picture.height; ++y) {
        const int step = y % 2 == 0 ? 1 : -1;
        for (int i = 0; i < picture.width; ++i) {
            const int x = step > 0 ? i : picture.width - 1 - i;
            const auto &pixel =
                picture.pixels[static_cast<std::size_t>(y) * width + static_cast<std::size_t>(x)];
            if (pixel[3] < kOpaque) continue;
            const auto at = static_cast<std::size_t>(x + 1);
            const auto ahead = static_cast<std::size_t>(x + 1 + step),
                       behind = static_cast<std::size_t>(x + 1 - step);
            // A colour that the palette has is drawn plain, whatever is handed on to it.
            if (const int entry = mapper.exact(pixel); entry >= 0) {
                made.row(y)[x] = static_cast<std::uint8_t>(entry);
                continue;
            }
            Rgb wanted;
            for (std::size_t c = 0; c < 3; ++c)
                wanted[c] = std::clamp(pixel[c] + (dither ? here[at][c] / 16 : 0), 0, 255);
            const int entry = mapper.nearest(wanted);
            made.row(y)[x] = static_cast<std::uint8_t>(entry);
            if (!dither) continue;
            const Rgb has = mapper.colour(entry);
            for (std::size_t c = 0; c < 3; ++c) {
                const int missing = wanted[c] - has[c];
                here[ahead][c] += 7 * missing;
                below[behind][c] += 3 * missing;
                below[at][c] += 5 * missing;
                below[ahead][c] += missing;
            }
        }
        here.swap(below);
        below.assign(width + 2, {});
    }
    return made;
}

}  // namespace ink::tool
