#include "figure.h"

#include <inkstone/inkstone.h>

#include <algorithm>

#include "frame.h"
#include "light.h"

namespace moon {
namespace {

// The picture mirrored left to right.
std::vector<std::uint8_t> mirror(const std::uint8_t *image, int width, int height) {
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    MEM_turn_pest_image(0, 0, image, width, height, pixels.data());
    return pixels;
}

// A pool of dim glass around the feet.
void draw_shadow(int x, int y, int half_width) {
    const int half_height = half_width / 4;
    for (int row = -half_height; row <= half_height; ++row) {
        const int across = half_width * int_cos(90 * row / std::max(1, half_height)) / 65536;
        BUF_glass_bar(x - across, y + row, x + across, y + row, kDimGlass, screen());
    }
}

}  // namespace

Figure::~Figure() {
    ANI_free_ani(animation_);
}

void Figure::load(const std::string &name) {
    frames_.clear();
    ANI_free_ani(animation_);
    animation_ = nullptr;
    CAN_read_file(name.c_str(), &animation_, nullptr);
    if (animation_ == nullptr) return;
    for (const ANI_DATA_STRUCT *frame = animation_->next; frame != nullptr; frame = frame->next)
        frames_.push_back(frame);
}

void Figure::draw(int x, int y, const Look &look, std::uint8_t *mask) const {
    if (frames_.empty()) return;
    const ANI_DATA_STRUCT &frame = *frames_[static_cast<std::size_t>(look.frame) % frames_.size()];
    std::int32_t width = 0, height = 0;
    IMG_get_image_size(frame.image, &width, &height);
    const std::vector<std::uint8_t> mirrored =
        look.mirrored ? mirror(frame.image, width, height) : std::vector<std::uint8_t>();
    const std::uint8_t *pixels = look.mirrored ? mirrored.data() : frame.image + 4;
    const int from_feet = look.mirrored ? -frame.x - width : frame.x;

    // It is scaled on a sheet of its own and cut out there, for its shadow and its outline.
    static std::vector<std::uint8_t> sheet(INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT);
    const int w = std::clamp(width * look.percent / 100, 1, INK_SCREEN_WIDTH);
    const int h = std::clamp(height * look.percent / 100, 1, INK_SCREEN_HEIGHT);
    BUF_bar(0, 0, w - 1, h - 1, 0, sheet.data());
    BUF_scale_pest_bitmap(0, 0, w, h, width, height, pixels, sheet.data());
    std::vector<std::uint8_t> scaled(static_cast<std::size_t>(w * h) + 4);
    BUF_get_image(0, 0, w, h, scaled.data(), sheet.data());

    const int left = x + from_feet * look.percent / 100, top = y + frame.y * look.percent / 100;
    draw_shadow(x, y, h / 5);
    if (look.outline != 0) {
        std::vector<std::uint8_t> work(static_cast<std::size_t>((w + 2) * (h + 2)) + 4);
        BUF_outline_pest_image(left, top, scaled.data(), look.outline, 1, screen(), work.data());
    }
    if (mask != nullptr)
        BUF_key_pest_image(left, top, scaled.data(), screen(), look.key, mask);
    else
        BUF_pest_image(left, top, scaled.data(), screen());
}

}  // namespace moon
