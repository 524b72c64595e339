#include "inventory.h"

#include <inkstone/inkstone.h>

#include <algorithm>
#include <vector>

#include "light.h"
#include "panel.h"
#include "picture.h"
#include "sound.h"
#include "state.h"
#include "text.h"

namespace moon {
namespace {

constexpr int kHeight = 68, kFirstX = 24, kColumn = 64, kSize = 48, kMargin = 10;

std::vector<std::uint8_t> images[kThings];
Both names[kThings];
int shown = 0;  // rows of the strip that are down

// The things carried, in the order of their numbers, have the columns of the strip.
std::vector<int> carried() {
    std::vector<int> things;
    for (int thing = 1; thing < kThings; ++thing)
        if (carries(thing)) things.push_back(thing);
    return things;
}

int thing_at(int x, int y) {
    const std::vector<int> things = carried();
    const int column = (x - kFirstX) / kColumn;
    const bool inside = y < shown && x >= kFirstX && column < static_cast<int>(things.size());
    return inside ? things[static_cast<std::size_t>(column)] : kNoThing;
}

void draw_strip(const Input &input) {
    const int top = shown - kHeight;
    draw_glass(8, top - 8, INK_SCREEN_WIDTH - 9, top + kHeight - 1);
    int x = kFirstX;
    const int pointed = thing_at(input.x, input.y);
    std::vector<std::uint8_t> work((kSize + 4) * (kSize + 4) + 4);
    for (const int thing : carried()) {
        const std::uint8_t *image = images[thing].data();
        if (thing == get(kHeld))
            BUF_mesh_pest_image(x, top + kMargin, image, 0xFF,
                                screen());  // its place, while it is in the hand
        else if (thing == pointed)
            BUF_outline_pest_image(x, top + kMargin, image, kBrightGold, 1, screen(), work.data());
        else
            BUF_pest_image(x, top + kMargin, image, screen());
        x += kColumn;
    }
    const TextStyle style{kPaperWhite, kInkBlack, kBrightGold, false};
    // What is in the hand would lie upon the name.
    if (pointed != kNoThing && shown == kHeight && get(kHeld) == kNoThing) {
        const std::string name = in_language(names[pointed]);
        const int width = text_width(name), middle = std::max(kFirstX + width / 2, input.x);
        draw_glass(middle - width / 2 - 12, kHeight + 4, middle + width / 2 + 12, kHeight + 16 + kTextHeight);
        print_centred(middle, kHeight + 10, name, style);
    }
}

}  // namespace

void load_things() {
    const char *const files[] = {"",          "i_stone.img", "i_tea.img",   "i_kite.img",
                                 "i_oil.img", "i_brush.img", "i_paper.img", "i_ink.img",
                                 "i_moon.img"};
    for (int thing = 1; thing < kThings; ++thing) images[thing] = read_image(files[thing]);
}

void name_carried(int thing, const Both &name) {
    if (thing > 0 && thing < kThings) names[thing] = name;
}

const std::uint8_t *thing_image(int thing) {
    return images[std::clamp(thing, 1, kThings - 1)].data();
}

void draw_inventory(const Input &input) {
    constexpr int kNear = 24, kSpeed = 8;
    const bool wanted = !carried().empty() && input.y < (shown > 0 ? kHeight : kNear);
    shown = std::clamp(shown + (wanted ? kSpeed : -kSpeed), 0, kHeight);
    if (shown > 0) draw_strip(input);
    const int held = get(kHeld);
    if (held > 0 && held < kThings) BUF_pest_image(input.x + 10, input.y + 12, images[held].data(), screen());
}

bool click_inventory(const Input &input) {
    if (shown == 0 || input.y >= shown) return false;
    const int thing = thing_at(input.x, input.y);
    set(kHeld, thing == get(kHeld) ? kNoThing : thing);
    play(Sound::kClick);
    return true;
}

Point place_in_strip(int thing) {
    const std::vector<int> things = carried();
    const auto column = std::find(things.begin(), things.end(), thing) - things.begin();
    return {kFirstX + static_cast<int>(column) * kColumn + kSize / 2, kMargin + kSize / 2};
}

}  // namespace moon
