#include "fades.h"

#include <algorithm>
#include <map>

#include "inkstone/draw.h"
#include "inkstone/host.h"
#include "inkstone/palette.h"
#include "inkstone/view.h"
#include "page.h"

namespace gallery {
namespace {

constexpr int kViewWidth = 116, kViewHeight = 150;
constexpr int kSteps[] = {0, 16, 32, 48, 63};

HWND window;
std::map<int, Bytes> seen;  // the picture of each step
int pumped;

void keep(int step) {
    Bytes &picture = seen[step];
    picture.resize(kViewWidth * kViewHeight * 3);
    HOST_read_picture(window, picture.data());
}

// The fade pumps once before each step: what is shown then is the step before.
void pump() {
    HOST_run_messages();
    keep(pumped++ - 1);
}

Bytes night_scene() {
    Bytes pixels = landscape(kViewWidth, kViewHeight);
    const Image &lamp = lantern();
    MEM_pest_image(8, 84, lamp.block.data(), pixels.data(), kViewWidth, kViewHeight);
    MEM_pest_image(66, 60, lamp.block.data(), pixels.data(), kViewWidth, kViewHeight);
    return pixels;
}

// The palette as it looks by a red dawn.
Palette dawn() {
    Palette palette = make_palette();
    for (std::size_t i = 0; i < palette.size(); i += 3) {
        const int grey = (palette[i] + 2 * palette[i + 1] + palette[i + 2]) / 4;
        palette[i] = static_cast<std::uint8_t>(std::min(63, grey + 18));
        palette[i + 1] = static_cast<std::uint8_t>(grey * 3 / 4 + 6);
        palette[i + 2] = static_cast<std::uint8_t>(grey / 2 + 4);
    }
    return palette;
}

void paste(Bytes &page, int left, int top, const Bytes &picture) {
    for (int y = 0; y < kViewHeight; ++y)
        std::copy_n(picture.begin() + y * kViewWidth * 3, kViewWidth * 3,
                    page.begin() + ((top + y) * kWidth + left) * 3);
}

}  // namespace

Bytes draw_fades_page() {
    Page page{"fades", "Fades of the palette", 5, 2, 1, {}};
    Bytes indices = draw_page(page);
    constexpr int kRowHeight = 215, kHeading = 20;
    const char *const headings[] = {"PAL_fade_init, PAL_fade_effect: to black",
                                    "PAL_step_fade_effect: to another palette"};
    for (int row = 0; row < 2; ++row) {
        const int top = kPageTop + row * kRowHeight;
        print(kWidth / 2, top + 2, headings[row], kPaper + 12, indices.data());
        for (int i = 0; i < 5; ++i) {
            const int left = 6 + i * 128;
            BUF_box(left - 1, top + kHeading - 1, left + kViewWidth, top + kHeading + kViewHeight, kInk + 8,
                    indices.data());
            print(left + kViewWidth / 2, top + kHeading + kViewHeight + 4,
                  "step " + std::to_string(kSteps[i]), kGold + 12, indices.data());
        }
    }
    const Palette palette = make_palette();
    Bytes rgb;
    for (const std::uint8_t index : indices)
        for (std::size_t c = 0; c < 3; ++c)
            rgb.push_back(static_cast<std::uint8_t>(palette[index * 3U + c] * 4));

    Bytes scene = night_scene();
    window = HOST_open_window("fades", kViewWidth, kViewHeight, nullptr);
    WViewInit(window, 0, 0, kViewWidth, kViewHeight, scene.data());
    WViewEnable();
    for (int row = 0; row < 2; ++row) {
        SCR_set_palette(palette.data());
        WViewBuffer2Screen();
        const Palette target = row == 0 ? Palette{} : dawn();
        seen.clear();
        if (row == 0) {
            pumped = 0;
            PAL_fade_init(target.data(), pump);
            PAL_fade_effect(0);
        } else {
            PAL_fade_init(target.data(), nullptr);
            PAL_step_fade_effect(0);
            for (int step = 0; step < 63; ++step) {
                PAL_step_fade_effect(1);
                keep(step);
            }
        }
        keep(63);
        for (int i = 0; i < 5; ++i)
            paste(rgb, 6 + i * 128, kPageTop + row * kRowHeight + kHeading, seen[kSteps[i]]);
    }
    WViewDisable();
    HOST_close_window(window);
    return rgb;
}

}  // namespace gallery
