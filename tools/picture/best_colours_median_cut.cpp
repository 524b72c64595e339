// Where libimagequant is not to be had: the box of colours with the widest spread is cut in two at its middle until
// there are as many boxes as colours are wanted (Heckbert's median cut).
#include <algorithm>

#include "picture/best_colours.h"

namespace ink::tool {
namespace {

using Box = std::vector<Rgb>;

// The component in which the colours differ most, and by how much.
std::pair<std::size_t, int> widest(const Box &box) {
    std::pair<std::size_t, int> best{0, -1};
    for (std::size_t component = 0; component < 3; ++component) {
        const auto [least, most] = std::ranges::minmax_element(
            box, {}, [component](const Rgb &colour) { return colour[component]; });
        const int spread = (*most)[component] - (*least)[component];
        if (spread > best.second) best = {component, spread};
    }
    return best;
}

Rgb middle(const Box &box) {
    Rgb made{};
    for (std::size_t component = 0; component < 3; ++component) {
        std::int64_t sum = 0;
        for (const Rgb &colour : box) sum += colour[component];
        made[component] = static_cast<int>((sum + static_cast<std::int64_t>(box.size()) / 2) /
                                           static_cast<std::int64_t>(box.size()));
    }
    return made;
}

}  // namespace

std::vector<Rgb> best_colours(const std::vector<ColourPicture> &pictures, int count) {
    std::vector<Box> boxes(1);
    for (const ColourPicture &picture : pictures)
        for (const auto &[red, green, blue, opacity] : picture.pixels)
            if (opacity >= kOpaque) boxes[0].push_back({red / 4, green / 4, blue / 4});
    if (boxes[0].empty()) return {};
    while (boxes.size() < static_cast<std::size_t>(count)) {
        const auto box =
            std::ranges::max_element(boxes, {}, [](const Box &one) { return widest(one).second; });
        const auto [component, spread] = widest(*box);
        if (spread == 0) break;
        std::ranges::sort(*box, {}, [at = component](const Rgb &colour) { return colour[at]; });
        // Equal colours stay together.
        auto cut = box->begin() + static_cast<std::ptrdiff_t>(box->size() / 2);
        const int value = (*cut)[component];
        while (cut != box->begin() && (*(cut - 1))[component] == value) --cut;
        if (cut == box->begin())
            while (cut != box->end() && (*cut)[component] == value) ++cut;
        Box half(cut, box->end());
        box->erase(cut, box->end());
        boxes.push_back(std::move(half));
    }
    std::vector<Rgb> colours;
    for (const Box &box : boxes) colours.push_back(middle(box));
    return colours;
}

}  // namespace ink::tool
