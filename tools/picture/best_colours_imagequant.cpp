#include <libimagequant.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>

#include "picture/best_colours.h"

namespace ink::tool {
namespace {

struct Release {
    void operator()(liq_attr *attributes) const { liq_attr_destroy(attributes); }
    void operator()(liq_histogram *histogram) const { liq_histogram_destroy(histogram); }
    void operator()(liq_image *image) const { liq_image_destroy(image); }
    void operator()(liq_result *result) const { liq_result_destroy(result); }
};
template <class T>
std::unique_ptr<T, Release> owned(T *made) {
    if (made == nullptr) throw std::runtime_error("the colours cannot be chosen: there is no memory");
    return std::unique_ptr<T, Release>(made);
}
void check(liq_error error) {
    if (error != LIQ_OK)
        throw std::runtime_error("the colours cannot be chosen: error " + std::to_string(error));
}

}  // namespace

std::vector<Rgb> best_colours(const std::vector<ColourPicture> &pictures, int count) {
    const auto attributes = owned(liq_attr_create());
    check(liq_set_max_colors(attributes.get(), std::max(2, count)));
    check(liq_set_min_posterization(attributes.get(), 2));
    const auto histogram = owned(liq_histogram_create(attributes.get()));
    for (const ColourPicture &picture : pictures) {
        // Pixels that are not there have no say.
        std::vector<ColourPicture::Colour> opaque;
        for (const auto &pixel : picture.pixels)
            if (pixel[3] >= kOpaque) opaque.push_back({pixel[0], pixel[1], pixel[2], 255});
        if (opaque.empty()) continue;
        const auto image = owned(
            liq_image_create_rgba(attributes.get(), opaque.data(), static_cast<int>(opaque.size()), 1, 0));
        check(liq_histogram_add_image(histogram.get(), attributes.get(), image.get()));
    }
    liq_result *made = nullptr;
    check(liq_histogram_quantize(histogram.get(), attributes.get(), &made));
    const auto result = owned(made);
    const liq_palette *palette = liq_get_palette(result.get());
    std::vector<Rgb> colours;
    for (unsigned i = 0; i < palette->count && static_cast<int>(i) < count; ++i)
        colours.push_back({palette->entries[i].r / 4, palette->entries[i].g / 4, palette->entries[i].b / 4});
    return colours;
}

}  // namespace ink::tool
