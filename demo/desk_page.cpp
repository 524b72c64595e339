#include "desk_page.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace demo {
namespace {

constexpr std::int32_t kTransparent = 1;
constexpr std::int32_t kRippleCounter = 2;
constexpr std::int32_t kGlass = 1;  // the glass table of the desk in the dark

constexpr const char *kNames[] = {"",
                                  "the inkstone: dip the brush",
                                  "the brush: wipe the paper clean",
                                  "the paper: leave a stroke",
                                  "the lamp: put it out, or light it",
                                  "the seal: sign the paper"};

void ellipse(std::int32_t x, std::int32_t y, std::int32_t rv, std::int32_t rh, std::int32_t colour,
             std::uint8_t *screen) {
    for (std::int32_t row = -rv; row <= rv; ++row) {
        const auto half =
            static_cast<std::int32_t>(rh * std::sqrt(1.0 - static_cast<double>(row * row) / (rv * rv)));
        BUF_line(x - half, y + row, x + half, y + row, colour, screen);
    }
}

void draw_inkstone(std::uint8_t *to) {
    ellipse(150, 330, 62, 98, kInk + 2, to);
    ellipse(150, 324, 62, 98, kInk + 7, to);
    ellipse(150, 324, 54, 88, kInk + 5, to);
    ellipse(150, 336, 36, 66, kInk + 3, to);
    ellipse(164, 342, 20, 40, kInk, to);
    BUF_circle(150, 324, 62, 98, 100, 200, kInk + 12, to);
    BUF_line(140, 338, 176, 336, kInk + 9, to);
}

void draw_brush(std::uint8_t *to) {
    for (std::int32_t i = 0; i < 9; ++i)
        BUF_line(40, 150 + i, 196, 206 + i, kWood + 15 - std::abs(i - 3) * 2, to);
    for (std::int32_t i = 0; i < 12; ++i) BUF_line(196, 205 + i, 206, 208 + i, kGold + 12 - i / 2, to);
    for (std::int32_t i = 0; i < 15; ++i) BUF_line(207, 207 + i, 246, 231 + i / 5, kPaper + 12 - i / 2, to);
    BUF_line(232, 222, 246, 231, kInk + 1, to);
    ellipse(40, 154, 6, 5, kVermilion + 8, to);
    BUF_circle(32, 152, 9, 6, 0, 0, kVermilion + 11, to);
}

void draw_paper(std::uint8_t *to) {
    BUF_bar(300, 96, 560, 396, kPaper + 13, to);
    for (std::int32_t y = 100; y < 396; y += 7) BUF_dash_line(304, y, 556, y, kPaper + 12, 3, to);
    BUF_box(308, 104, 552, 388, kVermilion + 9, to);
    for (std::int32_t column = 1; column < 5; ++column)
        BUF_line(308 + column * 49, 104, 308 + column * 49, 388, kVermilion + 12, to);
    for (const std::int32_t y : {84, 390}) {
        BUF_bar(286, y, 574, y + 14, kWood + 5, to);
        BUF_bar(286, y + 3, 574, y + 6, kWood + 10, to);
        BUF_bar(280, y + 2, 286, y + 12, kInk + 2, to);
        BUF_bar(574, y + 2, 580, y + 12, kInk + 2, to);
    }
}

void draw_lamp(std::uint8_t *to, bool lit) {
    ellipse(90, 108, 10, 34, kJade + 4, to);
    ellipse(90, 104, 8, 30, kJade + 8, to);
    BUF_bar(86, 64, 94, 104, kJade + 6, to);
    BUF_bar(88, 64, 89, 104, kJade + 11, to);
    ellipse(90, 62, 7, 22, kJade + 9, to);
    ellipse(90, 59, 4, 17, kGold + 4, to);
    if (!lit) return;
    ellipse(90, 42, 17, 6, kVermilion + 13, to);
    ellipse(90, 45, 12, 4, kGold + 11, to);
    ellipse(90, 48, 7, 2, kPaper + 15, to);
}

void draw_seal(std::uint8_t *to) {
    BUF_bar(596, 330, 624, 380, kVermilion + 6, to);
    BUF_bar(596, 330, 602, 380, kVermilion + 10, to);
    ellipse(610, 326, 12, 14, kVermilion + 8, to);
    ellipse(606, 322, 5, 5, kVermilion + 13, to);
    BUF_bar(594, 376, 626, 384, kVermilion + 3, to);
}

// The mark of the seal: white lines in a red field.
void stamp(std::int32_t x, std::int32_t y, std::uint8_t *to) {
    BUF_bar(x - 14, y - 14, x + 14, y + 14, kVermilion + 10, to);
    BUF_box(x - 12, y - 12, x + 12, y + 12, kPaper + 13, to);
    BUF_line(x, y - 10, x, y + 10, kPaper + 13, to);
    for (const std::int32_t row : {-7, -2, 3, 8}) BUF_line(x - 9, y + row, x + 9, y + row, kPaper + 13, to);
    BUF_box(x - 7, y - 2, x + 7, y + 8, kPaper + 13, to);
}

// One stroke of a full brush: thick where it sets down, thin where it lifts.
void stroke(std::int32_t x, std::int32_t y, std::int32_t colour, std::uint8_t *to) {
    for (std::int32_t i = 0; i < 44; ++i) {
        const std::int32_t half = i < 6 ? 2 + i / 2 : std::max(1, 6 - (i - 6) / 8);
        BUF_bar(x + i, y - half + i / 8, x + i + 1, y + half - i / 9, colour, to);
    }
}

}  // namespace

void DeskPage::draw_desk() {
    std::uint8_t *to = desk_.data();
    for (std::int32_t y = 0; y < INK_SCREEN_HEIGHT; ++y) {
        for (std::int32_t x = 0; x < INK_SCREEN_WIDTH; ++x) {
            const double grain =
                std::sin(y * 0.21 + 2.5 * std::sin(x * 0.008) + 0.7 * std::sin(x * 0.03 + y * 0.05));
            BUF_put_pixel(x, y, kWood + 5 + static_cast<std::int32_t>(2.4 + 2.4 * grain) - (y % 120 < 2) * 3,
                          to);
        }
    }
}

void DeskPage::draw_thing(Thing thing) {
    std::vector<std::uint8_t> page(INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT);
    switch (thing) {
        case kInkstone: draw_inkstone(page.data()); break;
        case kBrush: draw_brush(page.data()); break;
        case kPaperSheet: draw_paper(page.data()); break;
        case kLamp: draw_lamp(page.data(), lamp_lit_); break;
        case kSeal: draw_seal(page.data()); break;
        default: return;
    }
    std::int32_t left = 0, top = 0, right = INK_SCREEN_WIDTH, bottom = INK_SCREEN_HEIGHT;
    MEM_operate_image_size(&left, &top, &right, &bottom, INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, page.data());
    const std::int32_t width = right - left + 1, height = bottom - top + 1;
    images_[thing].resize(static_cast<std::size_t>(width * height) + 4);
    BUF_get_image(left, top, width, height, images_[thing].data(), page.data());
    lefts_[thing] = left;
    tops_[thing] = top;
}

// The desk with everything on it, and the mask of what lies where.
void DeskPage::compose(Game &game) {
    draw_desk();
    std::fill(mask_.begin(), mask_.end(), std::uint8_t{kNothing});
    std::uint8_t *to = desk_.data();
    for (std::uint8_t i = kInkstone; i < kThings; ++i) {
        const auto thing = static_cast<Thing>(i);
        draw_thing(thing);
        const std::uint8_t *picture = images_[thing].data();
        std::int32_t width = 0, height = 0;
        IMG_get_image_size(picture, &width, &height);
        if (thing != kPaperSheet)
            BUF_shadow_pest_bitmap(lefts_[thing] + 10, tops_[thing], width, height, picture + 4, to,
                                   work_.data());
        if (thing == hovered_)
            BUF_outline_pest_image(lefts_[thing], tops_[thing], picture, kGold + 15, 2, to, work_.data());
        BUF_key_pest_image(lefts_[thing], tops_[thing], picture, to, thing, mask_.data());
        if (thing != kPaperSheet) continue;
        for (const auto &[x, y] : strokes_) stroke(x, y, kInk, to);
        for (const auto &[x, y] : seals_) stamp(x, y, to);
    }
    if (inked_) BUF_bar(238, 226, 247, 233, kInk, to);
    if (ripple_ > 0) BUF_circle(164, 342, ripple_ / 2, ripple_, 0, 0, kInk + 10, to);
    if (!lamp_lit_) BUF_glass_bar(0, 0, INK_SCREEN_WIDTH - 1, INK_SCREEN_HEIGHT - 1, kGlass, to);

    BUF_bar(0, 448, INK_SCREEN_WIDTH - 1, INK_SCREEN_HEIGHT - 1, kInk, to);
    set_ascii16_color(0, kPaper + 13);
    set_ascii16_color(1, kGold + 13);
    const std::string line =
        hovered_ != kNothing ? std::string("~C1\x10~C0 ") + kNames[hovered_] : "click the things on the desk";
    print_ascii16(16, 456, line.c_str(), kTransparent, to);
    print_ascii16(456, 456, "~C1Tab~C0 next  ~C1Esc~C0 leave", kTransparent, to);
    std::copy(desk_.begin(), desk_.end(), game.screen());
}

void DeskPage::draw(Game &game) {
    desk_.resize(INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT);
    mask_.resize(desk_.size());
    work_.resize(desk_.size() + 4);
    // In the dark colours turn into greys of less than half their brightness.
    PAL_make_glass_table(kInk, kInk + 16, kGlass, 26, game.palette().data());
    compose(game);
}

void DeskPage::use(Game &game, Thing thing, const Events &events) {
    if (thing == kNothing) return;
    game.play(thing == kInkstone || thing == kLamp ? Game::kChime : Game::kClick);
    switch (thing) {
        case kInkstone:
            inked_ = true;
            ripple_ = 2;
            SetTimerTick(kRippleCounter, 0);
            break;
        case kBrush:
            strokes_.clear();
            seals_.clear();
            break;
        case kPaperSheet:
            if (inked_)
                strokes_.emplace_back(std::clamp(events.x - 20, 310, 506), std::clamp(events.y, 112, 380));
            break;
        case kLamp: lamp_lit_ = !lamp_lit_; break;
        case kSeal: seals_.emplace_back(530 - static_cast<std::int32_t>(seals_.size() % 5) * 49, 366); break;
        default: break;
    }
}

void DeskPage::frame(Game &game, const Events &events) {
    const auto under_pointer = static_cast<Thing>(MOUSE_get_mask_key(mask_.data()));
    bool changed = under_pointer != hovered_;
    hovered_ = under_pointer;
    constexpr std::uint8_t kLeftDown = 244;
    if (events.mouse == kLeftDown) {
        use(game, under_pointer, events);
        changed = true;
    }
    if (ripple_ > 0 && GetTimerTick(kRippleCounter) >= 1) {
        SetTimerTick(kRippleCounter, 0);
        ripple_ = ripple_ < 38 ? ripple_ + 4 : 0;
        changed = true;
    }
    if (changed)
        compose(game);
    else
        std::copy(desk_.begin(), desk_.end(), game.screen());
}

}  // namespace demo
